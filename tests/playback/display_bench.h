// The display on stand-ins for everything that it asks.
#pragma once

#include "playback/display/display.h"
#include "playback/player_bench.h"
#include "support/plain_desktop.h"

#include <functional>
#include <string>

namespace kvo::test {

class PlainHost : public DisplayHost {
 public:
  std::string asked;    // "skins ShapeMe "
  std::string caption;  // on the spine
  std::function<void()> paints = [] {};
  void skins() override {
    asked += "skins ";
    paints();
  }
  void ShapeMe() override { asked += "ShapeMe "; }
  void ShapePlain() override { asked += "ShapePlain "; }
  void FadBorder(const std::string& caption) override { this->caption = caption; }
  void Displaymovieinfo(int number) override { asked += "Displaymovieinfo" + std::to_string(number) + " "; }
  void PreviewMovie(int number) override { asked += "PreviewMovie" + std::to_string(number) + " "; }
  void untickStayOnTop() override { asked += "untickStayOnTop "; }
};

struct DisplayBench : PlayerBench {
  ButtonsState keys;
  PlainDesktop desktop;
  PlainHost host;
  PlayTimers timers{loop};
  Buttons buttons{keys, mode, player, timers};
  Display display{{mode, player, buttons, timers, settings, collection, desktop, boxes, host}};

  DisplayBench() {
    settings.state.ShowFillist = true;
    collection.IniFullPath = "/c/Holiday.INI";
    desktop.facts = {1280, 1024, 24, 1};
    display.Form_Load(1);
  }

  /// Adds a clip and loads it, as a choice in the list does; without a size it has no picture.
  Movie& load(const std::string& name, int width = 0, int height = 0) {
    auto& clip = add(name, {.rate = width > 0 ? 25.0 : 0.0, .width = width, .height = height});
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
    open(collection.icurMov);
    display.PositionAndSize();
  }
};

}  // namespace kvo::test
