// The index of the file in hand.
#pragma once

#include "playback/positions/markers.h"
#include "windows/place/window_place.h"

#include <QCoreApplication>
#include <QWidget>
#include <cstdint>
#include <functional>

class QListWidget;

namespace kvo {

class FrmMarkers : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::FrmMarkers)

 public:
  /// `acted` is called behind each act.
  FrmMarkers(const MarkersState& state, Markers& markers, WindowPlace place, std::function<void()> acted);

  /// Brings it in line with the state; it appears where it was, at first beside `owner`.
  void draw(QWidget* owner);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void standBeside(const QWidget& owner);

  const MarkersState& state_;
  Markers& markers_;
  WindowPlace place_;
  std::function<void()> acted_;
  QListWidget* list_;
  std::uint64_t revision_ = 0;
  int reached_ = -1;
};

}  // namespace kvo
