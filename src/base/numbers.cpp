#include "base/numbers.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kvo {
namespace {

// A value as its significant digits and the power of ten of the first: 0.0125 is "125", -2.
struct Decimal {
  bool negative = false;
  std::string digits;  // no trailing zeros; empty for zero
  int exponent = 0;
};

Decimal decimalOf(double value, int significant) {
  Decimal d;
  if (!std::isfinite(value) || value == 0.0) return d;
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific,
                                 significant - 1)
                       .ptr;
  std::string_view rest(text.data(), static_cast<std::size_t>(end - text.data()));
  if (rest.front() == '-') {
    d.negative = true;
    rest.remove_prefix(1);
  }
  const auto e = rest.find('e');
  for (const char c : rest.substr(0, e)) {
    if (isDigit(c)) d.digits += c;
  }
  auto power = rest.substr(e + 1);
  if (power.front() == '+') power.remove_prefix(1);
  std::from_chars(power.data(), power.data() + power.size(), d.exponent);
  d.digits.erase(d.digits.find_last_not_of('0') + 1);
  return d;
}

std::string shortText(double value, int significant, int exponentFrom) {
  const auto d = decimalOf(value, significant);
  if (d.digits.empty()) return "0";
  std::string out = d.negative ? "-" : "";
  const auto count = static_cast<int>(d.digits.size());
  if (d.exponent >= exponentFrom || d.exponent < -15) {
    out += d.digits.front();
    if (count > 1) out.append(".").append(d.digits, 1);
    const auto power = std::to_string(std::abs(d.exponent));
    return out.append(d.exponent < 0 ? "E-" : "E+").append(power.size() < 2 ? "0" : "").append(power);
  }
  if (d.exponent < 0) {
    return out.append("0.").append(static_cast<std::size_t>(-d.exponent - 1), '0').append(d.digits);
  }
  const auto whole = static_cast<std::size_t>(d.exponent) + 1;
  out.append(d.digits, 0, whole);
  if (d.digits.size() < whole) return out.append(whole - d.digits.size(), '0');
  if (d.digits.size() > whole) out.append(".").append(d.digits, whole);
  return out;
}

// Whole and fraction digits of |d| with `places` digits behind the point, rounded half away from zero.
std::pair<std::string, std::string> roundedDigits(const Decimal& d, std::size_t places) {
  const auto digitAt = [&](int power) {
    const int i = d.exponent - power;
    return i >= 0 && i < static_cast<int>(d.digits.size()) ? d.digits[static_cast<std::size_t>(i)] : '0';
  };
  std::string all;
  for (int power = std::max(d.exponent, 0); power >= -static_cast<int>(places); --power)
    all += digitAt(power);
  if (!d.digits.empty() && digitAt(-static_cast<int>(places) - 1) >= '5') {
    auto at = all.rbegin();
    for (; at != all.rend() && *at == '9'; ++at) *at = '0';
    if (at == all.rend()) {
      all.insert(all.begin(), '1');
    } else {
      ++*at;
    }
  }
  auto fraction = all.substr(all.size() - places);
  all.resize(all.size() - places);
  all.erase(0, std::min(all.find_first_not_of('0'), all.size()));
  return {all, fraction};
}

// The end of the number that `text` begins with, 0 when there is none.
std::size_t numberLength(std::string_view text) {
  std::size_t at = 0;
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const auto digitsFrom = [&](std::size_t from) {
    while (from < text.size() && isDigit(text[from])) ++from;
    return from;
  };
  const auto whole = digitsFrom(at);
  auto end = whole;
  if (whole < text.size() && text[whole] == '.') end = digitsFrom(whole + 1);
  if (end - at == (end > whole ? 1U : 0U)) return 0;  // no digit on either side of the point
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    auto power = end + 1;
    if (power < text.size() && (text[power] == '-' || text[power] == '+')) ++power;
    if (const auto last = digitsFrom(power); last > power) end = last;
  }
  return end;
}

double numberOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
  return end.ec == std::errc() ? value : 0.0;
}

}  // namespace

std::string FormatMask(double value, std::string_view mask) {
  const auto first = std::min(mask.find_first_of("0#."), mask.size());
  const auto last = std::min(mask.find_last_of("0#.") + 1, mask.size());
  const auto body = mask.substr(first, last - first);
  const auto point = body.find('.');
  const auto wholeMask = body.substr(0, point);
  const auto fractionMask = point == std::string_view::npos ? std::string_view() : body.substr(point + 1);

  const auto d = decimalOf(value, 15);
  auto [whole, fraction] = roundedDigits(d, fractionMask.size());
  const bool isZero = whole.empty() && fraction.find_first_not_of('0') == std::string::npos;

  const auto firstZero = wholeMask.find('0');
  const auto least = firstZero == std::string_view::npos ? 0 : wholeMask.size() - firstZero;
  if (whole.size() < least) whole.insert(0, least - whole.size(), '0');
  const auto lastZero = fractionMask.rfind('0');
  const auto kept = lastZero == std::string_view::npos ? 0 : lastZero + 1;
  while (fraction.size() > kept && fraction.back() == '0') fraction.pop_back();

  std::string out = d.negative && !isZero ? "-" : "";
  out.append(mask.substr(0, first)).append(whole);
  if (point != std::string_view::npos) out.append(".").append(fraction);
  return out.append(mask.substr(last));
}

std::string ShortText(double value) { return shortText(value, 15, 15); }

std::string ShortText(float value) { return shortText(static_cast<double>(value), 7, 7); }

double ToNumber(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return 0;
  text.remove_prefix(first);
  const auto length = numberLength(text);
  return length == 0 ? 0.0 : numberOf(text.substr(0, length));
}

std::optional<double> numberIn(std::string_view text) {
  text = trimmed(text);
  if (text.empty() || numberLength(text) != text.size()) return std::nullopt;
  return numberOf(text);
}

double RoundToWhole(double value) {
  const double floor = std::floor(value);
  const double rest = value - floor;
  if (rest != 0.5) return rest < 0.5 ? floor : floor + 1;
  return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

std::optional<std::int16_t> toInteger(double value) {
  const double whole = RoundToWhole(value);
  if (!(whole >= -32768.0 && whole <= 32767.0)) return std::nullopt;
  return static_cast<std::int16_t>(whole);
}

std::optional<std::int32_t> toLong(double value) {
  const double whole = RoundToWhole(value);
  if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) return std::nullopt;
  return static_cast<std::int32_t>(whole);
}

std::int32_t toLongClamped(double value) {
  if (std::isnan(value)) return 0;
  return static_cast<std::int32_t>(std::clamp(RoundToWhole(value), -2147483648.0, 2147483647.0));
}

}  // namespace kvo
