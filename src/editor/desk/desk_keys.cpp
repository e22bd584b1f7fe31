// The keys of the clip in hand.
#include "base/paths.h"
#include "core/telling/failures.h"
#include "editor/desk/clip_stats.h"
#include "editor/desk/editor_desk.h"
#include "editor/desk/snapshot.h"
#include "editor/tabs/clip_checks.h"

namespace kvo {

// What it does to the clip is done at the playhead, which stays there.
void EditorDesk::press(ClipKey key) {
  ShowClipStats();
  if (!parts_.state.keys.of(key).empty()) return;
  playhead_.bring();
  carryOut(key);
  playhead_.bringSoon();
}

void EditorDesk::carryOut(ClipKey key) {
  auto& commands = parts_.commands;
  switch (key) {
    case ClipKey::SetIN:
      return doors_.SetMarkIn();
    case ClipKey::SetOUT:
      return doors_.SetMarkOut();
    case ClipKey::ResetIN:
      return resetMark(true);
    case ClipKey::ResetOUT:
      return resetMark(false);
    case ClipKey::Split:
      return static_cast<void>(split());
    case ClipKey::Copy:
      return commands.copy(CopyMode::Exact);
    case ClipKey::CopyEnd:
      return commands.copy(CopyMode::Tail);
    case ClipKey::Equi:
      return commands.copy(CopyMode::EqualChunk);
    case ClipKey::Trimmer:
      doors_.PlayerStop();
      return doors_.Pic_DigNumbers_Click();
    case ClipKey::Name:
      return doors_.mnu_SectionName_Click();
    case ClipKey::AddSnapShot:
      return takeSnapshot();
  }
}

std::string EditorDesk::split() {
  playhead_.follow();
  playhead_.bring();
  return parts_.commands.split(playhead_.inPlayer().value_or(PlayerPlace{}));
}

void EditorDesk::resetMark(bool in) {
  doors_.ShowSliderStuff();
  if (doors_.PlayerGetFileName().empty()) parts_.list.PreviewMovie(parts_.editing.collection.icurMov);
  doors_.resetMark(in);
}

// The frame is decoded beside, and kept when it comes home.
void EditorDesk::takeSnapshot() {
  const auto& inHand = *clip();
  doors_.pausePlaying();
  const auto place = playhead_.inPlayer().value_or(PlayerPlace{});
  auto folder = parts_.editing.settings.preferences().StillSavePath;
  if (folder.empty())
    folder = parts_.editing.folder.beside("\\ExtractedFrames");  // nobody has chosen one yet
  snapshots_.want(
      Snapshot{clipFile(inHand), place.seconds, withSeparator(folder) + snapshotName(inHand, place.frame)});
}

Result<FramePicture> EditorDesk::frameOf(const Snapshot& wish) const {
  auto& streams = parts_.editing.streams;
  const auto facts = streams.facts(wish.clip);
  if (!facts) return facts.error();
  return streams.frame(wish.clip, wish.seconds, facts->width, facts->height);
}

void EditorDesk::keepSnapshot(const Snapshot& wish, const Result<FramePicture>& picture) {
  const auto& e = parts_.editing;
  Outcome kept = picture ? e.files.makeFolder(std::string(folderPart(wish.path))) : Outcome(picture.error());
  if (kept) kept = writeDurably(e.files, wish.path, bitmapFile(*picture));
  if (kept) return doors_.AddMoviesm(wish.path, firstSound(e.collection));
  e.log.LogError(kept.error().text);
  e.boxes.show({std::string(kProductName), kept.error().text, BoxButtons::Ok, BoxIcon::Warning});
}

}  // namespace kvo
