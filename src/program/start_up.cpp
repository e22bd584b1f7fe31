#include "program/start_up.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/records/setting_rows.h"
#include "core/telling/deployment.h"
#include "core/telling/messages.h"
#include "playback/display/interface_size.h"
#include "program/shut_down.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr std::array<Long, 12> kUpgradeCounts = {4, 12, 20, 40, 60, 80, 100, 120, 150, 200, 400, 500};

// The user's value that says that the box about several monitors has been shown.
constexpr std::string_view kMonitorsTold = "MonitorsTold";

// By the screen, where the user's choice is none that there is.
double sizeChoice(double chosen) {
  return std::ranges::find(kInterfaceSizes, chosen) == kInterfaceSizes.end() ? 0 : chosen;
}

std::string joined(std::initializer_list<int> numbers) {
  std::string text;
  for (const int number : numbers) text.append(text.empty() ? "" : kCrLf).append(LoadResString(number));
  return text;
}

}  // namespace

StartEnd StartUp::run(const std::vector<std::string>& arguments, const std::string& workingFolder) {
  parts_.window.emptyPane.NoMediaPrompt = LoadResString(491);
  if (!parts_.handover.becomeFirst()) {
    const auto text = handoverText(arguments, workingFolder, parts_.files);
    return parts_.handover.send(text) ? StartEnd::HandedOver : StartEnd::NotTaken;
  }
  const auto command = readStartCommand(arguments, parts_.files, workingFolder);
  missing_ = command.missing;
  parts_.settings.user.attach(&parts_.store);
  if (!parts_.commands.openFirst(command.collection)) return StartEnd::Failed;
  deleteWorkFiles(parts_.files, parts_.folder);
  parts_.store.write("InstallDir", quoted(parts_.folder.path()));
  checkScreen();
  loadWindow();
  parts_.list.fill();
  whenLoaded_();
  const bool anyClips = !parts_.collection.MovieList.empty();
  if (anyClips && (command.fullScreen || command.hundredPercent)) {
    parts_.window.face.fullScreen = true;
    parts_.window.face.minimumDetails = command.hundredPercent;
    intro_.passOver();
  } else {
    parts_.window.face.visible = true;  // a file may take its time, and have a box
    intro_.begin(command.clips);
  }
  parts_.window.face.visible = true;
  mailbox_.open(workingFolder);
  return StartEnd::Run;
}

void StartUp::tell() {
  mailbox_.tellMissing(std::exchange(missing_, {}));
  if (parts_.collection.filesMissing) {
    parts_.boxes.show(
        {std::string(LoadResString(343)), std::string(LoadResString(342)), BoxButtons::Ok, BoxIcon::Warning});
  }
  askAboutUpgrades();
}

void StartUp::askAboutUpgrades() {
  const auto used = parts_.settings.preferences().NoofUses;
  if (std::find(kUpgradeCounts.begin(), kUpgradeCounts.end(), used) == kUpgradeCounts.end()) return;
  const auto answer = parts_.boxes.show(
      {std::string(kProductName), "Do you wish KVO to check for the latest upgrades and release notes ?",
       BoxButtons::YesNo, BoxIcon::Question});
  if (answer == Answer::Yes) parts_.desktop.openPage(std::string(kReleasePage));
}

void StartUp::checkScreen() {
  const auto screen = parts_.desktop.screen();
  const auto tell = [&](std::string text, std::string title) {
    parts_.boxes.show({std::move(title), std::move(text), BoxButtons::Ok, BoxIcon::Information});
  };
  if (screen.bitsPerPixel > 0 && screen.bitsPerPixel <= 8) {
    tell(joined({101, 102, 103, 104}), std::string(LoadResString(105)));
  }
  if (screen.width == 640 && screen.height == 480) {
    tell(joined({106, 107, 108}), std::string(LoadResString(109)));
  }
  if (screen.width == 800 && screen.height == 600) {
    tell(joined({186, 187, 108}), std::string(LoadResString(109)));
  }
  if (screen.monitors >= 2 && parts_.store.read(kMonitorsTold).empty()) {
    parts_.store.write(kMonitorsTold, "True");
    tell("This release of KVO does not yet support Multi-Monitor output (KVO6 will).",
         std::string(kProductName).append(" - Multiple Monitors not supported."));
  }
}

void StartUp::loadWindow() {
  GetKVORegistryValues(parts_.settings, parts_.store, parts_.window);
  parts_.settings.user.ShowWavWithVideo = false;
  parts_.settings.state.ShowFillist = true;
  parts_.settings.state.ToolTipsOn = kFlagOn;
  parts_.settings.state.HideKVOOnWebshow = true;
  parts_.settings.adjust().DefZoom = std::string(trimmed(parts_.settings.preferences().DefZoom));
  parts_.window.face.interfaceSize = sizeChoice(parts_.settings.user.InterfaceSize);
  parts_.window.display.muted = parts_.settings.preferences().MuteAtStart;
  testFont();
  skins_.applyStored();
}

// From size 1.25 on there is room for any text.
void StartUp::testFont() {
  constexpr double kLarger = 1.25;
  const auto screens = parts_.desktop.screens();
  const double choice = parts_.window.face.interfaceSize;
  const double size = choice > 0 || screens.empty() ? choice : screens.front().factor;
  if (size >= kLarger || !hasLargeText(parts_.desktop)) return;
  parts_.boxes.show(
      {"KVO5 - System Font Size is too large",
       "Non-Standard Font size detected - KVO may not be able to resolve all graphics with this fontsize",
       BoxButtons::Ok, BoxIcon::Information});
}

bool hasLargeText(const Desktop& desktop) {
  constexpr int kSmallText = 16;  // pixels
  return desktop.screen().textHeight > kSmallText;
}

void GetKVORegistryValues(KVO2& settings, UserStore& store, MainWindowState& window) {
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      if (row.atStart.empty()) continue;
      auto text = store.read(row.name);
      if (text.empty()) {
        text = row.atStart;
        store.write(row.name, text);
      }
      if (!row.take(settings, text)) row.take(settings, row.atStart);
      holdToRange(row, settings);
    }
  }
  auto& ticks = window.menu;
  ticks.mnu_Looping = settings.user.LoopPreviews;
  ticks.mnu_LoopCol = settings.user.LoopCol;
  ticks.mnu_RewAtEnd = settings.user.RewAtEnd;
  ticks.mnu_PlayWithoutGaps = settings.user.PlayWithoutGaps;
}

}  // namespace kvo
