// The one table of all fields of KVO2: what a field is called, what it may hold, where it is kept, and how it
// is read from and written to the head of a collection file. Beside it stand the name in the store and the
// default of each user's value (settings.h), and what the limits of a compile are (compile_options.h): a file
// may hold a size of the picture that no compile takes.
#pragma once

#include "base/paths.h"
#include "core/records/settings.h"

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kvo {

enum class SettingKind {
  Boolean,
  Flag,  ///< a whole number that is 0 or -1; its text is that of a Boolean
  Integer,
  Long,
  Single,
  Double,
  Text,
  File,    ///< a name whose bytes count where they name a file
  Folder,  ///< the same, of a folder
  Value,   ///< a number or a text
};

enum class Kept { Collection, User, Nowhere };

/// What a number may be.
struct Range {
  double from = -std::numeric_limits<double>::infinity();
  double to = std::numeric_limits<double>::infinity();
  bool open = false;  ///< without the two ends
  double refused = std::numeric_limits<double>::quiet_NaN();
  std::span<const int> choices{};  ///< nothing else, where there are any

  [[nodiscard]] bool isBelow(double value) const { return open ? value <= from : value < from; }
  [[nodiscard]] bool holds(double value) const;
};

struct SettingRead;

enum class ReadRule {
  Plain,   ///< what does not convert leaves the field as it was
  Text,    ///< a text that is empty or of an unused field becomes `otherwise`
  Strict,  ///< "TRUE" or "FALSE"; all else becomes `otherwise`
  Number,  ///< what is no number or out of the range becomes `otherwise`; what is no value of the field's
           ///< type leaves it as it was
  Fixed,   ///< whatever stands there, the field becomes `otherwise`
  Own,     ///< by `own`
  None,    ///< written and not read
};

/// How the text of a row becomes the field. Defaults are texts as they stand in a file; one that begins with
/// a backslash is a name beside the program, "\" that folder itself. A default that replaces what stands
/// there asks for the file to be brought up to date.
struct RowRead {
  ReadRule rule = ReadRule::Plain;
  std::string_view otherwise{};
  Range range{};
  std::string_view below{};  ///< what is under the range becomes this, not `otherwise`
  std::optional<std::string_view> withoutSection{};  ///< else what a fresh object holds
  bool staysWithoutSection = false;
  void (*own)(SettingRead&, std::string_view) = nullptr;
};

struct SettingRow {
  std::string_view name;  ///< of the field
  SettingKind kind;
  Kept kept;
  bool marks;  ///< writing it marks the collection as changed
  std::string (*text)(const KVO2&);
  /// False, and the field as it was, for a text that does not convert.
  bool (*take)(KVO2&, std::string_view);
  std::string_view key{};  ///< as written, up to and with the blank behind the equals sign; empty for none
  RowRead read{};
  /// Of the user's values that the start reads by the name of their field: what it writes where there is
  /// none, which for two is not the default that others read. Empty for all others.
  std::string_view atStart{};

  [[nodiscard]] bool namesFile() const { return kind == SettingKind::File || kind == SettingKind::Folder; }
};

struct SettingSection {
  std::string_view name;  ///< empty for fields that are in no file
  std::span<const SettingRow> rows;
  bool emptyWithout = true;  ///< a section that is missing is read as if each row were empty
};

/// What reading needs beside the text.
struct SettingRead {
  KVO2& settings;
  const ProgramFolder& folder;
  bool rewrite = false;  ///< set when the file has to be brought up to date
};

/// [KVO], [User], [Fonts], [Directories], [AudioAnimation], [Prefs], [EditDecisionListPrefs], in file order.
/// The order is the format: a reader goes by row number, and new rows are only ever added at a section's end.
/// A file from before that has fewer rows leaves the fields of the others as they were.
std::span<const SettingSection> headSections();

/// Those and, behind them, the fields that are in no file.
std::span<const SettingSection> settingSections();

/// Takes the text of a row into its field by the row's rule.
void readSetting(const SettingRow& row, SettingRead& read, std::string_view text);

/// A number that is out of its row's range becomes what the row has for it.
void holdToRange(const SettingRow& row, KVO2& settings);

/// Gives the fields of a section that the file does not have what holds then.
void readWithoutSection(const SettingSection& section, SettingRead& read);

}  // namespace kvo
