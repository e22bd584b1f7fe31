#include "editor/compiler/sample_documents.h"

#include "base/text.h"
#include "editor/compiler/clip_line.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/transition_element.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kBehindTransition = 2;  // seconds of the first clip that are shown beside its transition

// The beginning of the first clip, with the transition that leads into the movie.
std::string firstClipTrack(const EffectSources& from, TimelineClips& clips) {
  auto& clip = clips[1];
  const int longest = holdTransition(clips, 1, from.options.stillDuration);
  const double start = clip.LoopStart.number();
  const double duration = secondsFromTenths(clip.TransIn);
  const double end = std::min(clip.LoopEnd.number(), start + duration + kBehindTransition);
  const Stamp stop{end - start, Digits::Four};
  auto text = std::string(tag::kTrack) + tag::clip({{"src", sourceFile(*clip.record)},
                                                    {"mstart", fixedText(start)},
                                                    {"mstop", fixedText(end)},
                                                    {"start", "0"},
                                                    {"stop", stampText(stop)}},
                                                   " > ");
  if (ToNumber(clip.record->EffectWord()) != 0)
    text += tag::effectLine(CreateBasicImageStringFromEffectWord(from, clip, asWritten(stop)));
  text.append("\r\n").append(tag::kEndClip).append("\r\n");
  return text + AddTransition(from.options, clips, 1,
                              recordedTransition(clip, from.options, 0, Stamp{longest / 10.0}));
}

int evenSide(double pixels) { return std::max(2, static_cast<int>(std::lround(pixels / 2)) * 2); }

}  // namespace

SampleForm shapedLike(const OutputForm& movie, int width, int height) {
  if (movie.width < 1 || movie.height < 1) return {width, height, true};
  const double part =
      std::min({1.0, static_cast<double>(width) / movie.width, static_cast<double>(height) / movie.height});
  return {evenSide(movie.width * part), evenSide(movie.height * part), true};
}

SampleDocument transitionSample(const Collection& collection, int clipNo, CompileOptions options,
                                const CompileFacts& facts, double transitionSeconds, const SampleForm& form) {
  options.transitions = true;
  options.output.width = form.width;
  options.output.height = form.height;
  const KeyframeIndex keyframes(collection);
  const EffectSources from{facts.effects, keyframes, options};
  TimelineClips clips(collection, facts.streams);
  const int ahead = std::max(clipNo - 1, 1);
  for (int i = ahead; i <= clipNo; ++i) giveStillLength(clips[i], options.stillDuration);
  const bool cut = isCut(clips[clipNo].TransType);
  const bool twoSides = cut && clipNo > 1;
  const auto tracks =
      clipNo == 1 && !cut
          ? firstClipTrack(from, clips)
          : videoLine(from, clips,
                      {.TransitionPreview = true,
                       .FirstClip = ahead,
                       .LastClip = clipNo,
                       .TransitionZero = true,
                       .FixedDuration = twoSides,
                       .FixedSeconds = twoSides ? CalcMinimumDur(clips[ahead], clips[clipNo]) : 0,
                       .TransitionSeconds = transitionSeconds})
                .tracks;
  const auto group = tag::group({{"type", "video"},
                                 {"bitdepth", std::to_string(options.output.depth)},
                                 {"framerate", shortNumber(options.output.rate)},
                                 {"width", std::to_string(form.width)},
                                 {"height", std::to_string(form.height)}},
                                " >");
  return {tag::document({{group, tracks, 5}}, tag::Spacing::Wide), std::move(clips)};
}

SampleDocument clipSample(const Collection& collection, int clipNo, CompileOptions options,
                          const EffectsTable& effects, const SampleForm& form) {
  TimelineClips clips(collection);
  if (clipNo < 1 || clipNo > clips.count()) return {};
  options.effects = true;
  const KeyframeIndex keyframes(collection);
  auto& clip = clips[clipNo];
  giveStillLength(clip, options.stillDuration);
  const auto& record = *clip.record;
  const double length = timelineLength(clip);
  const auto& buffering = options.output.buffering;

  auto track =
      std::string(tag::kTrack) + tag::clip({{"start", "0"},
                                            {"stop", shortNumber(length)},
                                            {"src", clipFile(record)},
                                            {"mstart", secondsText(clip.LoopStart)},
                                            {"mstop", secondsText(clip.LoopEnd)},
                                            {form.showsStretch && record.IsStill() ? "stretchmode" : "",
                                             std::string(stretchModeText(record.stretchmode()))}},
                                           " >\r\n");
  track += effectLines({effects, keyframes, options}, clip, asWritten(Stamp{length}));
  track.append("\r\n").append(tag::kEndClip).append(tag::kEndTrack);
  const auto group = tag::group({{"type", "video"},
                                 {"bitdepth", "24"},
                                 {"framerate", shortNumber(options.output.rate)},
                                 {ToNumber(buffering) >= length ? "buffering" : "", buffering},
                                 {"width", std::to_string(form.width)},
                                 {"height", std::to_string(form.height)}},
                                " >");
  return {tag::document({{group, track}}, tag::Spacing::Close), std::move(clips)};
}

}  // namespace kvo
