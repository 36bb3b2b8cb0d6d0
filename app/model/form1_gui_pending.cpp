// Stand-ins for the handlers of the results tree until their implementations are merged: weak, so the real
// handlers replace them wherever both are linked. Remove this file once form1_results.cpp defines them.
#include "app/model/form1_model.h"

namespace quillet {

#define QUILLET_PENDING __attribute__((weak))

QUILLET_PENDING void Form1Model::BuildResultsTree() {}
QUILLET_PENDING void Form1Model::mnuCopyToClipboard_Click() {}
QUILLET_PENDING void Form1Model::TV_MouseUp(int) {}
QUILLET_PENDING void Form1Model::TV_KeyUp(int) {}
QUILLET_PENDING void Form1Model::mnuAdd2Range_Click() {}
QUILLET_PENDING void Form1Model::FlashTreeError() {}
QUILLET_PENDING void Form1Model::tmrTVError_Timer() {}

}  // namespace quillet
