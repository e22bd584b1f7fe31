// The editor's window, drawn from state that is filled by hand.
#include "editor/samples/engine_samples.h"
#include "editor/tabs/tab_bench.h"
#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "ui/kvo_but.h"
#include "ui/made.h"
#include "ui/theme.h"
#include "windows/analysing/frm_analysing.h"
#include "windows/editor/create_page.h"
#include "windows/editor/frm_rush.h"
#include "windows/editor/hand_watch.h"
#include "windows/editor/transition_page.h"
#include "windows/editor/transition_tiles.h"
#include "windows/named_parts.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct RushBench : test::TabBench {
  EditorFrame frame{true, "   Create New Movie from Holiday Collection", 1, true, 0.4};
  ClipStats stats;
  ClipSliders sliders;
  EditorTotals totals;
  ClipKeys keys;
  WorkGlance queue;
  EditorHistory history{{"Fade on beach.avi", "Transition on lake at dusk.mpg"}, {"Blur on beach.avi"}};
  CreateTab create;
  TransitionTab transition;
  test::MemoryStore store;
  test::PlainDesktop desktop;
  test::NamedStreams noFiles;  // so that the samples are of plain colours
  EngineSamples samples{transitionArt(collection, settings), noFiles, [] {}};
  CreateRules createRules{editing, create, host};
  TransitionRules transitionRules{editing, transition, host, store};
  std::string asked;
  std::unique_ptr<FrmRush> window;

  RushBench() {
    sliders.Sld_Rate.Enabled = sliders.Sld_AudioOut.Enabled = true;
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
    const auto note = [this](const char* what) { return [this, what] { asked += std::string(what) + " "; }; };
    const auto number = [this](const char* what) {
      return [this, what](auto value) { asked += what + std::to_string(static_cast<int>(value)) + " "; };
    };
    window = std::make_unique<FrmRush>(
        RushState{frame, stats, sliders, totals, keys, history, queue},
        RushActs{[this](int tab) {
                   frame.CurrentTab = tab;
                   window->draw();
                 },
                 number("key"), note("transition"), number("rate"), note("rateUp"), number("level"),
                 number("jog"), number("history"),
                 [this](double part) { asked += "zoom" + std::to_string(std::lround(part * 100)) + " "; },
                 note("whole"), note("preview"), note("render"),
                 [this] { return asked += "save ", std::string("Saved"); },
                 [this] { return asked += "saveAs ", std::string(); }, note("stop"), note("close"),
                 note("queue")},
        FrmRush::Keeping{WindowPlace(store, desktop, "EditorPlace"), store}, KVO_SHARE "/kvo5/Buttons/");
    auto* page = made<CreatePage>(create, frame, createRules,
                                  CreatePage::Acts{note("preview"), note("render"), note("save"),
                                                   note("help"), note("quit"), [this] { window->draw(); }},
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
    auto* timeline = card(0);
    timeline->setFocusPolicy(Qt::StrongFocus);
    timeline->setAccessibleName("timeline");
    window->setTimeline(timeline, [] {});
    window->draw();
    QApplication::processEvents();
  }

  void play() {
    frame.toolsOn = false;
    frame.toolsOffBecause = "Stop the preview first";
    keys.whyNot.fill(frame.toolsOffBecause);
    createRules.showPreview(true);
    window->draw();
  }

  template <class Part>
  Part* part(const QString& name) const {
    return test::named<Part>(*window, name);
  }
};

TEST(FrmRush, ColumnsAndTimelineTakeTheRoomThatThereIs) {
  RushBench b;
  b.desktop.facts = {2600, 1600, 24, 1};
  b.open();
  const auto* page = b.part<QScrollArea>("Create");
  const auto* quit = b.part<QPushButton>("Quit");
  const auto* timeline = b.part<QFrame>("timeline");
  struct Row {
    QSize window;
    int page;  // its width
    int timeline;
  };
  for (const auto& row : {Row{{1024, 640}, 440, 134},
                          {{1100, 664}, 440, 134},
                          {{1280, 764}, 440, 196},
                          {{1920, 1044}, 632, 300}}) {
    b.window->resize(row.window);
    QApplication::processEvents();
    EXPECT_EQ(page->verticalScrollBar()->maximum(), 0) << row.window.height();
    EXPECT_LE(quit->geometry().bottom(), page->widget()->height() - 6) << row.window.height();
    EXPECT_EQ(page->widget()->width(), row.page);
    EXPECT_NEAR(timeline->height(), row.timeline, 10) << row.window.height();
  }
}

