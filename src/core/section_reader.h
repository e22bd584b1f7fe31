// Reads sections out of the text of an INI-form file by the platform's formatted-input rule: items end at a
// comma outside quotes or at the line's end, and an item that begins with a double quote is the text between
// the quotes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// A row of a section, both sides trimmed. The views live as long as the reader's text.
struct SectionRow {
  std::string_view key;
  std::string_view value;
  std::string_view wholeLine;  ///< as `value`, but on past a comma to the end of the line
};

class SectionReader {
 public:
  explicit SectionReader(std::string text) : text_(std::move(text)) {}
  SectionReader(const SectionReader&) = delete;
  SectionReader& operator=(const SectionReader&) = delete;

  /// Fills `rows` with the section `name` (no brackets); true when there was at least one row. A `keepOpen`
  /// of 1 or more goes on from where the last such call stopped and ends at the known last rows of clip
  /// sections; 0 searches from the top and forgets the place.
  bool GetSection(std::string_view name, std::vector<SectionRow>& rows, int keepOpen);

 private:
  struct Item {
    std::string_view text;
    std::string_view toLineEnd;
    bool isEmptyLine = false;
  };
  bool nextItem(Item& item);

  std::string text_;
  std::size_t at_ = 0;
  bool open_ = false;
  bool insideLine_ = false;  // items of the current line were read already
};

}  // namespace kvo
