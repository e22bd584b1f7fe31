// The display on stand-ins for everything that it asks.
#pragma once

#include "playback/display/display.h"
#include "playback/first_frame_player.h"
#include "support/named_streams.h"
#include "support/plain_desktop.h"
#include "support/scripted_boxes.h"
#include "support/virtual_loop.h"

#include <string>

namespace kvo::test {

class PlainHost : public DisplayHost {
 public:
  std::string asked;    // "skins ShapeMe "
  std::string caption;  // on the spine
  void skins() override { asked += "skins "; }
  void ShapeMe() override { asked += "ShapeMe "; }
  void ShapePlain() override { asked += "ShapePlain "; }
  void FadBorder(const std::string& caption) override { this->caption = caption; }
  void Displaymovieinfo(int number) override { asked += "Displaymovieinfo" + std::to_string(number) + " "; }
  void EnabledMenus() override { asked += "EnabledMenus "; }
  void PreviewMovie(int number) override { asked += "PreviewMovie" + std::to_string(number) + " "; }
  void untickStayOnTop() override { asked += "untickStayOnTop "; }
};

struct DisplayBench {
  DisplayModeState mode;
  ButtonsState keys;
  KVO2 settings;
  Collection collection;
  NamedStreams streams;
  PlainDesktop desktop;
  ScriptedBoxes boxes;
  PlainHost host;
  VirtualLoop loop;
  PlayTimers timers{loop};
  FirstFramePlayer player{mode, collection, streams};
  Buttons buttons{keys, mode, player, timers};
  Display display{{mode, player, buttons, timers, settings, collection, desktop, boxes, host}};

  DisplayBench() {
    settings.state.ShowFillist = true;
    collection.IniFullPath = "/c/Holiday.INI";
    desktop.facts = {1280, 1024, 24, 1};
    display.Form_Load(1);
  }

  /// Adds a clip and loads it, as a choice in the list does.
  Movie& load(const std::string& name, Integer width = 0, Integer height = 0) {
    auto& clip = collection.MovieList.add({});
    clip.MovieName(name);
    clip.Path("/v/");
    clip.MovieWidth(width);
    clip.MovieHeight(height);
    collection.icurMov = collection.MovieList.count();
    show();
    return clip;
  }

  Movie& loadStill(Integer width, Integer height) {
    auto& clip = load("photo.jpg");
    clip.IsStill(true);
    clip.StillW(width);
    clip.StillH(height);
    show();
    return clip;
  }

  void show() {
    const int number = collection.icurMov;
    const auto& clip = collection.MovieList[number];
    player.PlayerSetFilename(clip.Path() + clip.MovieName(), number);
    display.PositionAndSize();
  }
};

}  // namespace kvo::test
