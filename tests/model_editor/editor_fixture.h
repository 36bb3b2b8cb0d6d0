// A window model with one fresh profile, "Generic", current: the range editor's starting point in tests.
#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "tests/support/recording_services.h"

namespace quillet {

// The card boxes' text colours (0x00BBGGRR): clubs green, diamonds blue, hearts red.
inline constexpr Colour kGreen = 0x00C000;
inline constexpr Colour kBlue = 0xFF0000;
inline constexpr Colour kRed = 0x0000FF;

// Picker cell of a card: suit x 13 + (14 - rank).
inline int Cell(int rank, int suit) {
  return suit * 13 + (14 - rank);
}

inline int Block(const char* name) {
  const int index = FindClassByName(name);
  EXPECT_GE(index, 0) << name;
  return index;
}

class EditorTest : public ::testing::Test {
 protected:
  EditorTest() {
    form.profiles().list.resize(1);
    InitProfile(form.profiles().list[0]);
    form.profiles().list[0].name = "Generic";
    form.profiles().currentIndex = 0;
  }

  RangeLayer& onLayer() { return form.profiles().list[0].rangeLayer; }
  RangeLayer& seenLayer() { return form.profiles().list[0].seenLayer; }

  // Blocks whose record in the layer holds anything.
  static std::set<int> BlocksIn(const RangeLayer& layer) {
    std::set<int> blocks;
    for (int i = 0; i < kClassCount; ++i) {
      if (layer[i].count != 0) blocks.insert(i);
    }
    return blocks;
  }
  std::set<int> SelectedOn() const {
    std::set<int> blocks;
    for (int i = 0; i < kClassCount; ++i) {
      if (form.grid().selectedOn[i]) blocks.insert(i);
    }
    return blocks;
  }
  std::set<int> SelectedSeen() const {
    std::set<int> blocks;
    for (int i = 0; i < kClassCount; ++i) {
      if (form.grid().selectedSeen[i]) blocks.insert(i);
    }
    return blocks;
  }
  std::set<int> ShownCells() const {
    std::set<int> cells;
    for (int k = 0; k < 16; ++k) {
      if (form.grid().comboShown[k]) cells.insert(k);
    }
    return cells;
  }
  static std::set<int> Blocks(std::initializer_list<const char*> names) {
    std::set<int> blocks;
    for (const char* n : names) blocks.insert(Block(n));
    return blocks;
  }
  // The classes named in the preflop order's rows 0..last.
  static std::set<int> BlocksOfRows(int last) {
    std::set<int> blocks;
    for (int row = 0; row <= last; ++row) {
      for (const std::string& name : SplitClassList(PreflopOrder()[row].classes))
        blocks.insert(FindClassByName(name));
    }
    return blocks;
  }
  void TypeRange(const std::string& text) {
    form.grid().SetRangeText(text);
    form.txtRange_KeyUp(kKeyEnter);
  }

  RecordingServices services;
  Form1Model form{services};
};

}  // namespace quillet
