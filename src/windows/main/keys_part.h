// The keys that are drawn into the face, the labels over them that take the mouse and the keyboard, and the
// key that closes the window.
#pragma once

#include "playback/buttons_state.h"
#include "playback/transport/transport_state.h"
#include "ui/image_list.h"
#include "windows/main/face_scale.h"
#include "windows/main/step_acts.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace kvo {

class KeyLabel;
class KVOBut;

class KeysPart {
 public:
  /// What the keys do. One that does nothing yet is disabled.
  struct Acts {
    std::function<void()> play{}, pause{}, playRight{}, speed025{}, speed05{}, speed02{}, size{}, playAll{},
        mini{}, minimise{}, close{};
    StepActs steps{};
  };
  static constexpr std::size_t kLabels = 13;

  /// `folder` is the program's, with its pictures in "ImageList1/" and "Buttons/".
  KeysPart(const ButtonsState& state, ImageList1& images, const Acts& acts, const std::string& folder,
           QWidget* face);

  void layOut(const FaceScale& scale);
  void draw();
  /// Draws the keys into the face.
  void paint(QPainter& painter);

  /// Without a clip only the keys of the window can be pressed.
  void setAnyClip(bool any);
  /// The rate at which is played, 1 is normal: the key that sets it is lit.
  void setRate(double rate);
  /// Tips of the keys at the ends of the steps.
  void setStepTips(const TransportTips& tips);
  /// The tip of the key that goes to Free Zoom.
  void setMiniTip(const QString& tip);
  /// Where the picture of the volume knob stands, in pixels of the face.
  [[nodiscard]] QPoint volumeCorner() const;
  /// Where a menu of the key for the picture's size opens, in pixels of the face.
  [[nodiscard]] QPoint sizeFoot() const;
  /// The keys in the order of Tab.
  [[nodiscard]] std::vector<QWidget*> tabOrder() const;
  /// Those that act on the window and not on the collection: minimise and close.
  [[nodiscard]] std::vector<QWidget*> windowKeys() const;

 private:
  const ButtonsState& state_;
  ImageList1& images_;
  Acts acts_;
  std::string folder_;
  FaceScale scale_;
  bool anyClip_ = true;
  double rate_ = 1;
  std::array<KeyLabel*, kLabels> labels_{};
  KVOBut* close_;
};

}  // namespace kvo
