// The pages of the editor, driven as a user drives them.
#include "editor/tabs/tab_bench.h"
#include "ui/made.h"
#include "windows/editor/audio_page.h"
#include "windows/editor/effect_page.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::TabBench;

// Pictures to look at, where they are asked for.
void keepPicture(QWidget& widget, const QString& name) {
  const auto folder = qEnvironmentVariable("KVO_PICTURES");
  if (!folder.isEmpty()) widget.grab().save(folder + "/" + name + ".png");
}

struct PageBench : TabBench {
  int acts = 0;
  PageLogic logic{editing, host, [this] { ++acts; }};

  PageBench() {
    addVideo("sailing.avi", 0, 15);
    clip(1).AltName("Opening");
  }
};

TEST(EffectPage, TicksAndMovesReachTheRecord) {
  PageBench b;
  EffectTab tab;
  enterTab(b.editing, tab, b.host);
  int opened = 0;
  EffectPage page(tab, b.logic, [&] { ++opened; }, nullptr);
  b.logic.acted = [&] { page.draw(); };
  page.draw();
  page.show();
  keepPicture(page, "effect");
}

TEST(AudioPage, Shows) {
  PageBench b;
  AudioTab tab;
  enterTab(b.editing, tab, b.host);
  AudioPage page(tab, b.logic, nullptr);
  page.draw();
  page.show();
  keepPicture(page, "audio");
}

}  // namespace
}  // namespace kvo
