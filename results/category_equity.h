// "Equity per Category": My Hand's equity against the holdings under each category and group of the
// results tree, under the showdown rules in force.
//
// One enumeration of the board's completions counts every showdown for each holding apart
// (CountShowdownsByHolding, StandardShowdownTallyByHolding); a node's equity is then the sum over its
// holdings, put through the formula the equity command uses: under the program's rules wins over decided
// showdowns (ties left out, rounded half to even to two decimals), under the standard rules wins plus
// half the ties over all showdowns. So the equity of a node is what Calc Equity shows against exactly the
// holdings under it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cards/card.h"
#include "categorise/category_node.h"
#include "equity/showdown_rules.h"

namespace quillet {

// The showdowns of My Hand against each of a set of holdings, counted in one enumeration.
class HoldingShowdowns {
 public:
  // My Hand against each holding of `holdings` (their flags are not read: every listed holding takes
  // part; a holding listed twice is counted once) on the board of `street`: every completion of a flop or
  // a turn, the board as it stands on the river (one showdown per holding). A holding that shares a card
  // with My Hand or the board, or a street without a board, counts nothing.
  HoldingShowdowns(const HandCards& myHand, const BoardCards& board, Street street,
                   std::span<const HandCombo> holdings, ShowdownRules rules);

  ShowdownRules rules() const { return rules_; }
  // How many units of the tallies make one showdown: kFullWeight when a holding counted has a weight
  // below whole (each showdown then counts the holding's weight in thousandths), else 1.
  uint64_t scale() const { return scale_; }
  // The showdowns against one holding, My Hand's side (all zero for a holding that was not counted).
  ShowdownTally Of(const HandCombo& holding) const;

 private:
  ShowdownRules rules_;
  uint64_t scale_ = 1;
  std::vector<ShowdownTally> byNumber_;  // by holding number (cards/holding.h)
};

// Sums the showdowns of holdings, each holding once however often it is added.
class ShowdownSum {
 public:
  explicit ShowdownSum(const HoldingShowdowns& showdowns);

  void Add(std::span<const HandCombo> holdings);
  const ShowdownTally& tally() const { return tally_; }
  // My Hand's equity against the holdings added, by the equity command's formula for the rules; none when
  // they met in no showdown.
  std::optional<double> Equity() const;

 private:
  const HoldingShowdowns& showdowns_;
  std::vector<bool> added_;
  ShowdownTally tally_;
};

// My Hand's equity in percent from a tally, by the equity command's formula for `rules`; none without a
// showdown (under the program's rules a tally of ties alone gives 50).
std::optional<double> EquityOfTally(const ShowdownTally& tally, ShowdownRules rules);

// The holdings of a category table, each once (in table order), flags set: the live holdings a cook
// classified, which the equities per category are counted on.
std::vector<HandCombo> CategorisedHoldings(const Categories& categories);

// The holdings under category `index`: its own and those of the deeper categories that follow it (up to
// the next category of its depth or less), each listed as often as it stands in them.
std::vector<HandCombo> HoldingsUnderCategory(const Categories& categories, int index);

// Per category of the table: My Hand's equity against the holdings under it (each once); none for a
// spacer, a category with nothing under it and one whose holdings met in no showdown.
std::vector<std::optional<double>> CategoryEquities(const Categories& categories,
                                                    const HoldingShowdowns& showdowns);

// What a node's text ends with: " eq 63.2%" (one decimal, as the equity read-outs show it); empty without
// an equity.
std::string EquitySuffix(std::optional<double> equity);

}  // namespace quillet
