// The machine stays awake for a render.
#pragma once

#include "core/telling/translated.h"
#include "ports/long_work.h"

namespace kvo {

/// As long as it lives. `work` outlives it, and is held by one at a time.
class Awake {
 public:
  explicit Awake(LongWork& work) : work_(work) { work_.keepAwake(translated("A movie is made")); }
  Awake(const Awake&) = delete;
  Awake& operator=(const Awake&) = delete;
  ~Awake() { work_.letSleep(); }

 private:
  LongWork& work_;
};

}  // namespace kvo
