#include "cards/card_input.h"

#include <array>

#include "cards/ascii_case.h"

namespace quillet {
namespace {

// Ranks at positions 1, 3, 5, ... (counted from 1) upper case, suits at 2, 4, 6, ... lower case.
void NormaliseCardCase(std::string& text) {
  for (std::size_t i = 0; i < text.size(); ++i)
    text[i] = (i % 2 == 0) ? AsciiUpper(text[i]) : AsciiLower(text[i]);
}

std::string_view CharAt(std::string_view text, std::size_t index) {
  return index < text.size() ? text.substr(index, 1) : std::string_view{};
}

}  // namespace

std::string RemoveBlanks(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char c : text) {
    if (c != ' ') out.push_back(c);
  }
  return out;
}

bool ParseHandText(std::string_view rawText, HandCards& hand) {
  const std::string text = RemoveBlanks(rawText);
  if (text.size() != 4) return false;
  hand.rank1 = RankFromChar(CharAt(text, 0));
  if (hand.rank1 == kNoCard) return false;
  hand.suit1 = SuitFromChar(CharAt(text, 1));
  if (hand.rank2 == kNoCard) return false;  // rank2 as the record held it before this read, deliberately
  hand.rank2 = RankFromChar(CharAt(text, 2));
  if (hand.suit1 == kNoCard) return false;
  hand.suit2 = SuitFromChar(CharAt(text, 3));
  return hand.suit2 != kNoCard;
}

bool ReadCardInputs(std::string& myHandText, std::string& boardText, const MessageSink& message,
                    HandCards& hand, BoardCards& board, Street& street) {
  std::string boardClean = RemoveBlanks(boardText);
  std::string handClean = RemoveBlanks(myHandText);

  const std::size_t boardLength = boardClean.size();
  if (boardLength != 6 && boardLength != 0 && boardLength != 8 && boardLength != 10) {
    if (message) message(kBoardInvalidMessage);
    return false;
  }
  if (handClean.size() != 4 && !handClean.empty()) {
    if (message) message(kHandInvalidMessage);
    return false;
  }

  NormaliseCardCase(boardClean);
  NormaliseCardCase(handClean);
  boardText = boardClean;
  myHandText = handClean;

  if (!handClean.empty()) {
    if (!ParseHandText(handClean, hand)) return false;
  } else {
    hand.rank1 = hand.suit1 = hand.rank2 = hand.suit2 = kNoCard;
  }

  for (Card& card : board.cards) card = Card{};
  street = kNoBoard;
  if (!boardClean.empty()) {
    auto readCard = [&](int cardIndex) {
      const std::size_t at = static_cast<std::size_t>(cardIndex) * 2;
      board[cardIndex].rank = RankFromChar(CharAt(boardClean, at));
      if (board[cardIndex].rank == kNoCard) return false;
      board[cardIndex].suit = SuitFromChar(CharAt(boardClean, at + 1));
      return board[cardIndex].suit != kNoCard;
    };
    street = kFlop;
    for (int i = 0; i < 3; ++i) {
      if (!readCard(i)) return false;
    }
    if (boardLength >= 8) {
      street = kTurn;
      if (!readCard(3)) return false;
    }
    if (boardLength == 10) {
      street = kRiver;
      if (!readCard(4)) return false;
    }
  }

  // Absent cards 4 and 5 carry card 1's rank (suits stay -1), so a rank set over all five positions
  // gains nothing from them.
  if (street < kRiver) board[4].rank = board[0].rank;
  if (street < kTurn) board[3].rank = board[0].rank;
  return true;
}

bool ReadCardInputs(std::string& myHandText, std::string& boardText, const MessageSink& message,
                    HandCards& hand, BoardCards& board, int32_t& street) {
  Street read = static_cast<Street>(street);  // left as it was where the read stops before the board
  const bool ok = ReadCardInputs(myHandText, boardText, message, hand, board, read);
  street = read;
  return ok;
}

bool HasNoDuplicateCards(const HandCards& hand, const BoardCards& board, Street street,
                         std::string_view myHandText) {
  if (street == kNoBoard) {
    const bool identical = hand.rank1 == hand.rank2 && hand.suit1 == hand.suit2;
    return myHandText.empty() || !identical;
  }
  std::array<Card, 7> cards{};
  const int count = street + 4;
  cards[0] = hand.card1();
  cards[1] = hand.card2();
  for (int i = 0; i < count - 2; ++i) cards[2 + i] = board[i];
  const int start = (hand.rank1 == kNoCard && hand.rank2 == kNoCard) ? 2 : 0;
  for (int i = start; i < count; ++i) {
    for (int j = i + 1; j < count; ++j) {
      if (cards[i] == cards[j]) return false;
    }
  }
  return true;
}

CardInputs CheckCardInputs(std::string_view myHandText, std::string_view boardText, CardsFor use) {
  CardInputs read;
  read.myHandText = myHandText;
  read.boardText = boardText;
  const MessageSink collect = [&read](std::string_view text) { read.messages.emplace_back(text); };
  read.textsRead =
      ReadCardInputs(read.myHandText, read.boardText, collect, read.hand, read.board, read.street);
  const bool halfHand = read.hand.rank1 != kNoCard && read.hand.rank2 == kNoCard;
  if (!read.textsRead || (use == CardsFor::Equity && halfHand)) {
    read.messages.emplace_back(kBadInputMessage);
  } else if (!HasNoDuplicateCards(read.hand, read.board, read.street, read.myHandText)) {
    read.messages.emplace_back(kDuplicateCardMessage);
  }
  return read;
}

}  // namespace quillet
