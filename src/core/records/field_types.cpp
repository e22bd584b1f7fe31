#include "core/records/field_types.h"

#include "base/text.h"

#include <cmath>
#include <limits>

namespace kvo {

std::string fieldText(Boolean value) { return value ? "True" : "False"; }
std::string fieldText(Integer value) { return std::to_string(value); }
std::string fieldText(Long value) { return std::to_string(value); }
std::string fieldText(Single value) { return ShortText(value); }
std::string fieldText(double value) { return ShortText(value); }
std::string fieldText(const std::string& value) { return value; }
std::string fieldText(const Value& value) { return value.text(); }

bool takeField(Boolean& field, std::string_view text) {
  if (sameText(text, "True")) {
    field = true;
  } else if (sameText(text, "False")) {
    field = false;
  } else if (const auto number = numberIn(text)) {
    field = *number != 0;
  } else {
    return false;
  }
  return true;
}

bool takeField(Integer& field, std::string_view text) {
  const auto number = numberIn(text);
  const auto whole = number ? toInteger(*number) : std::nullopt;
  if (whole) field = *whole;
  return whole.has_value();
}

bool takeField(Long& field, std::string_view text) {
  const auto number = numberIn(text);
  const auto whole = number ? toLong(*number) : std::nullopt;
  if (whole) field = *whole;
  return whole.has_value();
}

bool takeField(Single& field, std::string_view text) {
  const auto number = numberIn(text);
  if (!number || std::fabs(*number) > static_cast<double>(std::numeric_limits<float>::max())) return false;
  field = static_cast<float>(*number);
  return true;
}

bool takeField(double& field, std::string_view text) {
  const auto number = numberIn(text);
  if (number) field = *number;
  return number.has_value();
}

bool takeField(std::string& field, std::string_view text) {
  field = text;
  return true;
}

bool takeField(Value& field, std::string_view text) {
  field = Value(text);
  return true;
}

}  // namespace kvo
