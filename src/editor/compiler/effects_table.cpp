#include "editor/compiler/effects_table.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kColumns = 16;

struct DefaultRow {
  int selected;
  std::string_view name;
  std::array<std::string_view, 8> controls;
  std::string_view transparency, foreColor, backColor, extraColor, texture;
};

// clang-format off
constexpr DefaultRow kDefaults[] = {
    {0, "Accents", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Angled Strokes", {"1", "10", "10", "0", "0", "0", "0", "0"}, "30", "ALICEBLUE", "BEIGE", "GREENYELLOW", ""},
    {1, "BasRelief", {"10", "1", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Mosaic", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "ChalkCharcoal", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Charcoal", {"40", "30", "20", "0", "0", "0", "0", "0"}, "30", "", "", "", ""},
    {1, "Chrome", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "ColoredPencil", {"1", "10", "20", "0", "0", "0", "0", "0"}, "30", "BLUEVIOLET", "SLATEBLUE", "OLIVEDRAB", ""},
    {1, "Craquelure", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Crosshatch", {"3", "10", "3", "0", "0", "0", "0", "0"}, "20", "AQUAMARINE", "LIGHTYELLOW", "DARKGREEN", ""},
    {1, "Cutout", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "DarkStrokes", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "DiffuseGlow", {"1", "10", "3", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Dry Brush", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Emboss", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "FilmGrain", {"4", "0", "10", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "InkOutline", {"12", "3", "4", "14", "15", "16", "17", "18"}, "0", "RED", "BLACK", "VIOLET", ""},
    {1, "NotePaper", {"10", "10", "5", "0", "0", "0", "0", "0"}, "40", "", "", "", ""},
    {1, "Fresco", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "GlowingEdges", {"1", "5", "3", "2", "0", "0", "0", ""}, "40", "AQUA", "BLUE", "VIOLET", ""},
    {1, "Grain", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "HalfTone", {"1", "10", "3", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Patchwork", {"1", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Neon Glow", {"5", "100", "12", "10", "19", "0", "0", "0"}, "", "", "", "PURPLE", ""},
    {1, "PaintDaubs", {"0", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "PalletteKnife", {"6", "11", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Plaster", {"10", "12", "12", "0", "0", "0", "0", "0"}, "30", "BLACK", "THISTLE", "BEIGE", ""},
    {1, "PlasticWrap", {"20", "4", "16", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "PosterEdges", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Ripple", {"1", "10", "10", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Reticulation", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "SmudgeStick", {"1", "10", "3", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Sponge", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "SpraydStroks", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "Stamp", {"1", "1", "3", "0", "0", "0", "0", "0"}, "10", "", "", "", ""},
    {0, "Photocopy", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Sumie", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "GraphicPen", {"15", "0", "40", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "TornEdges", {"15", "5", "4", "0", "0", "0", "0", "0"}, "", "RED", "GREEN", "BLUE", ""},
    {1, "Watercolor", {"9", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "WaterPaper", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, "StainedGlass", {"1", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Glass", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Texturizer", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "Underpainting", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "ConteCrayon", {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, "RoughPastel", {"2", "3", "4", "1", "2", "2", "6", "0"}, "80", "GREEN", "RED", "BLUE", "VIOLET"},
    {1, "Spatter", {"23", "10", "4", "0", "0", "0", "0", "80"}, "", "", "", "", ""},
};
// clang-format on
static_assert(std::size(kDefaults) == EffectsTable::kRows);

// In the file as it is first written 0 and 1 stand bare, everything else in quotes.
std::string field(std::string_view text, bool quoteAll) {
  return !quoteAll && (text == "0" || text == "1") ? std::string(text) : quoted(text);
}

// The fields of a line, apart at commas; a field in quotes keeps the commas in it.
std::vector<std::string> fieldsOf(std::string_view line) {
  std::vector<std::string> fields;
  bool more = true;
  while (more) {
    line = line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
    std::size_t end = 0;
    if (line.starts_with('"')) {
      const auto close = std::min(line.find('"', 1), line.size());
      fields.emplace_back(line.substr(1, close - 1));
      end = std::min(line.find(',', close), line.size());
    } else {
      end = std::min(line.find(','), line.size());
      fields.emplace_back(trimmed(line.substr(0, end)));
    }
    more = end < line.size();
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return fields;
}

std::string_view nextLine(std::string_view& text) {
  const auto end = std::min(text.find('\n'), text.size());
  auto line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

constexpr std::string_view kBuiltIn[] = {"Mirror",    "Invert",  "Flip Vertical", "X-Ray",
                                         "Grayscale", "Engrave", "Emboss"};

}  // namespace

EffectsTable::EffectsTable() {
  int number = 0;
  for (const auto& d : kDefaults) {
    EffectRow row;
    row.selected = d.selected == 1;
    row.name = d.name;
    row.number = ++number;
    std::copy(d.controls.begin(), d.controls.end(), row.Control.begin());
    row.Transparency = d.transparency;
    row.foreColor = d.foreColor;
    row.backColor = d.backColor;
    row.extraColor = d.extraColor;
    row.texture = d.texture;
    rows_[static_cast<std::size_t>(number - 1)] = std::move(row);
  }
}

std::string EffectsTable::text(bool quoteAll) const {
  std::string out;
  for (const auto& row : rows_) {
    out += field(row.selected ? "1" : "0", quoteAll) + "," + quoted(row.name) + "," +
           field(std::to_string(row.number), quoteAll);
    for (const auto& control : row.Control) out += "," + field(control, quoteAll);
    for (const auto* text :
         {&row.Transparency, &row.foreColor, &row.backColor, &row.extraColor, &row.texture}) {
      out += "," + field(*text, quoteAll);
    }
    out += kCrLf;
  }
  return out;
}

bool EffectsTable::read(std::string_view text) {
  std::array<EffectRow, kRows> rows;
  int number = 0;
  int selected = 0;
  for (auto& row : rows) {
    const auto fields = fieldsOf(nextLine(text));
    if (fields.size() != kColumns) return false;
    row.selected = fields[0] == "1";
    row.name = fields[1];
    row.number = ++number;
    std::copy_n(fields.begin() + 3, 8, row.Control.begin());
    row.Transparency = fields[11];
    row.foreColor = fields[12];
    row.backColor = fields[13];
    row.extraColor = fields[14];
    row.texture = fields[15];
    selected += row.selected ? 1 : 0;
  }
  tooManySelected_ = selected > kPaletteSlots;
  if (selected != kPaletteSlots) return false;
  rows_ = std::move(rows);
  return true;
}

const EffectRow* EffectsTable::slot(int number) const {
  for (const auto& row : rows_) {
    if (row.selected && --number == 0) return &row;
  }
  return nullptr;
}

EffectRow* EffectsTable::named(std::string_view name) {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const auto& row) {
    return sameText(trimmed(row.name), trimmed(name));
  });
  return found == rows_.end() ? nullptr : &*found;
}

const EffectRow* EffectsTable::named(std::string_view name) const {
  return const_cast<EffectsTable*>(this)->named(name);  // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

bool EffectsTable::WriteEffectParamsToArray(const EffectRow& values) {
  const auto found =
      std::find_if(rows_.begin(), rows_.end(), [&](const auto& row) { return row.name == values.name; });
  if (found == rows_.end()) return false;
  const auto noneAsEmpty = [](const std::string& text) { return text == "None" ? std::string() : text; };
  found->Control = values.Control;
  found->Transparency = values.Transparency;
  found->foreColor = noneAsEmpty(values.foreColor);
  found->backColor = noneAsEmpty(values.backColor);
  found->extraColor = noneAsEmpty(values.extraColor);
  found->texture = noneAsEmpty(values.texture);
  return true;
}

std::string EffectsTable::GetEffectNameFromID(int id) const {
  return id >= 1 && id <= kRows ? std::string(trimmed(rows_[static_cast<std::size_t>(id - 1)].name))
                                : std::string();
}

bool EffectsTable::GetEffectIDFromName(std::string_view name, int& id) const {
  id = 0;
  const auto isName = [&](std::string_view builtIn) { return sameText(builtIn, trimmed(name)); };
  if (std::any_of(std::begin(kBuiltIn), std::end(kBuiltIn), isName)) return false;
  const auto* row = named(name);
  if (row != nullptr) id = row->number;
  return row != nullptr;
}

}  // namespace kvo
