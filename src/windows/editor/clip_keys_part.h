// The row between tabs and timeline: the keys that mark, cut and copy the clip in hand, the lengths of the
// movie, and the zoom of the timeline.
#pragma once

#include "windows/editor/rush_acts.h"

#include <QCoreApplication>
#include <QWidget>
#include <array>
#include <string>

class QLabel;
class QSlider;
class QToolButton;

namespace kvo {

class KVOBut;

class ClipKeysPart final : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::ClipKeysPart)

 public:
  static constexpr int kHeight = 46;  ///< pixels at size 1

  /// `pictures` is the folder of the keys' pictures, with its separator. All outlive the part.
  ClipKeysPart(const RushState& state, const RushActs& acts, const std::string& pictures, QWidget* parent);

  void draw();
  /// Says why a key cannot be pressed.
  void refuse(ClipKey key);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QWidget* makeKeys();
  QWidget* makeTotals();
  QWidget* makeZoom();
  void layOut();
  [[nodiscard]] int zoomValue() const;

  const RushState& state_;
  const RushActs& acts_;
  const std::string& pictures_;
  std::array<KVOBut*, kClipKeys> keys_{};
  QLabel* video_ = nullptr;
  QLabel* audio_ = nullptr;
  QLabel* warning_ = nullptr;
  QToolButton* zoomOut_ = nullptr;
  QToolButton* zoomIn_ = nullptr;
  KVOBut* whole_ = nullptr;
  QSlider* zoom_ = nullptr;
  bool isDrawing_ = false;
};

}  // namespace kvo
