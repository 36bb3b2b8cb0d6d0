// The results tree and the export text, built together in one pass from the last cook's category table.
//
// One node per category, nested by the depth its label marks, and under each category its holdings:
// one node per holding, in display order, or (with "Simplify Output") one node per starting-hand class
// with the class's holdings under it. Every node added with an export line also appends that line to the
// export text (the text "Copy Results to Clipboard" puts on the clipboard), so the two never disagree.
// The builder is pure: it reads the table, the options and the card inputs and returns tree and text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cards/card.h"
#include "cards/card_input.h"
#include "categorise/category_node.h"
#include "equity/showdown_rules.h"
#include "range/colour.h"
#include "results/results_tree.h"

namespace quillet {

// The option ticks the build reads.
struct ResultsOptions {
  bool hideEmptyCats = true;     // "Hide Empty Categories"
  bool simplifyOutput = true;    // "Simplify Output"
  bool categoryIcons = false;    // "Category Icons"
  bool winLoseIcons = false;     // "Win Lose Icons"
  bool simplifyFurther = false;  // "Simplify Further for Clipboard Export"
  // "Standard Showdown Rules": which rules the win/tie/lose icons decide by.
  ShowdownRules showdownRules = ShowdownRules::Quillet;
  // "Equity per Category": every category and group node ends with My Hand's equity against the holdings
  // under it (" eq 63.2%"), by `showdownRules`, when My Hand and a board of three or more cards are given.
  bool categoryEquity = false;
};

// The card inputs as the build sees them: the two boxes' texts for the export header (after the cook has
// normalised them) and, for the win/tie/lose icons and the equities per category, the parsed My Hand and
// board.
struct ResultsCards {
  std::string myHandText;
  std::string boardText;
  HandCards hand{0, kNoCard, kNoCard, kNoCard, kNoCard};  // empty My Hand
  BoardCards board{};
  int32_t street = kNoBoard;  // the street as a number (the window keeps it so): OnStreet() reads it

  Street OnStreet() const { return static_cast<Street>(street); }
};

struct ResultsBuild {
  ResultsTree tree;
  std::string exportText;
  // Per category: the sum of the holdings of its deeper categories, worked out for the categories the
  // cook left empty (0 for the others, whose own holdings decide).
  std::vector<int32_t> descendantCounts;
  // The same for the combinations those holdings make (their weights in thousandths).
  std::vector<int64_t> descendantWeights;
  // With "Equity per Category" on, My Hand, and a board: per category, My Hand's equity against the
  // holdings under it (none for a spacer, an empty category or one without a showdown). Empty otherwise.
  std::vector<std::optional<double>> categoryEquities;
};

// Node relationships of AddResultNode.
inline constexpr int kRootNode = -1;
inline constexpr int kChildNode = 4;

// Image keys of the win/tie/lose icons.
inline constexpr std::string_view kWinImage = "win";
inline constexpr std::string_view kTieImage = "tie";
inline constexpr std::string_view kLoseImage = "lose";

// The whole-class mark of a group: the bullet U+2022, in UTF-8.
inline constexpr std::string_view kWholeGroupMark = "\xE2\x80\xA2";
inline constexpr std::string_view kPartGroupMark = "~";

// "Poker Quillet V1.0.0 Clipboard Export", CR LF, "My Hand: AhKd   Board: Tc8h3s", CR LF, CR LF.
std::string ExportHeader(std::string_view myHandText, std::string_view boardText);

// Builds tree and export text. A category's count and a group's count are the combinations their holdings
// make, each holding counting its weight ("(12.5)" where weights make a fraction, "(12)" for twelve whole
// holdings); the percentages are shares of the categorised weight of the table (each holding once, however
// many entries it stands in). A total of 0 (an empty range shown with "Hide Empty Categories" off) shows
// "0%". A label without "*" is reported through `message` as "Category error: "
// with its index and label, and the build goes on.
ResultsBuild BuildResultsTree(const Categories& categories, const ResultsOptions& options,
                              const ResultsCards& cards, const MessageSink& message);

// The depth a label marks: the number of characters in front of its first "*"; -1 when it has none.
int CategoryDepth(std::string_view label);

// Adds one node: at the root when `parentKey` is empty, `relationship` is kRootNode or no node has that
// key, else as the last child of `parentKey`. With `exportLine` it appends to `exportText` the node's text
// and CR LF, preceded by two blanks per level unless it is a root node. Returns the node's flat index.
int AddResultNode(ResultsTree& tree, std::string& exportText, int level, std::string_view parentKey,
                  int relationship, std::string key, std::string text, std::string_view imageKey,
                  bool exportLine);

// The icon of one holding against My Hand on the board of the street: "win" (decisive) when My Hand wins,
// "tie" (not decisive) when neither wins, "lose" (decisive) when the holding wins. No image and not
// decisive when the option is off, there is no board or My Hand is empty. The program's own rules decide
// unless `rules` asks for the standard ones.
struct WinTieLose {
  std::string_view imageKey;
  bool decisive = false;
};
WinTieLose WinTieLoseIcon(bool winLoseOn, const HandCards& myHand, const HandCombo& combo,
                          const BoardCards& board, Street street,
                          ShowdownRules rules = ShowdownRules::Quillet);

// The text colour of a holding's node: by suit when both cards share it (clubs green, diamonds blue,
// hearts red, spades the window-text colour), brown when they differ. None for a suit out of range.
std::optional<Colour> ResultNodeColour(int32_t suit1, int32_t suit2);
// Sets the fore colour of the node with `key` (nothing when there is none).
void ColourResultNode(ResultsTree& tree, std::string_view key, int32_t suit1, int32_t suit2);

// "Ah Kd": rank and suit of the first card, a blank, rank and suit of the second.
std::string ComboNodeText(const HandCombo& combo);

}  // namespace quillet
