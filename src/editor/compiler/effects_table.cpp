#include "editor/compiler/effects_table.h"

#include "base/numbers.h"
#include "base/text.h"
#include "vocabulary/effects.h"
#include "vocabulary/palette.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::size_t kColumns = 16;

struct DefaultRow {
  int selected;
  Palette effect;
  std::array<std::string_view, 8> controls;
  std::string_view transparency, foreColor, backColor, extraColor, texture;
};

// clang-format off
constexpr DefaultRow kDefaults[] = {
    {0, Palette::Accents, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::AngledStrokes, {"1", "10", "10", "0", "0", "0", "0", "0"}, "30", "ALICEBLUE", "BEIGE", "GREENYELLOW", ""},
    {1, Palette::BasRelief, {"10", "1", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Mosaic, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::ChalkCharcoal, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Charcoal, {"40", "30", "20", "0", "0", "0", "0", "0"}, "30", "", "", "", ""},
    {1, Palette::Chrome, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::ColoredPencil, {"1", "10", "20", "0", "0", "0", "0", "0"}, "30", "BLUEVIOLET", "SLATEBLUE", "OLIVEDRAB", ""},
    {1, Palette::Craquelure, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Crosshatch, {"3", "10", "3", "0", "0", "0", "0", "0"}, "20", "AQUAMARINE", "LIGHTYELLOW", "DARKGREEN", ""},
    {1, Palette::Cutout, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::DarkStrokes, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::DiffuseGlow, {"1", "10", "3", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::DryBrush, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Emboss, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::FilmGrain, {"4", "0", "10", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::InkOutline, {"12", "3", "4", "14", "15", "16", "17", "18"}, "0", "RED", "BLACK", "VIOLET", ""},
    {1, Palette::NotePaper, {"10", "10", "5", "0", "0", "0", "0", "0"}, "40", "", "", "", ""},
    {1, Palette::Fresco, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::GlowingEdges, {"1", "5", "3", "2", "0", "0", "0", ""}, "40", "AQUA", "BLUE", "VIOLET", ""},
    {1, Palette::Grain, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::HalfTone, {"1", "10", "3", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Patchwork, {"1", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::NeonGlow, {"5", "100", "12", "10", "19", "0", "0", "0"}, "", "", "", "PURPLE", ""},
    {1, Palette::PaintDaubs, {"0", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::PalletteKnife, {"6", "11", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Plaster, {"10", "12", "12", "0", "0", "0", "0", "0"}, "30", "BLACK", "THISTLE", "BEIGE", ""},
    {1, Palette::PlasticWrap, {"20", "4", "16", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::PosterEdges, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Ripple, {"1", "10", "10", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Reticulation, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::SmudgeStick, {"1", "10", "3", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Sponge, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::SpraydStroks, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::Stamp, {"1", "1", "3", "0", "0", "0", "0", "0"}, "10", "", "", "", ""},
    {0, Palette::Photocopy, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Sumie, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::GraphicPen, {"15", "0", "40", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::TornEdges, {"15", "5", "4", "0", "0", "0", "0", "0"}, "", "RED", "GREEN", "BLUE", ""},
    {1, Palette::Watercolor, {"9", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::WaterPaper, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {1, Palette::StainedGlass, {"1", "1", "1", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Glass, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Texturizer, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::Underpainting, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::ConteCrayon, {"0", "0", "0", "0", "0", "0", "0", "0"}, "", "", "", "", ""},
    {0, Palette::RoughPastel, {"2", "3", "4", "1", "2", "2", "6", "0"}, "80", "GREEN", "RED", "BLUE", "VIOLET"},
    {1, Palette::Spatter, {"23", "10", "4", "0", "0", "0", "0", "80"}, "", "", "", "", ""},
};
// clang-format on
static_assert(std::size(kDefaults) == EffectsTable::kRows);

// In the file as it is first written 0 and 1 stand bare, everything else in quotes.
std::string field(std::string_view text, bool quoteAll) {
  return !quoteAll && (text == "0" || text == "1") ? std::string(text) : quoted(text);
}

}  // namespace

EffectsTable::EffectsTable() {
  for (const auto& d : kDefaults) {
    EffectRow row;
    row.selected = d.selected == 1;
    row.number = static_cast<int>(d.effect);
    row.name = kPaletteNames.at(static_cast<std::size_t>(row.number - 1));
    std::copy(d.controls.begin(), d.controls.end(), row.Control.begin());
    row.Transparency = d.transparency;
    row.foreColor = d.foreColor;
    row.backColor = d.backColor;
    row.extraColor = d.extraColor;
    row.texture = d.texture;
    rows_.at(static_cast<std::size_t>(row.number - 1)) = row;
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
    const auto fields = commaFields(nextLine(text));
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
  if (std::any_of(kBuiltInEffects.begin(), kBuiltInEffects.end(), isName)) return false;
  const auto* row = named(name);
  if (row != nullptr) id = row->number;
  return row != nullptr;
}

}  // namespace kvo
