#include "editor/compiler/picture_in_picture.h"

#include "base/file_print.h"
#include "base/text.h"
#include "editor/compiler/audio_tracks.h"
#include "editor/compiler/clip_kinds.h"
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_elements.h"
#include "editor/compiler/effect_word.h"
#include "editor/compiler/keep_records.h"
#include "editor/compiler/preview_params.h"
#include "editor/compiler/transition_families.h"
#include "editor/compiler/video_group.h"
#include "editor/compiler/volume_envelope.h"
#include "vocabulary/effects.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kDigits = 21;
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
void giveDuration(const Compilation& c, Movie& clip, bool isOverlay) {
  giveStillLength(c, clip);
  if (clip.DurationTime().text() != "N/A") return;
  clip.DurationTime(Value(ToNumber(ShortText(c.settings.state.DefaultStillDuration))));
  if (!isOverlay) return;
  clip.LoopStart(Value(0));
  clip.LoopEnd(clip.DurationTime());
}

struct Times {
  double mstart = 0, mstop = 0, stop = 0;
};

std::string clipLine(const Movie& clip, const Times& t) {
  return blanks(10) + "<clip src=" + quoted(clipFile(clip)) + " mstart=" + quoted(ShortText(t.mstart)) +
         " mstop=" + quoted(ShortText(t.mstop)) + " start=" + quoted("0") +
         " stop=" + quoted(ShortText(t.stop)) + " > \r\n";
}

std::string audioTrack(const Movie& clip, const Times& t) {
  return blanks(10) + "<track>\r\n" + clipLine(clip, t) + blanks(15) +
         "<effect start=\"0\" stop=" + quoted(ShortText(t.stop)) +
         " clsid=" + quoted(effect_ids::kAudioEnvelope) + " />\r\n" + blanks(20) +
         "<param name=\"Vol\" value=" + quoted(ShortText(clip.AudioOutputLevel())) + " />\r\n" + blanks(10) +
         "</clip>\r\n" + blanks(10) + "</track>\r\n";
}

std::string effectBlocks(const Compilation& c, const KeyframeIndex& keyframes, int clipNo, double stop) {
  const auto& clip = c.clips()[clipNo];
  std::string text;
  if (ToNumber(clip.EffectWord()) != 0) {
    std::string block;
    auto until = ShortText(stop + kEffectPastEnd);
    CreateBasicImageStringFromEffectWord(c, keyframes, clipNo, clip.EffectWord(), "0", until, block);
    text += kCrLf;
    text += blanks(15) + block;
  }
  text += kCrLf;
  return text + blanks(15) + AddColorContrastAdjust(c, clipNo, "0") + "\r\n";
}

// A parameter that is set once more just behind the start.
std::string setAgain(std::string_view name, double value, double again) {
  return blanks(20) + "<param name=" + quoted(name) + " value=" + quoted(ShortText(value)) + ">\r\n" +
         blanks(25) + "<at time=\"0.01\" value=" + quoted(ShortText(again)) + "/>\r\n" + blanks(20) +
         "</param>\r\n";
}

std::string placing(const PictureBox& box, double srcHeight, double srcWidth, double height, double width,
                    double stop) {
  const auto number = [](double v) { return ShortText(v); };
  return blanks(15) + "<transition start=\"0\" stop=" + quoted(number(stop)) +
         " clsid=" + quoted(transition_ids::kPlacing) + ">\r\n" + paramLine("Height", number(box.height)) +
         paramLine("Width", number(box.width)) + paramLine("OffsetY", number(box.offsetY)) +
         paramLine("OffsetX", number(box.offsetX)) + setAgain("SrcHeight", srcHeight, height) +
         setAgain("SrcWidth", srcWidth, width) + paramLine("SrcOffsetY", "0") + setAgain("SrcOffsetX", 0, 0) +
         blanks(15) + "</transition>\r\n";
}

