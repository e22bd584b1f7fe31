// Media controls of the desktop by MPRIS 2.2: two interfaces on the session bus, under the name
// org.mpris.MediaPlayer2.kvo5.
#pragma once

#include "ports/media_controls.h"

#include <memory>

namespace kvo {

class Mpris : public MediaControls {
 public:
  Mpris();
  ~Mpris() override;

  /// Without a session bus there is nobody who could ask.
  bool listen(MediaRequests& requests) override;
  void tell(const MediaTold& told) override;
  void tellJump(double position) override;

 private:
  class Object;
  std::unique_ptr<Object> object_;  // null until it listens
};

}  // namespace kvo
