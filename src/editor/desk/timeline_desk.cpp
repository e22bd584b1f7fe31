#include "editor/desk/timeline_desk.h"

#include "editor/tabs/still_options.h"
#include "editor/timeline/timeline_writes.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr Integer kMarkMoved = 96;
constexpr Integer kPlaceMoved = 98;

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

std::string TimelineDesk::copy(int clip) {
  select(clip);
  auto why = parts_.commands.whyNoCopy(CopyMode::Exact);
  if (why.empty()) parts_.commands.copy(CopyMode::Exact);
  return why;
}

std::string TimelineDesk::split(int clip) {
  if (!has(clip)) return {};
  select(clip);
  return parts_.desk.split();
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
