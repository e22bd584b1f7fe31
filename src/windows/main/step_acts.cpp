#include "windows/main/step_acts.h"

#include "playback/positions/stepping.h"

#include <QAbstractButton>

namespace kvo {

void StepActs::serve(QAbstractButton& key, Step which) const {
  if (!release) return;
  QObject::connect(&key, &QAbstractButton::pressed, [act = press, which] { act(which); });
  QObject::connect(&key, &QAbstractButton::released, [act = release, which] { act(which); });
  if (which != Step::Adv5 && which != Step::Rew5) {
    key.setContextMenuPolicy(Qt::PreventContextMenu);  // that of the window would come under the hand
    return;
  }
  key.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&key, &QWidget::customContextMenuRequested, [act = right, which] { act(which); });
}

StepActs stepActs(Stepping& stepping, const std::function<void()>& acted) {
  return {.press =
              [&stepping, acted](Step which) {
                stepping.press(which);
                acted();
              },
          .release =
              [&stepping, acted](Step which) {
                stepping.release(which);
                acted();
              },
          .right =
              [&stepping, acted](Step which) {
                which == Step::Adv5 ? stepping.Lbl_End_Click() : stepping.Lbl_Start_Click();
                acted();
              }};
}

}  // namespace kvo
