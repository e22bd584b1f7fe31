// The effects of the palette as rows to tick, each with a small picture of what it makes of the clip. One
// stop of the keyboard: the arrows go from row to row.
#pragma once

#include "editor/tabs/effect_tab.h"
#include "windows/editor/sample_motion.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class QCheckBox;

namespace kvo {

class EffectRowBox;

class EffectRows final : public QScrollArea {
  Q_DECLARE_TR_FUNCTIONS(kvo::EffectRows)

 public:
  static constexpr int kRows = 42;

  /// What the user does; none may be empty.
  struct Acts {
    std::function<void(const std::string& name)> toggleFavourite;
    std::function<void(int position)> configure;
  };

  /// State and samples outlive the rows.
  EffectRows(const EffectTab& state, MovingSamples& samples, Acts acts, QWidget* parent);

  /// The switch of a position, 1 to kRows.
  [[nodiscard]] QCheckBox* box(int position) const;

  /// Shows the rows that pass the search.
  void draw();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  friend class EffectRowBox;

  void layOut();
  void goTo(int row);
  void openMenu();
  void tellFocus();
  [[nodiscard]] EffectRowBox* current() const;

  const EffectTab& state_;
  Acts acts_;
  QWidget* sheet_;
  std::vector<EffectRowBox*> rows_;   // by position, less 1
  std::vector<EffectRowBox*> shown_;  // in the order of the screen
  std::uint64_t drawnNames_ = 0;
  std::uint64_t drawnFavourites_ = 0;
  int drawnRevision_ = -1;
  int current_ = 0;  // of shown_
  MovingSamples& samples_;
  SampleMotion motion_;
  SamplePixmaps pixmaps_;
};

}  // namespace kvo
