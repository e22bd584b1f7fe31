// What the names in a collection mean on this disk: a name is bytes, and a collection may hold them in an
// encoding that its reader turned into another.
#pragma once

#include "core/file/collection_text.h"
#include "ports/files.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace kvo {

class FileNames {
 public:
  FileNames(const Files& files, const ProgramFolder& folder) : files_(files), folder_(folder) {}

  /// Where a folder that begins with "./" begins: the folder of the collection that is read, with a separator
  /// at its end.
  void begin(std::string collectionFolder) {
    collectionFolder_ = std::move(collectionFolder);
    filesOf_.clear();
    pathsBelow_.clear();
  }
  [[nodiscard]] std::string placeOf(std::string_view folder) const;

  /// A row's text, or its bytes where it is no UTF-8 and they name something that is there.
  [[nodiscard]] std::string_view headText(const SettingRow& row, const SectionRow& read) const;

  /// True, with `folder` and `name` as the disk knows them, when one of the meanings of their rows is a file,
  /// or the name is what a collection could carry of a file's that is there.
  bool find(std::string& folder, std::string& name, const SectionRow& folderRow, const SectionRow& nameRow);

  /// True for a clip whose file is there, or that has none.
  bool findClip(ParsedClip& parsed);

  /// The files beside the clip's own: what an overlay is made of, and the mask.
  void findOthers(ParsedClip& parsed);

  /// A name with its folder, in the meaning that is a file where there is one.
  [[nodiscard]] std::string whole(const SectionRow& row) const;

 private:
  [[nodiscard]] std::string nameAlike(const std::string& folder, std::string_view name);
  [[nodiscard]] std::string pathAlike(const std::string& path);

  const Files& files_;
  const ProgramFolder& folder_;
  std::string collectionFolder_;
  std::map<std::string, std::map<std::string, std::string>>
      filesOf_;  // of folders: by what is carried of them
  std::map<std::string, std::map<std::string, std::string>> pathsBelow_;  // likewise, with their folders
};

}  // namespace kvo
