// Both engines of playing on virtual time: files with given lengths, rates, sizes and refusals. A position
// runs with the loop's time and is told as engines tell it, by the picture that is shown.
#pragma once

#include "ports/control_engine.h"
#include "ports/event_loop.h"
#include "ports/filter_graph.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvo::test {

/// What the engines find in a file or at an address.
struct FakeFile {
  double duration = 10;  ///< seconds; 0 has no end
  double rate = 25;      ///< pictures a second; 0: sound alone
  int width = 640;       ///< pixels; of no use without pictures
  int height = 480;
  bool seekable = true;
  bool opens = true;       ///< false: no engine takes it
  bool graphOpens = true;  ///< false: only the control engine does
  double furthest = -1;    ///< a seek behind this place ends here; below 0: no such place
  std::vector<MediaTrack> tracks{};
  std::vector<EngineMarker> markers{};

  [[nodiscard]] bool hasPicture() const { return rate > 0; }
};

/// By full path or address.
using FakeFiles = std::map<std::string, FakeFile>;

/// What both have in common.
template <class Port>
class FakeEngine : public Port {
 public:
  std::vector<double> seeks;  ///< each place that was asked for, seconds
  std::string calls;          ///< "Run Pause Stop step+1 step-1 ", in order
  int volume = 0;
  int balance = 0;
  bool mute = false;
  double outputLevel = 1;

  explicit FakeEngine(EventLoop& loop) : loop_(loop), arrival_(loop.timer([this] { arrive(); })) {}

  void Run() override {
    calls += "Run ";
    if (!open() || state_ == EngineState::Running || (hasEnd() && place() >= end())) return;
    stand();
    state_ = EngineState::Running;
    arm();
  }
  void Pause() override { halt("Pause ", EngineState::Paused); }
  void Stop() override { halt("Stop ", EngineState::Stopped); }
  [[nodiscard]] EngineState state() const override { return state_; }

  [[nodiscard]] double position() const override {
    const double at = place();
    if (cameToEnd_ || !file_.hasPicture()) return at;
    return std::max(shown(at), 0.0) / file_.rate;
  }
  void seek(double seconds) override {
    seeks.push_back(seconds);
    if (!open() || !file_.seekable) return;
    double to = std::max(seconds, 0.0);
    if (file_.duration > 0) to = std::min(to, file_.duration);
    if (file_.furthest >= 0) to = std::min(to, file_.furthest);
    goTo(to);
  }
  void step(int direction) override {
    halt(direction > 0 ? "step+1 " : "step-1 ", EngineState::Paused);
    if (!open() || !file_.hasPicture()) return;
    const double last = std::max(std::ceil((file_.duration - kNearly) * file_.rate) - 1, 0.0);
    goTo(std::clamp(std::min(shown(place()), last) + direction, 0.0, last) / file_.rate);
  }
  /// Its time to the end has gone by at once.
  void comeToEnd() { arrive(); }
  [[nodiscard]] double duration() const override { return open() ? file_.duration : 0; }
  [[nodiscard]] bool canSeek() const override { return open() && file_.seekable; }
  [[nodiscard]] int sourceWidth() const override { return open() && file_.hasPicture() ? file_.width : 0; }
  [[nodiscard]] int sourceHeight() const override { return open() && file_.hasPicture() ? file_.height : 0; }
  [[nodiscard]] double rate() const override { return speed_; }
  void setRate(double rate) override {
    stand();
    speed_ = rate;
    arm();
  }
  void setVolume(int hundredths) override { volume = hundredths; }
  void setBalance(int where) override { balance = where; }
  void setMute(bool on) override { mute = on; }
  void setOutputLevel(double factor) override { outputLevel = factor; }
  [[nodiscard]] std::vector<EngineMarker> markers() const override {
    return open() ? file_.markers : std::vector<EngineMarker>{};
  }
  [[nodiscard]] std::vector<MediaTrack> tracks() const override {
    return open() ? file_.tracks : std::vector<MediaTrack>{};
  }
  void choose(MediaTrack::Kind kind, int id) override {
    for (auto& track : file_.tracks) {
      if (track.kind == kind) track.chosen = track.id == id;
    }
  }
  void setShowCaptions(bool /*on*/) override {}
  void setCaptionFile(const std::string& file) override { captionFile_ = file; }
  [[nodiscard]] std::string captionFile() const override { return captionFile_; }

