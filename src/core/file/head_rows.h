// The head of a collection file: the seven preference sections, their rows in file order, and the limits and
// defaults that hold when a value is bad or a section is missing.
#pragma once

#include "base/paths.h"
#include "core/records/settings.h"

#include <span>
#include <string>
#include <string_view>

namespace kvo {

/// What reading a row needs beside its text.
struct HeadRead {
  KVO2& settings;
  const ProgramFolder& folder;
  bool rewrite = false;  ///< set when the file has to be brought up to date
};

struct HeadRow {
  std::string_view key;
  std::string (*text)(const KVO2&);
  void (*take)(HeadRead&, std::string_view);  ///< null for a row that is written and not read back
  bool namesFile = false;                     ///< its bytes count where they name a file or folder
};

struct HeadSection {
  std::string_view name;
  std::span<const HeadRow> rows;
  void (*missing)(
      HeadRead&);  ///< applies what holds without the section; null when every row is read as empty
};

/// [KVO], [User], [Fonts], [Directories], [AudioAnimation], [Prefs], [EditDecisionListPrefs].
std::span<const HeadSection> headSections();

}  // namespace kvo
