#include "editor/compiler/picture_in_picture.h"

#include "base/text.h"
#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_elements.h"
#include "vocabulary/effects.h"
#include "vocabulary/transitions.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr std::size_t kDigits = 21;
constexpr std::size_t kMostDigits = 23;  // as many as the number of the last clip of a collection needs
constexpr int kPreviewWidth = 170;
constexpr int kPreviewHeight = 70;
constexpr double kEffectPastEnd = 2;  // seconds

constexpr std::string_view kPositions[] = {"Top Left half",     "Top Right half",      "Bottom Left half",
                                           "Bottom Right half", "Center Top half",     "Center Bottom half",
                                           "Center Video half", "Over All full",       "Top Left Third",
                                           "Top Right Third",   "Bottom Left Third",   "Bottom Right Third",
                                           "Center Top Third",  "Center Bottom Third", "Center Video Third"};
constexpr int kOverAll = 8;

std::string digits(int value, std::size_t width) {
  auto text = FormatMask(value, std::string(width, '0'));
  return text.size() > width ? std::string(width, '9') : text;
}

// A still takes part with the default length. A backdrop keeps a section that it has been given.
void giveDuration(TimelineClip& clip, Single stillDuration, bool isOverlay) {
  giveStillLength(clip, stillDuration);
  if (clip.DurationTime.text() != "N/A") return;
  clip.DurationTime = Value(decimal(stillDuration));
  if (!isOverlay) return;
  clip.LoopStart = Value(0);
  clip.LoopEnd = clip.DurationTime;
}

struct Times {
  double mstart = 0, mstop = 0, stop = 0;
};

std::string clipLine(const TimelineClip& clip, const Times& t) {
  return tag::clip({{"src", clipFile(*clip.record)},
                    {"mstart", shortNumber(t.mstart)},
                    {"mstop", shortNumber(t.mstop)},
                    {"start", "0"},
                    {"stop", shortNumber(t.stop)}},
                   " > \r\n");
}

// The volume stands behind its effect, which is closed at once.
std::string audioTrack(const TimelineClip& clip, const Times& t) {
  return std::string(tag::kTrack) + clipLine(clip, t) +
         tag::effect({{"start", "0"},
                      {"stop", shortNumber(t.stop)},
                      {"clsid", std::string(effect_ids::kAudioEnvelope)}},
                     " />") +
         tag::param("Vol", shortNumber(clip.record->AudioOutputLevel()), " />")
             .append(tag::kEndClip)
             .append(tag::kEndTrack)
             .append("\r\n");
}

std::string effectBlocks(const EffectSources& from, const TimelineClip& clip, double stop) {
  return effectLines(from, clip, stop + kEffectPastEnd) + "\r\n";
}

// A parameter that is set once more just behind the start.
std::string setAgain(std::string_view name, double value, double again) {
  return tag::openParam(name, shortNumber(value)) +
         tag::key("at", "0.01", shortNumber(again)).append(tag::kEndParam);
}

std::string placing(const OverlayBox& box, double srcHeight, double srcWidth, const OutputForm& output,
                    double stop) {
  const auto still = [](std::string_view name, double v) { return tag::param(name, shortNumber(v)); };
  return tag::transition(
             {{"start", "0"}, {"stop", shortNumber(stop)}, {"clsid", std::string(transition_ids::kPlacing)}},
             ">") +
         still("Height", box.height) + still("Width", box.width) + still("OffsetY", box.offsetY) +
         still("OffsetX", box.offsetX) + setAgain("SrcHeight", srcHeight, output.height) +
         setAgain("SrcWidth", srcWidth, output.width) + tag::param("SrcOffsetY", "0") +
         setAgain("SrcOffsetX", 0, 0) + std::string(tag::kEndTransition);
}

struct Overlay {
  Times times;
  double fadeIn = 0, fadeOut = 0;  // seconds
};

