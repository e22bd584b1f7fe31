// The editor's window, drawn from state that is filled by hand. With KVO_PICTURES set to a folder each test
// that draws leaves its picture there.
#include "editor/samples/engine_transition_samples.h"
#include "editor/tabs/tab_bench.h"
#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "ui/kvo_but.h"
#include "ui/made.h"
#include "ui/theme.h"
#include "windows/editor/create_page.h"
#include "windows/editor/frm_rush.h"
#include "windows/editor/transition_page.h"
#include "windows/editor/transition_tiles.h"

#include <QApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct RushBench : test::TabBench {
  EditorFrame frame{true, "   Create New Movie from Holiday Collection", 1, true, 0.4};
  ClipStats stats{"Cut 2 Details", "lake at dusk.mpg",      "50 to 260",
                  "8.400 (s)",     "6.00 - 14.40 (s) ",     "1x Speed",
                  "25.00 fps",     "Dissolve over 2.0 (s)", "Effects applied",
                  "100%"};
  ClipSliders sliders;
  EditorTotals totals{"051.900", "051.900(s)", "Total length of the audio to be rendered", false};
  ClipKeys keys;
  EditorHistory history{{"Fade on beach.avi", "Transition on lake at dusk.mpg"}, {"Blur on beach.avi"}};
  CreateTab create;
  TransitionTab transition;
  test::MemoryStore store;
  test::PlainDesktop desktop;
  EngineTransitionSamples samples{streams, [this] { QMetaObject::invokeMethod(qApp, [this] { ++come; }); }};
  int come = 0;
  CreateRules createRules{editing, create, host};
  TransitionRules transitionRules{editing, transition, host, store};
  std::string asked;
  std::unique_ptr<FrmRush> window;

  RushBench() {
    sliders.Sld_Rate.Enabled = sliders.Sld_AudioOut.Enabled = true;
    sliders.Sld_Rate.heading = "Clip Speed - 1.00x";
    sliders.Sld_AudioOut.heading = "Clip Audio Level in Movie - 100%";
    sliders.jogHeading = "Clip Position \\ Mousewheel Control";
    clip(2).TransType("Dissolve");
    clip(2).TransIn(20);
    collection.icurMov = 2;
    settings.adjust().RenderWidth = 640;
    settings.adjust().RenderHeight = 480;
    editor.VideoTotalTime = "51.9";
    createRules.restore();
    transitionRules.enter();
    host.look();
  }

  void open() {
    desktop.facts = {2600, 1600, 24, 1};
    const auto note = [this](const char* what) { return [this, what] { asked += std::string(what) + " "; }; };
    const auto number = [this](const char* what) {
      return [this, what](auto value) { asked += what + std::to_string(static_cast<int>(value)) + " "; };
    };
    window = std::make_unique<FrmRush>(
        RushState{frame, stats, sliders, totals, keys, history},
        RushActs{[this](int tab) {
                   frame.CurrentTab = tab;
                   window->draw();
                 },
                 number("key"), number("rate"), note("rateUp"), number("level"), note("levelUp"),
                 number("jog"), number("history"),
                 [this](double part) { asked += "zoom" + std::to_string(std::lround(part * 100)) + " "; },
                 note("whole"), note("preview"), note("save"), note("close")},
        FrmRush::Keeping{WindowPlace(store, desktop, "EditorPlace"), store}, KVO_SHARE "/kvo5/Buttons/");
    auto* page = made<CreatePage>(create, createRules,
                                  CreatePage::Acts{note("preview"), note("save"), note("help"), note("quit"),
                                                   [this] { window->draw(); }},
                                  window.get());
    window->setPage(1, page, [page] { page->draw(); });
    auto* tiles =
        made<TransitionPage>(TransitionPage::Logic{transition, transitionRules, collection, samples,
                                                   [] { return "/m/mask.jpg"; }, [this] { window->draw(); }},
                             window.get());
    window->setPage(3, tiles, [tiles] { tiles->draw(); });
    const auto card = [](int height) {
      auto* frame = made<QFrame>();
      frame->setProperty("role", "card");
      if (height > 0) frame->setFixedHeight(height);
      return frame;
    };
    window->setPreview(card(0), card(72), [] {});
    window->setTimeline(card(0), [] {});
    window->draw();
    QApplication::processEvents();
  }

  void picture(const char* name) const {
    const auto folder = qEnvironmentVariable("KVO_PICTURES");
    if (!folder.isEmpty()) window->grab().save(folder + "/" + name + ".png");
  }

  template <class Part>
  Part* part(const QString& name) const {
    for (auto* widget : window->findChildren<Part*>())
      if (widget->accessibleName() == name) return widget;
    ADD_FAILURE() << "no " << name.toStdString();
    return nullptr;
  }
};

TEST(FrmRush, LooksAsDesigned) {
  for (const double size : {1.0, 2.0}) {
    setThemeSize(*qApp, size);
    RushBench b;
    b.open();
    const std::string end = size > 1 ? "@2x" : "";
    b.picture(("create" + end).c_str());
    b.frame.CurrentTab = 3;
    b.window->draw();
    QApplication::processEvents();
    QTest::qWaitFor([&b] { return b.come >= 18; });
    b.window->draw();
    b.picture(("transition" + end).c_str());
    for (const auto* name : {"Heart", "Blinds", "Whirlwind"}) {
      b.transitionRules.pick(name);
      if (std::string_view(name) == "Whirlwind") b.transitionRules.openParticles(true);
      b.window->draw();
      b.picture((std::string("transition-") + name + end).c_str());
    }
  }
  setThemeSize(*qApp, 1);
}

}  // namespace
}  // namespace kvo
