#include "results/build_results_tree.h"

#include <algorithm>
#include <span>
#include <utility>

#include "cards/showdown_key.h"
#include "categorise/categories.h"
#include "equity/standard_equity.h"
#include "quillet/version.h"
#include "range/range_notation.h"
#include "results/category_equity.h"
#include "results/combo_groups.h"

namespace quillet {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

char RankChar(int32_t rank) {
  return rank >= 2 && rank <= 14 ? kRankText[rank - 1] : '?';
}
char SuitChar(int32_t suit) {
  return suit >= 0 && suit <= 3 ? kSuitText[suit] : '?';
}

std::string CategoryKey(int i) {
  return std::to_string(i) + "k";
}

// The holdings a category really has: its count, kept within its list.
int32_t OwnCount(const CategoryNode& node) {
  return std::clamp<int32_t>(node.count, 0, static_cast<int32_t>(node.combos.size()));
}

// The combinations a category's own holdings make, in thousandths (a holding counts its weight).
int64_t OwnWeight(const CategoryNode& node) {
  return std::max<int64_t>(node.weight, 0);
}

// A label with a "*" and nothing after it: a spacer line of the table.
bool IsBlankLabel(std::string_view label) {
  return label.find('*') != std::string_view::npos && CategoryText(label).empty();
}

std::string CategoryErrorText(int i, std::string_view label) {
  return "Category error: " + std::to_string(i) + " " + std::string(label);
}

// " (12) 4%": the combinations (weights in thousandths: "12.5" where they make a fraction) and their share
// of the categorised total, the share truncated to an integer. With whole weights the total is the number
// of holdings and the share that of the categorised count.
std::string CountText(int64_t total, int64_t totalCombos) {
  const int64_t percent = totalCombos == 0 ? 0 : total * 100 / totalCombos;
  return " (" + CombosText(total) + ") " + std::to_string(percent) + "%";
}

// The combinations a group's holdings make, in thousandths.
int64_t GroupWeight(const ComboGroup& group) {
  int64_t sum = 0;
  for (const HandCombo& combo : group.combos) sum += combo.weight;
  return sum;
}

std::string GroupNodeText(const ComboGroup& group) {
  std::string text(group.whole ? kWholeGroupMark : kPartGroupMark);
  text += RankChar(group.rank1);
  text += RankChar(group.rank2);
  text += group.suited ? "s (" : (group.offsuit ? "o (" : "  (");
  text += CombosText(GroupWeight(group)) + ")";
  const bool anyMarked =
      std::any_of(group.combos.begin(), group.combos.end(), [](const HandCombo& c) { return !c.flag; });
  if (anyMarked) text += " *";
  return text;
}

// One build's working state: the output, and per category its depth, shown flag and descendant count.
class TreeBuilder {
 public:
  TreeBuilder(const Categories& categories, const ResultsOptions& options, const ResultsCards& cards,
              const MessageSink& message)
      : categories_(categories),
        nodes_(categories.nodes),
        options_(options),
        cards_(cards),
        message_(message) {
    const std::size_t n = nodes_.size();
    depth_.assign(n, 0);
    nonEmpty_.resize(n);
    for (std::size_t i = 0; i < n; ++i) nonEmpty_[i] = nodes_[i].nonEmpty;
    out_.descendantCounts.assign(n, 0);
    out_.descendantWeights.assign(n, 0);
    depthStack_.assign(101, -1);
  }

  ResultsBuild Build() {
    // At most a node per category and two per holding (a group and its holding); reserving that keeps the
    // build from copying the nodes over and over as they grow.
    std::size_t holdings = 0;
    for (const CategoryNode& node : nodes_) holdings += static_cast<std::size_t>(OwnCount(node));
    const std::size_t most = nodes_.size() + 2 * holdings;
    out_.tree.nodes.reserve(most);
    out_.tree.byKey.reserve(most);
    out_.exportText.reserve(64 + 16 * most);
    out_.exportText = ExportHeader(cards_.myHandText, cards_.boardText);
    out_.tree.imageListAttached = options_.winLoseIcons || options_.categoryIcons;
    CountCategoryEquities();
    const int n = static_cast<int>(nodes_.size());
    int i = 0;
    while (i < n) i = Visit(i);
    return std::move(out_);
  }

 private:
  // One enumeration over the holdings the cook classified, read by every category and group node.
  void CountCategoryEquities() {
    if (!options_.categoryEquity || cards_.street == kNoBoard) return;
    if (!IsDeckCard(cards_.hand.card1()) || !IsDeckCard(cards_.hand.card2())) return;
    showdowns_.emplace(cards_.hand, cards_.board, cards_.OnStreet(), CategorisedHoldings(categories_),
                       options_.showdownRules);
    out_.categoryEquities = CategoryEquities(categories_, *showdowns_);
  }

  std::string CategoryEquityText(int i) const {
    if (out_.categoryEquities.empty()) return {};
    return EquitySuffix(out_.categoryEquities[static_cast<std::size_t>(i)]);
  }

