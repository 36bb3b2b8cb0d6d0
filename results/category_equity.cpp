#include "results/category_equity.h"

#include <algorithm>

#include "cards/holding.h"
#include "cards/showdown_key.h"
#include "categorise/categories.h"
#include "equity/board_record.h"
#include "equity/engine.h"
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

// The program's rules on the river: the board as it stands, decided by the showdown keys the engine
// compares.
void CountRiver(const HandCards& myHand, const BoardCards& board, std::span<const HandCombo> holdings,
                std::span<ShowdownCounts> counts) {
  const HandCombo mine{true, myHand.rank1, myHand.suit1, myHand.rank2, myHand.suit2};
  const ShowdownKey myKey = StreetShowdownKey(mine, board, kRiver);
  for (std::size_t k = 0; k < holdings.size(); ++k) {
    const ShowdownKey key = StreetShowdownKey(holdings[k], board, kRiver);
    counts[k] = {1, myKey > key ? 1 : 0, myKey < key ? 1 : 0, myKey == key ? 1 : 0};
  }
}

bool SharesCard(const HandCombo& holding, Card card) {
  return holding.card1() == card || holding.card2() == card;
}

}  // namespace

HoldingShowdowns::HoldingShowdowns(const HandCards& myHand, const BoardCards& board, int32_t street,
                                   std::span<const HandCombo> holdings, ShowdownRules rules)
    : rules_(rules), byNumber_(kHoldingCount) {
  if (street != kFlop && street != kTurn && street != kRiver) return;
  const int known = BoardCardCount(street);
  // Each holding once, flag set, and none that shares a card with My Hand or the board.
  std::vector<HandCombo> live;
  live.reserve(holdings.size());
  std::vector<bool> listed(kHoldingCount, false);
  for (HandCombo holding : holdings) {
    if (!IsHolding(holding.card1(), holding.card2())) continue;
    bool dead = SharesCard(holding, myHand.card1()) || SharesCard(holding, myHand.card2());
    for (int i = 0; i < known; ++i) dead = dead || SharesCard(holding, board[i]);
    const int32_t number = HoldingNumber(holding.card1(), holding.card2());
    if (dead || listed[number]) continue;
    listed[number] = true;
    holding.flag = true;
    live.push_back(holding);
  }
  if (live.empty()) return;

  if (rules == ShowdownRules::Standard) {
    std::vector<ShowdownTally> tallies(live.size());
    StandardShowdownTallyByHolding(myHand, board, street, live, tallies);
    for (std::size_t k = 0; k < live.size(); ++k)
      byNumber_[HoldingNumber(live[k].card1(), live[k].card2())] = tallies[k];
    return;
  }
  std::vector<ShowdownCounts> counts(live.size());
  if (street == kRiver) {
    CountRiver(myHand, board, live, counts);
  } else {
    CountShowdownsByHolding(myHand, board, street, live, counts);
  }
  for (std::size_t k = 0; k < live.size(); ++k) {
    const ShowdownCounts& c = counts[k];
    byNumber_[HoldingNumber(live[k].card1(), live[k].card2())] = {
        static_cast<uint64_t>(c.myWins), static_cast<uint64_t>(c.ties), static_cast<uint64_t>(c.oppWins)};
  }
}

ShowdownTally HoldingShowdowns::Of(const HandCombo& holding) const {
  if (!IsHolding(holding.card1(), holding.card2())) return {};
  return byNumber_[HoldingNumber(holding.card1(), holding.card2())];
}

ShowdownSum::ShowdownSum(const HoldingShowdowns& showdowns)
    : showdowns_(showdowns), added_(kHoldingCount, false) {}

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
