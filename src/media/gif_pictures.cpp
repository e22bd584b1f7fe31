#include "media/gif_pictures.h"

#include "media/filter_chain.h"

namespace kvo::media {
namespace {

// Colours count by how much they are seen moving. An even pattern of dots stands still where the picture
// does, and packs well.
constexpr const char* kFilters =
    "split[a][b];[a]palettegen=stats_mode=diff:reserve_transparent=0[p];"
    "[b][p]paletteuse=dither=bayer:bayer_scale=3:diff_mode=rectangle";

}  // namespace

Result<std::vector<SharedFrame>> GifPictures::put(SharedFrame frame) {
  held_.push_back(std::move(frame));
  if (held_.size() < group_) return std::vector<SharedFrame>();
  return finish();
}

Result<std::vector<SharedFrame>> GifPictures::finish() {
  std::vector<SharedFrame> made;
  if (held_.empty()) return made;
  auto graph = FilterChain::make(kFilters, *held_.front(), 1);
  if (!graph) return graph.error();
  for (const auto& frame : held_) {
    if (auto done = graph->push(frame); !done) return done.error();
  }
  if (auto done = graph->push(nullptr); !done) return done.error();
  while (made.size() < held_.size()) {
    auto frame = graph->pull();
    if (!frame) return frame.error();
    if (!*frame) return Error{"the colours of a picture cannot be chosen"};
    (*frame)->pts = held_[made.size()]->pts;
    made.push_back(std::move(*frame));
  }
  held_.clear();
  return made;
}

}  // namespace kvo::media
