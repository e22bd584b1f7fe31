// A scalar that is empty until it is set and then holds a number or a text, as clip records carry times,
// notes and colours. Its text form is what goes to files.
#pragma once

#include "base/numbers.h"

#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace kvo {

class Value {
 public:
  Value() = default;
  Value(double number) : held_(number) {}                     // NOLINT(google-explicit-constructor)
  Value(int number) : held_(static_cast<double>(number)) {}   // NOLINT(google-explicit-constructor)
  Value(std::string text) : held_(std::move(text)) {}         // NOLINT(google-explicit-constructor)
  Value(std::string_view text) : held_(std::string(text)) {}  // NOLINT(google-explicit-constructor)
  Value(const char* text) : held_(std::string(text)) {}       // NOLINT(google-explicit-constructor)

  /// False until a number or a text was stored.
  [[nodiscard]] bool isSet() const { return held_.index() != 0; }

  /// Empty text when unset, the short decimal form of a number, a text as it stands.
  [[nodiscard]] std::string text() const {
    if (const auto* number = std::get_if<double>(&held_)) return ShortText(*number);
    if (const auto* text = std::get_if<std::string>(&held_)) return *text;
    return {};
  }

  /// The number, or the number that the text begins with, else 0.
  [[nodiscard]] double number() const {
    if (const auto* number = std::get_if<double>(&held_)) return *number;
    if (const auto* text = std::get_if<std::string>(&held_)) return ToNumber(*text);
    return 0;
  }

  /// The number when the value is one as a whole, in either form; nothing for "N/A" and the like.
  [[nodiscard]] std::optional<double> wholeNumber() const {
    if (const auto* number = std::get_if<double>(&held_)) return *number;
    if (const auto* text = std::get_if<std::string>(&held_)) return numberIn(*text);
    return std::nullopt;
  }

  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, double, std::string> held_;
};

}  // namespace kvo
