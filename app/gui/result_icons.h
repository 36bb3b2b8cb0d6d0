// The pictures of the results tree: one small icon for each category icon key and for "win", "tie" and
// "lose", and the pointer the tree shows while it signals an error. All are drawn here, at run time.
#pragma once

#include <QCursor>
#include <QIcon>
#include <string_view>
#include <vector>

namespace quillet::gui {

// The icon of an image key; a null icon for a key that has no picture.
QIcon ResultIcon(std::string_view key);

// Every key that has a picture.
const std::vector<std::string_view>& ResultIconKeys();

// The tree's pointer while "Add to Range" signals that a node could not be taken.
QCursor TreeErrorCursor();

}  // namespace quillet::gui
