// Brings decoded frames of any size and format into pictures of one size.
#pragma once

#include "base/result.h"
#include "media/picture.h"
#include "media/pixel_rows.h"

#include <memory>

namespace kvo::media {

class Scaler {
 public:
  /// Pictures of `width` x `height` pixels, both even, limited range.
  Scaler(int width, int height);

  Scaler(Scaler&&) noexcept;
  Scaler& operator=(Scaler&&) noexcept;
  ~Scaler();

  /// A frame that is already right is shared, not copied. Fails when there is no way to convert it.
  Result<Picture> place(const SharedFrame& frame, Fit fit);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// The luma weights that pictures of a height are taken to be made with where nothing says otherwise.
constexpr Matrix usualMatrix(int height) { return height > 576 ? Matrix::Bt709 : Matrix::Bt601; }

}  // namespace kvo::media
