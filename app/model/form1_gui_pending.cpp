// Stand-ins for the handlers of the range editor, the equity command and the results tree until their
// implementations are merged: weak, so the real handlers replace them wherever both are linked. Each goes
// as soon as its real one is on this branch.
#include "app/model/form1_model.h"

namespace quillet {

#define QUILLET_PENDING __attribute__((weak))

QUILLET_PENDING void Form1Model::DeselectAllBlocks() {}
QUILLET_PENDING void Form1Model::SetBlockColours() {}
QUILLET_PENDING void Form1Model::PFHand_MouseUp(int, int, int) {}
QUILLET_PENDING void Form1Model::SelectCross(int) {}
QUILLET_PENDING void Form1Model::SelectUpward(int) {}
QUILLET_PENDING void Form1Model::RefreshSuitMatrix(bool) {}
QUILLET_PENDING void Form1Model::txtRange_KeyUp(int, int) {}
QUILLET_PENDING void Form1Model::SetRangeText(const std::string& text) { txtRange.text = text; }
QUILLET_PENDING void Form1Model::txtRange_Change() {}
QUILLET_PENDING void Form1Model::txtRange_Click() {}
QUILLET_PENDING void Form1Model::WriteRangePercent() {}
QUILLET_PENDING void Form1Model::Slider1_MouseMove(int, int) {}
QUILLET_PENDING void Form1Model::Slider1_KeyDown(int, int) {}
QUILLET_PENDING void Form1Model::Slider1_KeyUp(int, int) {}
QUILLET_PENDING void Form1Model::tmrSliderMoving_Timer() {}
QUILLET_PENDING void Form1Model::ApplySliderRange() {}
QUILLET_PENDING void Form1Model::cmdAll_Click() {}
QUILLET_PENDING void Form1Model::cmdAnyPair_Click() {}
QUILLET_PENDING void Form1Model::cmdAnySuited_Click() {}
QUILLET_PENDING void Form1Model::cmdAnyBroadway_Click() {}
QUILLET_PENDING void Form1Model::cmdClearOnBlocks_Click() {}
QUILLET_PENDING void Form1Model::cmdClearSeenBlocks_Click() {}
QUILLET_PENDING void Form1Model::cmdClearAllBlocks_Click() {}
QUILLET_PENDING void Form1Model::HighlightLabel(CommandLabel) {}
QUILLET_PENDING void Form1Model::Form_MouseMove() {}
QUILLET_PENDING void Form1Model::ColourCodeRT(RichTextState&) {}
QUILLET_PENDING void Form1Model::txtMyHand_KeyDown(int, int) {}
QUILLET_PENDING void Form1Model::txtBoard_KeyDown(int, int) {}
QUILLET_PENDING void Form1Model::txtMyHand_Click() {}
QUILLET_PENDING void Form1Model::txtBoard_Click() {}
QUILLET_PENDING void Form1Model::picSuit_Click(int) {}
QUILLET_PENDING void Form1Model::cmdCalcEquity_Click() {}
QUILLET_PENDING void Form1Model::tmrCalcEquity_Timer() {}
QUILLET_PENDING void Form1Model::mnuCalcEquityOnCook_Click() {}
QUILLET_PENDING void Form1Model::mnuAutoPFEquityCalc_Click() {}
QUILLET_PENDING void Form1Model::BuildResultsTree() {}
QUILLET_PENDING void Form1Model::mnuCopyToClipboard_Click() {}
QUILLET_PENDING void Form1Model::TV_MouseUp(int) {}
QUILLET_PENDING void Form1Model::TV_KeyUp(int) {}
QUILLET_PENDING void Form1Model::mnuAdd2Range_Click() {}
QUILLET_PENDING void Form1Model::FlashTreeError() {}
QUILLET_PENDING void Form1Model::tmrTVError_Timer() {}

}  // namespace quillet
