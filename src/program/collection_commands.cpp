#include "program/collection_commands.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/telling/failures.h"
#include "core/telling/messages.h"
#include "program/start_command.h"

namespace kvo {
namespace {

const FileFilter kAllFiles{"All Files (*.*)", "*"};

}  // namespace

// Shows how far a load or save is, and hears of a click on the abort text.
class CollectionCommands::Watch final : public LoadWatch {
 public:
  Watch(MainWindowState& window, EventLoop& loop, ClipList& list, std::string_view first,
        std::string_view abortText)
      : window_(window), loop_(loop), list_(list) {
    window_.progress.abortText = abortText;
    status(first, 0, 0);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() override { window_.progress = {}; }

  void begins() override { list_.fill(); }
  void status(std::string_view text, int done, int total) override {
    window_.progress.status = text;
    window_.progress.done = done;
    window_.progress.total = total;
    loop_.yield();
  }
  bool abortClicked() override { return window_.progress.abortClicked; }

 private:
  MainWindowState& window_;
  EventLoop& loop_;
  ClipList& list_;
};

bool CollectionCommands::pass(const std::function<bool()>& command) {
  const CommandPass pass(window_);
  if (!pass) return false;
  prepare();
  return command();
}

bool CollectionCommands::New() {
  return pass([this] { return empty(); });
}

bool CollectionCommands::empty() {
  if (!mayLeaveChanges(LoadResString(345))) {
    list_.PreviewMovie(collection_.icurMov);
    return false;
  }
  collection_.clearLists();
  collection_.kind = CollectionKind::Plain;
  collection_.isPortable = false;
  collection_.becomeUntitled(ports_.folder);
  ClearDirtyFlags(collection_, settings_);
  history_.clear();
  list_.missing({});
  list_.fill();
  list_.show();
  window_.face.caption = LoadResString(349);
  window_.list.caption = LoadResString(350);
  return true;
}

bool CollectionCommands::Open() {
  return pass([this] {
    if (!mayLeaveChanges(LoadResString(345))) return false;
    const auto path = ports_.dialogs.open({std::string(LoadResString(335)),
                                           {{"Movie Collections (*.Ini)", "*.ini *.INI *.Ini"}, kAllFiles},
                                           usualFolder(),
                                           {}});
    if (!path) return false;
    return endsInText(*path, ".INI") ? load(*path) : refuse(336, 337);
  });
}

bool CollectionCommands::openFile(const std::string& path) {
  return pass([&] { return load(path); });
}

bool CollectionCommands::openNamed(const std::string& path) {
  return pass([&] { return mayLeaveChanges(LoadResString(345)) && load(path); });
}

bool CollectionCommands::refuse(int text, int title) {
  ports_.boxes.show({std::string(LoadResString(title)), std::string(LoadResString(text)), BoxButtons::Ok,
                     BoxIcon::Warning});
  return false;
}

// Fills lists and settings. None when that is no collection: then the user has been told, and nothing else.
std::optional<ReadReport> CollectionCommands::read(const std::string& path, ReadOptions options) {
  ReadReport report;
  {
    Watch watch(window_, ports_.loop, list_, LoadResString(338), LoadResString(341));
    options.watch = &watch;
    report = file_.ReadINI(path, options);
  }
  switch (report.end) {
    case ReadEnd::NotReadable:
    case ReadEnd::NotValid:
      refuse(339, 340);
      return std::nullopt;
    case ReadEnd::TooManyClips:
      ports_.boxes.show({std::string(LoadResString(340)), report.why, BoxButtons::Ok, BoxIcon::Warning});
      return std::nullopt;
    case ReadEnd::Done:
    case ReadEnd::Cancelled:
    case ReadEnd::Aborted:
      break;
  }
  whenOpened_();
  return report;
}

bool CollectionCommands::load(const std::string& path) {
  if (!namesCollection(path)) return refuse(336, 337);
  const auto report = read(path, {.isNeeded = false});
  if (!report) return false;
  settle(*report, path);
  settings_.adjust().ColLoadFrom = std::string(folderPart(path));
  showLoaded();
  return true;
}

void CollectionCommands::showLoaded() {
  list_.fill();
  list_.show();
  list_.PreviewMovie(1);
  if (collection_.filesMissing) refuse(342, 343);
}

bool CollectionCommands::openKept(const std::string& path, const KeptName& kept) {
  return pass([&] {
    if (!mayLeaveChanges(LoadResString(345))) return false;
    auto report = read(path, {.mayRewrite = false, .keepMissingClips = true, .isNeeded = false});
    if (!report) return false;
    report->end = ReadEnd::Aborted;  // it is not what the file of its name holds
    settle(*report, path);
    if (!kept.fullPath.empty()) {
      collection_.IniName = fileNamePart(kept.fullPath);
      collection_.IniFullPath = kept.fullPath;
    }
    collection_.isPortable = kept.isPortable;
    showLoaded();
    return true;
  });
}

bool CollectionCommands::openFirst(const std::string& path) {
  collection_.IniName = "KVO5.INI";
  const auto report = file_.ReadINI(path);
  if (report.end != ReadEnd::Done && report.end != ReadEnd::Cancelled && report.end != ReadEnd::Aborted)
    return false;
  settle(report, path.empty() ? ports_.folder.beside("\\KVO5.INI") : path);
  return true;
}

// What was not read in full does not bear the file's name, and is not lost without a question.
void CollectionCommands::settle(const ReadReport& report, const std::string& path) {
  ClearDirtyFlags(collection_, settings_);
  history_.clear();
  list_.missing({report.missingFiles.begin(), report.missingFiles.end()});
  if (report.end == ReadEnd::Done) {
    collection_.IniName = fileNamePart(path);
    collection_.IniFullPath = path;
    recent_.remember(path);
  } else {
    collection_.becomeUntitled(ports_.folder);
    settings_.state.IsDirty = true;
  }
}

bool CollectionCommands::Save() {
  return pass([this] { return save(); });
}

bool CollectionCommands::saveAgain() {
  return pass([this] { return hasChosenFile() ? saveTo(collection_.IniFullPath) : save(); });
}

bool CollectionCommands::hasChosenFile() const {
  const auto& path = collection_.IniFullPath;
  const auto& folder = ports_.folder;
  const bool isNobodys = path == folder.beside("\\KVO5.INI") || path == folder.beside("Untitled.INI");
  return !path.empty() && !isNobodys && ports_.files.exists(path);
}

// Where a collection was last, in this run or an earlier one. The program's own folder, where the first one
// came from, has been nobody's choice.
std::string CollectionCommands::usualFolder() const {
  const auto own = withSeparator(ports_.folder.path());
  const auto& last = settings_.preferences().ColLoadFrom;
  if (!last.empty() && withSeparator(last) != own) return last;
  for (const auto& path : recent_.paths()) {
    if (const auto folder = folderPart(path); folder != own) return std::string(folder);
  }
  const auto videos = ports_.desktop.videosFolder();
  return videos.empty() ? last : withSeparator(videos);
}

// The program's own folder, or one on a disc, may be none that the user can write in.
std::string CollectionCommands::folderToSaveIn() const {
  const bool isDefault = sameText(collection_.IniName, "KVO5.INI");
  auto folder = isDefault ? withSeparator(ports_.folder.path()) : usualFolder();
  if (ports_.files.mayWriteInto(folder)) return folder;
  const auto own = ports_.desktop.videosFolder();
  return own.empty() ? folder : withSeparator(own);
}

bool CollectionCommands::save() {
  auto path = ports_.dialogs.save({std::string(kProductName).append(LoadResString(355)),
                                   {{"INI Files (*.INI)", "*.INI *.ini"}, kAllFiles},
                                   folderToSaveIn(),
                                   collection_.IniName});
  if (!path) return false;
  if (fileNamePart(*path).find('.') == std::string_view::npos) {
    *path += ".INI";
    if (ports_.files.exists(*path) && !mayReplace(*path))
      return false;  // the dialog asked about another name
  }
  if (!endsInText(*path, ".INI")) return refuse(357, 358);
  return saveTo(*path);
}

bool CollectionCommands::saveTo(const std::string& path) {
  settings_.adjust().ColLoadFrom = std::string(folderPart(path));
  bool written = false;
  {
    Watch watch(window_, ports_.loop, list_, std::string(LoadResString(359)).append(LoadResString(360)), {});
    written = file_.WriteINI(std::string(folderPart(path)), std::string(fileNamePart(path)), false, &watch);
  }
  collection_.IniName = fileNamePart(path);
  collection_.IniFullPath = path;
  window_.list.caption = listCaption(collection_);
  history_.saved();
  if (written) {
    ClearDirtyFlags(collection_, settings_);
    recent_.remember(path);
  } else {
    settings_.state.IsDirty = true;  // what could not be saved is still to be saved
    ports_.boxes.show({std::string(LoadResString(363)), std::string(LoadResString(361)), BoxButtons::Ok,
                       BoxIcon::Critical});
  }
  return written;
}

void CollectionCommands::makePortable(bool on) {
  collection_.isPortable = on;
  settings_.state.IsDirty = true;
}

bool CollectionCommands::mayReplace(const std::string& path) {
  return ports_.boxes.show({std::string(kProductName).append(LoadResString(355)),
                            "<" + path + std::string(LoadResString(300)), BoxButtons::YesNo,
                            BoxIcon::Question}) == Answer::Yes;
}

bool CollectionCommands::mayLeaveChanges(std::string_view title) {
  if (!isDirty(collection_, settings_)) return true;
  const auto answer =
      ports_.boxes.show({std::string(title), std::string(LoadResString(344)) + collection_.IniName + "' ?",
                         BoxButtons::YesNoCancel, BoxIcon::Question});
  if (answer == Answer::Cancel) return false;
  return answer != Answer::Yes || save();
}

}  // namespace kvo
