// The commands of the File menu: New, Open, Save, and the question about unsaved changes that New and Exit
// ask. While one of them, or any other command, is under way they do nothing and give back false.
#pragma once

#include "ports/desktop.h"
#include "ports/event_loop.h"
#include "ports/file_dialogs.h"
#include "program/collection_store.h"
#include "program/history.h"
#include "program/kept_name.h"
#include "program/recent_collections.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

class CollectionCommands {
 public:
  struct Ports {
    Files& files;
    MessageBoxes& boxes;
    FileDialogs& dialogs;
    EventLoop& loop;
    const ProgramFolder& folder;
    const Desktop& desktop;
  };

  /// What the commands change beside the collection itself.
  struct Views {
    MainWindowState& window;
    ClipList& list;
    History& history;
    RecentCollections& recent;
  };

  CollectionCommands(const Ports& ports, CollectionStore& file, KVO2& settings, Collection& collection,
                     const Views& views)
      : ports_(ports),
        file_(file),
        settings_(settings),
        collection_(collection),
        window_(views.window),
        list_(views.list),
        history_(views.history),
        recent_(views.recent) {}

  /// Reads the collection that the program begins with, an empty path being the default one. False when the
  /// program cannot go on; the user has been told.
  bool openFirst(const std::string& path);

  /// The full path of the open collection.
  [[nodiscard]] const std::string& path() const { return collection_.IniFullPath; }

  /// Begins an empty collection, "Untitled". False when the user took it back.
  bool New();

  /// Asks for a collection and opens it. Unsaved changes are asked about first.
  bool Open();

  /// Opens a collection, also one whose name ends in ".KVO", by its path. False, with everything as it was,
  /// when it is no collection. What the user stopped ahead of its end bears the name of no file.
  bool openFile(const std::string& path);

  /// As openFile; unsaved changes are asked about first.
  bool openNamed(const std::string& path);

  /// Opens what has been kept at `path` of a collection that could not be saved. It bears that one's name and
  /// counts as changed; unsaved changes are asked about first.
  bool openKept(const std::string& path, const KeptName& kept);

  /// Asks for a name and saves. False when the user took it back or the file could not be written.
  bool Save();
  /// Saves into the file that the collection is from. Asks where it has none, or that one which each start
  /// begins with: nobody has chosen it.
  bool saveAgain();

  /// From the next save on the file names clips from its own folder on, or by their whole paths.
  void makePortable(bool on);

  /// Asks whether to save what has changed, and saves on Yes. False on Cancel, and when Yes ended without a
  /// file: the work that asked must not go on then.
  bool mayLeaveChanges(std::string_view title);

  /// What goes on when a collection has been read: its preferences are in force then.
  void whenOpened(std::function<void()> work) { whenOpened_ = std::move(work); }

  /// What each command does ahead of its work, besides what it has been told before.
  void beforeEach(std::function<void()> work) { beforeEach_.push_back(std::move(work)); }
  /// Does that for a command of others.
  void prepare() const {
    for (const auto& work : beforeEach_) work();
  }

 private:
  class Watch;

  bool pass(const std::function<bool()>& command);
  bool empty();
  bool load(const std::string& path);
  std::optional<ReadReport> read(const std::string& path, ReadOptions options);
  void showLoaded();
  void settle(const ReadReport& report, const std::string& path);
  bool save();
  bool saveTo(const std::string& path);
  [[nodiscard]] bool hasChosenFile() const;
  [[nodiscard]] std::string usualFolder() const;
  [[nodiscard]] std::string folderToSaveIn() const;
  bool refuse(int text, int title);
  bool mayReplace(const std::string& path);

  Ports ports_;
  CollectionStore& file_;
  KVO2& settings_;
  Collection& collection_;
  MainWindowState& window_;
  ClipList& list_;
  History& history_;
  RecentCollections& recent_;
  std::function<void()> whenOpened_ = [] {};
  std::vector<std::function<void()>> beforeEach_;
};

}  // namespace kvo
