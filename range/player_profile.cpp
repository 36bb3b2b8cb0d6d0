#include "range/player_profile.h"

#include "range/holding_set.h"

namespace quillet {

void InitProfile(PlayerProfile& profile) {
  profile.name.clear();
  profile.rangeText.clear();
  profile.rangeLayer = MakeEmptyLayer();
  profile.seenLayer = MakeEmptyLayer();
  profile.onWeights.fill(0);
}

WeightedHoldingSet OnLayerWeights(const PlayerProfile& profile) {
  WeightedHoldingSet weights;
  const HoldingSet holdings = HoldingsOfLayer(profile.rangeLayer);
  for (int number = 0; number < kHoldingCount; ++number) {
    if (holdings.contains(number)) weights.SetWeight(number, OnHoldingWeight(profile.onWeights, number));
  }
  return weights;
}

void SetOnLayerWeights(PlayerProfile& profile, const WeightedHoldingSet& weights) {
  PutHoldingsInLayer(weights.Holdings(), profile.rangeLayer);
  for (int number = 0; number < kHoldingCount; ++number) {
    const int w = weights.Weight(number);
    profile.onWeights[number] = static_cast<uint16_t>(w > 0 && w < kFullWeight ? w : 0);
  }
}

bool HasPartialWeights(const PlayerProfile& profile) {
  const HoldingSet holdings = HoldingsOfLayer(profile.rangeLayer);
  for (int number = 0; number < kHoldingCount; ++number) {
    if (profile.onWeights[number] != 0 && holdings.contains(number)) return true;
  }
  return false;
}

}  // namespace quillet
