#include "editor/tabs/still_options.h"

#include "base/text.h"
#include "editor/compiler/durations.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr std::string_view kDefaultFile =
    "[DefaultGroupStillDuration]\r\nStillDur=7.000\r\n\r\n[DefaultGroupStillFrameRate]\r\nFrameRate=0\r\n";
constexpr Integer kStillChanged = 98;  // change code
constexpr double kHalfMillisecond = 0.0005;

// The number on the line behind a section's heading; nothing when there is no such section.
std::optional<double> sectionValue(std::string_view text, std::string_view section, std::string_view key) {
  bool next = false;
  while (!text.empty()) {
    const auto line = upper(trimmed(nextLine(text)));
    if (next) return ToNumber(trimmed(replaced(line, key, "")));
    next = line == section;
  }
  return std::nullopt;
}

// What a clip has already is no change of it: each preview applies them anew.
void apply(Movie& clip, const StillControls& controls) {
  if (!clip.IsStill()) return;
  const double length = controls.milliseconds / 1000;
  const auto aspect = static_cast<Integer>(controls.aspect);
  if (clip.LoopStart().number() == 0 && std::abs(clip.LoopEnd().number() - length) < kHalfMillisecond &&
      clip.stretchmode() == aspect)
    return;
  clip.LoopStart(Value(0));
  clip.LoopEnd(Value(length));
  clip.stretchmode(aspect);
}

}  // namespace

void GetStillOpts(const Editing& e) {
  const auto path = e.folder.beside("\\RenderStillOpts.dat");
  // A folder that cannot be written does not hinder: the values are the same.
  if (!e.files.exists(path)) static_cast<void>(writeDurably(e.files, path, kDefaultFile));
  const auto bytes = e.files.read(path, kMaxTableFile);
  const auto text = bytes ? textFromBytes(*bytes) : std::string(kDefaultFile);
  if (const auto v = sectionValue(text, "[DEFAULTGROUPSTILLDURATION]", "STILLDUR=")) {
    e.settings.state.DefaultStillDuration = static_cast<Single>(*v);
  }
  if (const auto v = sectionValue(text, "[DEFAULTGROUPSTILLFRAMERATE]", "FRAMERATE=")) {
    e.settings.state.DefaultStillFrameRate = static_cast<Single>(*v);
  }
}

double stillSeconds(const Editing& e, const Movie& still) {
  const double own = still.LoopEnd().number() - still.LoopStart().number();
  return own > 0 ? own : decimal(e.settings.state.DefaultStillDuration);
}

bool stillsAreIndividual(const Editing& e) {
  if (e.settings.preferences().StillsIndividual) return true;
  const Movie* first = nullptr;
  for (int i = 1; i <= e.clips().count(); ++i) {
    const auto& clip = e.clips()[i];
    if (!clip.IsStill()) continue;
    if (first == nullptr) first = &clip;
    const double apart = std::abs(stillSeconds(e, clip) - stillSeconds(e, *first));
    if (apart >= kHalfMillisecond || clip.stretchmode() != first->stretchmode()) return true;
  }
  return false;
}

void ApplyStillSettings(const Editing& e, const StillControls& controls) {
  if (controls.individually) {
    if (controls.selectedClip >= 1 && controls.selectedClip <= e.clips().count()) {
      apply(e.clips()[controls.selectedClip], controls);
    }
    return;
  }
  for (int i = 1; i <= e.clips().count(); ++i) apply(e.clips()[i], controls);
}

void moveStillSlider(const Editing& e, StillControls& controls, double milliseconds) {
  controls.milliseconds = milliseconds;
  e.settings.state.DefaultStillDuration = static_cast<Single>(milliseconds / 1000);
  ApplyStillSettings(e, controls);
  e.settings.state.ObjectChange = kStillChanged;
}

int GetStillsInCollection(const Editing& e) {
  int count = 0;
  for (int i = 1; i <= e.clips().count(); ++i) count += e.clips()[i].IsStill() ? 1 : 0;
  return count;
}

std::vector<std::string> PopulateStillListBox(const Editing& e) {
  std::vector<std::string> lines;
  for (int i = 1; i <= e.clips().count(); ++i) {
    if (e.clips()[i].IsStill()) lines.push_back(listedName(e.clips()[i]) + blanks(200) + std::to_string(i));
  }
  return lines;
}

}  // namespace kvo
