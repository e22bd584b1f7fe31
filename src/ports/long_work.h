// The port to the desktop for work that takes long: the machine stays awake for it, and the user hears of its
// end wherever he is.
#pragma once

#include <string>

namespace kvo {

class LongWork {
 public:
  LongWork() = default;
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  virtual ~LongWork() = default;

  /// From now on the machine does not go to sleep by itself; `why` is what the user is told of it. Nothing
  /// where it cannot be asked. What is held ends with the program, however that ends.
  virtual void keepAwake(const std::string& why) = 0;
  virtual void letSleep() = 0;

  /// A notification of the desktop. Nothing where there is none.
  virtual void tell(const std::string& title, const std::string& text) = 0;
};

}  // namespace kvo
