// Reading and checking the two card inputs of the main window: My Hand (two cards) and the Board (none,
// three, four or five cards), and the duplicate-card check the cook and equity commands run first.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cards/card.h"

namespace quillet {

// Where a one-line message for the user goes (a message box in the window, stderr in the CLI).
using MessageSink = std::function<void(std::string_view)>;

inline constexpr std::string_view kBoardInvalidMessage = "Board invalid. Valid Eg: ThKc4d";
inline constexpr std::string_view kHandInvalidMessage = "My hand is invalid. Valid Eg: AhAd";

// Parses four characters (blanks removed) rank, suit, rank, suit into `hand`. Fields are written as they
// are read, also when the result is false. The order of the tests is deliberate: after suit 1 is read the
// test looks at the rank-2 field as it stood before the call (so a record reused after an empty hand
// fails), and an unknown rank in position 3 is not rejected (it leaves rank 2 at -1).
bool ParseHandText(std::string_view text, HandCards& hand);

// Checks and parses both inputs. The board is checked before the hand; a wrong length shows its message
// through `message` and returns false; a bad character returns false without a message. On passing the
// length checks both texts are given back blank-free and normalised (ranks upper case, suits lower case).
// Absent board cards 4 and 5 take card 1's rank (their suits stay -1): walk the board by `street`.
bool ReadCardInputs(std::string& myHandText, std::string& boardText, const MessageSink& message,
                    HandCards& hand, BoardCards& board, Street& street);
// The same with the street as its number (the window keeps it so).
bool ReadCardInputs(std::string& myHandText, std::string& boardText, const MessageSink& message,
                    HandCards& hand, BoardCards& board, int32_t& street);

// True when no card occurs twice among My Hand and the board cards of the street. Without a board only
// an identical pair of hand cards counts, and only when the My Hand text is not empty.
bool HasNoDuplicateCards(const HandCards& hand, const BoardCards& board, Street street,
                         std::string_view myHandText);

// ---- The core's reading of the two card boxes, as the cook and equity commands take them ----

// Which command reads the cards: the equity command also refuses a My Hand whose second rank did not read
// ("AhXd" passes the parse, but cannot be dealt around).
enum class CardsFor { Cook, Equity };

inline constexpr std::string_view kBadInputMessage = "Bad Input";
inline constexpr std::string_view kDuplicateCardMessage = "Duplicate card exists";

// My Hand and the Board read, or the reasons they were refused.
struct CardInputs {
  // The texts as the boxes show them after the read: blank-free, ranks upper case and suits lower case once
  // both lengths passed (also when a bad character then refuses them); as given otherwise.
  std::string myHandText;
  std::string boardText;
  bool textsRead = false;  // both texts parsed (the window colours them by suit again)
  HandCards hand{};        // an empty My Hand reads as four kNoCard fields
  BoardCards board{};
  Street street = kNoBoard;
  // The messages the window shows, in order, when the input is refused: the length message of a box, if
  // any, then "Bad Input"; or "Duplicate card exists". Empty when the input is accepted.
  std::vector<std::string> messages;

  bool ok() const { return messages.empty(); }
  bool hasHand() const { return hand.rank1 != kNoCard; }
};

// Reads and checks both texts as the cook (or the equity command) does: the parse of ReadCardInputs, then
// for the equity command the half-read My Hand, then the duplicate-card check. A fresh hand record is used
// for every read, so nothing carries over from an earlier one.
CardInputs CheckCardInputs(std::string_view myHandText, std::string_view boardText, CardsFor use);

// The text with every blank (" ") removed.
std::string RemoveBlanks(std::string_view text);

}  // namespace quillet
