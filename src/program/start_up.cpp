#include "program/start_up.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/telling/deployment.h"
#include "core/telling/messages.h"
#include "program/clip_list.h"

#include <algorithm>
#include <array>

namespace kvo {
namespace {

constexpr int kIntroInterval = 350;    // milliseconds
constexpr int kMailboxInterval = 200;  // milliseconds
constexpr std::array<std::string_view, 6> kWorkFiles = {"\\KVOSamp.xtl", "\\KVORender.xtl", "\\KVORender.bat",
                                                        "\\Rendone.txt", "\\KVOProps.bat",  "\\KVOovl.bmp"};
constexpr std::array<Long, 12> kUpgradeCounts = {4, 12, 20, 40, 60, 80, 100, 120, 150, 200, 400, 500};
constexpr std::array<std::string_view, 8> kSoundKinds = {"CDA", "MP2", "MP3", "WAV",
                                                         "WMA", "WAX", "AU",  "MID"};

std::string joined(std::initializer_list<int> numbers) {
  std::string text;
  for (const int number : numbers) text.append(text.empty() ? "" : kCrLf).append(LoadResString(number));
  return text;
}

bool isSound(const Movie& clip) {
  const auto kind = extensionOf(clip.MovieName());
  return std::find(kSoundKinds.begin(), kSoundKinds.end(), kind) != kSoundKinds.end();
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    if (const auto line = text.substr(0, end); !trimmed(line).empty()) lines.emplace_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

StartUp::StartUp(const Ports& ports, CollectionStore& file, KVO2& settings, Collection& collection,
                 CollectionCommands& commands, ClipIntake& intake, MainWindowState& window)
    : ports_(ports),
      file_(file),
      settings_(settings),
      collection_(collection),
      commands_(commands),
      intake_(intake),
      window_(window),
      introEnder_(ports.loop.timer([this] { introTick(); })),
      timer6_(ports.loop.timer([this] { readMailbox(); })) {
  commands_.beforeEach([this] { leaveIntro(); });
}

StartEnd StartUp::run(const std::vector<std::string>& arguments, const std::string& workingFolder) {
  window_.emptyPane.NoMediaPrompt = LoadResString(491);
  if (!ports_.handover.becomeFirst()) {
    ports_.handover.send(handoverText(arguments, workingFolder, ports_.files));
    return StartEnd::HandedOver;
  }
  workingFolder_ = workingFolder;
  const auto command = readStartCommand(arguments, ports_.files, workingFolder);
  startupFiles_ = command.clips;
  collection_.IniName = "KVO5.INI";
  collection_.IniFullPath = ports_.folder.beside("\\KVO5.INI");
  settings_.user.attach(&ports_.store);
  const auto end = file_.ReadINI(command.collection).end;
  if (end == ReadEnd::NotReadable || end == ReadEnd::NotValid || end == ReadEnd::TooManyClips)
    return StartEnd::Failed;
  deleteWorkFiles();
  askAboutUpgrades();
  ports_.store.write("InstallDir", quoted(ports_.folder.path()));
  if (!command.collection.empty()) {
    collection_.IniName = fileNamePart(command.collection);
    collection_.IniFullPath = command.collection;
  }
  if (end != ReadEnd::Done) collection_.becomeUntitled(ports_.folder);  // it is not the whole of that file
  checkScreen();

  ClearDirtyFlags(collection_, settings_);
  startingUp_ = true;
  loadWindow();
  fillClipList(window_, collection_);
  const bool anyClips = !collection_.MovieList.empty();
  if (anyClips && (command.fullScreen || command.hundredPercent)) {
    window_.face.fullScreen = true;
    window_.face.minimumDetails = command.hundredPercent;
    startingUp_ = false;
    showCollection(window_, collection_);
    PreviewMovie(window_, collection_, 1);
  } else if (startupFiles_.empty() && settings_.preferences().DefaultStartupVid.empty()) {
    introRunning_ = false;
    showFirstClip();
  } else {
    ShowStartupVid();
  }
  window_.face.visible = true;
  timer6_->start(kMailboxInterval);
  if (collection_.filesMissing) {
    ports_.boxes.show(
        {std::string(LoadResString(343)), std::string(LoadResString(342)), BoxButtons::Ok, BoxIcon::Warning});
  }
  return StartEnd::Run;
}

void StartUp::deleteWorkFiles() {
  for (const auto name : kWorkFiles) ports_.files.remove(ports_.folder.beside(name));
}

void StartUp::askAboutUpgrades() {
  const auto used = settings_.preferences().NoofUses;
  if (std::find(kUpgradeCounts.begin(), kUpgradeCounts.end(), used) == kUpgradeCounts.end()) return;
  const auto answer = ports_.boxes.show(
      {std::string(kProductName), "Do you wish KVO to check for the latest upgrades and release notes ?",
       BoxButtons::YesNo, BoxIcon::Question});
  if (answer == Answer::Yes) ports_.desktop.openPage(std::string(kReleasePage));
}

void StartUp::checkScreen() {
  const auto screen = ports_.desktop.screen();
  const auto tell = [&](std::string text, std::string title) {
    ports_.boxes.show({std::move(title), std::move(text), BoxButtons::Ok, BoxIcon::Information});
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
  if (screen.monitors >= 2) {
    tell("This release of KVO does not yet support Multi-Monitor output (KVO6 will).",
         std::string(kProductName) + " - Multiple Monitors not supported.");
  }
}

void StartUp::loadWindow() {
  GetKVORegistryValues(settings_, ports_.store, window_);
  settings_.user.ShowWavWithVideo = false;
  settings_.state.ShowFillist = true;
  settings_.state.ToolTipsOn = kFlagOn;
  settings_.state.HideKVOOnWebshow = true;
  settings_.adjust().DefZoom = std::string(trimmed(settings_.preferences().DefZoom));
  if (settings_.preferences().SkinPath.empty() || characterCount(settings_.preferences().SkinPath) == 128)
    settings_.adjust().SkinPath = "Def";
  if (settings_.user.SliderSpeed < 50) settings_.user.SliderSpeed = 450;
  settings_.state.IsDirty = false;
  window_.menu.clipsEnabled = !collection_.MovieList.empty();
}

// The normal window with the clip that comes first.
void StartUp::showFirstClip() {
  settings_.state.ShowFillist = true;
  settings_.state.AllDetOff = false;
  startingUp_ = false;
  window_.menu.mnu_Remote = true;
  window_.face.controlsEnabled = true;
  showCollection(window_, collection_);
  const int count = collection_.MovieList.count();
  if (count == 0) return;
  PreviewMovie(window_, collection_, startupFiles_.empty() ? 1 : count);
  window_.transport.play = ButtonWord::PlayOn;
  window_.transport.pause = ButtonWord::PauseOn;
}

// The clip named on the command line, or the intro of the collection, comes ahead of everything.
void StartUp::ShowStartupVid() {
  const bool isNamed = !startupFiles_.empty();
  window_.details.visible = window_.list.visible = false;
  window_.transport.playerParked = true;
  settings_.state.AllDetOff = true;
  bool added = false;
  if (isNamed) {
    for (const auto& file : startupFiles_) added |= intake_.AddMoviesm(file);
  } else {
    window_.face.controlsEnabled = false;
    added = addIntro();
    if (settings_.preferences().NoofUses == 1) {
      settings_.state.AllDetOff = false;
      window_.details.visible = true;
    }
  }
  const auto& clips = collection_.MovieList;
  if (!added || clips.empty() || (isNamed && isSound(clips[clips.count()]))) return showFirstClip();
  introRunning_ = !clips[clips.count()].IsStill();  // a still has no end to wait for
  introEnder_->start(kIntroInterval);
}

// The intro is a guest: it changes nothing of what the user has.
bool StartUp::addIntro() {
  const auto name = settings_.preferences().DefaultStartupVid;
  const auto lastFolder = settings_.preferences().LoadFrom;
  const bool added = intake_.AddMoviesm(isAddress(name) ? name : ports_.folder.beside(name));
  settings_.change().LoadFrom = lastFolder;
  settings_.state.IsDirty = false;
  if (added) intro_ = &collection_.MovieList[collection_.MovieList.count()];
  return added;
}

void StartUp::introTick() {
  if (!introRunning_ && !window_.busy()) leaveIntro();
}

// Takes the intro out again, by whatever road it ends; of a clip that ran in its place only the running ends.
void StartUp::leaveIntro() {
  introRunning_ = false;
  if (!introEnder_->running()) return;
  introEnder_->stop();
  if (intro_ != nullptr) {
    const bool wasDirty = settings_.state.IsDirty;
    collection_.MovieList.removeIf([this](const Movie& clip) { return &clip == intro_; });
    intro_ = nullptr;
    settings_.change().DefaultStartupVid = "";
    settings_.state.IsDirty = wasDirty;
  }
  fillClipList(window_, collection_);
  showFirstClip();
}

void StartUp::readMailbox() {
  if (window_.busy()) return;  // it is taken at a later tick
  if (const auto text = ports_.handover.take()) takeHandover(*text);
}

void StartUp::takeHandover(const std::string& text) {
  leaveIntro();
  if (trimmed(text) == kRemovePreview) {
    collection_.MovieList.removeIf(
        [](const Movie& clip) { return sameText(clip.MovieName(), "PREVIEW.WMV"); });
    fillClipList(window_, collection_);
    return showCollection(window_, collection_);
  }
  window_.face.visible = window_.face.raise = true;
  auto lines = linesOf(text);
  for (auto& line : lines) {
    if (!ports_.files.exists(line)) line = trimmed(replaced(line, "\"", ""));
  }
  if (!take(readStartCommand(lines, ports_.files, workingFolder_))) return;
  window_.transport.pause = ButtonWord::PauseOff;
  window_.transport.play = ButtonWord::PlayOn;
}

void StartUp::takeFiles(const std::vector<std::string>& paths) {
  StartCommand command;
  for (const auto& path : paths) {
    if (namesCollection(path)) {
      command.collection = path;
    } else {
      command.clips.push_back(path);
    }
  }
  take(command);
}

// True when a clip was added.
bool StartUp::take(const StartCommand& command) {
  if (!command.collection.empty() && !commands_.openNamed(command.collection)) return false;
  const CommandPass pass(window_);
  if (!pass || command.clips.empty()) return false;
  leaveIntro();
  bool added = false;
  for (const auto& clip : command.clips) added |= intake_.AddMoviesm(clip);
  showCollection(window_, collection_);
  return added;
}

bool StartUp::exit() {
  if (ended_) return true;
  const CommandPass pass(window_);
  if (!pass) {
    window_.progress.abortClicked = true;
    return false;
  }
  leaveIntro();
  deleteWorkFiles();
  window_.transport.playerParked = true;
  ports_.loop.yield();
  ports_.loop.yield();
  settings_.user.ShowWavWithVideo = false;
  if (!commands_.mayLeaveChanges(LoadResString(345))) {
    PreviewMovie(window_, collection_, collection_.icurMov);
    showCollection(window_, collection_);
    return false;
  }
  timer6_->stop();
  window_.face.visible = false;
  ended_ = true;
  return true;
}

void GetKVORegistryValues(KVO2& settings, UserStore& store, MainWindowState& window) {
  const auto value = [&](std::string_view name, std::string_view otherwise) {
    auto text = store.read(name);
    if (text.empty()) {
      text = otherwise;
      store.write(name, text);
    }
    return text;
  };
  const auto flag = [&](std::string_view name) {
    Boolean on = false;
    takeField(on, value(name, "False"));
    return on;
  };
  const auto number = [&](std::string_view name, std::string_view otherwise) {
    Integer whole = 0;
    takeField(whole, value(name, otherwise));
    return whole;
  };
  settings.user.ShowWavWithVideo = flag("ShowWavWithVideo");
  settings.user.DefaultZoom100 = window.menu.mnu_DefaultZoom100 = flag("DefaultZoom100");
  settings.user.LoopPreviews = window.menu.mnu_Looping = flag("LoopPreviews");
  settings.user.LoopCol = window.menu.mnu_LoopCol = flag("LoopCol");
  settings.user.RewAtEnd = window.menu.mnu_RewAtEnd = flag("RewAtEnd");
  settings.user.SliderPauseOnRepo = window.menu.mnu_SliderPause = flag("SliderPauseOnRepo");
  settings.user.SliderSpeed = number("SliderSpeed", "500");
  window.menu.mnu_SldNormal = settings.user.SliderSpeed == 500;
  settings.user.StillDelayTimer = number("StillDelayTimer", "7");
}

}  // namespace kvo
