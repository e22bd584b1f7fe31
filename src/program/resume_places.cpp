#include "program/resume_places.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kvo {
namespace {

std::string_view nextField(std::string_view& line) {
  const auto field = line.substr(0, line.find('\t'));
  line.remove_prefix(std::min(field.size() + 1, line.size()));
  return field;
}

template <class Number>
bool takeWhole(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

std::optional<LeftPlace> placeIn(std::string_view line) {
  LeftPlace place;
  const auto seconds = numberIn(nextField(line));
  if (!takeWhole(nextField(line), place.file.size) || !takeWhole(nextField(line), place.file.changed))
    return std::nullopt;
  place.path = line;
  place.seconds = seconds.value_or(0);
  if (place.path.empty() || !std::isfinite(place.seconds) || place.seconds <= 0) return std::nullopt;
  return place;
}

}  // namespace

ResumePlaces ResumePlaces::read(std::string_view text) {
  ResumePlaces all;
  while (!text.empty() && all.places_.size() < kMost) {
    if (auto place = placeIn(nextLine(text))) all.places_.push_back(std::move(*place));
  }
  return all;
}

std::string ResumePlaces::text() const {
  std::string text;
  for (const auto& place : places_) {
    text.append(ShortText(place.seconds)).append("\t").append(std::to_string(place.file.size)).append("\t");
    text.append(std::to_string(place.file.changed)).append("\t").append(place.path).append("\n");
  }
  return text;
}

void ResumePlaces::keep(LeftPlace place) {
  if (place.path.find_first_of("\r\n") != std::string::npos) return;
  forget(place.path);
  places_.insert(places_.begin(), std::move(place));
  if (places_.size() > kMost) places_.resize(kMost);
}

bool ResumePlaces::forget(std::string_view path) {
  return std::erase_if(places_, [&](const auto& place) { return place.path == path; }) > 0;
}

std::optional<double> ResumePlaces::find(std::string_view path, const FileFacts& file) const {
  const auto found =
      std::find_if(places_.begin(), places_.end(), [&](const auto& place) { return place.path == path; });
  if (found == places_.end()) return std::nullopt;
  const bool same = found->file.size == file.size && found->file.changed == file.changed;
  return same ? std::optional(found->seconds) : std::nullopt;
}

}  // namespace kvo
