// Clips whose file is not where the collection says: which they are, and how they are found elsewhere.
#pragma once

#include "ports/event_loop.h"
#include "ports/file_dialogs.h"
#include "ports/files.h"
#include "ports/media_looker.h"
#include "ports/message_boxes.h"
#include "program/history.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kvo {

/// What tells a clip's file from others of its name.
struct MissingFile {
  int number = 0;          ///< of the clip
  std::string path;        ///< where it was
  std::uint64_t size = 0;  ///< bytes; 0 where the record does not tell
  double length = 0;       ///< seconds; 0 for a still, and where the record does not tell
  bool operator==(const MissingFile&) const = default;
};

std::vector<MissingFile> missingFiles(const Collection& collection, const Files& files);

class SearchProgress;

struct FoundFile {
  std::string path;
  std::uint64_t size = 0;
};

/// What decides between several files that fit.
struct FitRules {
  std::function<double(const std::string& path)> lengthOf;  ///< seconds
  std::set<std::string> taken{};                            ///< paths that clips of the collection have
  std::map<std::string, int> foundInFolder;  ///< how many of the missing files are found in each folder
};

/// The one of `found` that is the missing file: of its name and size; where several are, of its length too,
/// then one that no clip has, whose folders are most like those it was in, and where most others are.
std::optional<std::string> fileThatFits(const MissingFile& missing, const std::vector<FoundFile>& found,
                                        const FitRules& rules);

class MissingFiles {
 public:
  struct Parts {
    const Files& files;
    FileDialogs& dialogs;
    MessageBoxes& boxes;
    EventLoop& loop;
    MediaLooker& looker;
    MainWindowState& window;
    Collection& collection;
    ClipList& list;
    History& history;
  };
  explicit MissingFiles(const Parts& parts) : parts_(parts) {}

  /// Looks which clips have no file, and has the list say so.
  void look();

  /// Asks for a folder, and mends all clips whose files are in it or below. It can be undone.
  void FindMissingFiles();

 private:
  std::optional<int> searchAndMend(const CommandPass& pass, const std::vector<MissingFile>& missing,
                                   const std::string& folder);
  std::vector<std::vector<FoundFile>> search(const std::string& folder,
                                             const std::vector<MissingFile>& missing,
                                             SearchProgress& progress);
  std::optional<int> mend(const CommandPass& pass, const std::vector<MissingFile>& missing,
                          const std::vector<std::vector<FoundFile>>& found, const SearchProgress& progress);

  Parts parts_;
};

}  // namespace kvo
