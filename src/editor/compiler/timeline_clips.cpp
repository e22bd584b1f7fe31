#include "editor/compiler/timeline_clips.h"

#include "base/text.h"
#include "core/records/media_kinds.h"
#include "editor/compiler/document_text.h"

#include <algorithm>

namespace kvo {
namespace {

void lookInto(TimelineClip& clip, MediaContents& streams) {
  const auto& name = clip.record->MovieName();
  const auto* kind = mediaKind(name);
  const auto facts = streams.facts(clipFile(*clip.record));
  clip.hasPicture = facts && facts->hasVideo;
  clip.hasSound = facts && facts->hasAudio;
  clip.isRead = facts && (!facts->hasVideo || facts->width > 0);  // what is presumed tells no size
  clip.isSound = mediaClass(name, facts ? &*facts : nullptr) == MediaClass::Sound;
  clip.isMusic = clip.isSound && (kind == nullptr || kind->canBeInMovie);
}

bool canBeShown(const TimelineClip& clip) {
  if (clip.isSound) return false;
  const auto kind = extensionOf(clip.record->MovieName());
  return clip.hasPicture || clip.record->IsStill() || kind == "PEG" || kind == "MPG";
}

void correctTransition(Movie& record, const TimelineClip& clip) {
  record.TransIn(clip.TransIn);
  if (!clip.dropsFirstOption) return;
  record.ExtraParamName1("");
  record.ExtraParamValue1("");
}

void correct(Movie& record, const TimelineClip& clip) {
  if (record.LoopStart() != clip.LoopStart) record.LoopStart(clip.LoopStart);
  if (record.LoopEnd() != clip.LoopEnd) record.LoopEnd(clip.LoopEnd);
  record.DurationTime(clip.DurationTime);
  if (record.TransType() != clip.TransType) record.TransType(clip.TransType);
  if (clip.isRead || record.IsStill()) {  // a sound that is away for a while comes back
    if (clip.HasAudio) record.HasAudio(*clip.HasAudio);
    record.RenderAudio(clip.RenderAudio);
  }
  record.HasAudioFade(clip.HasAudioFade);
  record.HasKeyFrames(clip.HasKeyFrames);
  if (!clip.placed) return;
  record.TimeLineStart(Value(shortNumber(clip.place.start)));
  record.TimeLineStop(Value(fixedText(clip.place.stop)));
}

}  // namespace

TimelineClips::TimelineClips(const Collection& collection) {
  const auto& records = collection.MovieList;
  clips_.reserve(static_cast<std::size_t>(records.count()));
  for (int i = 1; i <= records.count(); ++i) {
    const auto& m = records[i];
    clips_.push_back({.record = &m,
                      .number = i,
                      .LoopStart = m.LoopStart(),
                      .LoopEnd = m.LoopEnd(),
                      .DurationTime = m.DurationTime(),
                      .TransIn = m.TransIn(),
                      .TransType = m.TransType(),
                      .HasAudio = {},
                      .RenderAudio = m.RenderAudio(),
                      .HasAudioFade = m.HasAudioFade(),
                      .HasKeyFrames = m.HasKeyFrames(),
                      .place = {m.TimeLineStart().number(), m.TimeLineStop().number()}});
  }
}

TimelineClips::TimelineClips(const Collection& collection, MediaContents& streams)
    : TimelineClips(collection) {
  for (auto& clip : clips_) lookInto(clip, streams);
}

bool isCut(std::string_view transType) {
  return trimmed(transType).empty() || sameText(trimmed(transType), "CUT");
}

bool hasPicture(const TimelineClips& clips) {
  return std::any_of(clips.begin(), clips.end(), [](const auto& clip) { return canBeShown(clip); });
}

int misplacedSound(const TimelineClips& clips) {
  int sound = 0;
  for (const auto& clip : clips) {
    if (!clip.isSound && sound > 0) return sound;
    if (clip.isSound && sound == 0) sound = clip.number;
  }
  return 0;
}

void applyCorrections(const TimelineClips& clips, Collection& collection, KVO2& settings, Corrections which) {
  const auto change = settings.state.ObjectChange;
  for (const auto& clip : clips) {
    auto& record = collection.MovieList[clip.number];
    const bool wasDirty = record.IsDirty();
    if (which != Corrections::ButTransitions) correctTransition(record, clip);
    if (which != Corrections::OfTransitions) correct(record, clip);
    record.IsDirty(wasDirty);
  }
  settings.state.ObjectChange = change;
}

}  // namespace kvo
