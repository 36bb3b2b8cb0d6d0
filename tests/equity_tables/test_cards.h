// Cards from their text in tests: C("Ah").
#pragma once

#include <string_view>

#include "cards/card.h"

namespace quillet::testing {

inline Card C(std::string_view text) {
  return {RankFromChar(text.substr(0, 1)), SuitFromChar(text.substr(1, 1))};
}

}  // namespace quillet::testing
