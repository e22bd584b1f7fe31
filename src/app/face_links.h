// What the display, the skins and the list of the main window ask of each other: wiring, and no rules.
#pragma once

#include "playback/display/display.h"
#include "playback/player_facade.h"
#include "program/skins.h"

#include <functional>
#include <string>
#include <utility>

namespace kvo {

class FaceLinks : public DisplayHost, public SkinCalls, public PlayerHost {
 public:
  struct Parts {
    MainWindowState& window;
    KVO2& settings;
    Collection& collection;
    MediaContents& streams;
    PictureCounts& counts;
    ControlEngine& control;
    FilterGraphs& graphs;
    StreamProbe& probe;
    Desktop& desktop;
    MessageBoxes& boxes;
    PlayTimers& timers;
  };
  explicit FaceLinks(const Parts& parts);

  /// The skins are made behind this.
  void link(Skins& skins) { skins_ = &skins; }
  /// What loads a clip by its number, and what shows its details.
  void showClipsBy(std::function<void(int)> load, std::function<void(int)> details) {
    load_ = std::move(load);
    details_ = std::move(details);
  }

  [[nodiscard]] Buttons& buttons() { return buttons_; }
  [[nodiscard]] Display& display() { return display_; }
  [[nodiscard]] Player& player() { return player_; }

  /// Puts the interface size in force that the user has chosen, or the screen's.
  void takeInterfaceSize();

  // Of the display
  void skins() override;
  void ShapeMe() override;
  void ShapePlain() override;
  void FadBorder(const std::string& caption) override;
  void Displaymovieinfo(int number) override { details_(number); }
  void PreviewMovie(int number) override { load_(number); }
  void untickStayOnTop() override;

  // Of the skins, and of the player
  void BuildAllButs(bool stepButtons) override { buttons_.BuildAllButs(stepButtons); }
  void BuildButton(KeyWord word) override { buttons_.BuildButton(word); }
  void PlayerPause() override { player_.PlayerPause(); }
  void PlayerStop() override { player_.PlayerStop(); }
  void GlobalMediaPlay() override { player_.GlobalMediaPlay(); }
  [[nodiscard]] bool playerHoldsClip() const override { return !player_.PlayerIsEmpty(); }
  [[nodiscard]] bool rateWindowShows() const override { return parts_.window.positions.rate.visible; }
  [[nodiscard]] bool clipHasPath() const override { return !parts_.window.mode.player.path.empty(); }

 private:
  Parts parts_;
  PlayerFacade player_;
  Buttons buttons_;
  Display display_;
  Skins* skins_ = nullptr;
  std::function<void(int)> load_ = [](int) {};
  std::function<void(int)> details_ = [](int) {};
};

}  // namespace kvo
