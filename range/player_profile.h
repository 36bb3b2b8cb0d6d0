// A named opponent: the range text box's text and the two layers of the hand grid.
#pragma once

#include <string>
#include <vector>

#include "range/block_record.h"

namespace quillet {

struct PlayerProfile {
  std::string name;       // empty: a free slot, neither listed nor saved
  std::string rangeText;  // the range text box's text, stored on every change of the box
  RangeLayer rangeLayer;  // the On layer
  RangeLayer seenLayer;   // the Seen layer

  bool isFree() const { return name.empty(); }
  friend bool operator==(const PlayerProfile&, const PlayerProfile&) = default;
};

// A fresh profile record: empty name and text, both layers with their class ranks and nothing else.
void InitProfile(PlayerProfile& profile);

}  // namespace quillet
