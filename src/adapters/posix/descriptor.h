// A file descriptor that is closed with the object.
#pragma once

#include <unistd.h>
#include <utility>

namespace kvo {

class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  void close() {
    if (number_ >= 0) ::close(std::exchange(number_, -1));
  }
  [[nodiscard]] int get() const { return number_; }
  [[nodiscard]] bool open() const { return number_ >= 0; }

 private:
  int number_;
};

}  // namespace kvo
