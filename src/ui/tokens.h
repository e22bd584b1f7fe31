// The colours of the program, each by the name that the whole look is written in: palette, sheet, style and
// drawn widgets take theirs from this one table. No Qt here.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kvo {

/// 0xRRGGBB.
using Rgb = std::uint32_t;

struct Token {
  std::string_view name;
  Rgb rgb = 0;
};

inline constexpr std::array kTokens = {
    // Surfaces, from the deepest to the nearest, and lines.
    Token{"void", 0x07090D},
    Token{"ink0", 0x0C0F14},
    Token{"ink1", 0x12161D},
    Token{"ink2", 0x191F28},
    Token{"ink3", 0x222A36},
    Token{"ink4", 0x2D3746},
    Token{"line1", 0x29313D},
    Token{"line2", 0x3B4656},
    Token{"line3", 0x667487},
    Token{"plate", 0x0A0E14},
    Token{"glass", 0x05080B},
    Token{"menu", 0x1A212B},
    Token{"tip", 0x05080C},
    Token{"tipRim", 0x4A5666},
    // Signs. Lo and Bg are grounds.
    Token{"teal", 0x2CC9C4},
    Token{"tealHi", 0x7CEBE6},
    Token{"tealLo", 0x0F6C70},
    Token{"tealBg", 0x12353B},
    Token{"onTeal", 0x04191B},
    Token{"amber", 0xF3B64A},
    Token{"amberLo", 0x5A4317},
    Token{"red", 0xFF7A6B},
    Token{"redLo", 0x4C1F1D},
    Token{"green", 0x62CF8E},
    Token{"violet", 0xB9A2F5},
    Token{"violetLo", 0x2A2346},
    Token{"focus", 0xF5F8FB},
    Token{"detail", 0x00C0C0},
    // Text.
    Token{"text1", 0xE9EEF4},
    Token{"text2", 0xB3BECC},
    Token{"text3", 0x8C99AA},
    Token{"textOff", 0x5E6A7A},
    // Keys by state, handles, unlit bars of digits and lights.
    Token{"keyTop", 0x2A3341},
    Token{"keyHover", 0x333F50},
    Token{"keyDown", 0x161B23},
    Token{"primaryTop", 0x35D3CE},
    Token{"primaryFoot", 0x1FB3AF},
    Token{"primaryHover", 0x5FE3DE},
    Token{"primaryDown", 0x1A9C99},
    Token{"dangerRim", 0x8A3A34},
    Token{"dangerText", 0xFFC0B8},
    Token{"handleTop", 0xF2F6FA},
    Token{"handleFoot", 0xB9C4D1},
    Token{"handleLine", 0x5B6775},
    Token{"unlit", 0x0D2528},
};

/// A colour by its name; a name that the table does not have does not compile.
consteval Rgb token(std::string_view name) {
  for (const auto& entry : kTokens) {
    if (entry.name == name) return entry.rgb;
  }
  throw "there is no such token";
}

/// The ratio of luminances by WCAG 2, 1 to 21; text needs 4.5 on its ground, rims and marks 3.
double contrast(Rgb a, Rgb b);

/// `colour` for text on `plate`: mixed with white, which keeps its hue, as far as it takes to reach 4.5. The
/// plate is dark.
Rgb readableOn(Rgb plate, Rgb colour);

}  // namespace kvo
