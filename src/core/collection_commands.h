// The commands of the File menu: New, Open, Save, and the question about unsaved changes that New and Exit
// ask.
#pragma once

#include "core/collection_file.h"
#include "core/main_window_state.h"
#include "platform/event_loop.h"
#include "platform/file_dialogs.h"

#include <string>

namespace kvo {

class CollectionCommands {
 public:
  struct Ports {
    Files& files;
    MessageBoxes& boxes;
    FileDialogs& dialogs;
    EventLoop& loop;
    const ProgramFolder& folder;
  };

  CollectionCommands(const Ports& ports, CollectionFile& file, KVO2& settings, Collection& collection,
                     MainWindowState& window)
      : ports_(ports), file_(file), settings_(settings), collection_(collection), window_(window) {}

  /// Begins an empty collection, "Untitled". False when the user took it back.
  bool New();

  /// Asks for a collection and opens it. Unsaved changes are asked about first.
  bool Open();

  /// Opens a collection by its path. False, with everything as it was, when it is no collection.
  bool openFile(const std::string& path);

  /// Asks for a name and saves. False when the user took it back or the file could not be written.
  bool Save();

  /// Asks whether to save what has changed, and saves on Yes. False on Cancel, and when Yes ended without a
  /// file: the work that asked must not go on then.
  bool mayLeaveChanges(std::string_view title);

 private:
  class Watch;

  Ports ports_;
  CollectionFile& file_;
  KVO2& settings_;
  Collection& collection_;
  MainWindowState& window_;
};

}  // namespace kvo
