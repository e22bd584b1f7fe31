#include "playback/display/layout.h"

#include "support/golden.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

ClipFacts video(const char* extension, int width, int height) {
  return {.extension = extension, .sourceWidth = width, .sourceHeight = height};
}

ClipFacts with(ClipFacts clip, bool ClipFacts::*flag) {
  clip.*flag = true;
  return clip;
}

ClipFacts placed(ClipFacts clip, Twips size, Twips left, Twips top) {
  clip.DispChange = true;
  clip.Dsize = size;
  clip.XPos = left;
  clip.Ypos = top;
  return clip;
}

const ClipFacts kSmall = video("AVI", 200, 100);
const ClipFacts kVGA = video("AVI", 640, 480);
const ClipFacts kCoronaVGA = with(video("MPG", 640, 480), &ClipFacts::corona);
const ClipFacts kHuge = video("MPG", 3840, 2160);
const ClipFacts kSound = video("MP3", 0, 0);
const ClipFacts kStill{.extension = "JPG", .IsStill = true, .StillW = 800, .StillH = 600};
const ClipFacts kPage{.extension = "HTM", .IsHTML = true};

constexpr LayoutModes kDetails{.CDAutoAnim = true};
constexpr LayoutModes kNoList{.ShowFillist = false};
constexpr LayoutModes kMinimum{.AllDetOff = true};
constexpr LayoutModes kEditing{.AllDetOff = true, .ShowFillist = false, .editMode = true};
constexpr LayoutModes kZoom{.IsMiniMode = true, .CDAutoAnim = true};
constexpr LayoutModes kLocked{.IsMiniMode = true, .lockAspect = true};
constexpr LayoutModes kFollows{.IsMiniMode = true, .clipFollows = true};
constexpr LayoutModes kCovering{.IsMiniMode = true, .IsFullScreenWindow = true};

constexpr Place kFace{0, 0, 8430, 6150};
constexpr Place kZoomWindow{0, 0, 7590, 6130};
constexpr Place kTallWindow{0, 0, 4800, 4301};  // by two twips beyond the tolerance
constexpr Place kSoundWindow{0, 0, 4800, 3600};
constexpr Place kScreenWindow{0, 0, 19200, 15360};

TEST(Layout, EachKindOfClipHasItsPlaceInEachMode) {
  const struct {
    const char* what;
    LayoutModes modes;
    ClipFacts clip;
    Place window;
    double twipsPerPixel = 15;
  } rows[] = {
      {"smaller than the box", kDetails, kSmall, kFace},
      {"cut to the box", kDetails, kVGA, kFace},
      {"fits at double size", kDetails, kVGA, kFace, 7.5},
      {"own place", kDetails, placed(kVGA, 2000, 300, 400), kFace},
      {"own place without a size", kDetails, placed(kSmall, 0, 300, 400), kFace},
      {"Windows Media", kDetails, placed(video("WMV", 320, 240), 2000, 300, 400), kFace},
      {"list off", kNoList, kSmall, kFace},
      {"sound with animation", kDetails, kSound, kFace},
      {"sound", kNoList, kSound, kFace},
      {"still", kDetails, kStill, kFace},
      {"page", kDetails, kPage, kFace},
      {"RealMedia is known", kDetails, video("ISRM", 200, 100), kFace},
      {"unknown kind", kDetails, video("MKV", 200, 100), kFace},
      {"editor open", kEditing, kSmall, kFace},
      {"minimum details", kMinimum, kSmall, kFace},
      {"minimum details, own place", kMinimum, placed(kVGA, 2000, 300, 400), kFace},
      {"minimum details keep the shape", kMinimum, kCoronaVGA, kFace},
      {"Free Zoom", kZoom, kVGA, kZoomWindow},
      {"Free Zoom at 2x", kZoom, kVGA, kZoomWindow, 7.5},
      {"the picture fills it already", kZoom, kVGA, {0, 0, 4800, 4299}},
      {"a shape too far off", kZoom, kVGA, kTallWindow},
      {"larger than the screen", kZoom, kHuge, kZoomWindow},
      {"aspect locked", kLocked, kVGA, kZoomWindow},
      {"sound in Free Zoom", kZoom, kSound, kZoomWindow},
      {"a clip that follows", kFollows, kVGA, kZoomWindow},
      {"sound was chosen", kFollows, kVGA, kSoundWindow},
      {"sound that follows", kFollows, kSound, kZoomWindow},
      {"still in Free Zoom", kZoom, kStill, kZoomWindow},
      {"Corona in Free Zoom", kLocked, kCoronaVGA, kZoomWindow},
      {"covering", kCovering, kVGA, kScreenWindow},
  };
  std::string layouts;
  for (const auto& row : rows) {
    const LayoutSizes sizes{
        .twipsPerPixel = row.twipsPerPixel,
        .window = row.window,
        .nameLabel = row.modes.IsMiniMode ? Place{4155, 285, 4005, 270} : Place{4155, 405, 4005, 270},
        .player = {0, 0, row.clip.sourceWidth * row.twipsPerPixel, row.clip.sourceHeight * row.twipsPerPixel},
        .roomWidth = 19200,
        .roomHeight = 15000};
    layouts += std::string(row.what) + ": " + text(PositionAndSize(row.modes, row.clip, sizes)) + "\n";
  }
  test::expectGolden("layouts.txt", layouts);
}

}  // namespace
}  // namespace kvo
