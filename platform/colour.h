// Colours as numbers, 0xRRGGBB.
#pragma once

#include <cstdint>

namespace zorvant {

/// 0xRRGGBB, or the colour that the user's style gives.
using Colour = std::uint32_t;
inline constexpr Colour kStyleColour = 0xFF000000;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kRed = 0xFF0000;

} // namespace zorvant
