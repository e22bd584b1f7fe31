#include "editor/compiler/collection_faults.h"

#include "base/paths.h"
#include "base/text.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/picture_in_picture.h"
#include "editor/compiler/transition_names.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr double kDurationSlack = 0.5;  // seconds that a mark may lie behind the end
constexpr double kLongestTime = 1e9;    // seconds; a document cannot give more
constexpr double kLowestRate = 1;       // frames a second
constexpr double kSlowest = 0.01;       // slower sound cannot be stretched
constexpr double kHighestRate = 1000;

// Of what is no file to take pictures or sound from.
std::string_view whyInNoMovie(const Movie& clip) {
  if (clip.IsHTML()) return "a web page cannot be put into a movie";
  if (clip.IsStream() || isAddress(clipFile(clip))) return "a stream cannot be put into a movie";
  return {};
}

class Faults {
 public:
  Faults(const Compiled& compiled, MediaContents& streams, const Files& files, const ReadReport& report)
      : compiled_(compiled), streams_(streams), files_(files) {
    const auto& clips = compiled.clips;
    readFaults(report);
    const auto any = [&](auto holds) { return std::any_of(clips.begin(), clips.end(), holds); };
    if (clips.count() == 0) {
      stop("the collection has no clips");
    } else if (any([](const auto& clip) { return !clip.isSound; })) {
      outputFaults();
    } else if (!compiled.hasMusic || !any([](const auto& clip) { return clip.RenderAudio; })) {
      stop("nothing of it goes into a movie: there is no picture, and its sound is switched off");
    }
    const int misplaced = misplacedSound(clips);
    for (const auto& clip : clips) {
      number_ = clip.number;
      if (number_ == misplaced)
        stop("it is sound ahead of a picture: sound belongs at the end of the collection");
      if (const auto why = whyInNoMovie(*clip.record); !why.empty()) {
        stop(std::string(why));
        continue;
      }
      fileFaults(clip);
      timeFaults(clip);
      if (!clip.isSound && !isCut(clip.TransType) && !isTransition(clip.TransType))
        stop("there is no transition " + clip.TransType);
      heldValues(*clip.record);
    }
  }

  std::vector<CollectionFault> all;

 private:
  void stop(std::string text) { all.push_back({number_, std::move(text), true}); }
  void tell(std::string text) { all.push_back({number_, std::move(text), false}); }

  void readFaults(const ReadReport& report) {
    for (const int section : report.skippedClips)
      tell("clip section " + std::to_string(section) + " has no usable name or folder and is left out");
    const auto leftOut = [&](int count, const char* what) {
      if (count > 0)
        tell(std::to_string(count) + what + " of the file are not in its count and are left out");
    };
    leftOut(report.unreadClips, " clips");
    leftOut(report.unreadKeyframes, " keyframes");
    if (report.damaged) tell("sections of the collection are missing or out of order; clips may be missing");
  }

  void outputFaults() {
    const double rate = decimal(compiled_.output.rate);
    if (rate < kLowestRate || rate > kHighestRate)
      stop("its frame rate of " + ShortText(rate) + " is not within 1 to 1000");
    const auto& output = compiled_.output;
    if (output.width < 2 || output.height < 2) {
      stop("its size of " + std::to_string(output.width) + " x " + std::to_string(output.height) +
           " is too small for a movie");
    }
  }

