#include "adapters/mpv/mpv_control_engine.h"

#include "base/guarded.h"

#include <utility>

namespace kvo {

void MpvControlEngine::setFileName(const std::string& fileOrAddress) {
  fault_.clear();
  selectionStart_ = selectionEnd_ = 0;
  played_ = 0;
  isOpen_ = false;
  if (fileOrAddress.empty()) return hold(nullptr);
  const auto taken = guarded([&]() -> Outcome {
    hold(stage().take(fileOrAddress));
    return {};
  });
  if (!taken) {
    hold(nullptr);
    fault_ = taken.error().text;
    return;
  }
  file()->hear([this] { sectionEnded(); }, [this] { fileChanged(); });
  const auto* mine = file();
  if (!mine->isAddress()) file()->waitUntilOpen();
  if (file() == mine) fileChanged();
}

EngineOpening MpvControlEngine::opening() const {
  if (file()) return file()->opening();
  return fault_.empty() ? EngineOpening::Closed : EngineOpening::Failed;
}

// The loop may tell of it again, and of more.
void MpvControlEngine::fileChanged() {
  if (file() == nullptr) return;
  if (file()->opening() == EngineOpening::Open && !std::exchange(isOpen_, true)) opened();
  if (file()->opening() == EngineOpening::Failed) {
    fault_ = file()->fault();
    hold(nullptr);
  }
}

void MpvControlEngine::opened() {
  file()->setEnd(selectionEnd_);
  applyCaptions();
  if (autoStart_) Run();
}

void MpvControlEngine::Run() {
  if (played_ >= playCount_) played_ = 0;
  MpvEngine::Run();
}

void MpvControlEngine::sectionEnded() {
  const bool again = ++played_ < playCount_;
  if (again || autoRewind_) seek(selectionStart_);
  if (again) return MpvEngine::Run();
  if (endOfStream_) endOfStream_();
}

void MpvControlEngine::setSelectionEnd(double seconds) {
  selectionEnd_ = seconds;
  if (file()) file()->setEnd(seconds);
}

std::string MpvControlEngine::mediaTitle() const {
  return file() ? file()->told({"title", "icy-title", "icy-name"}) : "";
}

std::string MpvControlEngine::mediaAuthor() const {
  return file() ? file()->told({"artist", "author", "album_artist"}) : "";
}

}  // namespace kvo