struct Overlay {
  Times times;
  double fadeIn = 0, fadeOut = 0;  // seconds
};

Overlay overlayTimes(const Movie& clip, const PicInPic& look, double backdropLength) {
  const double speed = speedOf(clip);
  const bool otherSpeed = clip.Playspeed() != 10;
  const double duration = clip.DurationTime().number();
  Overlay o{{clip.LoopStart().number(), clip.LoopEnd().number(), backdropLength},
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
    return blanks(25) + "<linear time=" + quoted(ShortText(time)) + " value=" + quoted(value) + "/>\r\n";
  };
  auto text = blanks(15) + "<effect clsid=" + quoted(effect_ids::kAlpha) +
              " start=\"0\" stop=" + quoted(ShortText(length + 1)) + ">\r\n" +
              paramLine("Style", std::to_string(static_cast<int>(look.style)));
  if (look.style != OverlayStyle::Uniform) text += paramLine("FinishOpacity", "0");
  const bool fades = o.fadeIn + o.fadeOut != 0;
  text += blanks(20) + "<param name=\"opacity\" value=" + quoted(fades ? "0" : opacity) + ">\r\n";
  if (fades) {
    text += key(o.fadeIn, opacity) + key(length - o.fadeOut, opacity) + key(length, "0");
  }
  return text + blanks(20) + "</param>\r\n" + blanks(15) + "</effect>\r\n";
}

struct Texts {
  std::string video;
  std::string audio;
};

void AddPictureInPicture(const Compilation& c, const KeyframeIndex& keyframes, int backdropNo, double height,
                         double width, const PicInPicOptions& options, Texts& texts) {
  const auto look = readPicInPic(c.clips()[backdropNo].HasPicInPic());
  if (!look || look->overlayClip > c.clips().count()) return;
  auto& clip = c.clips()[look->overlayClip];
  giveDuration(c, clip, true);
  const double stop = timelineLength(c.clips()[backdropNo]);
  const auto overlay = overlayTimes(clip, *look, stop);

  const PictureBox whole{height, width, 0, 0};
  texts.video += placing(whole, height, width, height, width, stop + 1) + blanks(10) + "</track>\r\n" +
                 blanks(10) + "<track>\r\n";
  texts.video += clipLine(clip, overlay.times) + effectBlocks(c, keyframes, look->overlayClip, stop);
  if (options.overlayAudio) texts.audio += audioTrack(clip, overlay.times);
  texts.video += alphaEffect(*look, overlay, stop) + blanks(10) + "</clip>\r\n";
  const double part = look->position == kOverAll ? 1 : 2;
  texts.video += placing(overlayBox(look->position, width, height), height / part, width / part, height,
                         width, stop + 1);
}

std::string boxCaption(std::string_view name, const Movie& clip) {
  return std::string(name) + ShortText(ToNumber(ShortText(clip.AudioOutputLevel())) * 100) + "% )";
}

}  // namespace

std::string picInPicText(const PicInPic& look) {
  if (look.overlayClip == 0) return {};
  return digits(look.overlayClip, 3) + std::to_string(static_cast<int>(look.style)) +
         digits(look.position, 2) + digits(look.maxOpacity, 3) + digits(look.fadeIn, 5) +
         digits(look.fadeOut, 5) + "0" + (look.trimToBackdrop ? "1" : "0");
}

std::optional<PicInPic> readPicInPic(std::string_view text) {
  if (text.size() != kDigits || text.find_first_not_of("0123456789") != std::string_view::npos)
    return std::nullopt;
  const auto number = [&](std::size_t at, std::size_t count) {
    return static_cast<int>(ToNumber(text.substr(at, count)));
  };
  PicInPic look{number(0, 3),   static_cast<OverlayStyle>(number(3, 1)),
                number(4, 2),   number(6, 3),
                number(9, 5),   number(14, 5),
                text[20] == '1'};
  const bool known = look.style == OverlayStyle::Uniform || look.style == OverlayStyle::Radial ||
                     look.style == OverlayStyle::Rectangular;
  if (!known || look.overlayClip < 1 || look.position < 1 || look.position > 15) return std::nullopt;
  return look;
}

