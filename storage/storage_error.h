// Failures of the storage layer, handed back as values. The message is one line of text that names the
// file and says what is wrong with it; the window shows it in a message box, quillet-cli on stderr.
#pragma once

#include <string>

namespace quillet {

struct StorageError {
  std::string message;
};

}  // namespace quillet
