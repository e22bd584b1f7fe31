// Numbers in and out of text, the same in every locale: a full stop is the separator.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

/// `value` by a mask of `0` (digit always), `#` (digit if there is one), one `.` and literals before and
/// behind. Rounds half away from zero on the decimal text of the value at 15 significant digits, so 2.675
/// by "0.00" is "2.68". Infinity and not-a-number count as 0.
std::string FormatMask(double value, std::string_view mask);

/// Plain decimal text, at most 15 significant digits, no trailing zeros: 4, 4.125, -0.115. From 1E+15 on, and
/// below 1E-15, with an exponent. Never "-0".
std::string ShortText(double value);

/// The same with at most 7 significant digits, and an exponent from 1E+07 on.
std::string ShortText(float value);

/// The number a text begins with behind blanks, else 0: "12 px" is 12, "1,5" is 1, "N/A" is 0.
double ToNumber(std::string_view text);

/// The number that a text is as a whole, blanks around it allowed; nothing for any other text.
std::optional<double> numberIn(std::string_view text);

/// Nearest whole number, halves to even.
double RoundToWhole(double value);

/// The value as a 16-bit or 32-bit whole number, halves to even; nothing when it does not fit.
std::optional<std::int16_t> toInteger(double value);
std::optional<std::int32_t> toLong(double value);

/// As toLong, held to the limits of the type instead of failing.
std::int32_t toLongClamped(double value);

}  // namespace kvo
