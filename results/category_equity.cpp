#include "results/category_equity.h"

#include <algorithm>

#include "cards/holding.h"
#include "cards/showdown_key.h"
#include "categorise/categories.h"
#include "equity/engine.h"
#include "equity/enumeration.h"
#include "equity/equity_display.h"
#include "equity/standard_equity.h"
#include "results/build_results_tree.h"

namespace quillet {
namespace {

// The holdings a category really has: its count, kept within its list.
std::span<const HandCombo> OwnHoldings(const CategoryNode& node) {
  const auto own =
      std::min<std::size_t>(static_cast<std::size_t>(std::max(node.count, 0)), node.combos.size());
  return {node.combos.data(), own};
}

}  // namespace

HoldingShowdowns::HoldingShowdowns(const HandCards& myHand, const BoardCards& board, Street street,
                                   std::span<const HandCombo> holdings, ShowdownRules rules)
    : rules_(rules), byNumber_(kHoldingCount) {
  if (street != kFlop && street != kTurn && street != kRiver) return;
  // Each holding once, flag set, and none that shares a card with My Hand or the board.
  const uint64_t deadCards = KnownCardsWithHand(myHand, board, street).bits;
  std::vector<HandCombo> live;
  live.reserve(holdings.size());
  std::vector<bool> listed(kHoldingCount, false);
  for (HandCombo holding : holdings) {
    if (!IsLiveHolding(holding.card1(), holding.card2(), deadCards)) continue;
    const int32_t number = HoldingNumber(holding.card1(), holding.card2());
    if (listed[number]) continue;
    listed[number] = true;
    holding.flag = true;
    live.push_back(holding);
  }
  if (live.empty()) return;

  if (rules == ShowdownRules::Standard) {
    std::vector<ShowdownTally> tallies(live.size());
    StandardShowdownTallyByHolding(myHand, board, street, live, tallies);
    scale_ = tallies.front().scale;
    for (std::size_t k = 0; k < live.size(); ++k)
      byNumber_[HoldingNumber(live[k].card1(), live[k].card2())] = tallies[k];
    return;
  }
  std::vector<ShowdownCounts> counts(live.size());
  CountShowdownsByHolding(myHand, board, street, live, counts);
  scale_ = static_cast<uint64_t>(counts.front().scale);
  for (std::size_t k = 0; k < live.size(); ++k) {
    const ShowdownCounts& c = counts[k];
    byNumber_[HoldingNumber(live[k].card1(), live[k].card2())] = {static_cast<uint64_t>(c.myWins),
                                                                  static_cast<uint64_t>(c.ties),
                                                                  static_cast<uint64_t>(c.oppWins), scale_};
  }
}

ShowdownTally HoldingShowdowns::Of(const HandCombo& holding) const {
  if (!IsHolding(holding.card1(), holding.card2())) return {};
  return byNumber_[HoldingNumber(holding.card1(), holding.card2())];
}

ShowdownSum::ShowdownSum(const HoldingShowdowns& showdowns)
    : showdowns_(showdowns), added_(kHoldingCount, false) {
  tally_.scale = showdowns.scale();
}

void ShowdownSum::Add(std::span<const HandCombo> holdings) {
  for (const HandCombo& holding : holdings) {
    if (!IsHolding(holding.card1(), holding.card2())) continue;
    const int32_t number = HoldingNumber(holding.card1(), holding.card2());
    if (added_[number]) continue;
    added_[number] = true;
    tally_ += showdowns_.Of(holding);
  }
}

std::optional<double> ShowdownSum::Equity() const {
  return EquityOfTally(tally_, showdowns_.rules());
}

std::optional<double> EquityOfTally(const ShowdownTally& tally, ShowdownRules rules) {
  if (tally.Showdowns() == 0) return std::nullopt;
  if (rules == ShowdownRules::Standard) return EquityFromTally(tally).my;
  ShowdownCounts counts;
  counts.total = static_cast<int64_t>(tally.Showdowns());
  counts.myWins = static_cast<int64_t>(tally.wins);
  counts.oppWins = static_cast<int64_t>(tally.losses);
  counts.ties = static_cast<int64_t>(tally.ties);
  return EquityFromCounts(counts).my;
}

std::vector<HandCombo> CategorisedHoldings(const Categories& categories) {
  std::vector<HandCombo> holdings;
  std::vector<bool> listed(kHoldingCount, false);
  for (const CategoryNode& node : categories.nodes) {
    for (HandCombo holding : OwnHoldings(node)) {
      if (!IsHolding(holding.card1(), holding.card2())) continue;
      const int32_t number = HoldingNumber(holding.card1(), holding.card2());
      if (listed[number]) continue;
      listed[number] = true;
      holding.flag = true;
      holdings.push_back(holding);
    }
  }
  return holdings;
}

std::vector<HandCombo> HoldingsUnderCategory(const Categories& categories, int index) {
  const std::vector<CategoryNode>& nodes = categories.nodes;
  std::vector<HandCombo> holdings;
  if (index < 0 || index >= static_cast<int>(nodes.size())) return holdings;
  const std::span<const HandCombo> own = OwnHoldings(nodes[index]);
  holdings.assign(own.begin(), own.end());
  const int depth = CategoryDepth(nodes[index].label);
  int lastDepth = depth;
  for (int j = index + 1; j < static_cast<int>(nodes.size()); ++j) {
    int d = CategoryDepth(nodes[j].label);
    if (d < 0) d = lastDepth;  // a label without its mark keeps the depth before it
    if (d <= depth) break;
    lastDepth = d;
    const std::span<const HandCombo> deeper = OwnHoldings(nodes[j]);
    holdings.insert(holdings.end(), deeper.begin(), deeper.end());
  }
  return holdings;
}

std::vector<std::optional<double>> CategoryEquities(const Categories& categories,
                                                    const HoldingShowdowns& showdowns) {
  std::vector<std::optional<double>> equities(categories.nodes.size());
  for (std::size_t i = 0; i < categories.nodes.size(); ++i) {
    if (CategoryText(categories.nodes[i].label).empty()) continue;  // a spacer
    ShowdownSum sum(showdowns);
    sum.Add(HoldingsUnderCategory(categories, static_cast<int>(i)));
    equities[i] = sum.Equity();
  }
  return equities;
}

std::string EquitySuffix(std::optional<double> equity) {
  if (!equity) return {};
  return " eq " + FormatEquityReadOut(*equity);
}

}  // namespace quillet
