#include "app/model/form1_model.h"

namespace quillet {

void Form1Model::ClearEquityDisplay() {
  lblMyEquity.opaque = false;
  lblMyEquity.caption.clear();
  lbloppEquity.caption.clear();
}

}  // namespace quillet
