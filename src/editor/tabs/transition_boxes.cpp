// The boxes of a transition's options, and the names that are looked for.
#include "base/text.h"
#include "editor/tabs/transition_tab.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr int kMostBorder = 255;
constexpr Single kScaleOfDefaults = 0.3F;

// "#RRGGBB", or a whole number as red + 256 green + 65536 blue; black for other texts.
unsigned colourOf(std::string_view text) {
  if (text.starts_with('#')) {
    unsigned rgb = 0;
    for (const char c : text.substr(1)) {
      const auto digit = std::string_view("0123456789abcdef").find(lower(std::string(1, c)));
      if (digit == std::string_view::npos) return 0;
      rgb = (rgb << 4U) | static_cast<unsigned>(digit);
    }
    return rgb & 0xFFFFFFU;
  }
  const auto number = static_cast<unsigned>(std::max(0, toLongClamped(ToNumber(text))));
  return ((number & 0xFFU) << 16U) | (number & 0xFF00U) | ((number >> 16U) & 0xFFU);
}

std::string colourText(unsigned rgb) {
  std::string text = "#";
  for (int shift = 20; shift >= 0; shift -= 4)
    text += "0123456789ABCDEF"[(rgb >> static_cast<unsigned>(shift)) & 0xFU];
  return text;
}

// An option's name and value in the record; both empty for the transition's own.
std::pair<std::string, std::string> option(std::string_view caption, const std::string& value) {
  if (caption.empty() || value.empty()) return {};
  return {std::string(caption), value};
}

}  // namespace

void TransitionRules::PopulateTransOptsFromObj() {
  const auto* clip = this->clip();
  tab_.border = {};
  tab_.firstOption.clear();
  tab_.secondOption.clear();
  if (clip != nullptr) {
    const auto& options = tab_.panel.options;
    tab_.border = {std::clamp<int>(clip->BorderWidth(), 0, kMostBorder),
                   std::clamp(static_cast<int>(clip->BorderSoftness()), 0, kMostBorder),
                   colourOf(clip->BorderColor().text()),
                   std::clamp<int>(clip->ReplicateX(), 1, kMostBorder),
                   std::clamp<int>(clip->ReplicateY(), 1, kMostBorder),
                   !trimmed(clip->MaskName()).empty()};
    if (!options.firstCaption.empty() && clip->ExtraParamName1() == options.firstCaption)
      tab_.firstOption = clip->ExtraParamValue1();
    if (!options.secondCaption.empty() && clip->ExtraParamName2() == options.secondCaption)
      tab_.secondOption = clip->ExtraParamValue2();
  }
  const auto& preferences = e_.settings.preferences();
  auto& particles = tab_.particles;
  particles.Chk_UseParticleDefaults = preferences.UseParticleDefaults;
  particles.Sld_ParticleFragments = preferences.MaxParticles;
  particles.Sld_ParticleMotionSpeed = preferences.ParticleMotionSpeed;
  particles.Sld_ParticleSpinSpeed = preferences.ParticleSpinSpeed * 10;
  const auto tenths = [&](Single value) {
    return particles.Chk_UseParticleDefaults ? 0 : static_cast<int>(std::lround(value * 10));
  };
  particles.Sld_ExponEntialProgDuration = tenths(preferences.PartExponentialProgressDuration);
  particles.Sld_ExponentialProgScale = tenths(preferences.PartExponentialProgressScale);
}

void TransitionRules::ApplyExtraParams(Movie& clip) const {
  const auto& options = tab_.panel.options;
  if (options.firstCaption.empty() && options.secondCaption.empty()) return;
  auto first = option(options.firstCaption, tab_.firstOption);
  auto second = option(options.secondCaption, tab_.secondOption);
  clip.ExtraParamName1(std::move(first.first));
  clip.ExtraParamValue1(std::move(first.second));
  clip.ExtraParamName2(std::move(second.first));
  clip.ExtraParamValue2(std::move(second.second));
}

