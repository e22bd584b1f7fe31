#include "editor/compiler/effects_file.h"

#include "base/text.h"
#include "editor/compiler/keyframes.h"

namespace kvo {
namespace {

constexpr std::uint64_t kMaxFile = 1U << 20U;
constexpr int kWriteTries = 3;
constexpr int kPause = 100;  // milliseconds between two tries

std::string pathOf(const Compilation& c) { return c.folder.beside("\\EffectParams.dat"); }

void BuildDefaultEffectsTable(const Compilation& c) {
  c.editor.effects = EffectsTable();
  for (int i = 1; i <= kWriteTries; ++i) {
    if (writeDurably(c.files, pathOf(c), c.editor.effects.text(false))) return;
    if (i < kWriteTries) c.clock.pause(kPause);
  }
  c.log.LogError("EffectsDefaultWrite  Err -  - Aborting after 3 Attempts");
}

bool BuildEffectsArray(const Compilation& c) {
  const auto bytes = c.files.read(pathOf(c), kMaxFile);
  auto& table = c.editor.effects;
  if (bytes && table.read(textFromBytes(*bytes))) return true;
  if (bytes && table.tooManySelected()) {
    c.boxes.show({"KVO - Rebuild Effect table",
                  "KVOErr: IFIMGL004 - Too many Effects in effects palette selected", BoxButtons::Ok,
                  BoxIcon::Warning});
  }
  c.log.LogError("Failed to load Effects data");
  return false;
}

}  // namespace

void LoadEffects(const Compilation& c) {
  if (!c.files.exists(pathOf(c))) BuildDefaultEffectsTable(c);
  if (BuildEffectsArray(c)) return;
  c.boxes.show({"KVO - Rebuilding Effect table", "KVOErr: IFIMGL003 - Failed to load Effects - Rebuilding",
                BoxButtons::Ok, BoxIcon::Warning});
  BuildDefaultEffectsTable(c);
  // Where the file cannot be written the defaults stand in memory all the same.
  static_cast<void>(BuildEffectsArray(c));
}

Outcome WriteEffectsArrayToDisk(const Compilation& c) {
  return writeDurably(c.files, pathOf(c), c.editor.effects.text(true));
}

const EffectRow* GetEffectParams(const Compilation& c, std::string_view name, int& effectNo) {
  if (effectNo == 0 && c.settings.state.KeyframeEffectNo > 0) effectNo = c.settings.state.KeyframeEffectNo;
  const auto* row = c.editor.effects.named(name);
  if (row != nullptr) return effectNo >= kFirstFullRow ? row : nullptr;
  c.log.LogError("GetEffectParams Err - Failed to Find effect - rebuilding Effects table");
  BuildDefaultEffectsTable(c);
  return nullptr;
}

}  // namespace kvo
