#include "editor/compiler/effect_word.h"

#include "base/text.h"
#include "vocabulary/effects.h"

#include <algorithm>

namespace kvo {
EffectWord::EffectWord(std::string_view text) {
  for (std::size_t i = 0; i < std::min(on_.size(), text.size()); ++i) on_[i] = text[i] == '1';
}

bool EffectWord::any() const {
  return std::any_of(on_.begin(), on_.end(), [](bool on) { return on; });
}

std::string EffectWord::text() const {
  std::string out;
  for (const bool on : on_) out += on ? '1' : '0';
  return out;
}

std::string_view GetEffectClsid(std::string_view name, std::string_view language) {
  if (name.empty() || language != "EN-US") return {};
  for (const auto& known : effectClasses()) {
    if (sameText(known.name, name)) return known.clsid;
  }
  return {};
}

}  // namespace kvo
