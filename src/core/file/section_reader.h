// Reads sections out of the text of an INI-form file by the platform's formatted-input rule: items end at a
// comma outside quotes or at the line's end, and an item that begins with a double quote is the text between
// the quotes.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// A row of a section. The views live as long as the reader.
struct SectionRow {
  std::string_view key;    ///< trimmed
  std::string_view value;  ///< trimmed, in UTF-8
  /// What stands behind "= " as it is in the file: to the end of its line, not trimmed, in whatever encoding.
  std::string_view bytes;
};

class SectionReader {
 public:
  /// `bytes` as they stand in the file: each line that is no UTF-8 is read as Windows-1252.
  explicit SectionReader(std::string bytes);
  SectionReader(const SectionReader&) = delete;
  SectionReader& operator=(const SectionReader&) = delete;

  /// Fills `rows` with the section `name` (no brackets); true when there was at least one row. A `keepOpen`
  /// of 1 or more goes on from where the last such call stopped and ends at the known last rows of clip
  /// sections; 0 searches from the top and forgets the place.
  bool GetSection(std::string_view name, std::vector<SectionRow>& rows, int keepOpen);

  /// How many headings of the form [before + number + behind] the file holds.
  [[nodiscard]] int countSections(std::string_view before, std::string_view behind = {}) const;

  /// True when a section that was read held text which made no row: behind a comma, or behind a bracket that
  /// ended it early.
  [[nodiscard]] bool droppedText() const { return droppedText_; }

 private:
  struct Item {
    std::string_view text;
    std::string_view toLineEnd;  // not trimmed at its end
    bool isEmptyLine = false;
    bool isRest = false;  // another item stood ahead of it in its line
  };
  bool nextItem(Item& item);
  std::string_view inUtf8(std::string_view text);

  std::string text_;
  bool isUtf8_ = true;
  std::deque<std::string> decoded_;  // values of lines that are no UTF-8
  std::size_t at_ = 0;
  std::size_t lineFeed_ = 0;  // the end of the current line, while there is more of it
  bool open_ = false;
  bool insideLine_ = false;  // items of the current line were read already
  bool droppedText_ = false;
};

}  // namespace kvo
