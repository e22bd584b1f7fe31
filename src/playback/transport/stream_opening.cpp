#include "playback/transport/stream_opening.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/telling/failures.h"
#include "core/telling/translated.h"
#include "intake/metafile.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kvo {
namespace {

constexpr int kPoll = 100;       // milliseconds between two looks
constexpr int kLabelEach = 5;    // looks between two changes of the label
constexpr int kMostLooks = 200;  // 20 seconds in which nothing moves
constexpr int kSlow = 17500;     // bits a second
constexpr int kBlinkWraps = 50;  // ticks
constexpr int kBlinks = 11;
constexpr std::size_t kMostOfMetafile = 65536;  // bytes

// This machine is reached without any network.
bool isOnThisMachine(std::string_view address) {
  constexpr std::array<std::string_view, 3> kHere = {"://localhost", "://127.", "://[::1]"};
  return !isAddress(address) ||
         std::ranges::any_of(kHere, [&](std::string_view host) { return holdsText(address, host); });
}

std::string joinedLines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (const auto line : lines) text.append(text.empty() ? "" : kCrLf).append(line);
  return text;
}

// A file that tells of a stream is opened as a file; an address stands in the name alone.
std::string streamName(const Movie& clip) {
  return isAddress(clip.MovieName()) ? clip.MovieName() : clipFile(clip);
}

}  // namespace

StreamOpening::StreamOpening(TransportCore& core, std::function<void(int)> opened)
    : core_(core), opened_(std::move(opened)), poll_(core.loop.timer([this] { tick(); })) {}

void StreamOpening::say(std::string text) {
  core_.state.lbl_Novid = {std::move(text), true, core_.state.lbl_Novid.lit, connects()};
  core_.mode.panels.Pic_NoVid = true;
}

void StreamOpening::ShowStreamWMP(int number) {
  const auto& clip = core_.collection.MovieList[number];
  const auto name = streamName(clip);
  if (!core_.player.PlayerIsEmpty() && name == named_ && core_.player.PlayerGetFileName() == playing_) {
    step_ = Step::Playing;
    core_.player.GlobalMediaPlay();
    core_.button(KeyWord::PlayOn);
    core_.button(KeyWord::PauseOff);
    core_.display.PositionAndSize();
    return;
  }
  core_.state.stopRequested = false;
  core_.emptyPlayer();
  core_.display.PositionAndSize();
  say("Locating Server - Please wait..");
  core_.host.showList(false);
  core_.host.caption(translated("KVO Web Stream"));
  if (!mayConnect(name)) return;
  say("Locating Server....");
  named_ = name;
  number_ = number;
  ticks_ = percent_ = 0;
  step_ = Step::Locating;
  poll_->start(kPoll);
  if (!isAddress(name)) return openFirst(core_.files.readHead(name, kMostOfMetafile));
  if (!isMetafile(name)) return openFirst(std::string());
  core_.http.get(name, kMostOfMetafile, [this, name](const Result<std::string>& text) {
    if (step_ == Step::Locating && name == named_) openFirst(text);
  });
}

// Where a file tells of no others, it is what plays itself.
void StreamOpening::openFirst(const Result<std::string>& metafile) {
  addresses_ = metafile ? metafileAddresses(*metafile) : std::vector<std::string>();
  if (addresses_.empty()) addresses_ = {named_};
  std::ranges::reverse(addresses_);
  openNext();
}

void StreamOpening::openNext() {
  while (!addresses_.empty()) {
    playing_ = std::move(addresses_.back());
    addresses_.pop_back();
    core_.player.PlayerSetAutoStart(false);
    core_.player.PlayerSetFilename(playing_, number_);
    core_.player.GlobalMediaPlay();
    if (core_.player.PlayerIsEmpty()) continue;
    ticks_ = percent_ = 0;
    step_ = Step::Connecting;
    poll_->start(kPoll);
    return tick();
  }
  fail();
}

bool StreamOpening::mayConnect(const std::string& address) {
  if (isOnThisMachine(address) || core_.network.connected()) return true;
  const auto answer = core_.boxes.show(
      {"KVO - No Net Connection",
       "This is an Internet Stream and you are not connected to the Internet - Do you wish to connect ?",
       BoxButtons::YesNo, BoxIcon::Question});
  if (answer == Answer::Yes) {
    say("Dialing...");  // the system connects when it is asked for something
    return true;
  }
  core_.player.PlayerClear();
  backToList();
  return false;
}

