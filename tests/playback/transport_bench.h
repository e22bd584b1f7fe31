// The transport on both engines of playing and on virtual time.
#pragma once

#include "playback/player_bench.h"
#include "playback/transport/transport.h"
#include "support/plain_desktop.h"

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
class PlainTransportHost : public DisplayHost, public TransportHost {
 public:
  PlainTransportHost(Collection& collection, Player& player) : collection_(collection), player_(player) {}
  std::string asked;  // "details2 loaded2 "
  std::string windowCaption;
  std::string spine;
  bool listShown = true;
  bool commandRuns = false;
  bool markHeld = false;
  std::function<void()> paints = [] {};  // the skin
  std::function<void()> remoteNext = [] {};

  void select(int number) override { collection_.icurMov = number; }
  void Displaymovieinfo(int number) override {
    note("details" + std::to_string(number));
    windowCaption = collection_.MovieList[number].MovieName();
  }
  void caption(const std::string& text) override { windowCaption = text; }
  void FadBorder(const std::string& text) override { spine = text; }
  void showList(bool on) override { listShown = on; }
  void NoMoviesinCollection() override {}
  [[nodiscard]] bool busy() const override { return commandRuns; }
  bool startUpVideoEnded() override { return false; }
  void closeClipWindows() override {}
  void SectionToPlay(bool /*keepPosition*/) override {
    auto& clip = collection_.MovieList[collection_.icurMov];
    const double end = clip.LoopEnd().number() > 0 ? clip.LoopEnd().number() : player_.PlayerGetDuration();
    player_.PlayerSetSelectionStart(clip.LoopStart().number());
    player_.PlayerSetSelectionEnd(end);
    if (clip.LoopStart().number() > 0) player_.PlayerSetCurrentPosition(clip.LoopStart().number());
  }
  void clipLoaded() override { note("loaded" + std::to_string(collection_.icurMov)); }
  void showPosition() override {}
  [[nodiscard]] bool markDragged() const override { return markHeld; }
  void endMarkDrag() override { markHeld = false; }
  void keepSpeed(double rate) override { note("speed" + ShortText(rate)); }
  void Lbl_NextMov_Click() override { remoteNext(); }

  void skins() override {
    note("skins");
    paints();
  }
  void ShapeMe() override { note("ShapeMe"); }
  void ShapePlain() override { note("ShapePlain"); }
  void PreviewMovie(int number) override { note("PreviewMovie" + std::to_string(number)); }
  void untickStayOnTop() override { note("untickStayOnTop"); }

 private:
  void note(const std::string& what) { asked += what + " "; }

  Collection& collection_;
  Player& player_;
};

/// The transport on whatever engines.
struct TransportRoom : PlayerRoom {
  PlainDesktop desktop;
  PlainPages pages;
  PlainNetwork network;
  PlainHttp http;
  TransportState state;
  PlainTransportHost host{collection, player};
  Display display{{mode, player, buttons, timers, settings, collection, desktop, boxes, host}};
  Transport transport{{state, mode, player, buttons, display, timers, settings, collection, on.files, boxes,
                       on.loop, desktop, pages, network, http, host}};

  explicit TransportRoom(const On& stage) : PlayerRoom(stage) {
    host.remoteNext = [this] {
      const int next = collection.icurMov + 1;
      if (next <= collection.MovieList.count()) transport.PreviewMovie(next);
    };
    settings.state.ShowFillist = true;
    display.Form_Load(1);
  }

  /// "2 playing": the clip in hand and what the keys say.
  [[nodiscard]] std::string shown() const {
    auto line = std::to_string(collection.icurMov);
    if (mode.player.IsPlaying) line += " playing";
    if (mode.player.IsPaused) line += " paused";
    return line;
  }
};

struct TransportBench : OnFakes<TransportRoom> {
  using OnFakes::add;
  /// A clip whose file plays for `seconds`; what cannot be opened lasts 0.
  Movie& add(const std::string& name, double seconds) {
    return add(name, {.duration = seconds, .opens = seconds > 0});
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
