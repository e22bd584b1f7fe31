#include "editor/timeline/timeline_blocks.h"

#include "core/telling/translated.h"
#include "editor/compiler/compile.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_word.h"
#include "editor/compiler/effects_table.h"
#include "editor/compiler/keyframes.h"
#include "editor/compiler/picture_in_picture.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr double kSameTime = 0.0005;  // seconds: documents round to a ten-thousandth

const TimelineBlock* blockOf(const std::vector<TimelineBlock>& blocks, int clip) {
  const auto found = std::lower_bound(blocks.begin(), blocks.end(), clip,
                                      [](const auto& block, int wanted) { return block.clip < wanted; });
  return found == blocks.end() || found->clip != clip ? nullptr : &*found;
}

int switchesOn(std::string_view text) {
  const EffectWord word(text);
  int count = 0;
  for (int i = 1; i <= EffectWord::kSwitches; ++i) count += word.isOn(i) ? 1 : 0;
  return count;
}

// Of the average picture; a record that counts no pictures tells the rate of its file.
double rateOf(const Movie& record) {
  const auto frames = record.DurationFrames().wholeNumber().value_or(0);
  const auto length = record.DurationTime().wholeNumber().value_or(0);
  if (frames > 0 && length > 0) return frames / length;
  return record.FrameRate() > 0 ? decimal(record.FrameRate()) : 0;
}

bool hasColours(const Movie& record) {
  const std::array levels = {record.Red(),      record.Green(),      record.Blue(), record.Threshold(),
                             record.Contrast(), record.Brightness(), record.Gamma()};
  return record.Sepia() || std::ranges::any_of(levels, [](Single level) { return level != 0; });
}

bool hasOverlay(const Movie& record) {
  const auto look = readPicInPic(record.HasPicInPic());
  return look && look->overlayClip > 0;
}

// Of the effects that move: one that has its base keyframe alone does not.
int keyframesOf(const KeyframeIndex& keyframes, Long keyId) {
  int count = 0;
  for (const int effect : keyframes.effectsOf(keyId)) {
    const auto& own = keyframes.of(keyId, effect);
    if (own.size() > 1 || !isBase(*own.front())) count += static_cast<int>(own.size());
  }
  return count;
}

TimelineBlock blockOf(const TimelineClip& clip, const KeyframeIndex& keyframes) {
  const auto& record = *clip.record;
  const int keys = keyframesOf(keyframes, record.KeyID());
  return {
      .clip = clip.number,
      .start = clip.place.start,
      .stop = std::max(clip.place.start, clip.place.stop),
      .name = listedName(record),
      .file = clipFile(record),
      .markIn = clip.LoopStart.number(),
      .markOut = clip.LoopEnd.number(),
      .speed = speedOf(record),
      .sourceLength = record.IsStill() ? 0 : std::max(0.0, record.DurationTime().wholeNumber().value_or(0)),
      .frameRate = record.IsStill() ? 0 : rateOf(record),
      .isStill = record.IsStill(),
      .isHeard = clip.hasSound && record.RenderAudio() && record.AudioOutputLevel() != 0,
      .transition = {},
      .badges = clip.isSound ? std::array{0, keys, 0, 0}
                             : std::array{switchesOn(record.EffectWord()), keys, hasColours(record) ? 1 : 0,
                                          hasOverlay(record) ? 1 : 0},
      .fadeIn = decimal(record.AudioFadeInTime()),
      .fadeOut = decimal(record.AudioFadeOutTime())};
}

void addClip(TimelineBlocks& blocks, TimelineClips& clips, TimelineBlock block, Single stillDuration) {
  auto& clip = clips[block.clip];
  block.longestTransition = holdTransition(clips, block.clip, stillDuration);
  if (!isCut(clip.TransType)) {
    block.transition = clip.TransType;
    block.overlap = secondsFromTenths(clip.TransIn);
  }
  blocks.videoEnd = std::max(blocks.videoEnd, block.stop);
  blocks.reach.push_back(blocks.videoEnd);
  blocks.clips.push_back(std::move(block));
}

