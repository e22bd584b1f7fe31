// The display: big digits, the lamps LOOP, REWIND and ALL, rate and level, behind glass. A stream that plays
// has its labels in place of rate and level.
#pragma once

#include "program/main_window_state.h"
#include "windows/main/plate.h"

#include <QCoreApplication>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace kvo {

class KeyLabel;

class GlassPart : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::GlassPart)

 public:
  /// A click on the digits, on the rate, on the level, and on the labels of a stream.
  struct Acts {
    std::function<void()> digits, rate, level, stream;
  };
  GlassPart(const MainWindowState& state, const Acts& acts, QWidget* parent);

  void layOut(const FaceScale& scale);
  /// `colour` is that of values.
  void draw(Rgb colour);
  /// What takes the keyboard, in the order of Tab.
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void describe();
  void drawDigits(QPainter& painter) const;
  void drawLamps(QPainter& painter) const;
  void drawRateAndLevel(QPainter& painter) const;
  void drawStream(QPainter& painter) const;
  [[nodiscard]] bool digitsLit() const;
  [[nodiscard]] bool showsStream() const;

  const DisplayState& state_;
  const MenuState& lamps_;
  const StreamLabels& stream_;
  const PanelsState& panels_;
  KeyLabel* digits_;
  KeyLabel* rate_;
  KeyLabel* level_;
  KeyLabel* streamKey_;
  FaceScale scale_;
  Rgb colour_ = token("detail");

  struct Drawn {
    DisplayState state;
    MenuState lamps;
    StreamLabels stream;
    bool digits;
    bool showsStream;
    bool operator==(const Drawn&) const = default;
  };
  std::optional<Drawn> drawn_;
};

}  // namespace kvo
