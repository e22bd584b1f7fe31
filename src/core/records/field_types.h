// The types that the fields of records and settings have, and their forms as text in a collection file.
#pragma once

#include "base/value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvo {

using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;
using Boolean = bool;

inline constexpr Integer kFlagOn = -1;  ///< a flag that is kept in an Integer is 0 or -1

std::string fieldText(Boolean value);
std::string fieldText(Integer value);
std::string fieldText(Long value);
std::string fieldText(Single value);
std::string fieldText(double value);
std::string fieldText(const std::string& value);
std::string fieldText(const Value& value);

/// Takes the text of a file into a field. False, and the field as it was, when the text does not convert:
/// no number, out of the type's range, neither "True" nor "False" nor a number.
bool takeField(Boolean& field, std::string_view text);
bool takeField(Integer& field, std::string_view text);
bool takeField(Long& field, std::string_view text);
bool takeField(Single& field, std::string_view text);
bool takeField(double& field, std::string_view text);
bool takeField(std::string& field, std::string_view text);
bool takeField(Value& field, std::string_view text);

/// Characters: a text of just this length marks a field that was never filled.
inline constexpr std::size_t kUnusedLength = 128;

}  // namespace kvo