  void fileFaults(const TimelineClip& timelineClip) {
    const auto& clip = *timelineClip.record;
    const bool sound = timelineClip.isSound;
    const auto path = clipFile(clip);
    if (!files_.exists(path)) return stop("the file is missing");
    const auto instead = clip.SrcPath() + clip.SrcName();
    if (!sound && !clip.SrcPath().empty() && !files_.exists(instead))
      stop("the file that a movie takes in its place is missing: " + instead);
    if (sound && !timelineClip.isMusic) return stop("sound of its kind cannot be put into a movie");
    const auto facts = streams_.facts(path);
    if (!facts) return stop(facts.error().text);
    if (sound && !facts->hasAudio) stop("there is no sound in it");
    if (!sound && !facts->hasVideo) stop("there is no picture in it");
    const double end = timelineClip.LoopEnd.number();
    // The last picture stands while the sound goes on.
    const double whole = std::max(facts->duration, facts->wholeDuration);
    if (!clip.IsStill() && whole > 0 && end > whole + kDurationSlack) {
      tell("its section ends at " + ShortText(end) + " s, the file at " + FormatMask(whole, "0.00") + " s");
    }
  }

  // The times as a document gives them, which a renderer refuses where they make no sense.
  void timeFaults(const TimelineClip& clip) {
    const bool sound = clip.isSound;
    const bool takesPart = !sound || clip.RenderAudio;
    const auto fault = [&](std::string text) { all.push_back({number_, std::move(text), takesPart}); };
    if (clip.record->Playspeed() < 0)
      return fault("its speed of " + ShortText(speedOf(clip)) + " cannot be played");
    if (speedOf(clip) < kSlowest)
      return fault("its speed of " + ShortText(speedOf(clip)) + " is below " + ShortText(kSlowest));
    const double start = ToNumber(secondsText(clip.LoopStart));
    const double end = ToNumber(fixedText(clip.LoopEnd.number()));
    const double placed = clip.place.start;
    const double stopped = clip.place.stop;
    for (const double seconds : {start, end, placed, stopped}) {
      if (std::fabs(seconds) >= kLongestTime)
        return fault("its time of " + ShortText(seconds) + " s is beyond what a movie can hold");
    }
    // A sound's section is written with four decimals at both ends.
    const double soundStart = ToNumber(fixedText(start));
    if (end <= std::max({start, soundStart, 0.0}))
      return fault("its section ends at " + ShortText(end) + " s, ahead of its start");
    if (start < 0) tell("its section starts at " + ShortText(start) + " s, ahead of the file");
    if (!clip.placed) return;  // left out of the movie
    // Behind a clip that runs backwards all are placed ahead of the movie; that one has been told of.
    if (placed < 0 && !isCut(clip.TransType)) fault("its transition is longer than what stands ahead of it");
    const double played = ToNumber(fixedText(soundStart + (stopped - placed) * speedOf(clip)));
    if (stopped <= placed || (sound && played <= soundStart))
      fault("it has no length in the movie at its speed of " + ShortText(speedOf(clip)));
  }

  // Values beyond their range, and what a compile holds them to.
  void heldValues(const Movie& clip) {
    const auto hold = [&](std::string_view name, double value, double least, double most,
                          double heldToLeast) {
      if (value >= least && value <= most) return;
      tell("its " + std::string(name) + " of " + ShortText(value) + " is held to " +
           ShortText(value < least ? heldToLeast : most));
    };
    // A replication of 0 is one that was never set.
    hold("border width", clip.BorderWidth(), 0, 255, 0);
    hold("border softness", static_cast<double>(clip.BorderSoftness()), 0, 255, 0);
    hold("horizontal replication", clip.ReplicateX(), 0, 255, 1);
    hold("vertical replication", clip.ReplicateY(), 0, 255, 1);
    if (clip.IsStill()) hold("stretch mode", clip.stretchmode(), 0, 3, 0);
    if (!trimmed(clip.HasPicInPic()).empty() && !readPicInPic(clip.HasPicInPic()))
      tell("its picture-in-picture field makes no sense and is left out");
  }

  const Compiled& compiled_;
  MediaContents& streams_;
  const Files& files_;
  int number_ = 0;
};

}  // namespace

std::vector<CollectionFault> collectionFaults(const Compiled& compiled, MediaContents& streams,
                                              const Files& files, const ReadReport& report) {
  return Faults(compiled, streams, files, report).all;
}

}  // namespace kvo
