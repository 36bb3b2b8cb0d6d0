// Colours are 24-bit values stored as 0x00BBGGRR (blue in the high byte, red in the low byte).
#pragma once

#include <cstdint>

namespace quillet {

using Colour = uint32_t;

constexpr Colour Rgb(uint32_t red, uint32_t green, uint32_t blue) {
  return red | (green << 8) | (blue << 16);
}
constexpr uint32_t RedOf(Colour c) {
  return c & 0xFF;
}
constexpr uint32_t GreenOf(Colour c) {
  return (c >> 8) & 0xFF;
}
constexpr uint32_t BlueOf(Colour c) {
  return (c >> 16) & 0xFF;
}

// The system colour for window text: not an RGB value but a reference the window resolves when drawing.
inline constexpr Colour kWindowTextColour = 0x80000008;
// Pure red text: input not yet accepted.
inline constexpr Colour kRejectedTextColour = 0x0000FF;

}  // namespace quillet
