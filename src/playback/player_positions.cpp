// Playing, and where: positions, sections, seeks and rates, in the unit that is in force.
#include "base/text.h"
#include "core/telling/failures.h"
#include "playback/player_facade.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr double kAheadOfEnd = 0.01;         // seconds: what lies behind that is the end
constexpr double kEndTries[] = {0.05, 0.1};  // seconds ahead of an end that an engine refuses
constexpr double kSoundTolerance = 0.01;     // seconds
constexpr double kMicrosecond = 1e-6;        // as precisely as engines tell where they are
constexpr double kTenthsOfSpeed = 10;

bool isMpegByName(const std::string& path) {
  const auto extension = extensionOf(path);
  return extension == "MPG" || extension == "PEG" || extension == "M2V";
}

}  // namespace

void PlayerFacade::GlobalMediaPlay() {
  if (PlayerIsEmpty()) return;
  tellDriven();
  graph_ ? playGraph() : playControl();
  state().IsPlaying = true;
  state().IsPaused = false;
}

void PlayerFacade::playGraph() {
  if (hasPicture()) state().visible = true;
  parts_.host.BuildButton(KeyWord::PlayOn);
  const auto* clip = current();
  const double at = graph_->position();
  if (at == graph_->duration() || at == graph_->stopTime())
    graph_->seek(clip == nullptr ? 0 : clip->LoopStart().number());
  graph_->Run();
}

void PlayerFacade::playControl() {
  auto& control = parts_.control;
  if (parts_.settings.state.KVOIsInEditMode && state().IsPaused) control.step(1);
  const double end = control.selectionEnd() > 0 ? control.selectionEnd() : control.duration();
  if (extensionOf(control.fileName()) == "WAV") {
    if (control.selectionStart() > control.position()) control.seek(control.selectionStart());
    if (end > 0 && end < control.position()) control.seek(end);
  }
  if (end > 0 && control.position() >= end) control.seek(control.selectionStart());
  control.Run();
}

void PlayerFacade::tellDriven() const {
  if (driven_) driven_();
}

void PlayerFacade::PlayerStep(int direction) {
  tellDriven();
  engine().step(direction);
}

void PlayerFacade::PlayerPause() {
  tellDriven();
  engine().Pause();
  state().IsPlaying = false;
}

void PlayerFacade::PlayerStop() {
  tellDriven();
  engine().Stop();
}

void PlayerFacade::PlayerSetAutoRewind(bool on) {
  if (!usingCorona_) parts_.control.setAutoRewind(on);
}

void PlayerFacade::PlayerSetAutoStart(bool on) {
  if (!usingCorona_) parts_.control.setAutoStart(on);
}

void PlayerFacade::mute(bool on) {
  manner_.mute = on;
  parts_.control.setMute(on);
  mannerOfGraph();
}

void PlayerFacade::PlayerMuteON() { mute(true); }
void PlayerFacade::PlayerMuteOFF() { mute(false); }

FrameCount PlayerFacade::frames() const { return graph_ || hasPicture() ? counted_ : FrameCount::ofSound(); }

double PlayerFacade::inUnit(double seconds) const {
  return inFrames() ? frames().framesIn(seconds) : seconds;
}

double PlayerFacade::inSeconds(double position) const {
  return inFrames() ? frames().secondsAt(position) : position;
}

// An engine counts the sound that goes on behind the last picture; the record does not.
double PlayerFacade::PlayerGetDuration() const {
  const double length = engine().duration();
  const auto* clip = clipAt(state().clip);
  const auto recorded = clip == nullptr || !hasPicture() ? std::nullopt : clip->DurationTime().wholeNumber();
  return inUnit(recorded && *recorded > 0 ? std::min(length, *recorded) : length);
}

double PlayerFacade::PlayerGetCurrentPosition() const {
  const double at = engine().position();
  return inFrames() ? frames().frameAt(at) : frames().beginAt(at);
}

SeenFrame PlayerFacade::pictureAt(double seconds) const {
  return {frames().beginAt(seconds), toLongClamped(frames().frameAt(seconds))};
}

void PlayerFacade::PlayerSetCurrentPosition(double position) {
  tellDriven();
  graph_ ? seekGraph(position) : seekControl(position);
}

void PlayerFacade::seekGraph(double position) {
  if (position == 0) return graph_->seek(0);
  const double end = graph_->duration();
  const double exact = inSeconds(position);
  const double nearly = inFrames() ? exact - kAheadOfEnd : exact;
  if (end > 0 && (inFrames() ? nearly >= end : exact > end - kAheadOfEnd))
    return graph_->seek(end - kAheadOfEnd);
  graph_->seek(nearly);
  if (windowless() || place().parked()) return;
  // What is seen is the picture itself, and it stands.
  graph_->Stop();
  graph_->seek(exact);
}

void PlayerFacade::seekControl(double position) {
  auto& control = parts_.control;
  const double to = inSeconds(position);
  control.seek(to);
  if (PlayerGetDuration() != position) {
    control.Stop();
    control.seek(to);
    return;
  }
  double at = to;
  for (const double back : kEndTries) {
    if (shows(at)) return;
    at = std::max(to - back, 0.0);
    control.seek(at);
  }
}

