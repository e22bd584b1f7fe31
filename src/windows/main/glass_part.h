// The display: big digits, the lamps LOOP, REWIND and ALL, rate and level, behind glass.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <optional>
#include <utility>

namespace kvo {

class GlassPart : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::GlassPart)

 public:
  GlassPart(const DisplayState& state, const MenuState& lamps, QWidget* parent);

  void layOut(const FaceScale& scale);
  /// `colour` is that of values.
  void draw(Rgb colour);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void describe();
  void drawDigits(QPainter& painter) const;
  void drawLamps(QPainter& painter) const;
  void drawRateAndLevel(QPainter& painter) const;

  const DisplayState& state_;
  const MenuState& lamps_;
  FaceScale scale_;
  Rgb colour_ = token("detail");
  std::optional<std::pair<DisplayState, MenuState>> drawn_;
};

}  // namespace kvo
