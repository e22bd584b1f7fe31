// The player on whatever engines, and on both fake ones in virtual time.
#pragma once

#include "playback/buttons.h"
#include "playback/play_timers.h"
#include "playback/player_facade.h"
#include "support/fake_engines.h"
#include "support/memory_files.h"
#include "support/named_streams.h"
#include "support/rows.h"
#include "support/scripted_boxes.h"
#include "support/scripted_probe.h"
#include "support/virtual_loop.h"

#include <functional>
#include <optional>
#include <string>

namespace kvo::test {

class PlainPlayerHost : public PlayerHost {
 public:
  std::function<void(KeyWord)> draws = [](KeyWord /*word*/) {};
  void BuildButton(KeyWord word) override { draws(word); }
  [[nodiscard]] bool rateWindowShows() const override { return false; }
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

struct PlayerRoom {
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
  ScriptedProbe probe;
  ScriptedBoxes boxes;
  PlayTimers timers{on.loop};
  PlainPlayerHost playerHost;
  PlayerFacade player{
      {mode, collection, settings, on.control, on.graphs, on.streams, on.counts, probe, boxes, playerHost}};
  Buttons buttons{keys, mode, player, timers};

  explicit PlayerRoom(const On& stage) : on(stage) {
    playerHost.draws = [this](KeyWord word) { buttons.BuildButton(word); };
  }
  PlayerRoom(const PlayerRoom&) = delete;
  PlayerRoom& operator=(const PlayerRoom&) = delete;

  EngineRoute open(int number) {
    collection.icurMov = number;
    return player.PlayerSetFilename(clipFile(collection.MovieList[number]), number);
  }
};

/// `Room` on the fake engines.
template <class Room>
struct OnFakes : FakeStage, Room {
  OnFakes() : Room({loop, control, graphs, streams, counts, files}) {}

  /// The clip in hand from now on: of "/v/" or of an address, its file like this.
  Movie& add(const std::string& name, const FakeFile& file = {}) {
    auto& clip = this->collection.MovieList.add({});
    this->collection.icurMov = this->collection.MovieList.count();
    const bool address = name.find("://") != std::string::npos;
    clip.MovieName(name);
    clip.Path(address ? "" : "/v/");
    clip.IsStream(address);
    clip.FrameRate(static_cast<Single>(file.rate));
    clip.DurationTime(Value(file.duration));
    clip.DurationFrames(Value(file.duration * file.rate));
    clip.LoopEnd(Value(file.duration));
    clip.MovieWidth(static_cast<Integer>(file.width));
    clip.MovieHeight(static_cast<Integer>(file.height));
    media[clipFile(clip)] = file;
    streams.all[clipFile(clip)] = {.hasVideo = file.hasPicture(),
                                   .hasAudio = true,
                                   .width = file.width,
                                   .height = file.height,
                                   .frameRate = file.rate,
                                   .duration = file.duration};
    return clip;
  }
  Movie& load(const std::string& name, const FakeFile& file = {}) {
    auto& clip = add(name, file);
    this->open(this->collection.icurMov);
    return clip;
  }
};

using PlayerBench = OnFakes<PlayerRoom>;

}  // namespace kvo::test
