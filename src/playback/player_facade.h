// The player over its two engines: one that lives as long as the window and plays by properties, and a graph
// that is made for a clip and thrown away. Each clip is routed to one of them; what the two understand
// differently of positions, sections, speed and frames has one meaning here.
#pragma once

#include "core/records/collection.h"
#include "playback/clip_kinds.h"
#include "playback/display/display_mode_state.h"
#include "playback/frame_count.h"
#include "playback/key_words.h"
#include "playback/player.h"
#include "playback/routing.h"
#include "ports/control_engine.h"
#include "ports/filter_graph.h"
#include "ports/media_contents.h"
#include "ports/message_boxes.h"
#include "ports/picture_counts.h"
#include "ports/stream_probe.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvo {

/// What playing asks of the rest of the main window.
class PlayerHost {
 public:
  PlayerHost() = default;
  PlayerHost(const PlayerHost&) = delete;
  PlayerHost& operator=(const PlayerHost&) = delete;
  virtual ~PlayerHost() = default;

  /// Shows the keys by their word.
  virtual void BuildButton(KeyWord word) = 0;
  /// The window of the rate is on the screen.
  [[nodiscard]] virtual bool rateWindowShows() const = 0;
};

class PlayerFacade : public Player {
 public:
  struct Parts {
    DisplayModeState& mode;
    Collection& collection;
    const KVO2& settings;
    ControlEngine& control;
    FilterGraphs& graphs;
    MediaContents& streams;
    PictureCounts& counts;
    StreamProbe& probe;
    MessageBoxes& boxes;
    PlayerHost& host;
  };
  /// All outlive the player.
  explicit PlayerFacade(const Parts& parts);

  EngineRoute PlayerSetFilename(const std::string& path, int index) override;
  void streamOpened() override;
  void PlayerClear() override;
  [[nodiscard]] bool PlayerIsEmpty() const override;
  void Med_previewClear() override;
  void CoronaClear() override;
  [[nodiscard]] bool UsingCorona() const override { return usingCorona_; }
  [[nodiscard]] std::string PlayerGetFileName() const override;
  [[nodiscard]] std::string PlayerGetErrorDescription() const override {
    return usingCorona_ ? std::string() : parts_.control.errorDescription();
  }
  void openAhead(int index) override;

  void GlobalMediaPlay() override;
  void PlayerPause() override;
  void PlayerStop() override;
  [[nodiscard]] EngineState PlayerGetPlayState() const override { return engine().state(); }
  void PlayerSetPlayCount(int times) override { parts_.control.setPlayCount(times); }
  void PlayerSetAutoRewind(bool on) override;
  void PlayerSetAutoStart(bool on) override;
  void PlayerSetShowCaptions(bool on) override;
  void PlayerSetCaptionFile(const std::string& file) override { engine().setCaptionFile(file); }
  [[nodiscard]] std::string PlayerGetCaptionFile() const override { return engine().captionFile(); }
  [[nodiscard]] StreamReport streamReport() const override;
  [[nodiscard]] StreamDetails streamDetails() const override {
    return graph_ ? StreamDetails() : parts_.control.streamDetails();
  }
  void PlayerMuteON() override;
  void PlayerMuteOFF() override;

  void PlayerSetDisplayMode(DisplayMode mode) override { CoronaDisplayMode_ = mode; }
  [[nodiscard]] DisplayMode PlayerGetDisplayMode() const override { return CoronaDisplayMode_; }
  [[nodiscard]] double PlayerGetDuration() const override;
  [[nodiscard]] double PlayerGetCurrentPosition() const override;
  [[nodiscard]] SeenFrame pictureAt(double seconds) const override;
  void PlayerSetCurrentPosition(double position) override;
  void PlayerStep(int direction) override;
  [[nodiscard]] double PlayerGetSelectionStart() const override;
  void PlayerSetSelectionStart(double position) override;
  [[nodiscard]] double PlayerGetSelectionEnd() const override;
  void PlayerSetSelectionEnd(double position) override;
  void holdSelectionEnd() override;
  void ResetCoronaPlayerEnd(double seconds) override;
  [[nodiscard]] bool coronaAtStopTime() const override;
  [[nodiscard]] bool canSeek() const override { return engine().canSeek(); }
  double PlayerCoronaGetFrameRate(int index) override;

