// The codec of AVI clips: found out when such a clip is shown, kept in its record, and told in a window of
// its own. A clip that is Windows Media under an AVI name is dealt with here.
#pragma once

#include "intake/avi_compressor.h"
#include "playback/player.h"
#include "ports/event_loop.h"
#include "ports/message_boxes.h"
#include "program/clip_list.h"

#include <functional>
#include <memory>
#include <string>

namespace kvo {

class CodecInfo {
 public:
  struct Parts {
    MainWindowState& window;
    KVO2& settings;
    Collection& collection;
    ClipList& list;
    const Files& files;
    const ProgramFolder& folder;
    StreamProbe& probe;
    MessageBoxes& boxes;
    EventLoop& loop;
    Player& player;
  };
  /// All outlive it.
  explicit CodecInfo(const Parts& parts);

  /// What loads clip `number` into the player again, and what stops the clip in hand for good.
  void driveBy(std::function<void(int number)> load, std::function<void()> halt) {
    reload_ = std::move(load);
    halt_ = std::move(halt);
  }

  /// Brings the list and what is told of clip `number` in line with its record. An AVI or VCR clip whose
  /// record has no codec gets it; where its bytes do not tell, the probe is asked as soon as no command runs
  /// and while the clip is in hand.
  void Displaymovieinfo(int number);

  /// Opens the window on the codec of the clip in hand; nothing for one of another kind.
  void ShowCodec();
  /// Closes it.
  void hide() { parts_.window.codec.visible = false; }

 private:
  void ask();
  void takeAsWindowsMedia(int number);

  Parts parts_;
  std::unique_ptr<Timer> idle_;
  const Movie* asked_ = nullptr;  // the clip that the probe is to be asked about; it may be gone
  bool asking_ = false;           // a probe is at work
  std::function<void(int)> reload_ = [](int) {};
  std::function<void()> halt_ = [] {};
};

}  // namespace kvo
