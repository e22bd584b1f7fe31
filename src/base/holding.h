// A flag that is set for as long as a piece of work runs, also where that ends by a throw.
#pragma once

namespace kvo {

/// Sets the flag while it lives; behind it the flag is as it was.
class Holding {
 public:
  explicit Holding(bool& flag) : flag_(flag), before_(flag) { flag = true; }
  Holding(const Holding&) = delete;
  Holding& operator=(const Holding&) = delete;
  ~Holding() { flag_ = before_; }

 private:
  bool& flag_;
  const bool before_;
};

}  // namespace kvo
