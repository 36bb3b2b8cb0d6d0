#include "range/player_profile.h"

namespace quillet {

void InitProfile(PlayerProfile& profile) {
  profile.name.clear();
  profile.rangeText.clear();
  profile.rangeLayer = MakeEmptyLayer();
  profile.seenLayer = MakeEmptyLayer();
}

}  // namespace quillet
