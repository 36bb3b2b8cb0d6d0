#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quillet/version.h"
#include "results/build_results_tree.h"
#include "tests/model_results/results_window.h"
#include "tests/results/results_table.h"

namespace quillet {
namespace {

using testing::ExportFromNodes;
using testing::ResultsWindow;

TEST(ResultsHandlers, TheCookRebuildsTheTreeAndTheExportTextTogether) {
  ResultsWindow w;
  w.PutOn("AKs");
  w.PutOn("QQ");
  w.Cook("", "");
  // No board: AKs goes to "A high", QQ to "One pair"; ten holdings, all categorised.
  ASSERT_FALSE(w.model.results().TV.empty());
  EXPECT_EQ(w.model.results().TV.nodes[0].text, "High cards (4) 40%");
  EXPECT_EQ(w.model.results().exportText, ExportHeader("", "") + ExportFromNodes(w.model.results().TV));
  EXPECT_NE(w.model.results().exportText.find("One pair (6) 60%\r\n"), std::string::npos);
  EXPECT_EQ(w.model.results().TV.selected, -1);  // nothing selected after a build
}

TEST(ResultsHandlers, TheExportHeaderShowsTheBoxTextsAsTheCookNormalisedThem) {
  ResultsWindow w;
  w.PutOn("KK");
  w.Cook(" ah kd ", "tc8H3s");
  const std::string version = std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                              std::to_string(kVersionRevision);
  EXPECT_EQ(
      w.model.results().exportText.rfind(
          "Poker Quillet V" + version + " Clipboard Export\r\nMy Hand: AhKd   Board: Tc8h3s\r\n\r\n", 0),
      0u)
      << w.model.results().exportText;
}

TEST(ResultsHandlers, ARefusedCookLeavesTheTreeAndTheTextAsTheyWere) {
  ResultsWindow w;
  w.PutOn("KK");
  w.Cook("AhAd", "Tc8h3s");
  const std::string text = w.model.results().exportText;
  const std::size_t nodes = w.model.results().TV.nodes.size();
  w.Cook("AhAd", "AhKd4c");  // duplicate card
  EXPECT_EQ(w.services.messageTexts().back(), "Duplicate card exists");
  EXPECT_EQ(w.model.results().exportText, text);
  EXPECT_EQ(w.model.results().TV.nodes.size(), nodes);
}

TEST(ResultsHandlers, TheBuildFollowsTheMenuTicks) {
  ResultsWindow w;
  w.PutOn("KK");
  w.model.options.hideEmptyCats = false;
  w.model.options.simplifyOutput = false;
  w.Cook("", "");
  // All 55 categories and the six kings.
  EXPECT_EQ(w.model.results().TV.nodes.size(), 55u + 6u);
  w.model.options.hideEmptyCats = true;
  w.model.options.simplifyOutput = true;
  w.model.options.simplifyFurther = true;
  w.model.options.categoryIcons = true;
  w.Cook("", "");
  EXPECT_TRUE(w.model.results().TV.imageListAttached);
  // The spacer in front of "One pair" is shown although "High cards" is not.
  EXPECT_EQ(w.model.results().exportText,
            ExportHeader("", "") + "\r\nOne pair (6) 100%\r\n  \xE2\x80\xA2KK  (6)\r\n");
  EXPECT_EQ(w.model.results().TV.nodes[0].image, "");
  EXPECT_EQ(w.model.results().TV.nodes[1].image, "pairm");
}

TEST(ResultsHandlers, WinLoseIconsNeedABoardAndMyHand) {
  ResultsWindow w;
  w.PutOn("KK");
  w.model.options.winLoseIcons = true;
  w.model.options.simplifyOutput = false;
  w.Cook("AhAd", "Tc8h3s");
  int wins = 0;
  for (const ResultNode& node : w.model.results().TV.nodes) wins += node.image == "win" ? 1 : 0;
  EXPECT_EQ(wins, 6);  // aces beat kings on T-8-3
  for (const auto& [hand, board] :
       std::vector<std::pair<std::string, std::string>>{{"", "Tc8h3s"}, {"AhAd", ""}}) {
    w.Cook(hand, board);
    ASSERT_FALSE(w.model.results().TV.empty());
    for (const ResultNode& node : w.model.results().TV.nodes)
      EXPECT_EQ(node.image, "") << hand << " " << board;
  }
  EXPECT_TRUE(w.services.messages.empty());
}

TEST(ResultsHandlers, CopyPutsTheExportTextOfTheLastCookOnTheClipboard) {
  ResultsWindow w;
  w.model.mnuCopyToClipboard_Click();
  ASSERT_EQ(w.services.clipboard.size(), 1u);
  EXPECT_EQ(w.services.clipboard[0], "");  // empty before the first cook
  w.PutOn("AA");
  w.Cook("", "");
  w.model.mnuCopyToClipboard_Click();
  ASSERT_EQ(w.services.clipboard.size(), 2u);
  EXPECT_EQ(w.services.clipboard[1], w.model.results().exportText);
  EXPECT_EQ(w.services.clipboard[1],
            ExportHeader("", "") +
                "\r\nOne pair (6) 100%\r\n  \xE2\x80\xA2"
                "AA  (6)\r\n" +
                "    Ac Ad\r\n    Ac Ah\r\n    Ac As\r\n    Ad Ah\r\n    Ad As\r\n    Ah As\r\n");
}

TEST(ResultsHandlers, ARightClickOnAnEmptyTreeShowsNoMenu) {
  ResultsWindow w;
  w.model.TV_MouseUp(kRightButton);
  EXPECT_TRUE(w.services.popups.empty());
}

TEST(ResultsHandlers, ARightClickOnATreeWithNodesPopsUpTheTreeMenuAndOtherButtonsNothing) {
  ResultsWindow w;
  w.PutOn("AA");
  w.Cook("", "");
  w.model.TV_MouseUp(kLeftButton);
  w.model.TV_MouseUp(kMiddleButton);
  EXPECT_TRUE(w.services.popups.empty());
  w.model.TV_MouseUp(kRightButton);
  EXPECT_EQ(w.services.popups, (std::vector<PopupMenuId>{PopupMenuId::Tree}));
}

// ---- F3 card search ----

struct SearchWindow : ResultsWindow {
  SearchWindow() {
    PutOn("KQs");
    PutOn("TT");
    Cook("", "Kh9c4d");  // KcQc, KdQd, KsQs: top pair; the tens: between top and middle
  }
  std::string Search(const std::string& answer) {
    services.inputAnswers.push_back(answer);
    const std::size_t before = services.messages.size();
    model.TV_KeyUp(kKeyF3);
    EXPECT_EQ(services.messages.size(), before + 1);
    return services.messages.empty() ? "" : services.messages.back().text;
  }
};

TEST(CardSearch, AsksWithItsPromptAndAnEmptyDefault) {
  SearchWindow w;
  w.Search("Kc");
  ASSERT_EQ(w.services.prompts.size(), 1u);
  EXPECT_EQ(w.services.prompts[0], "Enter Card you are looking for. E.G. Tc");
}

TEST(CardSearch, OtherKeysDoNothing) {
  SearchWindow w;
  w.model.TV_KeyUp(kKeyEnter);
  w.model.TV_KeyUp(115);
  EXPECT_TRUE(w.services.prompts.empty());
  EXPECT_TRUE(w.services.messages.empty());
}

TEST(CardSearch, ReportsTheCategoryByItsStoredLabel) {
  SearchWindow w;
  EXPECT_EQ(w.Search("Kd"), "Found Kd in category >*T pair");
  EXPECT_EQ(w.Search(" Th "), "Found Th in category >*~ pair");
}

TEST(CardSearch, ComparesOnlyTheFirstCardOfEachHolding) {
  SearchWindow w;
  EXPECT_EQ(w.Search("Qc"), "Qc not found in categories.");
}

TEST(CardSearch, WantsTwoCharactersAndARealCardInItsOwnCase) {
  SearchWindow w;
  EXPECT_EQ(w.Search(""), "Bad length.");  // also what a cancelled input box gives
  EXPECT_EQ(w.Search("K"), "Bad length.");
  EXPECT_EQ(w.Search("Kcd"), "Bad length.");
  EXPECT_EQ(w.Search("kc"), "Invalid Card");  // a lower-case rank is no rank
  EXPECT_EQ(w.Search("KC"), "Invalid Card");
}

TEST(CardSearch, ReadsTheCategoriesNotTheTree) {
  SearchWindow w;
  w.model.options.simplifyOutput = true;
  w.model.options.hideEmptyCats = true;
  w.model.results().TV.clear();  // what the tree shows makes no difference
  EXPECT_EQ(w.Search("Ks"), "Found Ks in category >*T pair");
}

}  // namespace
}  // namespace quillet
