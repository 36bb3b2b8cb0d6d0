// A window model with one selected profile, "Generic", whose layers start empty: where the window model's
// tests and benchmarks start.
#pragma once

#include "app/model/form1_model.h"
#include "range/player_profile.h"
#include "tests/support/recording_services.h"

namespace quillet::testing {

template <class Services = RecordingServices>
struct GenericWindow {
  Services services;
  Form1Model model{services};

  GenericWindow() {
    PlayerProfile& p = model.profiles().list.emplace_back();
    InitProfile(p);
    p.name = "Generic";
    model.profiles().currentIndex = 0;
  }

  PlayerProfile& profile() { return *model.profiles().currentProfile(); }
};

}  // namespace quillet::testing
