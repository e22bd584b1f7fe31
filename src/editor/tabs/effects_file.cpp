#include "editor/tabs/effects_file.h"

#include "base/text.h"
#include "editor/tabs/keyframe_edits.h"

namespace kvo {
namespace {

constexpr int kWriteTries = 3;
constexpr int kPause = 100;  // milliseconds between two tries

std::string pathOf(const Editing& e) { return e.folder.beside("\\EffectParams.dat"); }

void BuildDefaultEffectsTable(const Editing& e) {
  e.editor.effects = EffectsTable();
  for (int i = 1; i <= kWriteTries; ++i) {
    if (writeDurably(e.files, pathOf(e), e.editor.effects.text(false))) return;
    if (i < kWriteTries) e.clock.pause(kPause);
  }
  e.log.LogError("EffectsDefaultWrite  Err -  - Aborting after 3 Attempts");
}

bool BuildEffectsArray(const Editing& e) {
  const auto bytes = e.files.read(pathOf(e), kMaxTableFile);
  auto& table = e.editor.effects;
  if (bytes && table.read(textFromBytes(*bytes))) return true;
  if (bytes && table.tooManySelected()) {
    e.boxes.show({"KVO - Rebuild Effect table",
                  "KVOErr: IFIMGL004 - Too many Effects in effects palette selected", BoxButtons::Ok,
                  BoxIcon::Warning});
  }
  e.log.LogError("Failed to load Effects data");
  return false;
}

}  // namespace

void LoadEffects(const Editing& e) {
  if (!e.files.exists(pathOf(e))) BuildDefaultEffectsTable(e);
  if (BuildEffectsArray(e)) return;
  e.boxes.show({"KVO - Rebuilding Effect table", "KVOErr: IFIMGL003 - Failed to load Effects - Rebuilding",
                BoxButtons::Ok, BoxIcon::Warning});
  BuildDefaultEffectsTable(e);
  // Where the file cannot be written the defaults stand in memory all the same.
  static_cast<void>(BuildEffectsArray(e));
}

Outcome WriteEffectsArrayToDisk(const Editing& e) {
  return writeDurably(e.files, pathOf(e), e.editor.effects.text(true));
}

const EffectRow* GetEffectParams(const Editing& e, std::string_view name, int& effectNo) {
  if (effectNo == 0 && e.settings.state.KeyframeEffectNo > 0) effectNo = e.settings.state.KeyframeEffectNo;
  const auto* row = e.editor.effects.named(name);
  if (row != nullptr) return effectNo >= kFirstFullRow ? row : nullptr;
  e.log.LogError("GetEffectParams Err - Failed to Find effect - rebuilding Effects table");
  BuildDefaultEffectsTable(e);
  return nullptr;
}

}  // namespace kvo
