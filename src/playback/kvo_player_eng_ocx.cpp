#include "playback/kvo_player_eng_ocx.h"

#include "base/numbers.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr int kTick = 100;  // milliseconds
constexpr double kHundredths = 100;

// As wide as the box; in the middle of its height where the picture keeps its shape.
PreviewPlace placeInBox(const PreviewBoxState& box, int sourceWidth, int sourceHeight) {
  PreviewPlace place{0, 0, box.Picture1Width, box.Picture1Height};
  if (!box.keepsAspect || sourceWidth <= 0) return place;
  place.height =
      static_cast<int>(RoundToWhole(static_cast<double>(place.width) * sourceHeight / sourceWidth));
  place.top = (box.Picture1Height - place.height) / 2;
  return place;
}

}  // namespace

KVOPlayerEngOcX::KVOPlayerEngOcX(PreviewBoxState& box, FilterGraphs& graphs, EventLoop& loop)
    : box_(box), graphs_(graphs), Timer1_(loop.timer([this] { tick(); })) {}

std::string KVOPlayerEngOcX::ConvertTime(double seconds) {
  const auto whole = std::floor(std::max(seconds, 0.0));
  const auto field = [](double number) { return FormatMask(number, "00"); };
  return field(std::floor(whole / 3600)) + ":" + field(std::fmod(std::floor(whole / 60), 60)) + ":" +
         field(std::fmod(whole, 60));
}

void KVOPlayerEngOcX::SetFileToPlay(const std::string& path) {
  Timer1_->stop();
  graph_.reset();
  path_ = path;
  position_ = duration_ = 0;
  box_.picture = {};
  box_.fullScreen = false;
}

bool KVOPlayerEngOcX::open() {
  graph_.reset();
  auto graph = graphs_.RenderFile(path_);
  if (!graph) return false;
  graph_ = std::move(*graph);
  graph_->setVolume(volume_);
  graph_->setBalance(balance_);
  graph_->setRate(1);
  box_.picture = placeInBox(box_, graph_->sourceWidth(), graph_->sourceHeight());
  duration_ = std::round(graph_->duration() * kHundredths) / kHundredths;
  return true;
}

void KVOPlayerEngOcX::ShowPreview() {
  if (graph_ || open()) graph_->seek(position_);
}

void KVOPlayerEngOcX::StopVideo() {
  Timer1_->stop();
  if (!graph_) return;
  graph_->Stop();
  position_ = graph_->position();
}

void KVOPlayerEngOcX::PlayVideo(std::optional<double> seconds) {
  if (seconds) position_ = *seconds;
  ShowPreview();
  if (!graph_) return;
  graph_->setRate(rate_ / kHundredths);
  graph_->Run();
  reopenedAt_ = -1;
  Timer1_->start(kTick);
}

void KVOPlayerEngOcX::PlayFullscreen() {
  box_.fullScreen = true;
  PlayVideo();
}

void KVOPlayerEngOcX::SetVolume(int hundredths) {
  volume_ = hundredths;
  if (graph_) graph_->setVolume(hundredths);
}

void KVOPlayerEngOcX::SetBalance(int balance) {
  balance_ = balance;
  if (graph_) graph_->setBalance(balance);
}

void KVOPlayerEngOcX::tick() {
  if (graph_->state() == EngineState::Running) {
    position_ = graph_->position();
    if (VideoTime) VideoTime(position_, duration_);
    return;
  }
  position_ = std::max(position_, graph_->position());
  if (std::floor(position_) + 1 >= std::floor(duration_)) return finish();
  // It has broken off: once more from there, unless it does so at the same place again.
  if (position_ <= reopenedAt_ || !open()) return finish();
  reopenedAt_ = position_;
  graph_->seek(position_);
  graph_->setRate(rate_ / kHundredths);
  graph_->Run();
}

void KVOPlayerEngOcX::finish() {
  Timer1_->stop();
  position_ = 0;
  if (VideoFinished) VideoFinished();
}

}  // namespace kvo
