// Reads and writes the open collection as a file: asks about clips whose file is missing, keeps what would be
// lost, tells of failures. What is not for here: dialogs, lists, the commands New, Open and Save.
#pragma once

#include "core/file/collection_text.h"
#include "core/telling/error_log.h"
#include "core/telling/failures.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "program/file_names.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// A collection file beyond this many bytes is refused unread.
inline constexpr std::uint64_t kMaxCollectionBytes = 512ULL << 20U;

/// Hears how far a long load or save has come and may stop a load.
class LoadWatch {
 public:
  LoadWatch() = default;
  LoadWatch(const LoadWatch&) = delete;
  LoadWatch& operator=(const LoadWatch&) = delete;
  virtual ~LoadWatch() = default;

  /// The file is a collection: the lists have been emptied, and will be filled.
  virtual void begins() = 0;
  /// `done` of `total` clips or keyframes; both 0 where there is no number.
  virtual void status(std::string_view text, int done, int total) = 0;
  virtual bool abortClicked() = 0;
};

struct ReadOptions {
  /// False leaves the file as it stands, whatever the read finds: for commands that only look or render.
  bool mayRewrite = true;
  /// A clip whose file is missing stays in the list, and no question is asked.
  bool keepMissingClips = false;
  /// The program cannot go on without this file: when it cannot be read a box says so, and one that the disk
  /// does not give back is begun anew. Else such a file changes nothing, and only the report tells why.
  bool isNeeded = true;
  /// Shows "Loading Clip i of n" and can abort; null shows nothing.
  LoadWatch* watch = nullptr;
};

class CollectionStore {
 public:
  CollectionStore(Files& files, const Clock& clock, MessageBoxes& boxes, ErrorLog& log,
                  const ProgramFolder& folder, KVO2& settings, Collection& collection)
      : files_(files),
        clock_(clock),
        boxes_(boxes),
        log_(log),
        folder_(folder),
        settings_(settings),
        collection_(collection),
        poster_(settings),
        failures_(log, boxes, settings, [] {}),
        names_(files, folder) {}

  /// Who hears of changes in the records that this brings.
  [[nodiscard]] ChangePoster& poster() { return poster_; }

  /// Fills the settings and the three lists from `fileName`; an empty name means the collection's own name in
  /// the program folder. A file that needs it is brought up to the current layout and
  /// written back; when anything was lost on the way, or it could not be read at all, the old file is kept
  /// beside it with ".old" behind its name, or ".old2" and so on where there is one of that name.
  ReadReport ReadINI(const std::string& fileName, const ReadOptions& options = {});

  /// Writes settings and lists to `folder` + `file` in one durable step, reads the head back and clears
  /// KVO2.IsDirty. False when the file could not be written, and then is what it was before, or when what the
  /// disk gives back of it is no collection. A text
  /// that the format cannot carry is written as near to it as can be: this is told, and what stood there is
  /// kept as by ReadINI.
  bool WriteINI(std::string folder, const std::string& file, bool quiet, LoadWatch* watch = nullptr);

  /// True when [KVO] has "DefaultStartupVid" in row 5.
  bool IsValidCollection(const std::string& fileName);

 private:
  Result<std::string> bytesOf(const std::string& path, const ReadOptions& options);
  bool takeHead(const TextFacts& text);
  void takeAnimations(CollectionReader& reader);
  void takeClips(CollectionReader& reader, const ReadOptions& options, ReadReport& report);
  void takeKeyframes(CollectionReader& reader, const ReadOptions& options, ReadReport& report);
  void tellUnreadable(const ReadReport& report, const std::string& path);
  void tellMissing(std::string_view section);
  Answer askAboutMissing(const Movie& clip);
  void giveMissingKeys();

  void replaceUnreadable(const std::string& fileName, const Error& why);
  void rewrite(const std::string& fileName, const CollectionReader& reader, const ReadReport& report,
               const ReadOptions& options);
  Result<std::string> keepCopy(const std::string& fileName);
  [[nodiscard]] std::string freeCopyName(const std::string& fileName, const std::string& bytes) const;

  Outcome writeBlocks(Replacement& out, const std::string& folder, LoadWatch* watch, std::string_view& step,
                      std::vector<std::string>& changedTexts);
  Result<std::string> keepAhead(const std::string& path, const std::vector<std::string>& changedTexts);
  bool isWritten(const std::string& path, const std::string& given);
  bool failWrite(std::string_view step, std::string_view why, std::string_view told = {});

  Files& files_;
  const Clock& clock_;
  MessageBoxes& boxes_;
  ErrorLog& log_;
  const ProgramFolder& folder_;
  KVO2& settings_;
  Collection& collection_;
  ChangePoster poster_;
  Failures failures_;
  FileNames names_;
};

}  // namespace kvo
