#include "editor/compiler/effect_word.h"

#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

struct ClassOfEffect {
  std::string_view name;
  std::string_view clsid;
};

constexpr ClassOfEffect kClasses[] = {
    {"BasicImage", "{16B280C8-EE70-11D1-9066-00C04FD9189D}"},
    {"Blur", "{7312498D-E87A-11d1-81E0-0000F87557DB}"},
    {"Chroma", "{421516C1-3CF8-11D2-952A-00C04FA34F05}"},
    {"DropShadow", "{ADC6CB86-424C-11D2-952A-00C04FA34F05}"},
    {"Emboss", "{F515306D-0156-11d2-81EA-0000F87557DB}"},
    {"Engrave", "{F515306E-0156-11d2-81EA-0000F87557DB}"},
    {"Fade", "{16B280C5-EE70-11D1-9066-00C04FD9189D}"},
    {"Pixelate", "{4CCEA634-FBE0-11d1-906A-00C04FD9189D}"},
    {"Alpha", "{ADC6CB82-424C-11D2-952A-00C04FA34F05}"},
    {"MotionBlur", "{DD13DE77-D3BA-42D4-B5C6-7745FA4E2D4B}"},
    {"FilmAge", "{ADEADEB8-E54B-11d1-9A72-0000F875EADE}"},
    {"FadeToBlack", "{EC85D8F1-1C4E-46e4-A748-7AA04E7C0496}"},
    {"Ease", "{B4DC8DD9-2CC1-4081-9B2B-20D7030234EF}"},
};

}  // namespace

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
  if (language != "EN-US") return {};
  const auto* found = std::find_if(std::begin(kClasses), std::end(kClasses),
                                   [&](const auto& k) { return sameText(k.name, name); });
  return found == std::end(kClasses) ? std::string_view() : found->clsid;
}

}  // namespace kvo
