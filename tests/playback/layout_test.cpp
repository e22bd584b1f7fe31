#include "playback/display/layout.h"

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

struct LayoutRow {
  const char* what;
  LayoutModes modes;
  ClipFacts clip;
  Place window;
  double twipsPerPixel;
  const char* expected;
};

TEST(Layout, EachKindOfClipHasItsPlaceInEachMode) {
  const char* const kPanels = "; details; list; position; name";
  const LayoutRow rows[] = {
      {"smaller than the box", kDetails, kSmall, kFace, 15, "shown 4657.5,810 3000x1500{panels}"},
      {"cut to the box", kDetails, kVGA, kFace, 15, "shown 2827.5,810 6660x3879{panels}"},
      {"fits at double size", kDetails, kVGA, kFace, 7.5, "shown 3757.5,810 4800x3600{panels}"},
      {"own place", kDetails, placed(kVGA, 2000, 300, 400), kFace, 15,
       "shown 300,400 2000x2000; stream info at 2300{panels}"},
      {"own place without a size", kDetails, placed(kSmall, 0, 300, 400), kFace, 15,
       "shown 4657.5,810 3000x1500{panels}"},
      {"Windows Media", kDetails, placed(video("WMV", 320, 240), 2000, 300, 400), kFace, 15,
       "shown 3757.5,810 4800x3600; stream info at 2300{panels}"},
      {"list off", kNoList, kSmall, kFace, 15, "shown 4657.5,810 3000x1500; details; name"},
      {"sound with animation", kDetails, kSound, kFace, 15,
       "hidden 6157.5,810 0x0{panels}; no video; anim label; Timer4 on; \"KVO5 - Audio\""},
      {"sound", kNoList, kSound, kFace, 15,
       "hidden 6157.5,810 0x0; details; name; no video; \"KVO5 - Audio\""},
      {"still", kDetails, kStill, kFace, 15, "hidden 6157.5,810 0x0; details; list; name; Timer4 off"},
      {"page", kDetails, kPage, kFace, 15, "hidden 6157.5,810 0x0; details; list; name; Timer4 off"},
      {"RealMedia is known", kDetails, video("ISRM", 200, 100), kFace, 15,
       "shown 4657.5,810 3000x1500{panels}"},
      {"unknown kind", kDetails, video("MKV", 200, 100), kFace, 15,
       "shown 4657.5,810 3000x1500{panels}; Timer4 off"},
      {"editor open", kEditing, kSmall, kFace, 15, "shown 4657.5,810 3000x1500{panels}"},

      {"minimum details", kMinimum, kSmall, kFace, 15, "shown 885,810 6660x3879"},
      {"minimum details, own place", kMinimum, placed(kVGA, 2000, 300, 400), kFace, 15,
       "shown 885,810 6660x3879"},
      {"minimum details keep the shape", kMinimum, kCoronaVGA, kFace, 15, "shown 1629,810 5172x3879"},

      {"Free Zoom", kZoom, kVGA, kZoomWindow, 15, "shown 0,690 9600x8580; window 0,0 9600x9270"},
      {"Free Zoom at 2x", kZoom, kVGA, kZoomWindow, 7.5, "shown 0,690 4800x4980; window 0,0 4800x5670"},
      {"the picture fills it already", kZoom, kVGA, {0, 0, 4800, 4299}, 15, "shown 0,690 4800x3609"},
      {"a shape too far off", kZoom, kVGA, kTallWindow, 15, "shown 0,690 9600x8580; window 0,0 9600x9270"},
      {"larger than the screen", kZoom, kHuge, kZoomWindow, 15,
       "shown 0,690 19200x12180; window 0,0 19200x12870"},
      {"aspect locked", kLocked, kVGA, kZoomWindow, 15, "shown 0,690 7590x5440"},
      {"sound in Free Zoom", kZoom, kSound, kZoomWindow, 15,
       "hidden 0,690 4800x2910; window 0,0 4800x3600; no video; Timer4 on; \"KVO5 - Audio\""},
      {"a clip that follows", kFollows, kVGA, kZoomWindow, 15, "shown 0,690 7590x5440"},
      {"sound was chosen", kFollows, kVGA, kSoundWindow, 15, "shown 0,690 9600x8580; window 0,0 9600x9270"},
      {"sound that follows", kFollows, kSound, kZoomWindow, 15,
       "hidden 0,690 7590x5440; no video; \"KVO5 - Audio\""},
      {"still in Free Zoom", kZoom, kStill, kZoomWindow, 15, "hidden 0,690 7590x5440; Timer4 off"},
      {"Corona in Free Zoom", kLocked, kCoronaVGA, kZoomWindow, 15, "shown 12.65,690 7564.7x5440"},
      {"covering", kCovering, kVGA, kScreenWindow, 15, "shown 0,690 19200x13290"},
  };
  for (const auto& row : rows) {
    const LayoutSizes sizes{
        .twipsPerPixel = row.twipsPerPixel,
        .window = row.window,
        .nameLabel = row.modes.IsMiniMode ? Place{4155, 285, 4005, 270} : Place{4155, 405, 4005, 270},
        .player = {0, 0, row.clip.sourceWidth * row.twipsPerPixel, row.clip.sourceHeight * row.twipsPerPixel},
        .roomWidth = 19200,
        .roomHeight = 15000};
    std::string expected = row.expected;
    if (const auto at = expected.find("{panels}"); at != std::string::npos) expected.replace(at, 8, kPanels);
    EXPECT_EQ(text(PositionAndSize(row.modes, row.clip, sizes)), expected) << row.what;
  }
}

}  // namespace
}  // namespace kvo
