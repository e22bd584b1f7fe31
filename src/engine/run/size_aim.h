// A movie that has to keep within a size: what its pictures may have, try by try.
#pragma once

#include "base/result.h"
#include "engine/document/timeline.h"
#include "engine/run/render_plan.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace kvo::engine {

/// The first of two passes: all pictures are encoded for the notes that come of it. `told` hears of each.
/// Fails as a render does.
Outcome takeNotes(const Timeline& timeline, const RenderPlan& plan, const std::string& name,
                  const std::function<void(std::int64_t made)>& told);

/// What a try has come to.
enum class Fits {
  Good,
  TryAgain,  ///< at bitRate()
  Never,     ///< it stays too large, whatever is tried
};

class SizeAim {
 public:
  /// `plan` says the limit, and what is tried first.
  explicit SizeAim(const RenderPlan& plan);

  /// Judges a file of `bytes`, of which `pictureBytes` are its frames; none could be finer with `isFinest`.
  /// Good is never larger than the limit, and comes by the fifth try at the latest; Never comes where none of
  /// them has kept within it.
  Fits judge(std::uint64_t bytes, std::uint64_t pictureBytes, bool isFinest);

  /// Bits a second for the pictures of the next try.
  [[nodiscard]] int bitRate() const { return bitRate_; }

 private:
  double most_;  // bytes
  bool isLong_;  // so that the size has to be met as well
  int bitRate_;
  int tries_ = 0;
  double raisedFrom_ = 0;  // bytes of a file that was too small, and was given more
  int fitting_ = 0;        // the highest bit rate of a file that kept within the size
};

}  // namespace kvo::engine