void addMusic(TimelineBlocks& blocks, const TimelineClip& clip, TimelineBlock block) {
  if (!clip.placed || block.length() <= 0) {
    ++blocks.leftOut;
    return;
  }
  if (!clip.HasAudioFade) block.fadeIn = block.fadeOut = 0;
  block.isTrimmed = block.length() < timelineLength(clip) - kSameTime;
  block.lane = blocks.isStacked ? static_cast<int>(blocks.music.size()) : 0;
  blocks.musicEnd = std::max(blocks.musicEnd, block.stop);
  blocks.lanes = block.lane + 1;
  blocks.music.push_back(std::move(block));
}

std::string counted(int count, const char* one, const char* many) {
  return translated(count == 1 ? one : many, {std::to_string(count)});
}

}  // namespace

const TimelineBlock* TimelineBlocks::of(int clip) const {
  const auto* found = blockOf(clips, clip);
  return found != nullptr ? found : blockOf(music, clip);
}

std::size_t TimelineBlocks::firstBehind(double seconds) const {
  return static_cast<std::size_t>(std::upper_bound(reach.begin(), reach.end(), seconds) - reach.begin());
}

const TimelineBlock* TimelineBlocks::seenAt(double seconds) const {
  const TimelineBlock* seen = nullptr;
  for (auto i = firstBehind(seconds); i < clips.size() && clips[i].start <= seconds; ++i) seen = &clips[i];
  return seen;
}

TimelineBlocks blocksOf(TimelineClips clips, const Collection& collection, const CompileOptions& options) {
  const KeyframeIndex keyframes(collection);
  clips = compileTimes(std::move(clips), keyframes, options).clips;
  TimelineBlocks blocks;
  blocks.isStacked = options.overlayOrder == OverlayOrder::Stacked;
  for (const auto& clip : clips) {
    auto block = blockOf(clip, keyframes);
    if (!clip.isSound) {
      block.isHeard = block.isHeard && options.clipAudio;
      addClip(blocks, clips, std::move(block), options.stillDuration);
    } else if (clip.isMusic) {
      addMusic(blocks, clip, std::move(block));
    }
  }
  return blocks;
}

std::string badgeName(const TimelineBlock& block, TimelineBadge which) {
  switch (which) {
    case TimelineBadge::Effects:
      return counted(block.badge(which), "1 effect", "%1 effects");
    case TimelineBadge::Keyframes:
      return counted(block.badge(which), "1 keyframe", "%1 keyframes");
    case TimelineBadge::Colours:
      return translated("colors set", {});
    case TimelineBadge::Overlay:
      return translated("a clip laid over it", {});
  }
  return {};
}

std::string spokenName(const TimelineBlock& block, bool isMusic) {
  const auto seconds = [](double length) { return FormatMask(length, "0.0"); };
  const auto number = std::to_string(block.clip);
  auto text = isMusic ? translated("Music %1, %2, %3 seconds", {number, block.name, seconds(block.length())})
                      : translated("Clip %1, %2, %3 seconds", {number, block.name, seconds(block.length())});
  const auto add = [&](const std::string& more) { text += ", " + more; };
  if (block.isMissing) add(translated("its file is missing"));
  if (!block.transition.empty())
    add(translated("%1 over %2 seconds", {block.transition, seconds(block.overlap)}));
  for (std::size_t i = 0; i < kTimelineBadges; ++i) {
    if (block.badges[i] > 0) add(badgeName(block, static_cast<TimelineBadge>(i)));
  }
  if (isMusic && block.fadeIn > 0) add(translated("fades in over %1 seconds", {seconds(block.fadeIn)}));
  if (isMusic && block.fadeOut > 0) add(translated("fades out over %1 seconds", {seconds(block.fadeOut)}));
  return text;
}

}  // namespace kvo
