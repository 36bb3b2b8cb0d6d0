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
    PlayerProfile& p = model.profiles.emplace_back();
    InitProfile(p);
    p.name = "Generic";
    model.currentProfileIndex = 0;
  }

  PlayerProfile& profile() { return *model.currentProfile(); }
};

}  // namespace quillet::testing