// The engine stands at `seconds`: on the picture that is shown then.
bool PlayerFacade::shows(double seconds) const {
  const double length = hasPicture() && counted_.rate() > 0 ? 1 / counted_.rate() : kSoundTolerance;
  const double behind = seconds - parts_.control.position();
  return behind >= -kMicrosecond && behind <= length + kMicrosecond;
}

double PlayerFacade::PlayerGetSelectionStart() const {
  return inUnit(usingCorona_ ? CoronaSelectionStart_.value_or(0) : parts_.control.selectionStart());
}

void PlayerFacade::PlayerSetSelectionStart(double position) {
  if (usingCorona_) {
    CoronaSelectionStart_ = inSeconds(position);
  } else {
    parts_.control.setSelectionStart(inSeconds(position));
  }
}

double PlayerFacade::PlayerGetSelectionEnd() const {
  if (isDvd()) return PlayerGetDuration();
  if (usingCorona_) return inUnit(CoronaSelectionEnd_.value_or(0));
  const auto* clip = current();
  if (clip == nullptr) return inUnit(parts_.control.selectionEnd());
  return inFrames() ? clip->LoopEndFrames() : clip->LoopEnd().number();
}

void PlayerFacade::PlayerSetSelectionEnd(double position) {
  if (usingCorona_) {
    CoronaSelectionEnd_ = inSeconds(position);
    if (graph_) graph_->setStopTime(*CoronaSelectionEnd_);
    return;
  }
  auto& control = parts_.control;
  auto* clip = current();
  if (clip == nullptr || PlayerGetSelectionStart() >= position) return;
  if (inFrames()) return control.setSelectionEnd(inSeconds(clip->LoopEndFrames()));
  control.setSelectionEnd(position);
  // A record that says so already has not changed.
  if (clip->LoopEnd().number() != position) clip->LoopEnd(Value(position));
}

void PlayerFacade::holdSelectionEnd() {
  const auto* clip = current();
  if (clip == nullptr || usingCorona_ || !inFrames() || clip->LoopEndFrames() <= 0) return;
  if (inUnit(parts_.control.selectionEnd()) > clip->LoopEndFrames())
    PlayerSetSelectionEnd(clip->LoopEndFrames());
}

void PlayerFacade::ResetCoronaPlayerEnd(double seconds) {
  if (graph_ && seconds >= 0) graph_->setStopTime(seconds);
}

bool PlayerFacade::coronaAtStopTime() const { return graph_ && graph_->position() == graph_->stopTime(); }

bool PlayerFacade::PlayerSetRate(double rate) {
  if (!usingCorona_) {
    parts_.control.setRate(rate);
    return true;
  }
  // A graph runs at its own rate, and no other.
  if (rate == engine().rate()) return true;
  if (isMpegByName(CurrentClipPath_) && rate != 1 && parts_.settings.user.MPEGRoutingVMR &&
      !parts_.settings.state.KVOIsInEditMode && parts_.host.rateWindowShows()) {
    parts_.boxes.show({std::string(kProductName),
                       "KVO Cannot make rate changes to MPEG via the VMR\r\n"
                       "Re-start the clip and then make the rate change.",
                       BoxButtons::Ok, BoxIcon::Warning});
  }
  return false;
}

double PlayerFacade::PlayerGetRate() const {
  const auto* clip = current();
  if (isDvd() && clip != nullptr) return static_cast<double>(clip->Playspeed()) / kTenthsOfSpeed;
  return engine().rate();
}

void PlayerFacade::PlayerSetVolume(int hundredths) {
  manner_.volume = hundredths;
  parts_.control.setVolume(hundredths);
  mannerOfGraph();
}

void PlayerFacade::PlayerSetBalance(int balance) {
  manner_.balance = balance;
  parts_.control.setBalance(balance);
  mannerOfGraph();
}

void PlayerFacade::PlayerSetOutputLevel(double factor) {
  manner_.level = factor;
  parts_.control.setOutputLevel(factor);
  mannerOfGraph();
}

void PlayerFacade::PlayerSetShowCaptions(bool on) {
  manner_.captions = on;
  parts_.control.setShowCaptions(on);
  mannerOfGraph();
}

void PlayerFacade::mannerOfGraph() {
  if (!graph_) return;
  graph_->setVolume(manner_.volume);
  graph_->setBalance(manner_.balance);
  graph_->setOutputLevel(manner_.level);
  graph_->setMute(manner_.mute);
  graph_->setShowCaptions(manner_.captions);
}

StreamReport PlayerFacade::streamReport() const {
  const auto& control = parts_.control;
  return {control.opening(), control.bufferingProgress(), control.bandwidth(), control.mediaTitle(),
          control.mediaAuthor()};
}

void PlayerFacade::whenEndOfStream(std::function<void()> heard) {
  parts_.control.whenEndOfStream(std::move(heard));
}

}  // namespace kvo