  std::string GroupEquityText(const ComboGroup& group) const {
    if (!showdowns_) return {};
    ShowdownSum sum(*showdowns_);
    sum.Add(group.combos);
    return EquitySuffix(sum.Equity());
  }

  void Report(int i, std::string_view label) {
    if (message_) message_(CategoryErrorText(i, label));
  }

  // Steps 1 to 7 (or 8) for category i; returns the category to visit next.
  int Visit(int i) {
    const CategoryNode& node = nodes_[i];
    int depth = CategoryDepth(node.label);
    if (depth < 0) {
      Report(i, node.label);
      depth = i > 0 ? depth_[i - 1] : 0;  // the depth stays that of the category before
    }
    depth_[i] = depth;
    if (depth >= static_cast<int>(depthStack_.size())) depthStack_.resize(depth + 1, -1);
    depthStack_[depth] = i;

    if (!nonEmpty_[i]) SumDescendants(i, depth);
    if (!nonEmpty_[i] && options_.hideEmptyCats) return i + 1;

    // A spacer survives only in front of a shown category: step back to it, show it, then come again.
    if (options_.hideEmptyCats && i > 0 && !nonEmpty_[i - 1] && IsBlankLabel(nodes_[i - 1].label) &&
        depth_[i - 1] == depth) {
      nonEmpty_[i - 1] = true;
      return i - 1;
    }

    const std::string_view shown = CategoryText(node.label);
    std::string text(shown);
    if (!shown.empty()) {
      text += CountText(OwnWeight(node) + out_.descendantWeights[i], categories_.categorisedWeight);
      text += CategoryEquityText(i);
    }
    const std::string_view image =
        options_.categoryIcons ? std::string_view(node.iconKey) : std::string_view();
    const int parent = depth > 0 ? depthStack_[depth - 1] : -1;
    const std::string key = CategoryKey(i);
    AddResultNode(out_.tree, out_.exportText, depth, parent >= 0 ? CategoryKey(parent) : std::string(),
                  parent >= 0 ? kChildNode : kRootNode, key, std::move(text), image, true);

    const std::span<const HandCombo> combos(node.combos.data(), static_cast<std::size_t>(OwnCount(node)));
    if (options_.simplifyOutput) {
      AddGroups(i, depth, key, combos);
    } else {
      AddCombos(i, depth, key, combos);
    }
    return i + 1;
  }

  // The holdings of the deeper categories that follow i; i counts as non-empty once they or it hold any.
  void SumDescendants(int i, int depth) {
    int32_t& sum = out_.descendantCounts[i];
    int64_t& weight = out_.descendantWeights[i];
    sum = 0;
    weight = 0;
    const int n = static_cast<int>(nodes_.size());
    int lastDepth = depth;
    for (int j = i + 1; j < n; ++j) {
      int d = CategoryDepth(nodes_[j].label);
      if (d < 0) {
        Report(i, nodes_[i].label);  // worded with the category being summed, as it always was
        d = lastDepth;
      }
      if (d <= depth) break;
      lastDepth = d;
      sum += OwnCount(nodes_[j]);
      weight += OwnWeight(nodes_[j]);
      if (OwnCount(nodes_[i]) + sum != 0) nonEmpty_[i] = true;
    }
  }

  WinTieLose Icon(const HandCombo& combo) const {
    return WinTieLoseIcon(options_.winLoseIcons, cards_.hand, combo, cards_.board, cards_.OnStreet(),
                          options_.showdownRules);
  }

  void AddComboNode(int level, const std::string& parentKey, std::string key, const HandCombo& combo,
                    std::string text, std::string_view image, bool exportLine) {
    const int index = AddResultNode(out_.tree, out_.exportText, level, parentKey, kChildNode, std::move(key),
                                    std::move(text), image, exportLine);
    out_.tree.nodes[index].foreColour = ResultNodeColour(combo.suit1, combo.suit2);
  }

  void AddCombos(int i, int depth, const std::string& categoryKey, std::span<const HandCombo> combos) {
    std::vector<HandCombo> sorted(combos.begin(), combos.end());
    SortCombos(sorted);
    for (std::size_t k = 0; k < sorted.size(); ++k) {
      const HandCombo& combo = sorted[k];
      std::string text = ComboNodeText(combo);
      if (!combo.flag) text += " *";
      AddComboNode(depth + 1, categoryKey, std::to_string(k) + "-" + CategoryKey(i), combo, std::move(text),
                   Icon(combo).imageKey, true);
    }
  }

