// What both engines do alike: the operations of MediaEngine, carried out by the file in hand. For this room
// only.
#pragma once

#include "adapters/mpv/mpv_stage.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvo {

template <class Port>
class MpvEngine : public Port {
 public:
  explicit MpvEngine(MpvStage& stage) : stage_(stage) {}
  ~MpvEngine() override { stage_.giveBack(std::move(file_)); }

  void Run() override {
    if (!file_) return;
    file_->run();
    standsStill_ = EngineState::Paused;  // where it comes to a stand by itself
  }
  void Pause() override { stand(EngineState::Paused); }
  void Stop() override { stand(EngineState::Stopped); }
  [[nodiscard]] EngineState state() const override {
    return file_ && file_->runs() ? EngineState::Running : standsStill_;
  }

  [[nodiscard]] double position() const override { return file_ ? file_->position() : 0; }
  void seek(double seconds) override {
    if (file_) file_->seek(seconds);
  }
  void step(int direction) override {
    if (!file_) return;
    file_->step(direction);
    standsStill_ = EngineState::Paused;
  }
  [[nodiscard]] double duration() const override { return file_ ? file_->duration() : 0; }
  [[nodiscard]] bool canSeek() const override { return file_ && file_->canSeek(); }
  [[nodiscard]] int sourceWidth() const override { return file_ ? file_->width() : 0; }
  [[nodiscard]] int sourceHeight() const override { return file_ ? file_->height() : 0; }

  [[nodiscard]] double rate() const override { return rate_; }
  void setRate(double rate) override {
    if (rate <= 0) return;
    rate_ = rate;
    if (file_) file_->setRate(rate);
  }
  void setVolume(int hundredths) override {
    sound_.volume = hundredths;
    applySound();
  }
  void setBalance(int balance) override {
    sound_.balance = balance;
    applySound();
  }
  void setMute(bool on) override {
    sound_.mute = on;
    applySound();
  }
  void setOutputLevel(double factor) override {
    sound_.level = factor;
    applySound();
  }

  [[nodiscard]] std::vector<EngineMarker> markers() const override {
    return file_ ? file_->markers() : std::vector<EngineMarker>{};
  }
  [[nodiscard]] std::vector<MediaTrack> tracks() const override {
    return file_ ? file_->tracks() : std::vector<MediaTrack>{};
  }
  void choose(MediaTrack::Kind kind, int id) override {
    if (file_) file_->choose(kind, id);
  }

  void setShowCaptions(bool on) override {
    showsCaptions_ = on;
    if (file_) file_->showCaptions(on);
  }
  void setCaptionFile(const std::string& file) override {
    captionFile_ = file;
    if (file_) file_->setCaptionFile(file);
  }
  [[nodiscard]] std::string captionFile() const override { return captionFile_; }

 protected:
  [[nodiscard]] MpvStage& stage() const { return stage_; }
  [[nodiscard]] MpvFile* file() const { return file_.get(); }
  /// In place of the one before, which is closed; null for none. It is played as this engine was told.
  void hold(std::unique_ptr<MpvFile> file) {
    auto before = std::exchange(file_, std::move(file));
    standsStill_ = EngineState::Stopped;
    if (file_) file_->setRate(rate_);
    applySound();
    captionFile_.clear();
    applyCaptions();
    stage_.giveBack(std::move(before));
  }
  /// Behind an opening that took its time.
  void applyCaptions() {
    if (!file_) return;
    file_->setCaptionFile(captionFile_);
    file_->showCaptions(showsCaptions_);
  }

 private:
  void stand(EngineState state) {
    if (file_) file_->pause();
    standsStill_ = state;
  }
  void applySound() {
    if (file_) file_->setSound(sound_);
  }

  MpvStage& stage_;
  std::unique_ptr<MpvFile> file_;
  EngineState standsStill_ = EngineState::Stopped;  // which of the two, while it does not run
  double rate_ = 1;
  MpvSound sound_;
  bool showsCaptions_ = false;
  std::string captionFile_;
};

}  // namespace kvo
