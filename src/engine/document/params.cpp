#include "engine/document/params.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace kvo::engine {

double Keyed::at(double time) const {
  // The first key behind `time`.
  const auto next =
      std::upper_bound(keys.begin(), keys.end(), time, [](double t, const Key& key) { return t < key.time; });
  const double held = next == keys.begin() ? value : std::prev(next)->value;
  const double from = next == keys.begin() ? 0 : std::prev(next)->time;
  if (next == keys.end() || !next->linear || next->time <= from) return held;
  return held + (next->value - held) * std::max(time - from, 0.0) / (next->time - from);
}

double valueOf(std::string_view text) { return sameText(trimmed(text), "true") ? 1 : ToNumber(text); }

void Params::add(std::string_view name, Param param) { all_.emplace(lower(name), std::move(param)); }

const Param* Params::find(std::string_view name) const {
  const auto found = all_.find(name);
  return found == all_.end() ? nullptr : &found->second;
}

double Params::number(std::string_view name, double time, double otherwise) const {
  const auto* param = find(name);
  return param == nullptr ? otherwise : param->number.at(time);
}

double Params::number(std::string_view name, double time, double otherwise, double least, double most) const {
  return std::clamp(number(name, time, otherwise), least, most);
}

double Params::count(std::string_view name, double otherwise) const {
  const double count = RoundToWhole(number(name, 0, 0));
  return count >= 1 ? std::min(count, 255.0) : otherwise;
}

std::string Params::word(std::string_view name) const {
  const auto* param = find(name);
  return param == nullptr ? std::string() : lower(trimmed(param->text));
}

bool Params::flag(std::string_view name) const { return number(name, 0, 0) != 0; }

bool Params::moves() const {
  return std::any_of(all_.begin(), all_.end(),
                     [](const auto& entry) { return !entry.second.number.keys.empty(); });
}

}  // namespace kvo::engine
