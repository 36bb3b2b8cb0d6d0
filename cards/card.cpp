#include "cards/card.h"

#include <utility>

namespace quillet {

int32_t RankFromChar(std::string_view text) {
  if (text.empty()) return kNoCard;
  // The search starts at position 2 so the filler "_" at position 1 never matches.
  const auto pos = kRankText.find(text, 1);
  return pos == std::string_view::npos ? kNoCard : static_cast<int32_t>(pos) + 1;
}

int32_t SuitFromChar(std::string_view text) {
  if (text.empty()) return kNoCard;
  const auto pos = kSuitText.find(text);
  return pos == std::string_view::npos ? kNoCard : static_cast<int32_t>(pos);
}

std::string CardToText(Card card) {
  std::string text(2, '?');
  if (card.rank >= 2 && card.rank <= 14) text[0] = kRankText[card.rank - 1];
  if (card.suit >= 0 && card.suit <= 3) text[1] = kSuitText[card.suit];
  return text;
}

std::string ComboToText(const HandCombo& combo) {
  return CardToText(combo.card1()) + CardToText(combo.card2());
}

int32_t ComboKind(const HandCombo& combo) {
  if (combo.rank1 == combo.rank2) return kKindPair;
  if (combo.suit1 == combo.suit2) return kKindSuited;
  return kKindOffsuit;
}

int32_t ComboSortKey(const HandCombo& combo) {
  const int32_t rankSum = combo.rank1 + combo.rank2;
  if (combo.suit1 == combo.suit2) return combo.suit1 + 10 * (28 - rankSum);
  return 284 - 10 * rankSum;
}

void SortCombos(std::vector<HandCombo>& list, int count) {
  if (count > static_cast<int>(list.size())) count = static_cast<int>(list.size());
  for (int pass = 0; pass < count; ++pass) {
    bool swapped = false;
    for (int i = 0; i + 1 < count; ++i) {
      if (ComboSortKey(list[i]) > ComboSortKey(list[i + 1])) {
        std::swap(list[i], list[i + 1]);
        swapped = true;
      }
    }
    if (!swapped) break;
  }
}

}  // namespace quillet
