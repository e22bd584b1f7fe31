#include "editor/compiler/still_options.h"

#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::string_view kAspects[] = {"Stretch to fit video framesize",
                                         "Maintain aspect ratio for shorter dimension (letterbox)",
                                         "Maintain and fill target frame", "Crop to fit output frame size"};
constexpr std::string_view kDefaultFile =
    "[DefaultGroupStillDuration]\r\nStillDur=7.000\r\n\r\n[DefaultGroupStillFrameRate]\r\nFrameRate=0\r\n";
constexpr std::uint64_t kMaxFile = 1U << 20U;
constexpr Integer kStillChanged = 98;  // change code

// The number on the line behind a section's heading; nothing when there is no such section.
std::optional<double> sectionValue(std::string_view text, std::string_view section, std::string_view key) {
  bool next = false;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    const auto line = upper(trimmed(replaced(text.substr(0, end), "\r", "")));
    if (next) return ToNumber(trimmed(replaced(line, key, "")));
    next = line == section;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return std::nullopt;
}

void apply(Movie& clip, const StillControls& controls) {
  if (!clip.IsStill()) return;
  clip.LoopStart(Value(0));
  clip.LoopEnd(Value(controls.milliseconds / 1000));
  clip.stretchmode(static_cast<Integer>(controls.aspect));
}

}  // namespace

std::span<const std::string_view> aspectCaptions() { return kAspects; }

void GetStillOpts(const Compilation& c) {
  const auto path = c.folder.beside("\\RenderStillOpts.dat");
  // A folder that cannot be written does not hinder: the values are the same.
  if (!c.files.exists(path)) static_cast<void>(writeDurably(c.files, path, kDefaultFile));
  const auto bytes = c.files.read(path, kMaxFile);
  const auto text = bytes ? textFromBytes(*bytes) : std::string(kDefaultFile);
  if (const auto v = sectionValue(text, "[DEFAULTGROUPSTILLDURATION]", "STILLDUR=")) {
    c.settings.state.DefaultStillDuration = static_cast<Single>(*v);
  }
  if (const auto v = sectionValue(text, "[DEFAULTGROUPSTILLFRAMERATE]", "FRAMERATE=")) {
    c.settings.state.DefaultStillFrameRate = static_cast<Single>(*v);
  }
}

void ApplyStillSettings(const Compilation& c, const StillControls& controls) {
  if (controls.individually) {
    if (controls.selectedClip >= 1 && controls.selectedClip <= c.clips().count()) {
      apply(c.clips()[controls.selectedClip], controls);
    }
    return;
  }
  for (int i = 1; i <= c.clips().count(); ++i) apply(c.clips()[i], controls);
}

void moveStillSlider(const Compilation& c, StillControls& controls, double milliseconds) {
  controls.milliseconds = milliseconds;
  c.settings.state.DefaultStillDuration = static_cast<Single>(milliseconds / 1000);
  ApplyStillSettings(c, controls);
  c.settings.state.ObjectChange = kStillChanged;
}

int GetStillsInCollection(const Compilation& c) {
  int count = 0;
  for (int i = 1; i <= c.clips().count(); ++i) count += c.clips()[i].IsStill() ? 1 : 0;
  return count;
}

std::vector<std::string> PopulateStillListBox(const Compilation& c) {
  std::vector<std::string> lines;
  for (int i = 1; i <= c.clips().count(); ++i) {
    if (c.clips()[i].IsStill()) lines.push_back(listedName(c.clips()[i]) + blanks(200) + std::to_string(i));
  }
  return lines;
}

}  // namespace kvo
