// The two colour schemes of the hand grid and suit matrix, eleven roles each.
#pragma once

#include "range/colour.h"

namespace quillet {

struct ColourScheme {
  Colour pairBase;       // base colour of a pair block
  Colour suitedBase;     // base colour of a suited block
  Colour offsuitBase;    // base colour of an offsuit block
  Colour matrixOn;       // suit-matrix cell while the On layer is edited
  Colour seenSelection;  // Seen selection; suit-matrix cell while the Seen layer is edited
  Colour seenWhole;      // Seen layer, whole block
  Colour onWhole;        // On layer, whole block
  Colour bothLayers;     // in both layers
  Colour onPart;         // On layer, part of the block
  Colour seenPart;       // Seen layer, part of the block
  Colour onSelection;    // On selection
};

inline constexpr ColourScheme kDefaultColourScheme{0xC0FFC0, 0x8080FF, 0xD5DBA8, 0xFFFFC0, 0xFF0000, 0xFFFF00,
                                                   0x00FFFF, 0xFF8080, 0xC0FFFF, 0xC0C000, 0xFF80FF};
inline constexpr ColourScheme kNewColourScheme{0xC0C0C0, 0xA2A2A2, 0x808080, 0xFF633C, 0xC0C000, 0xFFFF80,
                                               0xFF6F55, 0xFFFFFF, 0xFFA595, 0xFFFFC0, 0xFF0000};

}  // namespace quillet
