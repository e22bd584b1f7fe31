#include "editor/desk/timeline_desk.h"

#include "core/records/media_kinds.h"
#include "editor/tabs/still_options.h"
#include "editor/timeline/timeline_writes.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr Integer kMarkMoved = 96;
constexpr Integer kPlaceMoved = 98;

// The pictures of a clip, counted at its average rate.
PlayerPlace placeIn(const Movie& clip, double seconds) {
  const double length = clip.DurationTime().number();
  const double rate = length > 0 ? clip.DurationFrames().number() / length : 0;
  return {seconds, static_cast<Long>(std::lround(seconds * rate))};
}

}  // namespace

void TimelineDesk::select(int clip) {
  if (has(clip) && clip != parts_.editing.collection.icurMov) parts_.commands.select(clip);
}

void TimelineDesk::moveTo(int clip, int before) {
  if (!has(clip)) return;
  parts_.commands.choose({clip}, clip);
  parts_.commands.moveTo(before);
}

void TimelineDesk::setMark(const MarkGesture& mark) {
  if (!has(mark.clip)) return;
  parts_.desk.edit(mark.edge == ClipEdge::In ? "Mark-In" : "Mark-Out", mark.clip, kMarkMoved, [&] {
    auto& clip = parts_.editing.clips()[mark.clip];
    writeMark(clip, mark);
    if (clip.IsStill() && stillsAreIndividual(parts_.editing))
      parts_.editing.settings.adjust().StillsIndividual = true;
  });
}

void TimelineDesk::setTransIn(const TransInGesture& transition) {
  if (!has(transition.clip)) return;
  parts_.desk.edit("Transition", transition.clip, kPlaceMoved,
                   [&] { writeTransIn(parts_.editing.clips()[transition.clip], transition); });
}

void TimelineDesk::setFade(const FadeGesture& fade) {
  if (!has(fade.clip)) return;
  parts_.desk.edit("Fade", fade.clip, kPlaceMoved,
                   [&] { writeFade(parts_.editing.clips()[fade.clip], fade); });
}

void TimelineDesk::showFrame(int clip, double seconds) {
  if (has(clip)) doors_.showFrame(clipFile(parts_.editing.clips()[clip]), seconds);
}

// Music stands behind all pictures.
void TimelineDesk::insertFiles(const std::vector<std::string>& files, int before) {
  std::vector<std::string> pictures;
  std::vector<std::string> music;
  for (const auto& file : files) (isSoundByName(file) ? music : pictures).push_back(file);
  parts_.history.together([&] {
    if (!pictures.empty()) parts_.mailbox.takeFiles(pictures, before);
    if (!music.empty()) parts_.mailbox.takeFiles(music);
  });
}

std::string TimelineDesk::copy(int clip) {
  select(clip);
  auto why = parts_.commands.whyNoCopy(CopyMode::Exact);
  if (why.empty()) parts_.commands.copy(CopyMode::Exact);
  return why;
}

std::string TimelineDesk::split(int clip, double seconds) {
  if (!has(clip)) return {};
  select(clip);
  return parts_.commands.split(placeIn(parts_.editing.clips()[clip], seconds));
}

void TimelineDesk::openTab(int tab, int clip) {
  select(clip);
  parts_.desk.Buildtabs(tab);
}

void TimelineDesk::openTrimmer(int clip) {
  select(clip);
  parts_.desk.press(ClipKey::Trimmer);
}

}  // namespace kvo
