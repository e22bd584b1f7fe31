#include "editor/tabs/create_tab.h"

#include "base/text.h"
#include "editor/tabs/operations.h"
#include "editor/tabs/preview.h"
#include "editor/tabs/preview_params.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

// clang-format off
constexpr std::array<std::string_view, 18> kSizes = {
    "160 x 120", "176 x 144", "240 x 180",  "320 x 240",  "352 x 240",  "352 x 288",  "480 x 360",  "512 x 384",  "640 x 480",
    "720 x 480", "720 x 576", "768 x 576",  "800 x 600",  "854 x 480",  "1024 x 768", "1280 x 720", "1600 x 900", "1920 x 1080"};
// clang-format on
constexpr std::array<std::string_view, 9> kRates = {"10", "12", "15", "24", "25", "29.97", "30", "50", "60"};
constexpr int kLeastWidth = 320;   // of an empty box
constexpr int kLeastHeight = 240;  // of an empty box
constexpr double kLeastRate = 2;
constexpr double kRateBelowLeast = 24;
constexpr double kMostRate = 120;
constexpr int kMostPower = 10;

// The row of a size, first the one that was chosen; -1 for none.
int rowOf(int width, int height, int chosen) {
  const auto is = [&](int row) {
    const auto text = kSizes[static_cast<std::size_t>(row)];
    return GetWidthFromString(text) == width && GetHeightFromString(text) == height;
  };
  const int count = static_cast<int>(kSizes.size());
  if (chosen >= 0 && chosen < count && is(chosen)) return chosen;
  for (int row = 0; row < count; ++row) {
    if (is(row)) return row;
  }
  return -1;
}

int heldDepth(int bits) { return bits <= 16 ? 16 : bits <= 24 ? 24 : 32; }

}  // namespace

std::span<const std::string_view> outputSizes() { return kSizes; }
std::span<const std::string_view> outputRates() { return kRates; }

void CreateRules::restore() {
  tab_.Opt_RenderRangeWhole = true;
  refresh();
  tab_.Label42Changes = 0;
  // In this order when the editor opens; a move of the slider turns it round.
  tab_.Fra_PreviewOpts = "Preview Performance \\ CPU Power Required - " + powerToolTip(tab_.Sld_CPURequired);
}

void CreateRules::refresh() {
  const auto& preferences = e_.settings.preferences();
  showSize();
  tab_.frameRate = ShortText(preferences.OutPutFrameRate);
  tab_.Cmb_ColorDepth = heldDepth(preferences.OutputColorDepth);
  const int power = preferences.PreviewCPU == 0 ? kMostPower : preferences.PreviewCPU;
  if (tab_.Sld_CPURequired != power || tab_.Fra_PreviewOpts.empty())
    tab_.Fra_PreviewOpts = powerCaption(power);
  tab_.Sld_CPURequired = power;
  tab_.powerToolTip = powerToolTip(power);
  showRange();
  UpdateCPUReqDisp();
}

void CreateRules::showSize() {
  const auto& preferences = e_.settings.preferences();
  auto& controls = e_.editor.controls;
  tab_.txtWidth = controls.txtWidth =
      preferences.RenderWidth == 0 ? kLeastWidth : heldWidth(preferences.RenderWidth);
  tab_.txtHeight = controls.txtHeight =
      preferences.RenderHeight == 0 ? kLeastHeight : heldHeight(preferences.RenderHeight);
  tab_.sizeRow = rowOf(tab_.txtWidth, tab_.txtHeight, preferences.OutputResolution);
  controls.Opt_Preset = tab_.sizeRow >= 0;
  controls.Cmb_Res =
      controls.Opt_Preset ? kSizes[static_cast<std::size_t>(tab_.sizeRow)] : std::string_view();
}

void CreateRules::writeSize(int width, int height) {
  auto& quiet = e_.settings.adjust();
  quiet.RenderWidth = static_cast<Integer>(width);
  quiet.RenderHeight = static_cast<Integer>(height);
}

