// A chain of libavfilter's filters that pictures are put through. For this room only.
#pragma once

#include "media/ffmpeg.h"
#include "media/picture.h"

#include <memory>
#include <string>

struct AVFilterContext;
struct AVFilterGraph;

namespace kvo::media {

struct FilterLibrary;

struct FreeFilterGraph {
  const FilterLibrary* functions = nullptr;
  void operator()(AVFilterGraph* graph) const;
};

class FilterChain {
 public:
  /// The chain `filters`, in FFmpeg's notation, for pictures like `like`. `threads` of 0 lets it choose.
  /// Fails when there is no such filter or it does not take such pictures.
  static Result<FilterChain> make(const std::string& filters, const AVFrame& like, int threads);

  /// Whether pictures of another size or format come than those the chain was made for.
  [[nodiscard]] bool fits(const AVFrame& frame) const;
  /// Gives the chain a picture, which stays the caller's as well; none is the end.
  Outcome push(const SharedFrame& frame);
  /// The next picture that is ready; null when the chain wants more, or is at its end.
  Result<SharedFrame> pull();

 private:
  FilterChain() = default;

  std::unique_ptr<AVFilterGraph, FreeFilterGraph> graph_;
  AVFilterContext* entry_ = nullptr;  // owned by the graph
  AVFilterContext* exit_ = nullptr;
  int width_ = 0;
  int height_ = 0;
  int format_ = -1;
};

}  // namespace kvo::media
