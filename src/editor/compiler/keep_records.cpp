#include "editor/compiler/keep_records.h"

#include "editor/compiler/durations.h"

namespace kvo {

KeepRecords::KeepRecords(const Compilation& c)
    : c_(c), change_(c.settings.state.ObjectChange), settings_(c.settings.state.IsDirty) {
  for (int i = 1; i <= c.clips().count(); ++i) clips_.push_back(c.clips()[i].IsDirty());
}

KeepRecords::~KeepRecords() {
  for (int i = 1; i <= c_.clips().count(); ++i)
    c_.clips()[i].IsDirty(clips_[static_cast<std::size_t>(i - 1)]);
  c_.settings.state.IsDirty = settings_;
  c_.settings.state.ObjectChange = change_;
}

void giveStillLength(const Compilation& c, Movie& clip) {
  if (!clip.IsStill()) return;
  const auto change = c.settings.state.ObjectChange;
  const Value length(ShortText(c.settings.state.DefaultStillDuration));
  if (clip.LoopStart().number() == 0) clip.LoopStart(Value("0"));
  if (clip.LoopEnd().number() == 0) clip.LoopEnd(length);
  if (timelineLength(clip) == 0) {
    clip.LoopStart(Value("0"));
    clip.LoopEnd(length);
  }
  c.settings.state.ObjectChange = change;
}

void giveStillsLength(const Compilation& c) {
  for (int i = 1; i <= c.clips().count(); ++i) giveStillLength(c, c.clips()[i]);
}

}  // namespace kvo
