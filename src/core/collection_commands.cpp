#include "core/collection_commands.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/clip_list.h"
#include "core/failures.h"
#include "core/messages.h"

namespace kvo {
namespace {

bool hasIniExtension(std::string_view path) {
  return path.size() > 4 && sameText(path.substr(path.size() - 4), ".INI");
}

const FileFilter kAllFiles{"All Files (*.*)", "*"};

}  // namespace

// Shows how far a load or save is, and hears of a click on the abort text.
class CollectionCommands::Watch final : public LoadWatch {
 public:
  Watch(MainWindowState& window, EventLoop& loop, std::string_view first, std::string_view abortText)
      : window_(window), loop_(loop) {
    window_.abortText = abortText;
    window_.abortClicked = false;
    status(first);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() override {
    window_.status.clear();
    window_.abortText.clear();
    window_.abortClicked = false;
  }

  void status(std::string_view text) override {
    window_.status = text;
    loop_.yield();
  }
  bool abortClicked() override { return window_.abortClicked; }

 private:
  MainWindowState& window_;
  EventLoop& loop_;
};

bool CollectionCommands::New() {
  if (!mayLeaveChanges(LoadResString(345))) {
    PreviewMovie(window_, collection_, collection_.icurMov);
    return false;
  }
  collection_.clearLists();
  collection_.kind = CollectionKind::Plain;
  collection_.IniName = "Untitled.INI";
  collection_.IniFullPath = ports_.folder.beside(collection_.IniName);
  ClearDirtyFlags(collection_, settings_);
  fillClipList(window_, collection_);
  showCollection(window_, collection_);
  window_.caption = LoadResString(349);
  window_.listCaption = LoadResString(350);
  return true;
}

bool CollectionCommands::Open() {
  if (!mayLeaveChanges(LoadResString(345))) return false;
  const auto path = ports_.dialogs.open({std::string(LoadResString(335)),
                                         {{"Movie Collections (*.Ini)", "*.ini *.INI *.Ini"}, kAllFiles},
                                         settings_.ColLoadFrom(),
                                         {}});
  return path && openFile(*path);
}

bool CollectionCommands::openFile(const std::string& path) {
  const auto refuse = [&](int text, int title) {
    ports_.boxes.show({std::string(LoadResString(title)), std::string(LoadResString(text)), BoxButtons::Ok,
                       BoxIcon::Warning});
    return false;
  };
  if (!hasIniExtension(path)) return refuse(336, 337);
  if (!file_.IsValidCollection(path)) return refuse(339, 340);

  collection_.clearLists();
  fillClipList(window_, collection_);
  ReadReport report;
  {
    Watch watch(window_, ports_.loop, LoadResString(338), LoadResString(341));
    report = file_.ReadINI(path, {.watch = &watch});
  }
  collection_.IniName = fileNamePart(path);
  collection_.IniFullPath = path;
  settings_.ColLoadFrom(std::string(folderPart(path)));
  fillClipList(window_, collection_);
  showCollection(window_, collection_);
  PreviewMovie(window_, collection_, 1);
  ClearDirtyFlags(collection_, settings_);
  // What was not read in full must not replace the file without a question.
  if (report.end != ReadEnd::Done) settings_.IsDirty(true);
  if (collection_.filesMissing) {
    ports_.boxes.show(
        {std::string(LoadResString(343)), std::string(LoadResString(342)), BoxButtons::Ok, BoxIcon::Warning});
  }
  return true;
}

bool CollectionCommands::Save() {
  const bool isDefault = sameText(collection_.IniName, "KVO5.INI");
  auto folder = isDefault ? withSeparator(ports_.folder.path()) : settings_.ColLoadFrom();
  auto path = ports_.dialogs.save({std::string(kProductName).append(LoadResString(355)),
                                   {{"INI Files (*.INI)", "*.INI *.ini"}, kAllFiles},
                                   std::move(folder),
                                   collection_.IniName});
  if (!path) return false;
  if (fileNamePart(*path).find('.') == std::string_view::npos) *path += ".INI";
  if (!hasIniExtension(*path)) {
    ports_.boxes.show(
        {std::string(LoadResString(358)), std::string(LoadResString(357)), BoxButtons::Ok, BoxIcon::Warning});
    return false;
  }
  settings_.ColLoadFrom(std::string(folderPart(*path)));
  bool written = false;
  {
    Watch watch(window_, ports_.loop, std::string(LoadResString(359)).append(LoadResString(360)), {});
    written = file_.WriteINI(std::string(folderPart(*path)), std::string(fileNamePart(*path)), false, &watch);
  }
  collection_.IniName = fileNamePart(*path);
  collection_.IniFullPath = *path;
  window_.listCaption = listCaption(collection_);
  if (written) {
    ClearDirtyFlags(collection_, settings_);
  } else {
    settings_.IsDirty(true);  // what could not be saved is still to be saved
    ports_.boxes.show({std::string(LoadResString(363)), std::string(LoadResString(361)), BoxButtons::Ok,
                       BoxIcon::Critical});
  }
  return written;
}

bool CollectionCommands::mayLeaveChanges(std::string_view title) {
  if (!isDirty(collection_, settings_)) return true;
  const auto answer =
      ports_.boxes.show({std::string(title), std::string(LoadResString(344)) + collection_.IniName + "' ?",
                         BoxButtons::YesNoCancel, BoxIcon::Question});
  if (answer == Answer::Cancel) return false;
  return answer != Answer::Yes || Save();
}

}  // namespace kvo
