// Stand-ins for the range editor's refresh chain until its implementation is merged: weak, so the real
// handlers replace them wherever both are linked. Remove this file once form1_grid.cpp and
// form1_range_text.cpp define them.
#include "app/model/form1_model.h"

namespace quillet {

__attribute__((weak)) void Form1Model::DeselectAllBlocks() {
  grid.editingOn = true;
  lblSeenVisible = false;
  grid.selectedOn.fill(false);
  grid.selectedSeen.fill(false);
  grid.pairPresent = false;
  grid.suitedPresent = false;
  grid.offsuitPresent = false;
}
__attribute__((weak)) void Form1Model::SetBlockColours() {}
__attribute__((weak)) void Form1Model::RefreshSuitMatrix(bool) {}
__attribute__((weak)) void Form1Model::WriteRangePercent() {}

}  // namespace quillet
