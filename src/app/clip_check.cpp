#include "app/clip_check.h"

#include "base/text.h"
#include "editor/timeline/clip_kinds.h"
#include "editor/timeline/durations.h"
#include "editor/timeline/picture_in_picture.h"
#include "editor/timeline/transition_names.h"

namespace kvo {
namespace {

constexpr double kDurationSlack = 0.5;  // seconds that a mark may lie behind the end

}  // namespace

std::vector<std::string> clipFaults(const Compilation& c, int clipNo) {
  const auto& clip = c.clips()[clipNo];
  const auto path = clipFile(clip);
  if (!c.files.exists(path)) return {"the file is missing"};
  const auto facts = c.streams.facts(path);
  if (!facts) return {facts.error().text};
  std::vector<std::string> faults;
  const bool sound = isOverlayAudio(clip.MovieName());
  if (sound && !facts->hasAudio) faults.emplace_back("there is no sound in it");
  if (!sound && !facts->hasVideo) faults.emplace_back("there is no picture in it");
  const double start = clip.LoopStart().number();
  const double end = clip.LoopEnd().number();
  if (clip.Playspeed() < 0)
    faults.push_back("its speed of " + ShortText(speedOf(clip)) + " cannot be played");
  if (end <= start) faults.push_back("its section ends at " + ShortText(end) + " s, ahead of its start");
  if (!clip.IsStill() && facts->duration > 0 && end > facts->duration + kDurationSlack) {
    faults.push_back("its section ends at " + ShortText(end) + " s, the file at " +
                     FormatMask(facts->duration, "0.00") + " s");
  }
  if (!sound && !isCut(clip.TransType()) && !isTransition(clip.TransType())) {
    faults.push_back("there is no transition " + clip.TransType());
  }
  return faults;
}

std::vector<std::string> clipClamps(const Movie& clip) {
  std::vector<std::string> clamps;
  const auto hold = [&](std::string_view name, double value, double least, double most, double heldToLeast) {
    if (value >= least && value <= most) return;
    clamps.push_back("its " + std::string(name) + " of " + ShortText(value) + " is held to " +
                     ShortText(value < least ? heldToLeast : most));
  };
  // A replication of 0 is one that was never set.
  hold("border width", clip.BorderWidth(), 0, 255, 0);
  hold("border softness", static_cast<double>(clip.BorderSoftness()), 0, 255, 0);
  hold("horizontal replication", clip.ReplicateX(), 0, 255, 1);
  hold("vertical replication", clip.ReplicateY(), 0, 255, 1);
  if (clip.IsStill()) hold("stretch mode", clip.stretchmode(), 0, 3, 0);
  if (!trimmed(clip.HasPicInPic()).empty() && !readPicInPic(clip.HasPicInPic())) {
    clamps.emplace_back("its picture-in-picture field makes no sense and is left out");
  }
  return clamps;
}

}  // namespace kvo
