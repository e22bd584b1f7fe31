#include "intake/add_clips.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "core/telling/messages.h"

namespace kvo {
namespace {

// What the streams tell, as the record keeps it.
void takeFacts(Movie& clip, const StreamFacts& facts, bool hasPicture) {
  clip.IsStill(facts.isStill);
  clip.HasAudio(facts.hasAudio);
  clip.RenderAudio(facts.hasAudio);
  clip.FrameRate(static_cast<Single>(facts.isStill ? 0 : facts.frameRate));
  const auto side = [](int pixels) { return toInteger(pixels).value_or(0); };
  if (hasPicture) {
    clip.Resolution(Value(std::to_string(facts.width) + " x " + std::to_string(facts.height)));
    clip.MovieWidth(side(facts.width));
    clip.MovieHeight(side(facts.height));
  } else {
    clip.Resolution(Value(ShortText(facts.sampleRate / 1000.0) + " KHz"));
  }
  if (facts.isStill) {
    clip.StillW(side(facts.width));
    clip.StillH(side(facts.height));
    clip.DurationTime(Value("N/A"));
    clip.DurationFrames(Value("N/A"));
    return;
  }
  clip.DurationTime(Value(ToNumber(FormatMask(facts.duration, "0.000"))));
  clip.DurationFrames(hasPicture ? Value(RoundToWhole(facts.duration * facts.frameRate)) : Value("N/A"));
  clip.LoopStart(Value(0));
  clip.LoopEnd(clip.DurationTime());
}

}  // namespace

bool AddClips::AddMoviesm(const std::string& text) {
  if (collection_.MovieList.count() >= kMaxClips) {
    ports_.boxes.show({std::string(LoadResString(398)),
                       "A collection holds at most " + std::to_string(kMaxClips) + " clips.", BoxButtons::Ok,
                       BoxIcon::Warning});
    return false;
  }
  const bool isAddress = text.find("://") != std::string::npos;
  const auto facts = isAddress ? Result<StreamFacts>(Error{"streams cannot be played yet: " + text})
                               : ports_.streams.facts(text);
  if (!facts) {
    ports_.boxes.show({std::string(LoadResString(398)),
                       std::string(LoadResString(396))
                           .append(kCrLf)
                           .append(LoadResString(397))
                           .append(kCrLf)
                           .append(facts.error().text),
                       BoxButtons::Ok, BoxIcon::Warning});
    return false;
  }
  Movie clip;
  clip.KeyID(freshKeyIDs(collection_, toLongClamped(secondsSinceMidnight(ports_.clock)), 1).front());
  clip.MovieName(std::string(fileNamePart(text)));
  clip.AudioOutputLevel(1.0F);
  clip.IsStream(false);
  clip.Path(std::string(folderPart(text)));
  clip.Orderinplaylist(toInteger(collection_.MovieList.count() + 1).value_or(0));
  takeFacts(clip, *facts, mediaClass(clip.MovieName(), &*facts) != MediaClass::Sound);
  collection_.MovieList.add(std::move(clip)).listener(&poster_);
  if (settings_.preferences().LoadFrom != folderPart(text))
    settings_.change().LoadFrom = std::string(folderPart(text));
  settings_.state.ListIsDirty = true;
  settings_.state.postChange(99, 99);
  added_(collection_.MovieList.count());
  return true;
}

}  // namespace kvo
