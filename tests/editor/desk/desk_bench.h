// The open editor on a collection of three films, a still and a song, in virtual time.
#pragma once

#include "editor/desk/editor_desk.h"
#include "support/program_bench.h"

#include <cmath>
#include <optional>
#include <sstream>
#include <string>

namespace kvo::test {

struct NotedPreview : DeskPreview {
  std::string asked;
  bool plays = false;
  void KillPreview() override {
    asked += "kill ";
    plays = false;
  }
  void sample(Sample /*what*/, int clipNo) override { asked += "sample" + std::to_string(clipNo) + " "; }
  [[nodiscard]] bool isPlaying() const override { return plays; }
  void movieIsStale() override {}
  void standAt(double seconds) override { at = seconds; }
  void showClip() override {
    if (does != nullptr) *does += "leave ";
  }
  double at = -1;
  std::string* does = nullptr;
};

/// Three films, a still and a song on the desk; what it asks of others is noted.
struct DeskBench : ProgramBench {
  explicit DeskBench(int films = 3) {
    for (int i = 1; i <= films; ++i) {
      auto& clip = addVideo("film" + std::to_string(i) + ".avi", 0, 8);
      clip.KeyID(i);
      clip.DurationTime(Value(10));
      clip.DurationFrames(Value(250));
      clip.LoopEnd(Value(8));
      clip.MovieHeight(480);
    }
    auto& still = addVideo("photo.jpg", 0, 5);
    still.IsStill(true);
    streams.all["/v/photo.jpg"] = {.hasVideo = true, .isStill = true, .width = 640, .height = 480};
    addMusic("song.mp3", 0, 30);
    list.whenInHand([this](int number) {
      told += "load" + std::to_string(number) + " ";
      inPlayer = number > 0 ? clipFile(clip(number)) : "";
    });
    list.fill();
    list.PreviewMovie(1);
    ClearDirtyFlags(collection, settings);
    settings.state.ObjectChange = 0;
    desk.tabs(notedTabs(), {});
    listCommands.placedBy([this] { return place; });
    told.clear();
  }

  DeskTabs notedTabs() {
    DeskTabs tabs;
    for (std::size_t i = 0; i < tabs.size(); ++i) {
      const auto name = std::to_string(i + 1);
      tabs[i] = {.restore = [this, name] { told += "restore" + name + " "; },
                 .enter = [this, name] { told += "enter" + name + " "; },
                 .follow = [this, name](bool anew) { told += (anew ? "anew" : "follow") + name + " "; }};
    }
    return tabs;
  }
  static PlayerPlace at(double seconds) { return {seconds, static_cast<Long>(std::lround(seconds * 25))}; }
  MainWindowDoors doors() {
    const auto note = [this](const char* what) { return [this, what] { told += std::string(what) + " "; }; };
    return {.Displaymovieinfo = [this](int number) { told += "details" + std::to_string(number) + " "; },
            .PlayerPause = note("pause"),
            .PlayerStop = note("stop"),
            .PlayerGetFileName = [this] { return inPlayer; },
            .pausePlaying = note("halt"),
            .place = [this] { return place; },
            .pictureAt = [this](double seconds) { return place ? std::optional(at(seconds)) : place; },
            .standPlayer =
                [this](double seconds) {
                  told += "to" + ShortText(seconds) + " ";
                  if (place) place = at(seconds);
                },
            .stepPlayer = [this](int pictures) { place = at(place->seconds + pictures / 25.0); },
            .SetMarkIn = note("markIn"),
            .SetMarkOut = note("markOut"),
            .resetMark = [this](bool in) { told += in ? "resetIn " : "resetOut "; },
            .ShowSliderStuff = note("slider"),
            .Pic_DigNumbers_Click = note("trimmer"),
            .AddMoviesm =
                [this](const std::string& path, int before) {
                  told += "add" + path + (before > 0 ? " ahead of " + std::to_string(before) : "") + " ";
                },
            .mnu_SaveShow_Click = [this] { return (told += "saveAs ", true); },
            .saveAgain = [this] { return (told += "save ", saves); },
            .empty = note("empty"),
            .FrmFileOpenToolsOnOff = [](bool) {}};
  }
  void open() {
    desk.Form_Load();
    while (desk.isOpen() && (state.analysing.visible || !state.frame.toolsOn) && loop.workComesHome()) {
    }
    loop.advance(1);
  }
  /// What is told meanwhile.
  template <class Act>
  std::string toldOf(const Act& act) {
    told.clear();
    act();
    return told;
  }
  /// What is told in `ticks` ticks of the change watch.
  std::string tick(int ticks = 1) {
    return toldOf([&] { loop.advance(200 * ticks); });
  }
  [[nodiscard]] std::string totals() const {
    return state.totals.lbl_VideoTotTime + " " + state.totals.Lbl_AudTotal +
           (state.totals.audioIsRed ? " red" : "");
  }
  std::string changed(Integer code) {
    settings.state.ObjectChange = code;
    return tick();
  }

  /// What is told of clips and places: "load2 to4 leave".
  [[nodiscard]] std::string moves() const {
    std::string all;
    std::istringstream words(told);
    for (std::string word; words >> word;) {
      for (const auto* of : {"load", "to", "leave", "mark"})
        if (word.starts_with(of)) all += word + " ";
    }
    return all;
  }

  std::string told;
  bool saves = true;  // Ctrl+S
  std::string inPlayer;
  std::optional<PlayerPlace> place = PlayerPlace{4, 100};
  PresumedFiles presumed{streams};
  Editing onHeld{collection, settings, editor, presumed, files, boxes, folder, log, clock};
  EditorWindowState state;
  NotedPreview preview;
  EditorDesk desk{{state, window, onHeld, loop, history, list, listCommands, preview, presumed}, doors()};
};

struct OpenDesk : DeskBench {
  OpenDesk() { open(); }
};

}  // namespace kvo::test
