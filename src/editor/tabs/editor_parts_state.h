// What the parts of the editor's window show that stand beside every tab. Plain data: the editor writes it,
// the window draws it. Texts are whole, as the user reads them, unless it is said that they are composed.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// Stands for what a clip does not have.
inline constexpr const char* kNotApplicable = "N/A";

/// The card of the clip in hand; empty texts leave their line empty.
struct ClipStats {
  std::string lbl_ClipStats;     ///< "Cut 2 Details"
  std::string clipName;          ///< as it is listed
  std::string Lbl_FrameDets;     ///< "50 to 260"; of sound its section: "0.00 to 30.00 (s)"
  std::string Lbl_Durdets;       ///< "8.400 (s)"
  std::string Lbl_Timelinedets;  ///< "6.00 - 14.40 (s) "
  std::string Lbl_Speeddets;     ///< "1x Speed"
  std::string Lbl_Framratedets;  ///< "25.00 fps"; of sound "44.1 KHz, Stereo"
  std::string Lbl_Transdets;     ///< "Dissolve over 2.0 (s)"
  std::string Lbl_EffectDets;    ///< "Effects applied"
  std::string Lbl_AudioDets;     ///< "100%"
  bool isSound = false;          ///< sound alone, which has no frames
  bool operator==(const ClipStats&) const = default;
};

/// A slider that is bound to the record of the clip in hand.
struct ClipSlider {
  int Min = 0;
  int Max = 200;
  int Value = 100;
  bool Enabled = false;
  std::string heading;   ///< composed
  std::string whyNot{};  ///< it is off, where a reason is known
  bool operator==(const ClipSlider&) const = default;
};

struct ClipSliders {
  ClipSlider Sld_Rate{10, 200, 100, false, {}};   ///< hundredths of normal speed; heading of Fra_MovieRate
  ClipSlider Sld_AudioOut{0, 20, 10, false, {}};  ///< tenths of full level
  std::string jogHeading;                         ///< of the wheel that moves in the clip
  /// The wheel turns: there is a clip that can be changed.
  [[nodiscard]] bool jogOn() const { return Sld_AudioOut.Enabled || Sld_Rate.Enabled; }
  bool operator==(const ClipSliders&) const = default;
};

/// The lengths of the movie, beside the timeline.
struct EditorTotals {
  std::string lbl_VideoTotTime;  ///< "051.900"
  std::string Lbl_AudTotal;      ///< "051.900(s)"
  std::string audioToolTip;
  bool audioIsRed = false;    ///< sound and picture are of different length
  std::string Fra_Preview{};  ///< "0 to 51.90 (s)"
  bool operator==(const EditorTotals&) const = default;
};

/// The row of keys between the tabs and the timeline, in its order.
enum class ClipKey {
  SetIN,
  SetOUT,
  ResetIN,
  ResetOUT,
  Split,
  Copy,
  CopyEnd,
  Equi,
  Trimmer,
  Name,
  AddSnapShot
};
inline constexpr std::size_t kClipKeys = 11;

/// For each key why it cannot be pressed now; an empty text where it can.
struct ClipKeys {
  std::array<std::string, kClipKeys> whyNot;

  [[nodiscard]] const std::string& of(ClipKey key) const { return whyNot[static_cast<std::size_t>(key)]; }
  std::string& of(ClipKey key) { return whyNot[static_cast<std::size_t>(key)]; }
  bool operator==(const ClipKeys&) const = default;
};

/// What can be undone and redone, each by its name: "Fade on beach.avi". Composed.
struct EditorHistory {
  std::vector<std::string> done;    ///< the next to be undone is the last
  std::vector<std::string> undone;  ///< the next to be redone is the last
  bool operator==(const EditorHistory&) const = default;
};

struct EditorFrame;
/// Why nothing can be undone now (`steps` below 0), redone (above) or either (0). Composed; empty where it
/// can.
std::string whyNoStep(const EditorFrame& frame, const EditorHistory& history, int steps);

/// The window itself.
struct EditorFrame {
  bool visible = false;
  std::string caption;            ///< composed
  int CurrentTab = 1;             ///< 1 to 7
  bool toolsOn = true;            ///< false while the movie is previewed: tabs, pages and tools only show
  double zoom = 0.5;              ///< of the timeline, 0 to 1 along its slider
  int timelineHeight = 0;         ///< pixels at size 1; 0 while the user has not chosen one
  std::string toolsOffBecause{};  ///< composed; empty while they are on
  std::string saveOffBecause{};   ///< composed: there is nothing to save; empty where there is
  int raises = 0;                 ///< how often it was asked for while it was there: it comes to the front

  /// The open page takes what is done to it.
  [[nodiscard]] bool pageOn() const { return toolsOn || CurrentTab == 1; }
  /// The zoom by so many steps of a key nearer, or below 0 farther.
  [[nodiscard]] double zoomBy(int steps) const { return std::clamp(zoom + steps * 0.05, 0.0, 1.0); }
  /// Why the project cannot be saved now; empty where it can.
  [[nodiscard]] const std::string& whyNoSave() const { return toolsOn ? saveOffBecause : toolsOffBecause; }
  bool operator==(const EditorFrame&) const = default;
};

}  // namespace kvo
