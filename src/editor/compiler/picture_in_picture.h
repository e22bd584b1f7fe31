// Picture-in-picture: one clip laid over another in a document of its own, apart from the collection's
// timeline. The backdrop's record holds the overlay and its look in 21 digits, and in more for a clip above
// 999.
#pragma once

#include "editor/compiler/sample_documents.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvo {

/// How the overlay's edges fade.
enum class OverlayStyle { Uniform = 0, Radial = 2, Rectangular = 3 };

struct PicInPic {
  int overlayClip = 0;  ///< clip number; 0 for none
  OverlayStyle style = OverlayStyle::Uniform;
  int position = 1;      ///< 1 to 15
  int maxOpacity = 100;  ///< per cent
  int fadeIn = 0;        ///< milliseconds
  int fadeOut = 0;       ///< milliseconds
  bool trimToBackdrop = false;
};

/// The digits, each number but that of the clip held to its width; empty for an overlay clip 0.
std::string picInPicText(const PicInPic& look);

/// Takes the digits apart; nothing when they are too few or too many, or name a style or a position that
/// there is not.
std::optional<PicInPic> readPicInPic(std::string_view text);

/// Brings what the records of all clips say of their overlays in line with a list in which clips have moved:
/// `numberNow` tells the number of what was clip n, 0 where it has gone. `changes` hears of each record that
/// is to have another text.
void followOverlays(const RecordList<Movie>& clips, const std::function<int(int)>& numberNow,
                    const std::function<void(int number, std::string text)>& changes);

/// The names of the 15 positions, in order.
std::span<const std::string_view> overlayPositionNames();

struct OverlayBox {
  double height = 0, width = 0;  ///< pixels
  double offsetY = 0, offsetX = 0;
};

/// Where the overlay stands in a picture of `width` x `height`.
OverlayBox overlayBox(int position, double width, double height);

struct PicInPicOptions {
  bool preview = false;        ///< 170 x 70 and silent
  bool inShape = false;        ///< of a preview: it has the size of the options instead
  bool backdropAudio = false;  ///< the clip is heard
  bool overlayAudio = false;
};

/// Maximum of the two fade sliders in milliseconds: half of the longer clip.
int fadeSliderMaximum(const Movie& backdrop, const Movie& overlay);

/// How long that document is, in seconds: an overlay that is not trimmed may go on behind its backdrop.
/// `stillDuration` as in CompileOptions.
double picInPicLength(const Collection& collection, int backdropNo, Single stillDuration);

/// The whole document for a backdrop, with its overlay if its record names one that is there, at the options'
/// size and rate.
SampleDocument picInPicSample(const Collection& collection, int backdropNo, CompileOptions options,
                              const EffectsTable& effects, const PicInPicOptions& wanted);

}  // namespace kvo
