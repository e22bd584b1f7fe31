// When the pictures of a file begin that come as they like, by FFmpeg on a thread of its own.
#pragma once

#include "ports/last_wish.h"
#include "ports/media_contents.h"
#include "ports/picture_counts.h"

#include <atomic>

namespace kvo {

class MediaPictureCounts : public PictureCounts {
 public:
  /// `facts` tells which files have a constant rate. Both outlive the object.
  MediaPictureCounts(EventLoop& loop, MediaContents& facts);
  ~MediaPictureCounts() override { ++wishes_; }

  void whenCounted(std::function<void(const std::string&, std::vector<double>)> heard) override {
    heard_ = std::move(heard);
  }
  void want(const std::string& path) override { count_.want(Wish{path, ++wishes_}); }

 private:
  struct Wish {
    std::string path;
    int number = 0;
  };
  std::vector<double> unevenBegins(const Wish& wish);

  MediaContents& facts_;
  std::function<void(const std::string&, std::vector<double>)> heard_;
  std::atomic<int> wishes_{0};  // a count that is not the last wish's ends
  LastWish<Wish, std::vector<double>> count_;
};

}  // namespace kvo