void CreateRules::chooseSize(int row) {
  if (row < 0 || row >= static_cast<int>(kSizes.size())) return;
  const auto text = kSizes[static_cast<std::size_t>(row)];
  host_.edit("Output size", 0, 0, [&] {
    e_.settings.change().OutputResolution = static_cast<Integer>(row);
    writeSize(GetWidthFromString(text), GetHeightFromString(text));
  });
  refresh();
}

void CreateRules::typeSize(int width, int height) {
  width = width == 0 ? kLeastWidth : heldWidth(width);
  height = height == 0 ? kLeastHeight : heldHeight(height);
  host_.edit("Output size", 0, 0, [&] {
    const int row = rowOf(width, height, e_.settings.preferences().OutputResolution);
    if (row >= 0) e_.settings.change().OutputResolution = static_cast<Integer>(row);
    e_.settings.state.IsDirty = true;
    writeSize(width, height);
  });
  refresh();
}

void CreateRules::typeRate(std::string_view text) {
  if (const auto typed = numberIn(text)) {
    const double rate = *typed < kLeastRate ? kRateBelowLeast : std::min(*typed, kMostRate);
    host_.edit("Frame rate", 0, 0, [&] { e_.settings.change().OutPutFrameRate = static_cast<Single>(rate); });
  }
  refresh();
}

void CreateRules::chooseDepth(int bits) {
  host_.edit("Colors", 0, 0,
             [&] { e_.settings.change().OutputColorDepth = static_cast<Integer>(heldDepth(bits)); });
  refresh();
}

void CreateRules::movePower(int power) {
  power = std::clamp(power, 1, kMostPower);
  host_.edit("Preview power", 0, 0, [&] { e_.settings.change().PreviewCPU = static_cast<Integer>(power); });
  refresh();
  tab_.Fra_PreviewOpts = powerCaption(tab_.Sld_CPURequired);
  ++tab_.Label42Changes;
}

double CreateRules::movieLength() const {
  const double video = ToNumber(e_.editor.VideoTotalTime);
  return video > 0 ? video : ToNumber(e_.editor.AudioTotalTime);
}

void CreateRules::showRange() {
  const double length = movieLength();
  if (tab_.Opt_RenderRangeWhole) {
    tab_.Txt_From = 0;
    tab_.Txt_Too = length;
  }
  tab_.Txt_From = std::clamp(tab_.Txt_From, 0.0, length);
  tab_.Txt_Too = std::clamp(tab_.Txt_Too, tab_.Txt_From, length);
  showWhatIsOff();
}

void CreateRules::showPreview(bool running) {
  tab_.IsPreviewRunning = running;
  showWhatIsOff();
}

void CreateRules::showWhatIsOff() {
  const bool running = tab_.IsPreviewRunning;
  tab_.whyNot = running ? "Stop the preview first" : "";
  tab_.rangeWhyNot = tab_.Opt_RenderRangeWhole ? "Choose From first" : tab_.whyNot;
  tab_.Cmd_PrevGrph =
      running ? PreviewKey{"Stop the preview", "End the preview of the movie", {}}
              : PreviewKey{"Preview", "Watch the movie", e_.clips().empty() ? "Nothing to Preview" : ""};
}

void CreateRules::chooseRange(bool whole) {
  tab_.Opt_RenderRangeWhole = whole;
  showRange();
}

void CreateRules::typeRange(double from, double too) {
  tab_.Opt_RenderRangeWhole = false;
  tab_.Txt_From = std::min(from, too);
  tab_.Txt_Too = std::max(from, too);
  showRange();
}

void CreateRules::UpdateCPUReqDisp() {
  tab_.Label42Bold = e_.clips().empty();
  if (tab_.Label42Bold) {
    tab_.lines = {};
    tab_.Label42 = "\r\n\r\n\r\nNothing to Preview";
    return;
  }
  const auto params = GetPreviewParams(e_, tab_.Sld_CPURequired);
  tab_.lines = previewLines(e_, params);
  tab_.Label42 = ShowUserPreviewParams(e_, params);
}

}  // namespace kvo
