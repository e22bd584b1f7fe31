// A small player of its own for the preview of a morph, beside the main window's: one file in one picture
// box, on a graph that nobody else has. Where the picture stands in the box is data that the tool's window
// draws; until there is that window nothing plays by it.
#pragma once

#include "ports/event_loop.h"
#include "ports/filter_graph.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace kvo {

/// Pixels of the picture box.
struct PreviewPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const PreviewPlace&) const = default;
};

/// What the box shows; it is empty while nothing has been opened.
struct PreviewBoxState {
  int Picture1Width = 320;  ///< of the box, pixels; the window sets both
  int Picture1Height = 240;
  bool keepsAspect = true;  ///< else the picture fills the box
  PreviewPlace picture;
  bool fullScreen = false;  ///< it covers the screen instead
};

class KVOPlayerEngOcX {
 public:
  /// All outlive the player. The graphs are its own: what they open is what is seen.
  KVOPlayerEngOcX(PreviewBoxState& box, FilterGraphs& graphs, EventLoop& loop);

  /// Heard at each tick while it plays: where it is, and how long the file is, seconds.
  std::function<void(double position, double duration)> VideoTime;
  /// Heard when it has played to the end.
  std::function<void()> VideoFinished;

  /// Hundredths of normal speed; holds from the next PlayVideo on.
  void SetRate(int rate) { rate_ = rate; }
  /// "hh:mm:ss" of whole seconds.
  [[nodiscard]] static std::string ConvertTime(double seconds);
  /// Shows the picture that stands where it is.
  void ShowPreview();
  /// Stands; PlayVideo goes on from here.
  void StopVideo();
  /// Plays on from where it stood, or from `seconds`.
  void PlayVideo(std::optional<double> seconds = {});
  void PlayFullscreen();
  /// As MediaEngine.
  void SetVolume(int hundredths);
  void SetBalance(int balance);
  /// The file that the others are about, from its start. It is opened when it is first shown.
  void SetFileToPlay(const std::string& path);

 private:
  bool open();
  void tick();
  void finish();

  PreviewBoxState& box_;
  FilterGraphs& graphs_;
  std::unique_ptr<Timer> Timer1_;
  std::unique_ptr<FilterGraph> graph_;
  std::string path_;
  int rate_ = 100;
  int volume_ = 0;
  int balance_ = 0;
  double position_ = 0;  // seconds, as it was seen last
  double duration_ = 0;  // seconds, two decimals
  double reopenedAt_ = -1;
};

}  // namespace kvo
