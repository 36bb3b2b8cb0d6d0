// A named opponent: the range text box's text and the two layers of the hand grid.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "cards/holding.h"
#include "range/block_record.h"
#include "range/weighted_holding_set.h"

namespace quillet {

// The weights below 1 of a profile's On-layer holdings, by holding number (cards/holding.h), in thousandths
// (1..kFullWeight - 1); 0 stands for a whole weight. Only the On layer's holdings have a weight: an entry
// for a holding the layer does not hold means nothing (SetOnLayerWeights clears such entries). All zero, as
// in every profile typed without weights, the profile holds its holdings whole.
using PartialWeights = std::array<uint16_t, kHoldingCount>;

// The weight, in thousandths, that an On-layer holding has under `weights`.
constexpr int32_t OnHoldingWeight(const PartialWeights& weights, int32_t number) {
  return weights[number] == 0 ? kFullWeight : weights[number];
}

struct PlayerProfile {
  std::string name;            // empty: a free slot, neither listed nor saved
  std::string rangeText;       // the range text box's text, stored on every change of the box
  RangeLayer rangeLayer;       // the On layer
  RangeLayer seenLayer;        // the Seen layer
  PartialWeights onWeights{};  // the On layer's weights below 1 (the Seen layer is unweighted)

  bool isFree() const { return name.empty(); }
  friend bool operator==(const PlayerProfile&, const PlayerProfile&) = default;
};

// A fresh profile record: empty name and text, both layers with their class ranks and nothing else.
void InitProfile(PlayerProfile& profile);

// The On layer with its weights: each holding of the layer at its weight, every other holding at 0.
WeightedHoldingSet OnLayerWeights(const PlayerProfile& profile);
// Makes the On layer hold exactly the holdings with a weight above 0 (as PutHoldingsInLayer does) and gives
// them their weights; the Seen layer stays.
void SetOnLayerWeights(PlayerProfile& profile, const WeightedHoldingSet& weights);
// Whether a holding of the On layer has a weight below 1.
bool HasPartialWeights(const PlayerProfile& profile);

}  // namespace quillet