// What a key does where nothing else has a use for it, and what a disabled one does not.
TEST(FrmRush, KeysReachTheClipAndTheTabs) {
  struct Row {
    Qt::Key key;
    Qt::KeyboardModifiers with;
    const char* asked;
  };
  RushBench b;
  b.open();
  b.keys.of(ClipKey::Equi) = "There is nothing behind Mark-Out";
  b.queue = {"43%, 2 renders wait", "a.mp4 is being made in the background", 0.43, false};
  b.window->draw();
  b.part<QAbstractButton>("43%, 2 renders wait")->click();
  EXPECT_EQ(b.asked, "queue ");
  b.window->setFocus();
  for (const auto& row :
       {Row{Qt::Key_I, Qt::NoModifier, "key0 "}, Row{Qt::Key_O, Qt::ShiftModifier, "key3 "},
        Row{Qt::Key_C, Qt::ShiftModifier, "key6 "}, Row{Qt::Key_E, Qt::NoModifier, ""},
        Row{Qt::Key_F2, Qt::NoModifier, "key9 "}, Row{Qt::Key_Space, Qt::NoModifier, "preview "},
        Row{Qt::Key_Minus, Qt::NoModifier, "zoom35 "}, Row{Qt::Key_Plus, Qt::NoModifier, "zoom45 "},
        Row{Qt::Key_0, Qt::NoModifier, "whole "}, Row{Qt::Key_D, Qt::NoModifier, "transition "},
        Row{Qt::Key_Z, Qt::ControlModifier, "history-1 "},
        Row{Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, "history1 "},
        Row{Qt::Key_S, Qt::ControlModifier, "save "}, Row{Qt::Key_Return, Qt::ControlModifier, "render "},
        Row{Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, "saveAs "}}) {
    b.asked.clear();
    QTest::keyClick(b.window.get(), row.key, row.with);
    EXPECT_EQ(b.asked, row.asked) << QKeySequence(row.key | row.with).toString().toStdString();
    if (row.key != Qt::Key_S || row.with != Qt::ControlModifier) continue;
    const auto* plate = b.window->findChild<QWidget*>("whyNot");
    ASSERT_TRUE(plate != nullptr && plate->isVisible());
    EXPECT_EQ(plate->accessibleName(), "Saved");
  }
  QTest::keyClick(b.window.get(), Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(b.frame.CurrentTab, 3);
  b.part<TransitionTiles>("Transitions")->setFocus();
  QTest::keyClick(b.window->focusWidget(), Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(b.window->focusWidget(), b.part<QTabBar>("Tabs of the editor"));
  b.asked.clear();
  b.frame.CurrentTab = 1;
  b.window->draw();
  auto* width = b.part<QLineEdit>("Width in pixels");
  width->setFocus();
  QTest::keyClicks(width, "0ic");
  EXPECT_EQ(b.asked, "") << "a field has its letters for itself";
  auto* strip = b.part<QTabBar>("Tabs of the editor");
  strip->setFocus();
  b.play();
  ASSERT_NE(b.window->focusWidget(), nullptr);
  for (const auto key : {Qt::Key_I, Qt::Key_Space, Qt::Key_Escape})
    QTest::keyClick(b.window->focusWidget(), key);
  strip->setCurrentIndex(4);
  EXPECT_EQ(b.asked, "preview stop ");
  EXPECT_EQ(b.frame.CurrentTab, 1);
  b.frame.toolsOn = true;
  b.frame.toolsOffBecause.clear();
  b.window->draw();
  EXPECT_EQ(b.window->focusWidget(), strip);
}

// What stands on the plate of the window now, and ends with the next act.
QString refused(const RushBench& b) {
  const auto* plate = b.window->findChild<QWidget*>("whyNot", Qt::FindDirectChildrenOnly);
  return plate != nullptr && plate->isVisible() ? plate->accessibleName() : QString();
}

TEST(FrmRush, WhatCannotBeDoneIsSaidWhereTheHandIs) {
  RushBench b;
  b.history = {};
  b.open();
  b.keys.of(ClipKey::Equi) = "Nothing lies behind the Mark-Out";
  b.sliders.Sld_Rate = {10, 200, 100, false, {}, "A still has no speed"};
  b.window->draw();
  const auto key = [&](Qt::Key which, Qt::KeyboardModifiers with = {}) {
    return [&b, which, with] { QTest::keyClick(b.window.get(), which, with); };
  };
  const auto click = [&](QWidget* part) { return [part] { QTest::mouseClick(part, Qt::LeftButton); }; };
  auto* equi = b.part<KVOBut>(
      "Copy equal chunk from end of current clip - Right Click on Movie Name to Re-Name\n"
      "Nothing lies behind the Mark-Out");
  struct Row {
    std::function<void()> act;
    const char* said;
  };
  for (const auto& row : {Row{key(Qt::Key_E), "Nothing lies behind the Mark-Out"}, Row{key(Qt::Key_I), ""},
                          Row{key(Qt::Key_Z, Qt::ControlModifier), "There is nothing to undo"},
                          Row{click(equi), "Nothing lies behind the Mark-Out"},
                          Row{click(b.part<QSlider>("Clip speed")), "A still has no speed"}}) {
    b.asked.clear();
    QTest::qWait(200);  // the press that was answered is over
    row.act();
    EXPECT_EQ(refused(b).toStdString(), row.said);
    EXPECT_EQ(b.asked, *row.said == 0 ? "key0 " : "");
  }
  b.play();
  for (const auto& act : std::initializer_list<std::function<void()>>{key(Qt::Key_3, Qt::ControlModifier),
                                                                      click(b.part<QComboBox>("Resolution")),
                                                                      key(Qt::Key_S, Qt::ControlModifier)}) {
    QTest::qWait(200);
    QTest::keyClick(b.window.get(), Qt::Key_Q);
    EXPECT_EQ(refused(b), "");
    act();
    EXPECT_EQ(refused(b), "Stop the preview first");
  }
}

TEST(HandWatch, TellsWhatIsHeldInItsWindow) {
  QWidget window;
  QSlider slider(Qt::Horizontal, &window);
  QWidget other;
  std::string told;
  HandWatch watch(window, [&](bool held) { told += held ? "+" : "-"; });
  window.show();
  const auto look = [&] { return std::exchange(told, {}); };
  const auto comesToRest = [&] { return QTest::qWaitFor([&] { return told == "-"; }); };
  QTest::mousePress(&slider, Qt::LeftButton);
  EXPECT_EQ(look().front(), '+');
  QTest::mouseRelease(&slider, Qt::LeftButton);
  EXPECT_EQ(look().back(), '-');
  QTest::keyPress(&slider, Qt::Key_Right);
  look();
  QKeyEvent again(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&slider, &again);
  EXPECT_EQ(look(), "") << "the key is still down";
  QTest::keyRelease(&slider, Qt::Key_Right);
  QTest::keyPress(&slider, Qt::Key_Right);
  EXPECT_EQ(look().find('-'), std::string::npos) << "as a desktop may tell of a key that is held";
  QTest::keyRelease(&slider, Qt::Key_Right);
  QTest::keyPress(&slider, Qt::Key_Up);
  EXPECT_EQ(look().substr(0, 2), "-+") << "another key is another gesture";
  QTest::keyRelease(&slider, Qt::Key_Up);
  EXPECT_TRUE(comesToRest());
  look();
  QTest::mouseClick(&other, Qt::LeftButton);
  EXPECT_EQ(look(), "");
  QWheelEvent notch({5, 5}, {5, 5}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&slider, &notch);
  EXPECT_EQ(look().back(), '+');
  EXPECT_TRUE(comesToRest());
}

TEST(FrmRush, SaysWhyAKeyIsOff) {
  RushBench b;
  b.keys.of(ClipKey::Split) = "A still cannot be split";
  b.totals = {"051.900", "030.000(s)", "Audio Length does not match video Length", true, "0 to 51.90 (s)"};
  b.history = {};
  b.open();
  int off = 0;
  for (const auto* button : b.window->findChildren<QAbstractButton*>()) {
    const auto* key = dynamic_cast<const KVOBut*>(button);
    if (key == nullptr) continue;
    EXPECT_FALSE(key->accessibleName().isEmpty());
    EXPECT_GE(std::min(key->width(), key->height()), 24) << key->accessibleName().toStdString();
    const bool isSplit = key->toolTip().contains("A still cannot be split");
    EXPECT_FALSE(isSplit && key->isEnabled());
    off += key->isEnabled() ? 0 : 1;
  }
  EXPECT_EQ(off, 4) << "split, undo, redo, their list";
  EXPECT_EQ(b.part<QLabel>("Length of the video")->toolTip(), "0 to 51.90 (s)");
  const auto* length = b.part<QLabel>("Length of the audio");
  EXPECT_EQ(length->toolTip(), "Audio Length does not match video Length");
  for (const bool isRed : {false, true}) {
    b.totals.audioIsRed = isRed;
    b.window->draw();
    EXPECT_EQ(length->palette().color(QPalette::WindowText) == toColour(token("red")), isRed);
  }
}

TEST(FrmRush, EachControlHasAName) {
  RushBench b;
  b.open();
  for (const int tab : {1, 3}) {
    b.frame.CurrentTab = tab;
    b.window->draw();
    EXPECT_GT(test::expectNamed(*b.window), 20) << tab;
  }
}

TEST(FrmRush, TabGoesFromTheStripDownToTheTimeline) {
  RushBench b;
  b.open();
  auto* strip = b.part<QTabBar>("Tabs of the editor");
  QStringList order;
  for (QWidget* at = strip; order.size() < 99 && (at != strip || order.empty());
       at = at->nextInFocusChain()) {
    if (at->isVisible() && (at->focusPolicy() & Qt::TabFocus) != 0) order << at->accessibleName();
  }
  qsizetype last = -1;
  for (const auto* name : {"Tabs of the editor", "Resolution", "Preview", "Clip speed",
                           "Position in the clip", "Set Mark-IN frame", "Zoom", "timeline"}) {
    EXPECT_GT(order.indexOf(name), last) << name << " in " << order.join(", ").toStdString();
    last = order.indexOf(name);
  }
}

TEST(CreatePage, ItsControlsActAndFollow) {
  RushBench b;
  b.open();
  auto* size = b.part<QComboBox>("Resolution");
  EXPECT_EQ(size->currentText(), "640 x 480");
  auto* width = b.part<QLineEdit>("Width in pixels");
  width->setFocus();
  width->selectAll();
  QTest::keyClicks(width, "800");
  QTest::keyClick(width, Qt::Key_Return);
  EXPECT_EQ(b.settings.preferences().RenderWidth, 800);
  EXPECT_EQ(size->currentIndex(), -1) << "800 x 480 is none of the list";
  auto* power = b.part<QSlider>("Preview performance");
  QTest::keyClick(power, Qt::Key_Right);
  EXPECT_EQ(b.settings.preferences().PreviewCPU, 6);
  EXPECT_EQ(power->toolTip(), "60% CPU");
  b.settings.change().PreviewCPU = 2;  // an undo
  b.createRules.refresh();
  b.window->draw();
  EXPECT_EQ(power->value(), 2);
}

TEST(TransitionPage, TilesArePickedByMouseAndArrows) {
  RushBench b;
  b.frame.CurrentTab = 3;
  b.open();
  auto* tiles = b.part<TransitionTiles>("Transitions");
  auto* find = b.part<QLineEdit>("Find a transition by its name");
  QTest::keyClicks(find, "circle");
  EXPECT_EQ(b.transition.names.shown.size(), 6U);
  QTest::mouseClick(tiles->widget(), Qt::LeftButton, {}, QPoint(110, 50));
  EXPECT_EQ(b.clip(2).TransType(), "Circle2");
  QTest::keyClick(tiles, Qt::Key_Down);
  EXPECT_EQ(b.clip(2).TransType(), "Circle16");
  QTest::keyClick(tiles, Qt::Key_Left);
  EXPECT_EQ(b.clip(2).TransType(), "Circle8");
  QTest::mouseMove(tiles->widget(), QPoint(30, 30));
  QTest::mouseClick(tiles->widget(), Qt::LeftButton, {}, QPoint(68, 12));
  EXPECT_EQ(b.transition.names.favourites, std::vector<std::string>{"Circle1"}) << "by its star";
  EXPECT_EQ(b.clip(2).TransType(), "Circle8");
}

TEST(FrmRush, RemembersItselfAndFitsASmallScreen) {
  RushBench b;
  b.desktop.facts = {1366, 768, 24, 1};
  b.open();
  EXPECT_TRUE(b.window->width() <= 1366 && b.window->height() <= 768);
  b.window->resize(1100, 700);
  b.frame.visible = false;
  b.window->draw();
  b.frame.visible = true;
  b.window->resize(1280, 760);
  b.window->draw();
  EXPECT_EQ(b.window->size(), QSize(1100, 700));
  b.window->close();
  EXPECT_TRUE(b.window->isVisible()) << "it goes when the editor has closed";
  EXPECT_EQ(b.asked, "close ");
}

TEST(FrmAnalysing, TellsHowFarItIsAndCanBeStoppedByKeyAndPointer) {
  AnalysingState state;
  int stops = 0;
  QWidget owner;
  owner.resize(800, 600);
  owner.show();
  FrmAnalysing window(state, [&] { ++stops; });
  window.draw(&owner);
  EXPECT_FALSE(window.isVisible());
  state = {
      .visible = true, .done = 2, .total = 12, .file = "beach.avi", .film = {}, .plays = 0, .picture = {}};
  window.draw(&owner);
  ASSERT_TRUE(window.isVisible());
  EXPECT_TRUE(test::says(window, "Analysing Clip 3 of 12") && test::says(window, "beach.avi"));
  const auto fixed = window.grab().toImage();
  state.picture = std::make_shared<const Bitmap>(Bitmap{1, 1, {0, 200, 0}});
  window.draw(&owner);
  EXPECT_NE(window.grab().toImage(), fixed) << "the film";
  QTest::keyClick(&window, Qt::Key_Escape);
  QTest::mouseClick(window.findChild<QPushButton*>(), Qt::LeftButton);
  window.close();
  EXPECT_EQ(stops, 3);
  EXPECT_TRUE(window.isVisible()) << "until the state says otherwise";
  window.draw(nullptr);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace kvo
