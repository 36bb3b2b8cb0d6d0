#include "cli/per_class.h"

#include <cmath>
#include <cstdio>

#include "cli/options.h"

namespace quillet::cli {
namespace {

constexpr const char* kRankLetters = "AKQJT98765432";

}  // namespace

Json ClassEquitiesJson(const ClassEquities& classes) {
  Json list = Json::array();
  const auto& names = HandClasses();
  for (int i = 0; i < kClassCount; ++i) {
    if (!classes[i]) continue;
    list.push_back(Json{{"class", names[i].caption},
                        {"equity", JsonNumber(classes[i]->equity)},
                        {"holdings", classes[i]->holdings}});
  }
  return list;
}

std::string ClassEquitiesTable(const ClassEquities& classes) {
  std::string text = " ";
  for (int column = 0; column < 13; ++column) {
    text += "   ";
    text += kRankLetters[column];
  }
  text += "\n";
  char cell[8];
  for (int row = 0; row < 13; ++row) {
    text += kRankLetters[row];
    for (int column = 0; column < 13; ++column) {
      const auto& c = classes[row * 13 + column];
      if (c) {
        std::snprintf(cell, sizeof cell, "%4.0f", std::nearbyint(c->equity));
      } else {
        std::snprintf(cell, sizeof cell, "%4s", ".");
      }
      text += cell;
    }
    text += "\n";
  }
  return text;
}

}  // namespace quillet::cli