  void AddGroups(int i, int depth, const std::string& categoryKey, std::span<const HandCombo> combos) {
    const std::vector<ComboGroup> groups = GroupCombosByClass(combos);
    for (std::size_t k = 0; k < groups.size(); ++k) {
      const ComboGroup& group = groups[k];
      const std::string groupKey = std::to_string(k) + "-" + CategoryKey(i);
      const HandCombo& first = group.combos.front();
      if (group.count() == 1) {
        AddComboNode(depth + 1, categoryKey, groupKey, first, "  " + ComboNodeText(first),
                     Icon(first).imageKey, true);
        continue;
      }

      // The group's icon is its first holding's. A decisive one is checked against the other holdings,
      // but each check reads the first holding again, so it always passes: the group shows it alone.
      // Kept so on purpose.
      const WinTieLose firstIcon = Icon(first);
      bool uniform = firstIcon.decisive;
      if (uniform) {
        for (int32_t m = 1; m < group.count(); ++m) {
          if (Icon(group.combos.front()).imageKey != firstIcon.imageKey) uniform = false;
        }
      }
      AddResultNode(out_.tree, out_.exportText, depth + 1, categoryKey, kChildNode, groupKey,
                    GroupNodeText(group) + GroupEquityText(group), firstIcon.imageKey, true);
      for (int32_t m = 0; m < group.count(); ++m) {
        const HandCombo& combo = group.combos[m];
        std::string text = ComboNodeText(combo);
        if (!combo.flag) text += " *";
        const std::string_view image = uniform ? std::string_view() : Icon(combo).imageKey;
        AddComboNode(depth + 2, groupKey, std::to_string(m) + "-" + groupKey, combo, std::move(text), image,
                     !options_.simplifyFurther);
      }
    }
  }

  const Categories& categories_;
  const std::vector<CategoryNode>& nodes_;
  const ResultsOptions& options_;
  const ResultsCards& cards_;
  const MessageSink& message_;
  std::vector<int> depth_;
  std::vector<bool> nonEmpty_;
  std::vector<int> depthStack_;                // per depth, the category last met there (-1: none yet)
  std::optional<HoldingShowdowns> showdowns_;  // with "Equity per Category": the showdowns by holding
  ResultsBuild out_;
};

}  // namespace

std::string ExportHeader(std::string_view myHandText, std::string_view boardText) {
  std::string header = "Poker Quillet V" + std::to_string(kVersionMajor) + "." +
                       std::to_string(kVersionMinor) + "." + std::to_string(kVersionRevision) +
                       " Clipboard Export";
  header += kLineEnd;
  header += "My Hand: ";
  header += myHandText;
  header += "   Board: ";
  header += boardText;
  header += kLineEnd;
  header += kLineEnd;
  return header;
}

int CategoryDepth(std::string_view label) {
  const auto star = label.find('*');
  return star == std::string_view::npos ? -1 : static_cast<int>(star);
}

int AddResultNode(ResultsTree& tree, std::string& exportText, int level, std::string_view parentKey,
                  int relationship, std::string key, std::string text, std::string_view imageKey,
                  bool exportLine) {
  const int parent = parentKey.empty() || relationship == kRootNode ? -1 : tree.find(parentKey);
  const int index = static_cast<int>(tree.nodes.size());
  if (exportLine) {
    if (parent >= 0) exportText.append(static_cast<std::size_t>(2 * std::max(level, 0)), ' ');
    exportText += text;
    exportText += kLineEnd;
  }
  ResultNode node;
  node.key = std::move(key);
  if (parent >= 0) node.parentKey = std::string(parentKey);
  node.text = std::move(text);
  node.image = std::string(imageKey);
  node.level = level;
  node.parent = parent;
  node.exportLine = exportLine;
  tree.byKey.emplace(node.key, index);
  tree.nodes.push_back(std::move(node));
  if (parent >= 0) tree.nodes[parent].children.push_back(index);
  return index;
}

WinTieLose WinTieLoseIcon(bool winLoseOn, const HandCards& myHand, const HandCombo& combo,
                          const BoardCards& board, Street street, ShowdownRules rules) {
  if (!winLoseOn || street == kNoBoard) return {};
  if (!IsDeckCard(myHand.card1()) || !IsDeckCard(myHand.card2())) return {};
  const ShowdownResult result = rules == ShowdownRules::Standard
                                    ? CompareStandardShowdown(myHand, combo, board, street)
                                    : ComparePartialBoardShowdown(myHand, combo, board, street);
  if (result.myWin) return {kWinImage, true};
  if (!result.oppWin) return {kTieImage, false};
  return {kLoseImage, true};
}

std::optional<Colour> ResultNodeColour(int32_t suit1, int32_t suit2) {
  if (suit1 != suit2) return Rgb(128, 64, 0);
  switch (suit1) {
    case 0:
      return Rgb(0, 192, 0);
    case 1:
      return Rgb(0, 0, 255);
    case 2:
      return Rgb(255, 0, 0);
    case 3:
      return kWindowTextColour;
    default:
      return std::nullopt;
  }
}

void ColourResultNode(ResultsTree& tree, std::string_view key, int32_t suit1, int32_t suit2) {
  const int index = tree.find(key);
  if (index >= 0) tree.nodes[index].foreColour = ResultNodeColour(suit1, suit2);
}

std::string ComboNodeText(const HandCombo& combo) {
  return std::string{RankChar(combo.rank1), SuitChar(combo.suit1), ' ', RankChar(combo.rank2),
                     SuitChar(combo.suit2)};
}

ResultsBuild BuildResultsTree(const Categories& categories, const ResultsOptions& options,
                              const ResultsCards& cards, const MessageSink& message) {
  return TreeBuilder(categories, options, cards, message).Build();
}

}  // namespace quillet