// Not the timing changes, so that the change code stays.
void TransitionRules::editOptions(std::string_view act, const std::function<void(Movie&)>& work) {
  auto* clip = this->clip();
  if (clip == nullptr || !tab_.panel.listVisible) return;
  const bool showsParticleKey = tab_.panel.Cmd_ParticleOpts;
  const bool changed = host_.edit(act, e_.collection.icurMov, 0, [&] { work(*clip); });
  BuildTransitionFrame();
  tab_.panel.Cmd_ParticleOpts = showsParticleKey;
  if (changed && tab_.Sld_In >= 1) askForSample();
}

void TransitionRules::changeBorder(const BorderBoxes& wanted) {
  const auto shown = tab_.border;
  const auto held = [](int value, int least) {
    return static_cast<Integer>(std::clamp(value, least, kMostBorder));
  };
  editOptions("Transition border", [&](Movie& clip) {
    if (wanted.BorderWidth != shown.BorderWidth) clip.BorderWidth(held(wanted.BorderWidth, 0));
    if (wanted.BorderSoftness != shown.BorderSoftness)
      clip.BorderSoftness(static_cast<Single>(held(wanted.BorderSoftness, 0)));
    if (wanted.BorderColor != shown.BorderColor) clip.BorderColor(Value(colourText(wanted.BorderColor)));
    if (wanted.ReplicateX != shown.ReplicateX) clip.ReplicateX(held(wanted.ReplicateX, 1));
    if (wanted.ReplicateY != shown.ReplicateY) clip.ReplicateY(held(wanted.ReplicateY, 1));
  });
}

void TransitionRules::chooseMask(const std::string& path) {
  editOptions("Transition mask", [&](Movie& clip) {
    if (clip.MaskName() != path) clip.MaskName(path);
  });
}

void TransitionRules::typeFirstOption(std::string_view text) {
  const bool isNumber = text.find_first_not_of("0123456789") == std::string_view::npos;
  if (!isNumber || text.size() > kMostDigits) return;
  tab_.firstOption = text;
  editOptions("Transition option", [&](Movie& clip) { ApplyExtraParams(clip); });
}

void TransitionRules::chooseSecondOption(std::string_view value) {
  const auto values = tab_.panel.options.secondValues;
  if (!value.empty() && std::find(values.begin(), values.end(), value) == values.end()) return;
  tab_.secondOption = value;
  editOptions("Transition option", [&](Movie& clip) { ApplyExtraParams(clip); });
}

void TransitionRules::changeParticles(const ParticleBoxes& wanted) {
  const auto shown = tab_.particles;
  const bool changed = host_.edit("Particle options", 0, 0, [&] {
    e_.settings.state.IsDirty = true;
    auto& preferences = e_.settings.adjust();
    preferences.UseParticleDefaults = wanted.Chk_UseParticleDefaults;
    if (wanted.Chk_UseParticleDefaults) {
      if (shown.Chk_UseParticleDefaults) return;
      preferences.PartExponentialProgressDuration = 0;
      preferences.PartExponentialProgressScale = kScaleOfDefaults;
      return;
    }
    preferences.MaxParticles = static_cast<Integer>(std::clamp(wanted.Sld_ParticleFragments, 2, 1000));
    preferences.ParticleMotionSpeed =
        static_cast<Integer>(std::clamp(wanted.Sld_ParticleMotionSpeed, 1, 100));
    preferences.ParticleSpinSpeed =
        static_cast<Integer>(std::clamp(wanted.Sld_ParticleSpinSpeed, 0, 1000) / 10);
    const auto tenths = [](int value) { return static_cast<Single>(std::clamp(value, 0, 10)) / 10; };
    if (wanted.Sld_ExponEntialProgDuration != shown.Sld_ExponEntialProgDuration)
      preferences.PartExponentialProgressDuration = tenths(wanted.Sld_ExponEntialProgDuration);
    if (wanted.Sld_ExponentialProgScale != shown.Sld_ExponentialProgScale)
      preferences.PartExponentialProgressScale = tenths(wanted.Sld_ExponentialProgScale);
  });
  PopulateTransOptsFromObj();
  if (changed && tab_.Sld_In >= 1) askForSample();
}

}  // namespace kvo
