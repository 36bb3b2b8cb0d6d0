// The equity read-outs' right-click menu: "Copy" puts the read-out it was opened on onto the clipboard.
#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "tests/model_window/window_test_fixture.h"

namespace quillet {
namespace {

class EquityReadOutMenu : public testing::WindowModelTest {
 protected:
  // KhKd against AA on Tc8h3s.
  void Calculate() {
    model.PFHand_MouseUp(FindClassByName("AA"), kLeftButton, 0);
    model.txtMyHand.text = "KhKd";
    model.txtBoard.text = "Tc8h3s";
    model.cmdCalcEquity_Click();
  }
};

TEST_F(EquityReadOutMenu, ARightClickOnAReadOutWithAValuePopsUpItsMenu) {
  ASSERT_TRUE(Start());
  model.lblMyEquity_MouseUp(kRightButton);  // blank: nothing to copy, no menu
  model.lbloppEquity_MouseUp(kRightButton);
  EXPECT_TRUE(services.popups.empty());
  Calculate();
  ASSERT_FALSE(model.results().lblMyEquity.caption.empty());
  model.lblMyEquity_MouseUp(kLeftButton);  // a left click selects text, no menu
  EXPECT_TRUE(services.popups.empty());
  model.lblMyEquity_MouseUp(kRightButton);
  model.lbloppEquity_MouseUp(kRightButton);
  EXPECT_EQ(services.popups,
            (std::vector<PopupMenuId>{PopupMenuId::EquityReadOut, PopupMenuId::EquityReadOut}));
}

TEST_F(EquityReadOutMenu, CopyPutsTheReadOutItWasOpenedOnOntoTheClipboard) {
  ASSERT_TRUE(Start());
  Calculate();
  ASSERT_NE(model.results().lblMyEquity.caption, model.results().lbloppEquity.caption);
  model.lbloppEquity_MouseUp(kRightButton);
  model.mnuCopyEquity_Click();
  model.lblMyEquity_MouseUp(kRightButton);
  model.mnuCopyEquity_Click();
  EXPECT_EQ(services.clipboard, (std::vector<std::string>{model.results().lbloppEquity.caption,
                                                          model.results().lblMyEquity.caption}));
}

}  // namespace
}  // namespace quillet
