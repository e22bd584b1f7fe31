#include "intake/verdict.h"

#include "base/numbers.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "intake/refusals.h"

#include <algorithm>

namespace kvo {
namespace {

using Kind = Verdict::Kind;

Integer side(int pixels) { return toInteger(pixels).value_or(0); }

bool isEither(std::string_view extension, std::string_view a, std::string_view b) {
  return extension == a || extension == b;
}

// The head's own word counts, and who looked into the file has to be able to draw it. What is none of the
// kinds that a head is read of has the sides that were found.
Verdict judgeImage(const LookedAt& file) {
  const auto& look = file.answer.look;
  const bool told = !file.head.isForeign();
  const Long width = told ? file.head.ShownWidth() : look.facts.width;
  const Long height = told ? file.head.ShownHeight() : look.facts.height;
  const bool unreadable = !look.errorText.empty() || !look.facts.isStill || width <= 0 || height <= 0;
  if (unreadable || std::max(width, height) >= kTooManyPixels)
    return {Kind::TakeBack, refusedImage(unreadable)};
  return {};
}

Verdict judgeMovie(const LookedAt& file) {
  const auto& look = file.answer.look;
  const auto kind = extensionOf(file.name);
  if (look.errorText == kNoDecompressor && isEither(kind, "MPG", "PEG"))
    return {Kind::Join, warnedOfMpeg(file.name), true};
  if (look.errorText == kNoDecompressor && kind == "ASF") return {Kind::Join, warnedOfAsf(file.name), true};
  const bool silentFile = file.isEmpty && isSoundType(file.name);
  if (!look.errorText.empty() && !silentFile)
    return {Kind::TakeBack, refusedByPlayer(file.name, look.errorText, nullptr), false,
            isEither(kind, "AVI", "VCR")};
  const bool lengthless = look.facts.duration <= 0 && !look.facts.isStill;
  if (lengthless && !reportsNoLength(file.name)) return {Kind::Join, warnedOfNoLength(file.name)};
  return {};
}

}  // namespace

Verdict judge(const LookedAt& file) {
  const auto& [end, look] = file.answer;
  if (end == LookEnd::Stopped) return {Kind::TakeBack};
  if (end != LookEnd::Looked) return {Kind::TakeBack, refusedByCrash()};
  switch (intakeClass(file.name)) {
    case IntakeClass::Image:
      return judgeImage(file);
    case IntakeClass::Picture:
      return {look.errorText.empty() ? Kind::Join : Kind::AskViewer};
    case IntakeClass::QuickTime:
      if (look.errorText.empty() && (look.facts.duration > 0 || look.facts.isStill)) return {};
      return file.UseWMPfirst ? Verdict{Kind::TakeBack, refusedMovie()} : Verdict{Kind::AskViewer};
    default:
      return judgeMovie(file);
  }
}

void takeLook(Movie& clip, const MediaLook& look) {
  const auto& facts = look.facts;
  const auto& name = clip.MovieName();
  const auto kind = extensionOf(name);
  const bool isPicture = intakeClass(name) == IntakeClass::Picture;
  const bool hasPicture = facts.hasVideo && mediaClass(name, &facts) != MediaClass::Sound;
  clip.IsVFWCompat(false);
  clip.IsTrueQT4(false);
  clip.IsStill(facts.isStill ||
               (isPicture && (isEither(kind, "TGA", "GIF") || (hasPicture && facts.duration <= 0))));
  clip.HasAudio(facts.hasAudio && kind != "M1V");
  clip.RenderAudio(clip.HasAudio());
  clip.LoopForever(false);
  clip.LoopStart(Value(0));
  if (hasPicture) {
    clip.Resolution(Value(std::to_string(facts.width) + " x " + std::to_string(facts.height)));
    clip.MovieWidth(side(facts.width));
    clip.MovieHeight(side(facts.height));
  } else {
    clip.Resolution(Value(ShortText(facts.sampleRate / 1000.0) + " KHz"));
  }
  if (clip.IsStill()) {
    clip.HasAudio(false);
    clip.RenderAudio(false);
    clip.StillW(side(facts.width));
    clip.StillH(side(facts.height));
    clip.DurationTime(Value("N/A"));
    clip.DurationFrames(Value("N/A"));
    clip.LoopEnd(Value("N/A"));
    return;
  }
  clip.FrameRate(static_cast<Single>(hasPicture ? facts.frameRate : 0));
  clip.DurationTime(Value(ToNumber(FormatMask(facts.duration, "0.000"))));
  clip.DurationFrames(hasPicture ? Value(RoundToWhole(facts.duration * facts.frameRate)) : Value("N/A"));
  clip.LoopEnd(clip.DurationTime());
}

void becomeViewerClip(Movie& clip) {
  clip.DurationTime(Value("N/A"));
  clip.LoopStart(Value(0));
  clip.LoopEnd(Value("N/A"));
  clip.LoopForever(false);
  clip.DurationFrames(Value("N/A"));
  clip.IsTrueQT4(true);
}

}  // namespace kvo