  bool PlayerSetRate(double rate) override;
  [[nodiscard]] double PlayerGetRate() const override;
  void PlayerSetVolume(int hundredths) override;
  void PlayerSetBalance(int balance) override;
  void PlayerSetOutputLevel(double factor) override;

  void PlayerShow() override;
  void PlayerHide() override;
  void SendPlayerFarLeft() override;
  [[nodiscard]] int PlayerGetSourceWidth() const override;
  [[nodiscard]] int PlayerGetSourceHeight() const override;
  void PlayerSetLeft(Twips left) override;
  void PlayerSetTop(Twips top) override;
  void PlayerSetWidth(Twips width) override;
  void PlayerSetHeight(Twips height) override;
  void PlayerSetDisplaySize(int size) override;
  void PlayerSetFullScreenMode(bool on) override;
  [[nodiscard]] bool PlayerGetFullScreenMode() const override { return parts_.mode.player.fullScreen; }
  [[nodiscard]] std::vector<MediaTrack> PlayerGetTracks() const override { return engine().tracks(); }
  void PlayerChooseTrack(MediaTrack::Kind kind, int id) override { engine().choose(kind, id); }
  [[nodiscard]] std::vector<EngineMarker> PlayerGetMarkers() const override { return engine().markers(); }
  void whenEndOfStream(std::function<void()> heard) override;
  void whenGraphStops(std::function<void()> heard) override { graphStops_ = std::move(heard); }
  void whenDriven(std::function<void()> heard) override { driven_ = std::move(heard); }

 private:
  // What is not of one clip alone: a graph that comes later takes it over.
  struct Manner {
    int volume = 0;
    int balance = 0;
    double level = 1;
    bool mute = false;
    bool captions = false;
  };

  bool openGraph(const std::string& path, const Movie* of);
  void openControl(const std::string& path, const Movie* of);
  void learn(Movie& clip, const std::string& path);
  void showOpened(int index);
  void showSize();
  void takeBegins(const std::string& path, std::vector<double> begins);
  void countMarks(Movie& clip) const;
  void PlayerCoronaSetFrameRate(int index);
  void mannerOfGraph();
  void mute(bool on);
  void playGraph();
  void playControl();
  void tellDriven() const;
  void seekGraph(double position);
  void seekControl(double position);
  [[nodiscard]] bool shows(double seconds) const;

  [[nodiscard]] const MediaEngine& engine() const;
  [[nodiscard]] MediaEngine& engine();
  [[nodiscard]] bool hasPicture() const { return PlayerGetSourceWidth() > 0; }
  [[nodiscard]] bool isDvd() const { return usingCorona_ && isDvdFile(CurrentClipPath_); }
  [[nodiscard]] bool windowless() const { return graph_ && !hasPicture(); }
  [[nodiscard]] bool inFrames() const { return CoronaDisplayMode_ == DisplayMode::Frames; }
  [[nodiscard]] FrameCount frames() const;
  [[nodiscard]] double inUnit(double seconds) const;
  [[nodiscard]] double inSeconds(double position) const;
  [[nodiscard]] Movie* clipAt(int index) const;
  [[nodiscard]] Movie* current() const { return clipAt(parts_.collection.icurMov); }
  [[nodiscard]] PlayerState& state() { return parts_.mode.player; }
  [[nodiscard]] const PlayerState& state() const { return parts_.mode.player; }
  [[nodiscard]] const Place& place() const { return parts_.mode.player.place; }

  Parts parts_;
  bool usingCorona_ = false;
  std::string CurrentClipPath_;
  std::unique_ptr<FilterGraph> graph_;  // none between clips, and while the other engine plays
  FrameCount counted_;                  // the pictures of the clip in hand
  DisplayMode CoronaDisplayMode_ = DisplayMode::Seconds;
  std::optional<double> CoronaSelectionStart_;  // seconds
  std::optional<double> CoronaSelectionEnd_;
  Manner manner_;
  std::function<void()> graphStops_;
  std::function<void()> driven_;
  std::uint64_t loads_ = 0;  // and clears: the last one counts, as opening lets events through
};

}  // namespace kvo