 protected:
  [[nodiscard]] virtual bool open() const = 0;
  /// Where it comes to a stand by itself, seconds.
  [[nodiscard]] virtual double end() const = 0;
  /// It has come there, and stands.
  virtual void ended() = 0;

  /// Takes a file in hand, at its first picture.
  void take(const FakeFile& file) {
    file_ = file;
    captionFile_.clear();
    state_ = EngineState::Stopped;
    speed_ = 1;
    goTo(0);
  }
  [[nodiscard]] const FakeFile& file() const { return file_; }
  /// Stands, or runs on, from another place.
  void goTo(double seconds) {
    from_ = seconds;
    since_ = loop_.now();
    cameToEnd_ = false;
    arm();
  }
  /// The end, or the rate, is another.
  void moveEnd(const std::function<void()>& change) {
    stand();
    change();
    arm();
  }

 private:
  static constexpr double kNearly = 0.00075;  // seconds: a picture that begins so little later is meant

  [[nodiscard]] bool hasEnd() const { return end() > 0; }
  [[nodiscard]] double shown(double seconds) const { return std::floor((seconds + kNearly) * file_.rate); }
  [[nodiscard]] double place() const {
    if (state_ != EngineState::Running) return from_;
    const double gone = std::chrono::duration<double>(loop_.now() - since_).count() * speed_;
    return hasEnd() ? std::min(from_ + gone, std::max(end(), from_)) : from_ + gone;
  }
  void stand() {
    from_ = place();
    since_ = loop_.now();
  }
  void arm() {
    arrival_->stop();
    if (state_ != EngineState::Running || !hasEnd() || speed_ <= 0) return;
    const double seconds = (end() - from_) / speed_;
    arrival_->start(std::max(static_cast<int>(std::lround(seconds * 1000)), 1));
  }
  void arrive() {
    from_ = end();
    cameToEnd_ = true;
    state_ = EngineState::Stopped;
    arrival_->stop();
    ended();
  }
  void halt(const char* call, EngineState how) {
    calls += call;
    stand();
    if (open()) state_ = how;
    arm();
  }

  EventLoop& loop_;
  FakeFile file_;
  std::string captionFile_;
  EngineState state_ = EngineState::Stopped;
  double speed_ = 1;
  double from_ = 0;  // seconds of the file, as it was at `since_`
  std::chrono::milliseconds since_{0};
  bool cameToEnd_ = false;
  std::unique_ptr<Timer> arrival_;
};

class FakeControlEngine : public FakeEngine<ControlEngine> {
 public:
  [[nodiscard]] StreamDetails streamDetails() const override { return details; }

  int playCount = 1;
  bool autoRewind = false;
  bool autoStart = false;
  int buffered = 100;  ///< per cent
  int bits = 0;        ///< a second
  StreamDetails details;
  std::vector<std::pair<std::string, double>> openedAhead;  ///< file and place

  /// `files` outlive the engine, and may change.
  FakeControlEngine(EventLoop& loop, const FakeFiles& files) : FakeEngine(loop), files_(files) {}

  /// An address stays on its way until opens() is called.
  void setFileName(const std::string& fileOrAddress) override {
    opening_ = EngineOpening::Closed;
    name_.clear();
    error_.clear();
    start_ = end_ = 0;
    played_ = 0;
    take({});
    if (fileOrAddress.empty()) return;
    const auto found = files_.find(fileOrAddress);
    if (found == files_.end() || !found->second.opens) {
      opening_ = EngineOpening::Failed;
      error_ = "cannot open " + fileOrAddress + ": it is damaged";
      return;
    }
    name_ = fileOrAddress;
    const bool address = name_.find("://") != std::string::npos;
    opening_ = address ? EngineOpening::Connecting : EngineOpening::Open;
    take(found->second);
    if (autoStart) Run();
  }
  [[nodiscard]] std::string fileName() const override { return name_; }
  void openAhead(const std::string& file, double seconds) override {
    openedAhead.emplace_back(file, seconds);
  }

