// How start-up and the hand-over bring a clip into the collection, without knowing how clips are looked into.
#pragma once

#include <string>

namespace kvo {

class ClipIntake {
 public:
  ClipIntake() = default;
  ClipIntake(const ClipIntake&) = delete;
  ClipIntake& operator=(const ClipIntake&) = delete;
  virtual ~ClipIntake() = default;

  /// Adds a file or an address at the end of the collection, lists it and makes it the clip in hand. False,
  /// with a box that says why, when it cannot be played.
  virtual bool AddMoviesm(const std::string& text) = 0;
};

}  // namespace kvo