std::span<const std::string_view> overlayPositionNames() { return kPositions; }

PictureBox overlayBox(int position, double w, double h) {
  constexpr double kThird = 0.66;
  const PictureBox boxes[] = {{h / 2, w / 2, 0, 0},
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

std::array<std::string, 3> SetPicInPicSliderTexts(const PicInPic& look) {
  const auto seconds = [](int milliseconds) { return FormatMask(milliseconds / 1000.0, "0.0##") + "s"; };
  return {"Max Opacity " + std::to_string(look.maxOpacity) + "%", "In over " + seconds(look.fadeIn),
          "Out over " + seconds(look.fadeOut)};
}

int fadeSliderMaximum(const Compilation& c, int backdropNo, int overlayNo) {
  const double longer = std::max(timelineLength(c.clips()[backdropNo]), timelineLength(c.clips()[overlayNo]));
  return toLongClamped(longer / 2 * 1000);
}

std::string CreatePinPPreview(const Compilation& c, int backdropNo, const PicInPicOptions& options) {
  const KeepRecords keep(c);
  if (c.settings.preferences().PreviewCPU == 0) c.settings.change().PreviewCPU = 10;
  const auto params = GetPreviewParams(c, c.settings.preferences().PreviewCPU);
  c.settings.state.PreviewFrameRate = params.Rate;
  c.settings.state.RenderEffects = true;
  int height = kPreviewHeight;
  int width = kPreviewWidth;
  if (!options.preview) GetHeightWidth(c.editor.controls, height, width);
  const auto rate = options.preview ? params.Rate : c.settings.preferences().OutPutFrameRate;

  auto& backdrop = c.clips()[backdropNo];
  giveDuration(c, backdrop, false);
  const Times times{backdrop.LoopStart().number(), backdrop.LoopEnd().number(), timelineLength(backdrop)};
  const KeyframeIndex keyframes(c);
  Texts texts;
  texts.video = blanks(5) + "<composite username=\"KVO PicInPic\">\r\n" + blanks(10) + "<track>\r\n" +
                clipLine(backdrop, times) + effectBlocks(c, keyframes, backdropNo, times.stop) + blanks(10) +
                "</clip>\r\n";
  if (options.backdropAudio) texts.audio += audioTrack(backdrop, times);
  AddPictureInPicture(c, keyframes, backdropNo, height, width, options, texts);
  texts.video += blanks(10) + "</track>\r\n" + blanks(5) + "</composite>\r\n";

  FilePrint file;
  file.print("<timeline>");
  file.print(blanks(5) + "<group type=\"video\" bitdepth=\"32\" framerate=" + quoted(ShortText(rate)) +
             " width=" + quoted(std::to_string(width)) + " height=" + quoted(std::to_string(height)) + " >");
  file.print(texts.video);
  file.print(blanks(5) + "</group>");
  if (!options.preview && (options.backdropAudio || options.overlayAudio)) {
    file.print(blanks(5) + "<group type=\"audio\" SamplingRate=" + quoted(kAudioRate) + " name=\"AUDIO\">");
    file.print(texts.audio);
    file.print(blanks(5) + "</group>");
  }
  file.print("</timeline>");
  return file.bytes();
}

AudioBox overlayAudioBox(const Movie& clip) {
  if (!clip.HasAudio()) return {"Clip has no Audio", false};
  return {boxCaption("Add Audio from Overlay Clip - ( Level = ", clip), true};
}

AudioBox backdropAudioBox(const Movie& clip) {
  if (!clip.HasAudio()) return {"Clip has no Audio", false};
  return {boxCaption("Add Audio from Backdrop Clip - ( Level = ", clip), true};
}

}  // namespace kvo
