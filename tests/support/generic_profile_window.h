// A window model with one selected profile, "Generic", whose layers start empty, and the steps the tests of
// the window's handlers take on it: click a block, cook, calculate the equity.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "tests/support/generic_window.h"
#include "tests/support/recording_services.h"

namespace quillet::testing {

template <class Services = RecordingServices>
struct GenericProfileWindow : GenericWindow<Services> {
  using GenericWindow<Services>::model;
  using GenericWindow<Services>::services;
  using GenericWindow<Services>::profile;

  // Puts a class whole into a layer, as a left click (for the Seen layer a right click) on its block does.
  void Click(const std::string& className, bool seenLayer = false) {
    const int c = FindClassByName(className);
    ASSERT_GE(c, 0) << className;
    RangeLayer& layer = seenLayer ? profile().seenLayer : profile().rangeLayer;
    SetBlockWhole(layer[c], HandClasses()[c].kind == kKindSuited);
  }

  void Cook(const std::string& hand, const std::string& board) {
    model.txtMyHand.text = hand;
    model.txtBoard.text = board;
    model.cmdCheckPossibleHands_Click();
  }

  void Calc(const std::string& hand, const std::string& board) {
    model.txtMyHand.text = hand;
    model.txtBoard.text = board;
    model.cmdCalcEquity_Click();
  }

  // The two equity read-outs.
  const std::string& my() const { return model.results().lblMyEquity.caption; }
  const std::string& opp() const { return model.results().lbloppEquity.caption; }
};

}  // namespace quillet::testing
