// The table of named effects behind the palette: 48 rows, kept in a file as comma-separated
// text. Just 34 rows are selected; the selected ones are the palette's slots, in their order.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kvo {

struct EffectRow {
  bool selected = false;
  std::string name;
  int number = 0;                      ///< EffectID in the document; the place in the table, from 1
  std::array<std::string, 8> Control;  ///< Control 1 to 8; empty for none
  std::string Transparency;
  std::string foreColor;
  std::string backColor;
  std::string extraColor;
  std::string texture;
};

class EffectsTable {
 public:
  static constexpr int kRows = 48;
  static constexpr int kPaletteSlots = 34;

  /// The default table.
  EffectsTable();

  /// The file's text: 16 fields a line. 0 and 1 stand bare unless `quoteAll`.
  [[nodiscard]] std::string text(bool quoteAll) const;

  /// Takes a file's text. False, and the table as it was, unless it holds 48 rows of which 34 are selected.
  bool read(std::string_view text);

  /// True when the last text read had more rows selected than the palette has slots.
  [[nodiscard]] bool tooManySelected() const { return tooManySelected_; }

  /// The row in palette slot `number`, 1 to 34; null for another number.
  [[nodiscard]] const EffectRow* slot(int number) const;

  /// The row of a name, compared trimmed and in any case; null when there is none.
  [[nodiscard]] EffectRow* named(std::string_view name);
  [[nodiscard]] const EffectRow* named(std::string_view name) const;

  /// Replaces the values of the row of that very name; "None" for a colour or the texture is none. False when
  /// there is no such row.
  bool WriteEffectParamsToArray(const EffectRow& values);

  /// The row's number. False, and 0, for a name that is not in the table and for the seven built-in effects.
  bool GetEffectIDFromName(std::string_view name, int& id) const;

  /// The trimmed name of row `id`, empty beyond the table.
  [[nodiscard]] std::string GetEffectNameFromID(int id) const;

 private:
  std::array<EffectRow, kRows> rows_;
  bool tooManySelected_ = false;
};

}  // namespace kvo
