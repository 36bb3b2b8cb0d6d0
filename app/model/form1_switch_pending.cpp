// Stand-in for the colour-scheme switch until the range editor's implementation is merged: weak, so the
// real handler replaces it wherever both are linked. Remove this file once form1_grid.cpp defines it.
#include "app/model/form1_model.h"

namespace quillet {

__attribute__((weak)) void Form1Model::mnuSwitchColourScheme_Click() {
  colourSchemeDefault = !colourSchemeDefault;
}

}  // namespace quillet
