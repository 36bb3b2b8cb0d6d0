// Stand-ins for the cook and equity commands until their implementations are merged: weak, so the real
// handlers replace them wherever both are linked. Remove this file once form1_cook.cpp and form1_equity.cpp
// define them.
#include "app/model/form1_model.h"

namespace quillet {

__attribute__((weak)) void Form1Model::cmdCheckPossibleHands_Click() {}
__attribute__((weak)) void Form1Model::cmdCalcEquity_Click() {}

}  // namespace quillet
