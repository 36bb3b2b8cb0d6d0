// A window model with one selected profile, "Generic", for the results handlers' tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "tests/support/generic_profile_window.h"
#include "tests/support/recording_services.h"

namespace quillet::testing {

struct ResultsWindow : GenericProfileWindow<> {
  static int Block(const std::string& className) {
    const int c = FindClassByName(className);
    EXPECT_GE(c, 0) << className;
    return c;
  }

  // Puts a class whole into a layer, as a click on its block does.
  void PutOn(const std::string& className) {
    SetBlockWhole(profile().rangeLayer[Block(className)],
                  HandClasses()[Block(className)].kind == kKindSuited);
  }
  void PutSeen(const std::string& className) {
    SetBlockWhole(profile().seenLayer[Block(className)], HandClasses()[Block(className)].kind == kKindSuited);
  }

  // Flat index of the first node with this text, -1 when there is none.
  int NodeWithText(const std::string& text) const {
    for (std::size_t i = 0; i < model.results().TV.nodes.size(); ++i) {
      if (model.results().TV.nodes[i].text == text) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no node \"" << text << "\"";
    return -1;
  }

  // The suit pairs of a block's On record, in order, as "cd" style text.
  std::string OnPairs(const std::string& className) {
    const BlockRecord& r = profile().rangeLayer[Block(className)];
    std::string out;
    for (int k = 0; k < r.count; ++k) {
      if (!out.empty()) out += ",";
      out += std::string(1, "cdhs"[r.combos[k].suit1]) + "cdhs"[r.combos[k].suit2];
    }
    return out;
  }

  int OnBlocks() {
    int n = 0;
    for (const BlockRecord& r : profile().rangeLayer) n += r.count != 0 ? 1 : 0;
    return n;
  }
};

}  // namespace quillet::testing
