// The Create tab: what the movie is like, how much power its preview may take, and the keys that make it. Its
// rules write preferences; a change of one is a change of the collection and a step of the history.
#pragma once

#include "editor/tabs/editing.h"
#include "editor/tabs/preview_params.h"
#include "editor/tabs/tab_host.h"

#include <span>
#include <string>
#include <string_view>

namespace kvo {

/// The sizes on offer in Cmb_Res, "640 x 480"; OutputResolution counts them from 0.
std::span<const std::string_view> outputSizes();
/// Frames a second on offer; others may be typed.
std::span<const std::string_view> outputRates();

/// The key that begins the preview of the movie, or ends the one that runs. Its texts are whole.
struct PreviewKey {
  std::string caption;
  std::string tip;
  std::string whyNot;  ///< it is off; empty where it is not
  bool operator==(const PreviewKey&) const = default;
};

struct CreateTab {
  int sizeRow = -1;     ///< in outputSizes(); -1 while the two boxes hold another size
  int txtWidth = 320;   ///< pixels
  int txtHeight = 240;  ///< pixels
  std::string frameRate = "25";
  int Cmb_ColorDepth = 24;           ///< bits: 16, 24 or 32
  bool Opt_RenderRangeWhole = true;  ///< Opt_RenderRange 0, else 1
  double Txt_From = 0;               ///< seconds; of the whole movie its start
  double Txt_Too = 0;                ///< seconds; of the whole movie its end
  int Sld_CPURequired = 5;           ///< 1 to 10
  std::string powerToolTip;
  std::string Fra_PreviewOpts;    ///< caption of the power slider
  std::string Label42;            ///< what that power leaves of the movie, as one text
  PreviewLines lines;             ///< the same, line by line
  bool Label42Bold = false;       ///< there is nothing to preview
  int Label42Changes = 0;         ///< counts the changes that the eye is to be drawn to
  bool Chk_AutoRewind = true;     ///< a preview that stands at its end begins again
  bool ChkDynamic = false;        ///< what is missing between decoder and screen is found by itself
  bool IsPreviewRunning = false;  ///< of the movie
  PreviewKey Cmd_PrevGrph;
  std::string whyNot;       ///< all but the keys is off; whole, empty where it is not
  std::string rangeWhyNot;  ///< the two boxes of the range are; likewise
  bool operator==(const CreateTab&) const = default;
};

class CreateRules {
 public:
  /// All outlive the object. The settings of the editor's controls follow the tab's.
  CreateRules(const Editing& editing, CreateTab& tab, TabHost& host) : e_(editing), tab_(tab), host_(host) {}

  /// The editor opens: everything as the preferences have it.
  void restore();
  /// The same when only what others have done is to be seen: an undo, a load, new totals.
  void refresh();

  /// A preview of the movie has begun, or ended.
  void showPreview(bool running);

  /// A row of outputSizes().
  void chooseSize(int row);
  /// The boxes; what is empty, 0 or out of range becomes 320 wide or 240 high, by the rule of either box.
  void typeSize(int width, int height);
  /// Frames a second; below 2 becomes 24, above 120 becomes 120. Text that is no number changes nothing.
  void typeRate(std::string_view text);
  /// 16, 24 or 32.
  void chooseDepth(int bits);
  void movePower(int power);

  /// Which part of the movie is made. Seconds are held within it, in their order.
  void chooseRange(bool whole);
  void typeRange(double from, double too);

  void tickAutoRewind(bool on) { tab_.Chk_AutoRewind = on; }
  void tickDynamic(bool on) { tab_.ChkDynamic = on; }

  /// Shows in Label42 what the present power means; without a clip that there is nothing to preview.
  void UpdateCPUReqDisp();

 private:
  void showSize();
  void showRange();
  void showWhatIsOff();
  [[nodiscard]] double movieLength() const;
  void writeSize(int width, int height);

  const Editing& e_;
  CreateTab& tab_;
  TabHost& host_;
};

}  // namespace kvo
