// Where the program's own files lie, and the few questions asked of a path text. Texts name a file beside the
// program with a leading backslash ("\Trace.LOG"); the separator written is the platform's.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kvo {

inline constexpr char kSeparator = '/';

/// The folder where a file "beside the program" lies. Its text has no separator at the end.
class ProgramFolder {
 public:
  explicit ProgramFolder(std::string path);

  [[nodiscard]] const std::string& path() const { return path_; }

  /// The path of "\Name" or "Name" in this folder, as the disk spells it where that differs in the case of
  /// letters.
  [[nodiscard]] std::string beside(std::string_view name) const;

 private:
  std::string path_;
};

/// `$KVO5_HOME` if set; else `executableFolder` when it holds KVO5.INI (a portable copy); else KVO5 in
/// `$XDG_DATA_HOME`, by default `~/.local/share`; else, without a home, `executableFolder`. `environment`
/// gives a variable's text, empty when unset.
ProgramFolder findProgramFolder(const std::function<std::string(const char*)>& environment,
                                const std::string& executableFolder);

/// The folder of the running executable, empty when the system does not tell.
std::string executableFolder();

/// The name under which a file or folder stands that differs from `path` in the case of letters alone, or in
/// "\" for "/". `path` itself where there is none.
std::string nameInAnyCase(const std::string& path);

/// The full path of `name`, which begins at `folder` unless it begins at the root or is a web address. Steps
/// up and through "." are taken in what was not full.
std::string absoluteName(std::string_view name, std::string_view folder);

/// The file that holds the film of a DVD, for one of its menus (IFO, BUP): the first VOB of its folder, by
/// the names. `file` itself where there is none, and for any other.
std::string DvdSource(const std::string& file);

/// True for a web address: "://" stands in it behind two characters or more, none of which is a separator.
bool isAddress(std::string_view text);

/// `folder` with one separator at its end; an empty text stays empty.
std::string withSeparator(std::string_view folder);

/// What stands behind the last separator. A web address is a name as a whole.
std::string_view fileNamePart(std::string_view path);

/// What follows the last full stop of the file's name, in capitals; empty where there is none.
std::string wholeExtension(std::string_view path);

/// What stands up to and with the last separator, empty when there is none.
std::string_view folderPart(std::string_view path);

}  // namespace kvo