  /// How far an address is from now on; a failure empties the engine.
  void opens(EngineOpening how, int perCent = 100, const std::string& why = {}) {
    opening_ = how;
    buffered = perCent;
    error_ = why;
    if (how == EngineOpening::Failed) name_.clear();
  }
  [[nodiscard]] EngineOpening opening() const override { return opening_; }
  [[nodiscard]] int bufferingProgress() const override { return buffered; }
  [[nodiscard]] std::string errorDescription() const override { return error_; }

  void setSelectionStart(double seconds) override { start_ = seconds; }
  [[nodiscard]] double selectionStart() const override { return start_; }
  void setSelectionEnd(double seconds) override {
    moveEnd([&] { end_ = seconds; });
  }
  [[nodiscard]] double selectionEnd() const override { return end_; }

  void setPlayCount(int times) override { playCount = times; }
  void setAutoRewind(bool on) override { autoRewind = on; }
  void setAutoStart(bool on) override { autoStart = on; }
  [[nodiscard]] std::string mediaTitle() const override { return {}; }
  [[nodiscard]] std::string mediaAuthor() const override { return {}; }
  [[nodiscard]] int bandwidth() const override { return bits; }
  void whenEndOfStream(std::function<void()> heard) override { endHeard_ = std::move(heard); }

 private:
  [[nodiscard]] bool open() const override { return opening_ == EngineOpening::Open; }
  [[nodiscard]] double end() const override { return end_ > 0 ? end_ : file().duration; }
  void ended() override {
    if (++played_ < playCount) {
      goTo(start_);
      return Run();
    }
    played_ = 0;
    if (autoRewind) goTo(start_);
    if (endHeard_) endHeard_();
  }

  const FakeFiles& files_;
  std::string name_;
  EngineOpening opening_ = EngineOpening::Closed;
  std::string error_;
  double start_ = 0;
  double end_ = 0;
  int played_ = 0;  // times of playCount
  std::function<void()> endHeard_;
};

class FakeGraph : public FakeEngine<FilterGraph> {
 public:
  /// `inHand`, which outlives the graph, is null again once it has been thrown away.
  FakeGraph(EventLoop& loop, const FakeFile& file, FakeGraph*& inHand) : FakeEngine(loop), inHand_(inHand) {
    take(file);
    stopTime_ = file.duration;
    inHand_ = this;
  }
  ~FakeGraph() override {
    if (inHand_ == this) inHand_ = nullptr;
  }
  [[nodiscard]] double stopTime() const override { return stopTime_; }
  void setStopTime(double seconds) override {
    moveEnd([&] { stopTime_ = seconds; });
  }
  void whenAtStopTime(std::function<void()> heard) override { heard_ = std::move(heard); }

 private:
  [[nodiscard]] bool open() const override { return true; }
  [[nodiscard]] double end() const override { return stopTime_; }
  void ended() override {
    if (heard_) heard_();
  }

  FakeGraph*& inHand_;
  std::function<void()> heard_;
  double stopTime_ = 0;
};

class FakeFilterGraphs : public FilterGraphs {
 public:
  FakeGraph* graph = nullptr;  ///< the one that was made last, while it is there
  int made = 0;
  std::function<void()> whileOpening = [] {};               ///< what the loop brings meanwhile, once
  std::vector<std::pair<std::string, double>> openedAhead;  ///< file and place

  /// `files` outlive the graphs, and may change.
  FakeFilterGraphs(EventLoop& loop, const FakeFiles& files) : loop_(loop), files_(files) {}

  Result<std::unique_ptr<FilterGraph>> RenderFile(const std::string& file) override {
    std::exchange(whileOpening, [] {})();
    const auto found = files_.find(file);
    if (found == files_.end() || !found->second.opens || !found->second.graphOpens)
      return Error{"cannot open " + file};
    ++made;
    return std::unique_ptr<FilterGraph>(std::make_unique<FakeGraph>(loop_, found->second, graph));
  }
  void openAhead(const std::string& file, double seconds) override {
    openedAhead.emplace_back(file, seconds);
  }

 private:
  EventLoop& loop_;
  const FakeFiles& files_;
};

}  // namespace kvo::test
