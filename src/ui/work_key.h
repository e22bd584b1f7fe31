// A key about work that goes on in the background: a ring that fills, or a sign that something has gone
// wrong, and a few words.
#pragma once

#include "ui/hover_key.h"

namespace kvo {

class WorkKey : public HoverKey {
 public:
  static constexpr int kHeight = 24;  ///< pixels at size 1

  explicit WorkKey(QWidget* parent);

  /// Hidden without `words`. `about` says what it is; `share` of it is done, 0 to 1. `size` is that of the
  /// interface.
  void draw(const QString& words, const QString& about, double share, bool isBad, double size);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double share_ = 0;
  bool isBad_ = false;
  double size_ = 1;
};

}  // namespace kvo
