// Frames that were made, at hand for whoever goes back to them: as many as memory is given for, those that
// were wanted the longest ago going first.
#pragma once

#include "media/picture.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>

namespace kvo::engine {

class SeenFrames {
 public:
  explicit SeenFrames(std::size_t mostBytes) : most_(mostBytes) {}

  /// An empty picture for a frame that is not here.
  media::Picture find(std::int64_t frame);
  [[nodiscard]] bool holds(std::int64_t frame) const { return places_.contains(frame); }
  void put(std::int64_t frame, const media::Picture& picture);

  [[nodiscard]] std::size_t bytes() const { return bytes_; }
  /// Lets go until no more than so many bytes are left.
  void shrink(std::size_t bytes);

 private:
  struct Seen {
    std::int64_t frame = 0;
    media::Picture picture{};
  };

  std::size_t most_;
  std::size_t bytes_ = 0;
  std::list<Seen> frames_;  // the one wanted last is the first
  std::unordered_map<std::int64_t, std::list<Seen>::iterator> places_;
};

}  // namespace kvo::engine
