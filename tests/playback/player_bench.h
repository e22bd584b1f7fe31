// The player on both fake engines, in virtual time.
#pragma once

#include "playback/player_facade.h"
#include "support/fake_engines.h"
#include "support/named_streams.h"
#include "support/scripted_boxes.h"
#include "support/virtual_loop.h"

#include <functional>
#include <optional>
#include <string>

namespace kvo::test {

class PlainPlayerHost : public PlayerHost {
 public:
  std::string words;  // for keys, in order
  bool rateWindow = false;
  void BuildButton(KeyWord word) override { words += word == KeyWord::PlayOn ? "PLAYON " : "? "; }
  [[nodiscard]] bool rateWindowShows() const override { return rateWindow; }
};

/// Tells what it was given, and nothing by itself.
class ScriptedProbe : public StreamProbe {
 public:
  std::optional<std::string> told;
  int asked = 0;
  std::function<void()> meanwhile = [] {};
  std::optional<std::string> report(const std::string& /*path*/, int /*tries*/) override {
    ++asked;
    meanwhile();
    return told;
  }
};

struct PlayerBench {
  VirtualLoop loop;
  DisplayModeState mode;
  Collection collection;
  KVO2 settings;
  FakeFiles files;
  FakeControlEngine control{loop, files};
  FakeFilterGraphs graphs{loop, files};
  NamedStreams streams;
  NamedCounts counts;
  ScriptedProbe probe;
  ScriptedBoxes boxes;
  PlainPlayerHost playerHost;
  PlayerFacade player{
      {mode, collection, settings, control, graphs, streams, counts, probe, boxes, playerHost}};

  /// A clip of "/v/" whose file is like this, and the one in hand.
  Movie& add(const std::string& name, const FakeFile& file = {}) {
    auto& clip = collection.MovieList.add({});
    clip.MovieName(name);
    clip.Path("/v/");
    clip.DurationTime(Value(file.duration));
    clip.FrameRate(static_cast<Single>(file.rate));
    clip.LoopEnd(Value(file.duration));
    files["/v/" + name] = file;
    streams.all["/v/" + name] = {.hasVideo = file.hasPicture(),
                                 .hasAudio = true,
                                 .width = file.width,
                                 .height = file.height,
                                 .frameRate = file.rate,
                                 .duration = file.duration};
    collection.icurMov = collection.MovieList.count();
    return clip;
  }
  EngineRoute open(int number) {
    collection.icurMov = number;
    return player.PlayerSetFilename(clipFile(collection.MovieList[number]), number);
  }
  Movie& load(const std::string& name, const FakeFile& file = {}) {
    auto& clip = add(name, file);
    open(collection.MovieList.count());
    return clip;
  }
};

}  // namespace kvo::test
