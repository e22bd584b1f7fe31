// A stream on its way into the player: locating, connecting, buffering, and the texts of each. Nothing waits
// here: each step is a state that a timer moves on, and a stop request ends it at the next tick.
#pragma once

#include "playback/transport/transport_core.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvo {

class StreamOpening {
 public:
  /// `opened` goes on with clip `number` once it plays.
  StreamOpening(TransportCore& core, std::function<void(int number)> opened);

  /// Of a file that only tells of streams the first that plays is taken.
  void ShowStreamWMP(int number);
  /// Another clip comes: what was on its way is let go, and its labels.
  void leave();
  /// One is on its way; a stop request ends that.
  [[nodiscard]] bool connects() const { return step_ == Step::Locating || step_ == Step::Connecting; }
  /// The labels of the stream that plays; a stream that has stopped in the middle is told of. Of Timer1.
  void watch();

 private:
  enum class Step { None, Locating, Connecting, Playing };

  bool mayConnect(const std::string& address);
  void openFirst(const Result<std::string>& metafile);
  void openNext();
  void tick();
  void wait(const StreamReport& report);
  void plays();
  void abort();
  void fail();
  void backToList();
  void say(std::string text);

  TransportCore& core_;
  std::function<void(int)> opened_;
  std::unique_ptr<Timer> poll_;
  Step step_ = Step::None;
  int number_ = 0;                      // of the clip
  std::string named_;                   // what the clip names
  std::string playing_;                 // the address that was opened for it
  std::vector<std::string> addresses_;  // those to come, the next one last
  int ticks_ = 0;                       // since something has moved
  int percent_ = 0;                     // as it was last told
  int blink_ = 0;                       // ticks of the buffer label
  bool sliderShown_ = false;
};

}  // namespace kvo
