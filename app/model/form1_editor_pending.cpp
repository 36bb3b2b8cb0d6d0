// Stand-in for the equity command until its implementation is merged: weak, so the real handler replaces
// it wherever both are linked. Remove this file once form1_equity.cpp defines it.
#include "app/model/form1_model.h"

namespace quillet {

__attribute__((weak)) void Form1Model::cmdCalcEquity_Click() {}

}  // namespace quillet