void StreamOpening::tick() {
  if (!connects()) return poll_->stop();
  if (core_.state.stopRequested) return abort();
  if (step_ == Step::Locating) {
    if (ticks_++ >= kMostLooks) fail();
    return;
  }
  const auto report = core_.player.streamReport();
  if (report.opening == EngineOpening::Failed || core_.player.PlayerIsEmpty()) return openNext();
  if (report.opening == EngineOpening::Open) return plays();
  wait(report);
}

// As long as it fills it may take its time.
void StreamOpening::wait(const StreamReport& report) {
  const int percent = report.opening == EngineOpening::Buffering ? report.buffered : 0;
  if (std::exchange(percent_, percent) != percent) ticks_ = 0;
  if (ticks_ >= kMostLooks) return openNext();
  if (ticks_++ % kLabelEach != 0) return;
  auto& label = core_.state.lbl_Novid;
  label.lit = !label.lit;
  if (report.opening != EngineOpening::Buffering) return say("Connecting...");
  const bool several = !isAddress(core_.clip()->MovieName());  // a file that tells of one stream or more
  say(translated(several ? "Multi Stream Progress = %1" : "Buffering Progress = %1",
                 {std::to_string(percent)}));
}

void StreamOpening::plays() {
  poll_->stop();
  step_ = Step::Playing;
  core_.player.streamOpened();
  core_.player.GlobalMediaPlay();  // an engine runs nothing that is still on its way
  sliderShown_ = false;
  core_.state.lbl_Novid = {};
  core_.host.showList(true);
  core_.display.PositionAndSize();
  core_.state.stream.Lbl_StreamInfo = true;
  if (core_.player.PlayerGetSourceWidth() == 0) core_.host.caption(translated("KVO5 Web Audio Stream"));
  opened_(core_.icurMov());
}

void StreamOpening::abort() {
  leave();
  core_.emptyPlayer();
  backToList();
  say("Connection aborted");
}

void StreamOpening::fail() {
  leave();
  core_.emptyPlayer();
  core_.button(KeyWord::AllOff);
  backToList();
  core_.boxes.show({std::string(kProductName),
                    joinedLines({"The Clip could not be played.",
                                 "Possible causes are either not being connected to the Internet",
                                 "or a slow internet connection \\ host site. ",
                                 "Additionally, the Clip may no longer exist on the server."}),
                    BoxButtons::Ok, BoxIcon::Warning});
}

void StreamOpening::backToList() {
  core_.state.lbl_Novid = {};
  if (core_.collection.MovieList.empty()) return core_.host.NoMoviesinCollection();
  core_.host.Displaymovieinfo(core_.icurMov());  // the frame of the window says its name again
  core_.host.showList(true);
}

void StreamOpening::leave() {
  poll_->stop();
  step_ = Step::None;
  core_.state.lbl_Novid = {};
  core_.state.stream = {};
}

void StreamOpening::watch() {
  if (step_ != Step::Playing) return;
  const auto report = core_.player.streamReport();
  if (report.opening == EngineOpening::Failed) return fail();
  auto& labels = core_.state.stream;
  const bool fills = report.opening == EngineOpening::Buffering || report.buffered < 100;
  labels.bandwidth =
      report.bandwidth > 0 ? translated("%1 bps", {FormatMask(report.bandwidth, "##")}) : std::string();
  labels.title = report.title + (report.author.empty() ? "" : " - " + report.author);
  labels.progress = fills ? std::to_string(report.buffered) + "%  @ " + std::to_string(report.bandwidth) : "";
  labels.buffer = fills || (report.bandwidth > 0 && report.bandwidth < kSlow);
  blink_ = blink_ >= kBlinkWraps ? 0 : blink_ + 1;
  labels.bufferLit = labels.buffer && blink_ < kBlinks && blink_ % 2 == 1;
  if (!std::exchange(sliderShown_, sliderShown_ || core_.player.PlayerGetDuration() > 0) && sliderShown_)
    core_.display.ShowSliderStuff();
}

}  // namespace kvo