Overlay overlayTimes(const TimelineClip& clip, const PicInPic& look, double backdropLength) {
  const double speed = speedOf(clip);
  const bool otherSpeed = clip.record->Playspeed() != 10;
  const double duration = clip.DurationTime.number();
  Overlay o{{clip.LoopStart.number(), clip.LoopEnd.number(), backdropLength},
            look.fadeIn / 1000.0,
            look.fadeOut / 1000.0};
  auto& t = o.times;
  if (look.trimToBackdrop) {
    if (otherSpeed) t.mstop = std::min(t.mstart + backdropLength * speed, duration);
    if (t.mstop - t.mstart > backdropLength) t.mstop = t.mstart + backdropLength;
  } else if (otherSpeed) {
    t.mstop = std::min(t.mstart + t.mstop * speed, duration);
  } else {
    t.stop = t.mstop;
  }
  if (o.fadeIn > backdropLength) o.fadeIn = backdropLength / 2;
  if (o.fadeOut > backdropLength) o.fadeOut = backdropLength / 2 - (look.trimToBackdrop ? 0 : 0.01);
  if ((o.fadeIn == 0) != (o.fadeOut == 0)) (o.fadeIn == 0 ? o.fadeIn : o.fadeOut) = 0.001;
  return o;
}

// The overlay comes and goes within the backdrop's `length`.
std::string alphaEffect(const PicInPic& look, const Overlay& o, double length) {
  const auto opacity = std::to_string(look.maxOpacity);
  const auto key = [](double time, std::string_view value) {
    return tag::key("linear", shortNumber(time), value);
  };
  auto text =
      tag::effect(
          {{"clsid", std::string(effect_ids::kAlpha)}, {"start", "0"}, {"stop", shortNumber(length + 1)}},
          ">") +
      tag::param("Style", std::to_string(static_cast<int>(look.style)));
  if (look.style != OverlayStyle::Uniform) text += tag::param("FinishOpacity", "0");
  const bool fades = o.fadeIn + o.fadeOut != 0;
  text += tag::openParam("opacity", fades ? "0" : opacity);
  if (fades) text += key(o.fadeIn, opacity) + key(length - o.fadeOut, opacity) + key(length, "0");
  return text.append(tag::kEndParam).append(tag::kEndEffect);
}

struct Texts {
  std::string video;
  std::string audio;
};

void AddPictureInPicture(const EffectSources& from, TimelineClips& clips, int backdropNo,
                         const PicInPicOptions& options, Texts& texts) {
  const auto look = readPicInPic(clips[backdropNo].record->HasPicInPic());
  if (!look || look->overlayClip > clips.count()) return;
  auto& clip = clips[look->overlayClip];
  giveDuration(clip, from.options.stillDuration, true);
  const auto& output = from.options.output;
  const double height = output.height;
  const double width = output.width;
  const double stop = timelineLength(clips[backdropNo]);
  const auto overlay = overlayTimes(clip, *look, stop);

  texts.video += placing({height, width, 0, 0}, height, width, output, stop + 1)
                     .append(tag::kEndTrack)
                     .append("\r\n")
                     .append(tag::kTrack) +
                 clipLine(clip, overlay.times) + effectBlocks(from, clip, stop);
  if (options.overlayAudio) texts.audio += audioTrack(clip, overlay.times);
  texts.video += alphaEffect(*look, overlay, stop).append(tag::kEndClip);
  const double part = look->position == kOverAll ? 1 : 2;
  texts.video +=
      placing(overlayBox(look->position, width, height), height / part, width / part, output, stop + 1);
}

}  // namespace

std::string picInPicText(const PicInPic& look) {
  if (look.overlayClip == 0) return {};
  return FormatMask(look.overlayClip, "000") + std::to_string(static_cast<int>(look.style)) +
         digits(look.position, 2) + digits(look.maxOpacity, 3) + digits(look.fadeIn, 5) +
         digits(look.fadeOut, 5) + "0" + (look.trimToBackdrop ? "1" : "0");
}

std::optional<PicInPic> readPicInPic(std::string_view text) {
  if (text.size() < kDigits || text.size() > kMostDigits ||
      text.find_first_not_of("0123456789") != std::string_view::npos)
    return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t count) {
    return static_cast<int>(ToNumber(text.substr(at, count)));
  };
  const auto clipDigits = text.size() - kDigits + 3;
  const int clip = number(0, clipDigits);
  text.remove_prefix(clipDigits);
  PicInPic look{clip,
                static_cast<OverlayStyle>(number(0, 1)),
                number(1, 2),
                number(3, 3),
                number(6, 5),
                number(11, 5),
                text.back() == '1'};
  const bool known = look.style == OverlayStyle::Uniform || look.style == OverlayStyle::Radial ||
                     look.style == OverlayStyle::Rectangular;
  if (!known || look.overlayClip < 1 || look.position < 1 || look.position > 15) return std::nullopt;
  return look;
}

