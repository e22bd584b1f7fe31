#include "program/codec_info.h"

#include "base/holding.h"
#include "base/text.h"
#include "core/telling/failures.h"
#include "program/clip_texts.h"

#include <utility>

namespace kvo {
namespace {

constexpr int kIdleLook = 100;  // milliseconds
constexpr std::size_t kNotesLine = 53;

Box wrongExtensionBox() {
  std::string text = "KVO has identified this movie as a 'Windows Media' format file. ";
  for (const auto* line :
       {"The file has an incorrect '.AVI' extension and should be ",
        "re-named to have a '.WMV' or '.WMA' extension.", "",
        "The file should be removed from the collection ", "and added again after you have re-named it."})
    text.append(kCrLf).append(line);
  return {"Media has an incorrect file extension", std::move(text), BoxButtons::Ok, BoxIcon::Information};
}

}  // namespace

std::string codecNotes(const std::string& notes) {
  const auto first = cutTo(notes, kNotesLine);
  if (first.size() == notes.size()) return notes;
  return std::string(first).append(kCrLf).append(notes, first.size());
}

CodecInfo::CodecInfo(const Parts& parts) : parts_(parts), idle_(parts.loop.timer([this] { ask(); })) {}

void CodecInfo::Displaymovieinfo(int number) {
  if (number < 1 || number > parts_.collection.MovieList.count()) return;
  auto& clip = parts_.collection.MovieList[number];
  if (isAviKind(clip) && clip.VideoCodec().empty()) {
    const auto head = parts_.files.readHead(clipFile(clip), kAviHead);
    const auto codec = head ? codecInHead(*head) : std::string(kUnknownCodec);
    if (codec == kUnknownCodec && head) {
      asked_ = &clip;
      idle_->start(kIdleLook);
    } else {
      clip.VideoCodec(codec);
    }
  }
  parts_.list.renew(number);
  if (number == parts_.collection.icurMov && parts_.window.codec.visible) ShowCodec();
}

// The probe lets events through: while a command runs it has to wait. A record whose clip is not in hand
// stays without a codec, so that it is asked about when the clip is shown again.
void CodecInfo::ask() {
  if (parts_.window.busy() || asking_) return;
  idle_->stop();
  const auto* clip = std::exchange(asked_, nullptr);
  auto& clips = parts_.collection.MovieList;
  const auto inHand = [&] {
    const int number = clips.numberOf(clip);
    return number > 0 && number == parts_.collection.icurMov && clip->VideoCodec().empty() ? number : 0;
  };
  if (inHand() == 0) return;
  const auto found = [&] {
    const Holding asking(asking_);
    return GetAVICompressor({parts_.files, parts_.folder, parts_.probe}, clipFile(*clip));
  }();
  const int number = inHand();
  if (number == 0) return;
  clips[number].VideoCodec(found.codec);
  Displaymovieinfo(number);
  if (found.isWindowsMedia) takeAsWindowsMedia(number);
}

void CodecInfo::takeAsWindowsMedia(int number) {
  auto& player = parts_.player;
  if (parts_.collection.MovieList[number].IsCorona()) {
    player.PlayerStop();
    player.PlayerClear();
    return reload_(number);
  }
  if (parts_.settings.state.KVOIsInEditMode) {
    TimedMessageBox(parts_.boxes, wrongExtensionBox(), 1);
    return;
  }
  parts_.window.face.stayOnTop = false;
  halt_();
  player.PlayerHide();
  player.PlayerClear();
  parts_.boxes.show(wrongExtensionBox());
}

void CodecInfo::ShowCodec() {
  auto& window = parts_.window.codec;
  const int number = parts_.collection.icurMov;
  window.visible = false;
  if (number < 1 || !isAviKind(parts_.collection.MovieList[number])) return;
  const auto& code = parts_.collection.MovieList[number].VideoCodec();
  const auto found = describedCodec(parts_.files, parts_.folder, code);
  window = {true, code, found.developer, found.address, codecNotes(found.notes)};
}

}  // namespace kvo
