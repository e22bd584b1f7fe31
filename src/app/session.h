// The one owner of everything: settings, collection, editor state and the adapters behind the ports.
#pragma once

#include "adapters/media/media_file_contents.h"
#include "adapters/posix/posix_clock.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_name_locks.h"
#include "adapters/posix/posix_processes.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "editor/desk/presumed_files.h"
#include "editor/tabs/editing.h"
#include "program/collection_store.h"
#include "vocabulary/movie_presets.h"

#include <optional>

namespace kvo {

/// Makes the program folder and copies in what the program ships with and is missing there.
Outcome prepareProgramFolder(Files& files, const ProgramFolder& folder, const std::string& shippedFolder);

/// Copies in what else is shipped, the pictures of the windows with their folders, where it is missing.
Outcome copyShippedPictures(Files& files, const ProgramFolder& folder, const std::string& shippedFolder);

class Session {
 public:
  /// `messageBoxes` outlives the session.
  Session(ProgramFolder programFolder, MessageBoxes& messageBoxes)
      : boxes(messageBoxes), folder(std::move(programFolder)) {}

  /// Reads a collection without touching its file. Clips whose file is missing stay in the list.
  Result<ReadReport> open(const std::string& collectionPath);

  /// Compiles the collection for a render, or for a preview of the given power; in its own size without
  /// another. Nothing is written back.
  Compiled compile(std::optional<int> previewPower = std::nullopt,
                   std::optional<PictureSides> size = std::nullopt);

  PosixFiles files;
  PosixClock clock;
  PosixProcesses processes;
  PosixNameLocks nameLocks;
  PosixTemporaryFolders temporaryFolders;
  MessageBoxes& boxes;
  MediaFileContents streams;
  PresumedFiles editorStreams{streams};  ///< as the editor asks for them
  ProgramFolder folder;
  KVO2 settings;
  Collection collection;
  EditorState editor;
  ErrorLog log{files, clock, settings, folder};
  CollectionStore file{files, clock, boxes, log, folder, settings, collection};
  Editing editing{collection, settings, editor, editorStreams, files, boxes, folder, log, clock};
};

}  // namespace kvo
