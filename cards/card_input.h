// Reading and checking the two card inputs of the main window: My Hand (two cards) and the Board (none,
// three, four or five cards), and the duplicate-card check the cook and equity commands run first.
#pragma once

#include <functional>
#include <string>
#include <string_view>

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
                    HandCards& hand, BoardCards& board, int32_t& street);

// True when no card occurs twice among My Hand and the board cards of the street. Without a board only
// an identical pair of hand cards counts, and only when the My Hand text is not empty.
bool HasNoDuplicateCards(const HandCards& hand, const BoardCards& board, int32_t street,
                         std::string_view myHandText);

// The text with every blank (" ") removed.
std::string RemoveBlanks(std::string_view text);

}  // namespace quillet
