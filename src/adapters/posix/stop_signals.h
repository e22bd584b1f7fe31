// Interrupt, terminate and hang-up as a question that can be asked, instead of an end in mid-work.
#pragma once

#include "adapters/posix/descriptor.h"

namespace kvo {

class StopSignals {
 public:
  /// Holds the signals back from this thread, and from those it starts, for as long as the object lives.
  StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;
  ~StopSignals();

  /// True once one of them has come.
  [[nodiscard]] bool came();

 private:
  Descriptor descriptor_;
  bool came_ = false;
};

}  // namespace kvo
