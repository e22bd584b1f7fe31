// The small pictures and peaks of what the timeline has in sight, ready to be drawn. They are asked for as
// they are drawn, so what is out of sight is never made for it.
#pragma once

#include "sketches/sketches.h"

#include <QPixmap>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace kvo {

class TimelineSketches {
 public:
  explicit TimelineSketches(Sketches& sketches) : sketches_(sketches) {}

  /// All pictures are asked for so high from now on: logical pixels, and how many there are of the screen's
  /// to one of them.
  void setHeight(double height, double pixelRatio);

  /// The picture of a file at `seconds`; while it is being made the nearest one that has come, and else null.
  QPixmap picture(const std::string& file, double seconds);
  /// False for a file that is known to have no picture.
  [[nodiscard]] bool mayHavePicture(const std::string& file) const;

  /// Peaks of a file's sound, `perSecond` or more a second, and how many there are. Null while there are
  /// none.
  std::pair<Sketches::Peaks, int> peaks(const std::string& file, double perSecond);

  /// Once a frame has been drawn: lets go of what has not been seen for long.
  void frameDrawn();

 private:
  using Place = std::pair<std::string, std::int64_t>;  // milliseconds
  struct Kept {
    QPixmap picture;
    bool isNone = false;
    std::uint64_t seen = 0;
  };

  [[nodiscard]] QPixmap nearest(const Place& place) const;

  Sketches& sketches_;
  double height_ = 0;
  double pixelRatio_ = 1;
  std::map<Place, Kept> kept_;
  std::uint64_t frame_ = 0;
};

}  // namespace kvo
