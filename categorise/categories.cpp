#include "categorise/categories.h"

#include <array>

namespace quillet {

const std::array<CategoryDefinition, kCategoryCount>& CategoryDefinitions() {
  static constexpr std::array<CategoryDefinition, kCategoryCount> kTable = {{
      {"*High cards", "highcard"},
      {">*A high", ""},
      {">*K high", ""},
      {">*Q high", ""},
      {">*etc high", ""},
      {"*", ""},
      {"*One pair", "pairm"},
      {">*O pair", "pairo"},
      {">*T pair", "pairt"},
      {">*~ pair", "pairt-m"},
      {">*M pair", "pairm"},
      {">*~ pair", "pairm-b"},
      {">*B pair", "pairb"},
      {">*L pair", "pairl"},
      {"*", ""},
      {"*Two pair", "2pt-m"},
      {">*TM own 2pair", "own2pt-m"},
      {">*TB own 2pair", "own2pt-b"},
      {">*MB own 2pair", "own2pm-b"},
      {">*OT 2pair (>TC)", "2po-t"},
      {">*OT 2pair (=TC)", "2po-teqt"},
      {">*OT 2pair", "2po-tnormal"},
      {">*TM 2pair", "2pt-m"},
      {">*TB 2pair", "2pt-b"},
      {"*", ""},
      {"*8 out or better draw", "draw8"},
      {">*Open ended straight draws", "drawoes"},
      {">*Flush draws", "drawflush"},
      {"*", ""},
      {"*Gutshot and backdoor draws", "draw"},
      {">*Gutshot Straight draw w pair", "drawgsswp"},
      {">*Gutshot Straight draw no pair", "drawgss"},
      {">*Backdoor Flush draw", "drawbdf"},
      {">*Backdoor Straight draw", "drawbds"},
      {"*", ""},
      {"*Trips", "trips"},
      {"*", ""},
      {"*Sets", "setm"},
      {">*T set", "sett"},
      {">*~ set", "sett-m"},
      {">*M set", "setm"},
      {">*~ set", "setm-b"},
      {">*B set", "setb"},
      {"*", ""},
      {"*Straight", "straight"},
      {"*", ""},
      {"*Flush", "flush"},
      {"*", ""},
      {"*Full House", "fullhouse"},
      {"*", ""},
      {"*Quad", "quad"},
      {"*", ""},
      {"*Straight Flush", "straightflush"},
      {"*", ""},
      {"*Royal Flush", "royalflush"},
  }};
  return kTable;
}

void InitCategories(Categories& categories) {
  const auto& table = CategoryDefinitions();
  categories.nodes.assign(kCategoryCount, CategoryNode{});
  for (int i = 0; i < kCategoryCount; ++i) {
    CategoryNode& node = categories.nodes[i];
    node.label = std::string(table[i].label);
    node.iconKey = std::string(table[i].iconKey);
    node.nonEmpty = true;
  }
  categories.categorisedCount = 0;
  categories.categorisedWeight = 0;
}

void AddToCategory(Categories& categories, int32_t n, const HandCombo& combo) {
  CategoryNode& node = categories.nodes[n];
  // A fresh entry gets room for a typical run at once, so a cook grows each list at most a few times and
  // later cooks reuse the memory.
  if (node.combos.capacity() == 0) node.combos.reserve(64);
  node.combos.push_back(combo);
  node.count = static_cast<int32_t>(node.combos.size());
  node.weight += combo.weight;
}

std::string_view CategoryText(std::string_view label) {
  const auto star = label.find('*');
  return star == std::string_view::npos ? label : label.substr(star + 1);
}

bool IsChildCategory(std::string_view label) {
  return label.starts_with(">*");
}

bool IsSpacerCategory(std::string_view label) {
  return label == "*";
}

}  // namespace quillet
