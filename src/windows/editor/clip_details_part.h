// The card of the clip in hand, at the right of the editor.
#pragma once

#include "editor/tabs/editor_parts_state.h"
#include "windows/editor/editor_page.h"

#include <QCoreApplication>
#include <array>

namespace kvo {

class ClipDetailsPart final : public EditorPage {
  Q_DECLARE_TR_FUNCTIONS(kvo::ClipDetailsPart)

 public:
  static constexpr QSize kPlace{260, 216};  ///< pixels at size 1

  ClipDetailsPart(const ClipStats& state, QWidget* parent);

  void draw();

 private:
  static constexpr std::size_t kRows = 8;

  const ClipStats& state_;
  QLabel* title_;
  QLabel* name_;
  std::array<QLabel*, kRows> captions_{};
  std::array<QLabel*, kRows> values_{};
};

}  // namespace kvo
