// The transport on both engines of playing and on virtual time.
#pragma once

#include "playback/player_facade.h"
#include "playback/transport/transport.h"
#include "support/fake_engines.h"
#include "support/memory_files.h"
#include "support/named_streams.h"
#include "support/plain_desktop.h"
#include "support/scripted_boxes.h"
#include "support/virtual_loop.h"

#include <map>
#include <string>
#include <vector>

namespace kvo::test {

class PlainPages : public WebPages {
 public:
  bool there = true;
  std::vector<std::string> shown;
  bool show(const std::string& address, bool ahead) override {
    if (there) shown.push_back(address + (ahead ? " ahead" : ""));
    return there;
  }
  void close() override {}
  void whenClosed(std::function<void()> /*heard*/) override {}
};

class PlainNetwork : public Network {
 public:
  bool on = true;
  [[nodiscard]] bool connected() const override { return on; }
};

/// Texts by their addresses, given at once; what is not there is not answered.
class PlainHttp : public Http {
 public:
  std::map<std::string, Result<std::string>> texts;
  void get(const std::string& address, std::size_t most, Heard heard) override {
    const auto found = texts.find(address);
    if (found == texts.end()) return;
    heard(found->second ? Result<std::string>(found->second->substr(0, most)) : found->second);
  }
};

/// The rest of the window, as plain values.
class PlainTransportHost : public DisplayHost, public TransportHost, public PlayerHost {
 public:
  explicit PlainTransportHost(Collection& collection) : collection_(collection) {}
  std::string asked;  // "select2 details2 "
  std::string windowCaption;
  std::string spine;
  bool listShown = true;
  bool commandRuns = false;
  bool markHeld = false;
  std::function<void()> remoteNext = [] {};
  Player* player = nullptr;
  Buttons* buttons = nullptr;

  void select(int number) override { collection_.icurMov = number; }
  void Displaymovieinfo(int number) override { windowCaption = collection_.MovieList[number].MovieName(); }
  void caption(const std::string& text) override { windowCaption = text; }
  void FadBorder(const std::string& text) override { spine = text; }
  void showList(bool on) override { listShown = on; }
  void NoMoviesinCollection() override { asked += "empty "; }
  [[nodiscard]] bool busy() const override { return commandRuns; }
  bool startUpVideoEnded() override { return false; }
  void closeClipWindows() override {}
  void SectionToPlay(bool /*keepPosition*/) override {
    auto& clip = collection_.MovieList[collection_.icurMov];
    const double end = clip.LoopEnd().number() > 0 ? clip.LoopEnd().number() : player->PlayerGetDuration();
    player->PlayerSetSelectionStart(clip.LoopStart().number());
    player->PlayerSetSelectionEnd(end);
    if (clip.LoopStart().number() > 0) player->PlayerSetCurrentPosition(clip.LoopStart().number());
  }
  void clipLoaded() override { asked += "loaded" + std::to_string(collection_.icurMov) + " "; }
  void showPosition() override {}
  [[nodiscard]] bool markDragged() const override { return markHeld; }
  void endMarkDrag() override { markHeld = false; }
  void keepSpeed(double rate) override { asked += "speed" + ShortText(rate) + " "; }
  void Lbl_NextMov_Click() override { remoteNext(); }

  void skins() override {}
  void ShapeMe() override {}
  void ShapePlain() override {}
  void PreviewMovie(int /*number*/) override {}
  void untickStayOnTop() override {}

  void BuildButton(KeyWord word) override { buttons->BuildButton(word); }
  [[nodiscard]] bool rateWindowShows() const override { return false; }

 private:
  Collection& collection_;
};

/// The transport on whatever engines.
struct TransportRoom {
  struct On {
    EventLoop& loop;
    ControlEngine& control;
    FilterGraphs& graphs;
    MediaContents& streams;
    PictureCounts& counts;
    Files& files;
  } on;
  DisplayModeState mode;
  ButtonsState keys;
  KVO2 settings;
  Collection collection;
  NoStreamProbe probe;
  PlainDesktop desktop;
  ScriptedBoxes boxes;
  PlainPages pages;
  PlainNetwork network;
  PlainHttp http;
  TransportState state;
  PlayTimers timers{on.loop};
  PlainTransportHost host{collection};
  PlayerFacade player{
      {mode, collection, settings, on.control, on.graphs, on.streams, on.counts, probe, boxes, host}};
  Buttons buttons{keys, mode, player, timers};
  Display display{{mode, player, buttons, timers, settings, collection, desktop, boxes, host}};
  Transport transport{{state, mode, player, buttons, display, timers, settings, collection, on.files, boxes,
                       on.loop, desktop, pages, network, http, host}};

  explicit TransportRoom(const On& stage) : on(stage) {
    host.player = &player;
    host.buttons = &buttons;
    host.remoteNext = [this] {
      const int next = collection.icurMov + 1;
      if (next <= collection.MovieList.count()) transport.PreviewMovie(next);
    };
    settings.state.ShowFillist = true;
    display.Form_Load(1);
  }
  TransportRoom(const TransportRoom&) = delete;
  TransportRoom& operator=(const TransportRoom&) = delete;

  /// "2 playing": the clip in hand and what the keys say.
  [[nodiscard]] std::string shown() const {
    auto line = std::to_string(collection.icurMov);
    if (mode.player.IsPlaying) line += " playing";
    if (mode.player.IsPaused) line += " paused";
    return line;
  }
};

struct FakeStage {
  VirtualLoop loop;
  FakeFiles media;
  FakeControlEngine control{loop, media};
  FakeFilterGraphs graphs{loop, media};
  NamedStreams streams;
  NamedCounts counts;
  MemoryFiles files;
};

struct TransportBench : FakeStage, TransportRoom {
  TransportBench() : TransportRoom({loop, control, graphs, streams, counts, files}) {}

  /// A clip whose file plays for `seconds`; what cannot be opened lasts 0.
  Movie& add(const std::string& name, double seconds = 10) {
    auto& clip = collection.MovieList.add({});
    const bool address = name.find("://") != std::string::npos;
    clip.MovieName(name);
    clip.Path(address ? "" : "/v/");
    clip.IsStream(address);
    clip.DurationTime(seconds);
    clip.DurationFrames(seconds * 25);
    clip.LoopEnd(seconds);
    clip.MovieWidth(640);
    clip.MovieHeight(480);
    media[clipFile(clip)] = {.duration = seconds, .opens = seconds > 0};
    return clip;
  }

  /// The clips that begin within so many seconds, each with the second of its beginning: "1@0 2@10.5 ".
  std::string beginnings(double seconds) {
    std::string line;
    std::string last;
    for (int ms = 0; ms <= static_cast<int>(seconds * 1000); ms += 100) {
      const bool runs = player.PlayerGetPlayState() == EngineState::Running;
      const auto now = runs ? std::to_string(mode.player.clip) : std::string();
      if (now != last && runs) line += now + "@" + ShortText(ms / 1000.0) + " ";
      last = now;
      loop.advance(100);
    }
    return line;
  }
};

}  // namespace kvo::test
