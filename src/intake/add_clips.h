// Makes a clip record of a media file by what its streams tell.
#pragma once

#include "core/clip_intake.h"
#include "core/collection.h"
#include "core/main_window_state.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/frame_source.h"
#include "platform/message_boxes.h"

namespace kvo {

class AddClips : public ClipIntake {
 public:
  struct Ports {
    const Files& files;
    const Clock& clock;
    MessageBoxes& boxes;
    FrameSource& streams;
  };

  AddClips(const Ports& ports, KVO2& settings, Collection& collection, MainWindowState& window)
      : ports_(ports), settings_(settings), collection_(collection), window_(window), poster_(settings) {}

  bool AddMoviesm(const std::string& text) override;

 private:
  Ports ports_;
  KVO2& settings_;
  Collection& collection_;
  MainWindowState& window_;
  ChangePoster poster_;
};

}  // namespace kvo
