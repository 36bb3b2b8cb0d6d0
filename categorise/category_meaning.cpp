#include "categorise/category_meaning.h"

#include <array>

#include "categorise/categories.h"

namespace quillet {
namespace {

// One meaning a table entry, in table order (the spacers empty). "Middle" and "bottom" are the board's
// ranks as the classification reads them; "~" lies between two of them.
constexpr std::array<std::string_view, kCategoryCount> kMeanings = {{
    "No pair or better: the holding makes only high cards with the board",
    "High cards, the holding's first card an ace",
    "High cards, the holding's first card a king",
    "High cards, the holding's first card a queen",
    "High cards, the holding's first card below a queen",
    "",
    "One pair made with the holding's own cards (a pair on the board alone does not count)",
    "Overpair: a pocket pair above every board card",
    "Top pair: a pair with the highest board rank",
    "A pair ranking between the highest and the middle board ranks",
    "Middle pair: a pair with the middle board rank",
    "A pair ranking between the middle and the lowest board ranks",
    "Bottom pair: a pair with the lowest board rank",
    "A pocket pair below every board card",
    "",
    "Two pair made with at least one of the holding's cards",
    "Both holding cards pair the board (unpaired): the highest and the middle board ranks",
    "Both holding cards pair the board (unpaired): the highest board rank and a lower one",
    "Both holding cards pair the board (unpaired): two ranks below the highest",
    "Paired board: the holding's own pair ranks above the board's pair and above the highest board card",
    "Paired board: the holding's own pair ranks above the board's pair and pairs the highest board card",
    "Paired board: the holding's own pair ranks above the board's pair but below the highest board card",
    "Paired board: the holding's pair ranks no higher than the board's pair, at the middle board rank or "
    "above",
    "Paired board: the holding's pair ranks no higher than the board's pair, below the middle board rank",
    "",
    "Strong draws, about eight outs or more: open-ended straight draws and flush draws",
    "An open-ended straight draw: one card short of a straight, which either end completes",
    "A flush draw: four cards of one suit, one card short of a flush",
    "",
    "Weaker draws: gutshot straight draws, and on the flop backdoor draws that need both turn and river",
    "A gutshot straight draw (one inside card completes it) along with a pair",
    "A gutshot straight draw (one inside card completes it) without a pair",
    "A backdoor flush draw: three cards of one suit on the flop, needing both turn and river",
    "A backdoor straight draw: three cards to a straight on the flop, needing both turn and river",
    "",
    "Trips: three of a kind from a pair on the board and one of the holding's cards",
    "",
    "Sets: three of a kind from a pocket pair and one board card",
    "Top set: a set of the highest board rank",
    "A set of a board rank between the highest and the middle ones",
    "Middle set: a set of the middle board rank",
    "A set of a board rank between the middle and the lowest ones",
    "Bottom set: a set of the lowest board rank",
    "",
    "A straight: five ranks in a row",
    "",
    "A flush: five cards of one suit",
    "",
    "A full house: three of a kind and a pair",
    "",
    "Four of a kind",
    "",
    "A straight flush: five ranks in a row, all of one suit",
    "",
    "A royal flush: ace-high straight flush",
}};

// The entries of the draw groups: "8 out or better draw" and "Gutshot and backdoor draws" with children.
constexpr int32_t kFirstStrongDraw = 25;
constexpr int32_t kLastStrongDraw = 27;
constexpr int32_t kFirstWeakDraw = 29;
constexpr int32_t kLastWeakDraw = 33;

}  // namespace

std::string_view CategoryMeaning(int32_t entry) {
  if (entry < 0 || entry >= kCategoryCount) return {};
  return kMeanings[static_cast<std::size_t>(entry)];
}

bool IsDrawCategory(int32_t entry) {
  return (entry >= kFirstStrongDraw && entry <= kLastStrongDraw) ||
         (entry >= kFirstWeakDraw && entry <= kLastWeakDraw);
}

std::string CategoryToolTip(int32_t entry) {
  std::string text(CategoryMeaning(entry));
  if (text.empty()) return text;
  text += '.';
  if (!IsDrawCategory(entry)) return text;
  return text +
         "\nA holding with a draw also stands in its made-hand category, and one with both a straight and "
         "a flush draw in both draw categories, so the draw counts add up to more than the holdings and a "
         "percentage here can pass 100%.";
}

}  // namespace quillet