void followOverlays(const RecordList<Movie>& clips, const std::function<int(int)>& numberNow,
                    const std::function<void(int, std::string)>& changes) {
  for (int i = 1; i <= clips.count(); ++i) {
    if (clips[i].HasPicInPic().empty()) continue;
    auto look = readPicInPic(clips[i].HasPicInPic());
    if (!look) continue;
    const int now = numberNow(look->overlayClip);
    if (std::exchange(look->overlayClip, now) != now) changes(i, picInPicText(*look));
  }
}

std::span<const std::string_view> overlayPositionNames() { return kPositions; }

OverlayBox overlayBox(int position, double w, double h) {
  constexpr double kThird = 0.66;
  const OverlayBox boxes[] = {{h / 2, w / 2, 0, 0},
                              {h / 2, w / 2, 0, w / 2},
                              {h / 2, w / 2, h / 2, 0},
                              {h / 2, w / 2, h / 2, w / 2},
                              {h / 2, w / 2, 0, h / 3},
                              {h / 2, w / 2, h / 2, w / 4},
                              {h / 2, w / 2, h / 4, w / 4},
                              {h, w, 0, 0},
                              {h / 3, w / 3, 0, 0},
                              {h / 3, w / 3, 0, w / 1.666},
                              {h / 3, w / 3, h - h / 3, 0},
                              {h / 3, w / 3, h - h / 3, w - w / 3},
                              {h / 3, w / 3, 0, w - w * kThird},
                              {h / 3, w / 3, h - h / 3, w - w * kThird},
                              {h / 3, w / 3, h - h * kThird, w - w * kThird}};
  return boxes[std::clamp(position, 1, 15) - 1];
}

int fadeSliderMaximum(const Movie& backdrop, const Movie& overlay) {
  const double longer = std::max(timelineLength(backdrop), timelineLength(overlay));
  return toLongClamped(longer / 2 * 1000);
}

double picInPicLength(const Collection& collection, int backdropNo, Single stillDuration) {
  TimelineClips clips(collection);
  auto& backdrop = clips[backdropNo];
  giveDuration(backdrop, stillDuration, false);
  const double length = timelineLength(backdrop);
  const auto look = readPicInPic(backdrop.record->HasPicInPic());
  if (!look || look->overlayClip > clips.count()) return length;
  auto& overlay = clips[look->overlayClip];
  giveDuration(overlay, stillDuration, true);
  return std::max(length, overlayTimes(overlay, *look, length).times.stop);
}

SampleDocument picInPicSample(const Collection& collection, int backdropNo, CompileOptions options,
                              const EffectsTable& effects, const PicInPicOptions& wanted) {
  if (wanted.preview && !wanted.inShape) {
    options.output.height = kPreviewHeight;
    options.output.width = kPreviewWidth;
  }
  options.effects = true;
  const auto& output = options.output;
  const KeyframeIndex keyframes(collection);
  const EffectSources from{effects, keyframes, options};
  TimelineClips clips(collection);
  auto& backdrop = clips[backdropNo];
  giveDuration(backdrop, options.stillDuration, false);
  const Times times{backdrop.LoopStart.number(), backdrop.LoopEnd.number(), timelineLength(backdrop)};
  Texts texts;
  texts.video = std::string(tag::kComposite).append(tag::kTrack) + clipLine(backdrop, times) +
                effectBlocks(from, backdrop, times.stop).append(tag::kEndClip);
  if (wanted.backdropAudio) texts.audio += audioTrack(backdrop, times);
  AddPictureInPicture(from, clips, backdropNo, wanted, texts);
  texts.video.append(tag::kEndTrack).append("\r\n").append(tag::kEndComposite);

  const auto group = tag::group({{"type", "video"},
                                 {"bitdepth", "32"},
                                 {"framerate", shortNumber(output.rate)},
                                 {"width", std::to_string(output.width)},
                                 {"height", std::to_string(output.height)}},
                                " >");
  const auto written = [&] {
    const tag::GroupText video{group, texts.video};
    if (wanted.preview || (!wanted.backdropAudio && !wanted.overlayAudio))
      return tag::document({video}, tag::Spacing::Close);
    const auto sound =
        tag::group({{"type", "audio"}, {"SamplingRate", std::string(kAudioRate)}, {"name", "AUDIO"}}, ">");
    return tag::document({video, {sound, texts.audio}}, tag::Spacing::Close);
  };
  return {written(), std::move(clips)};
}

}  // namespace kvo
