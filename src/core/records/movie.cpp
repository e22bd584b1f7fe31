#include "core/records/movie.h"

#include "base/text.h"

namespace kvo {

void Movie::post(Integer code, Integer below) const {
  if (listener_ != nullptr) listener_->postChange(code, below);
}

std::optional<Long> Movie::framesAt(const Value& seconds) const {
  const auto at = seconds.wholeNumber();
  const auto frames = fieldDurationFrames.wholeNumber();
  const auto length = fieldDurationTime.wholeNumber();
  if (!at || !frames || !length || *length == 0) return std::nullopt;
  return toLong(*at * *frames / *length);
}

void Movie::Size(std::string_view text) { size_ = replaced(text, "-", ""); }

Single Movie::Playspeed() const {
  if (playspeed_ == 0) playspeed_ = 10;
  return playspeed_;
}

void Movie::Playspeed(Single tenths) {
  playspeed_ = tenths;
  fieldIsDirty = true;
}

const Value& Movie::Balance() const {
  if (!balance_.isSet()) balance_ = Value(1000);
  return balance_;
}

void Movie::Balance(Value balance) {
  balance_ = std::move(balance);
  fieldIsDirty = true;
}

void Movie::LoopStart(Value seconds) {
  loopStart_ = std::move(seconds);
  fieldIsDirty = true;
  post(1, 96);
  loopStartFrames_ = framesAt(loopStart_).value_or(loopStartFrames_);
}

void Movie::LoopEnd(Value seconds) {
  loopEnd_ = std::move(seconds);
  fieldIsDirty = true;
  post(1, 1);
  loopEndFrames_ = framesAt(loopEnd_).value_or(loopEndFrames_);
  if (listener_ != nullptr) listener_->endOfPlayMoved(*this);
}

Long Movie::LoopStartFrames() const {
  return loopStartFrames_ != 0 ? loopStartFrames_ : framesAt(loopStart_).value_or(0);
}

void Movie::LoopStartFrames(Long frames) {
  loopStartFrames_ = frames;
  fieldIsDirty = true;
  post(96, 96);
}

Long Movie::LoopEndFrames() const {
  if (loopEndFrames_ != 0) return loopEndFrames_;
  const auto frames = fieldDurationFrames.wholeNumber();
  return frames ? toLong(*frames).value_or(0) : 0;
}

void Movie::LoopEndFrames(Long frames) {
  loopEndFrames_ = frames;
  fieldIsDirty = true;
  post(96, 96);
}

Value Movie::ZoomLevel() const { return zoomLevel_.text().empty() ? Value("100%") : zoomLevel_; }

void Movie::ZoomLevel(Value zoom) {
  zoomLevel_ = std::move(zoom);
  fieldIsDirty = true;
}

void Movie::RenderAudio(Boolean render) {
  renderAudio_ = render;
  fieldIsDirty = true;
}

Boolean Movie::HasAudio() const {
  if (!hasAudio_) renderAudio_ = false;
  return hasAudio_;
}

void Movie::AudioOutputLevel(Single level) {
  audioOutputLevel_ = level;
  fieldIsDirty = true;
  post(1, 2);
}

void Movie::TransType(std::string name) {
  transType_ = std::move(name);
  fieldIsDirty = true;
  const auto kind = trimmed(transType_);
  if (!kind.empty() && !sameText(kind, "CUT")) return;
  ExtraParamName1("");
  ExtraParamValue1("");
  ExtraParamName2("");
  ExtraParamValue2("");
}

std::string listedName(const Movie& clip) {
  const auto name = trimmed(clip.AltName());
  return name.empty() ? clip.MovieName() : std::string(name);
}

}  // namespace kvo
