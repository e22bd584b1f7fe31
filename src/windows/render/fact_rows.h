// Lines of what is told of a movie, a name and a value each.
#pragma once

#include "render/render_state.h"
#include "windows/editor/editor_page.h"

#include <array>

class QLabel;

namespace kvo {

class FactRows final : public EditorPage {
 public:
  static constexpr std::size_t kMost = 8;

  /// Pixels at size 1: how wide all is, how far rows are from each other, where values begin; values that end
  /// at the right where that is 0.
  struct Form {
    int width = 0;
    int pitch = 0;
    int valueLeft = 0;
  };
  FactRows(const Form& form, QWidget* parent);

  void draw(const std::vector<RenderFact>& facts);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void elide();

  std::array<QLabel*, kMost> names_{};
  std::array<QLabel*, kMost> values_{};
  std::array<QFrame*, kMost> lines_{};
};

}  // namespace kvo
