// Makes a clip record of a media file by what its streams tell.
#pragma once

#include "core/records/collection.h"
#include "intake/clip_intake.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/frame_source.h"
#include "ports/message_boxes.h"

#include <functional>
#include <string>
#include <utility>

namespace kvo {

class AddClips : public ClipIntake {
 public:
  struct Ports {
    const Files& files;
    const Clock& clock;
    MessageBoxes& boxes;
    FrameSource& streams;
  };

  /// Hears the number of a clip that has just joined the collection.
  using Added = std::function<void(int number)>;

  AddClips(const Ports& ports, KVO2& settings, Collection& collection, Added added)
      : ports_(ports),
        settings_(settings),
        collection_(collection),
        added_(std::move(added)),
        poster_(settings) {}

  bool AddMoviesm(const std::string& text) override;

  /// Who hears of changes in the records that this brings.
  [[nodiscard]] ChangePoster& poster() { return poster_; }

 private:
  Ports ports_;
  KVO2& settings_;
  Collection& collection_;
  Added added_;
  ChangePoster poster_;
};

}  // namespace kvo
