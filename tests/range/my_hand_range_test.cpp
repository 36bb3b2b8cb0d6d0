// My Hand's two readings under the standard rules: which texts are two cards, the message of a text that
// is neither, and the colours of a range's text.
#include "range/my_hand_range.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "range/card_text_colour.h"
#include "range/range_notation.h"

namespace quillet {
namespace {

TEST(MyHandRange, TwoCardsInEitherCaseAndWithBlanksAreAHand) {
  EXPECT_TRUE(IsTwoCardText("AhKd"));
  EXPECT_TRUE(IsTwoCardText("ah kd"));
  EXPECT_TRUE(IsTwoCardText("AHKD"));
  EXPECT_TRUE(IsTwoCardText(" Tc 9c "));
  // The same card twice is still read as a hand: the hand's own duplicate message answers it.
  EXPECT_TRUE(IsTwoCardText("AhAh"));
  EXPECT_TRUE(IsTwoCardText(""));
  EXPECT_TRUE(IsTwoCardText("   "));
}

TEST(MyHandRange, AnythingElseIsARange) {
  for (const char* text : {"QQ+, AKs", "AK", "AA KK", "AAKK", "AhXd", "AhKdQc", "Ah", "random", "15%", "100%",
                           "AKs+", "QQ+AK"}) {
    EXPECT_FALSE(IsTwoCardText(text)) << text;
  }
}

TEST(MyHandRange, TheMessageNamesTheNotationsErrorAndShowsBothReadings) {
  const ParsedRange parsed = ParseRangeNotation("QQ+, AKx");
  ASSERT_FALSE(parsed.ok());
  EXPECT_EQ(MyHandRangeMessage(*parsed.error),
            "My hand is invalid: unknown token 'AKx' at column 6. Valid Eg: AhAd or QQ+, AKs");
}

TEST(MyHandRange, AHoldingOfARangeIsColouredBySuitAndTheRestPlain) {
  const std::string text = "QQ+, AhKd,AKs";
  const std::vector<Colour> colours = RangeTextColours(text, nullptr);
  ASSERT_EQ(colours.size(), text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    const bool heart = i == 5 || i == 6;
    const bool diamond = i == 7 || i == 8;
    const Colour want = heart ? SuitTextColour(2) : diamond ? SuitTextColour(1) : kWindowTextColour;
    EXPECT_EQ(colours[i], want) << "byte " << i;
  }
  // "AKs" ends in a suit letter but is a class: no card colour for its "Ks".
  EXPECT_EQ(colours[12], kWindowTextColour);
}

TEST(MyHandRange, ARefusedTokenAloneTakesTheRejectedColour) {
  const std::string text = "QQ+, AKx, JJ";
  const ParsedRange parsed = ParseRangeNotation(text);
  ASSERT_FALSE(parsed.ok());
  const std::vector<Colour> colours = RangeTextColours(text, &*parsed.error);
  ASSERT_EQ(colours.size(), text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    EXPECT_EQ(colours[i], (i >= 5 && i <= 7) ? kRejectedTextColour : kWindowTextColour) << "byte " << i;
  }
}

TEST(MyHandRange, ARefusedRangeWithBlanksAroundItsDashIsColouredWhole) {
  const std::string text = "AA, 22 - A7s";
  const ParsedRange parsed = ParseRangeNotation(text);
  ASSERT_FALSE(parsed.ok());
  ASSERT_EQ(parsed.error->token, "22-A7s");
  const std::vector<Colour> colours = RangeTextColours(text, &*parsed.error);
  for (size_t i = 0; i < text.size(); ++i) {
    const bool inToken = i >= 4 && text[i] != ' ';
    EXPECT_EQ(colours[i], inToken ? kRejectedTextColour : kWindowTextColour) << "byte " << i;
  }
}

}  // namespace
}  // namespace quillet
