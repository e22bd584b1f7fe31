// The editor's window, drawn from state that is filled by hand.
#include "editor/samples/engine_samples.h"
#include "editor/tabs/tab_bench.h"
#include "ui/kvo_but.h"
#include "ui/widget_bench.h"
#include "windows/analysing/frm_analysing.h"
#include "windows/editor/create_page.h"
#include "windows/editor/frm_rush.h"
#include "windows/editor/hand_watch.h"
#include "windows/editor/transition_page.h"
#include "windows/editor/transition_tiles.h"

#include <QComboBox>
#include <QFrame>
#include <QSplitter>
#include <QTabBar>
#include <QTest>

namespace kvo {
namespace {

struct RushBench : testing::Test, test::TabBench {
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
  test::Told told;
  std::unique_ptr<FrmRush> window;

  RushBench() {
    sliders.Sld_Rate.Enabled = sliders.Sld_AudioOut.Enabled = true;
    clip(2).TransType("Dissolve");
    clip(2).TransIn(20);
    collection.icurMov = 2;
    settings.adjust().RenderWidth = 640;
    settings.adjust().RenderHeight = 480;
    createRules.restore();
    transitionRules.enter();
    host.look();
  }

  void showTab(int tab) {
    frame.CurrentTab = tab;
    window->draw();
  }
  void open() {
    const auto act = [this](const char* name) { return told.act(name); };
    const auto number = [this](const char* name) { return told.number(name); };
    const auto says = [this](const char* name, const std::string& saying) {
      return [this, name, saying] { return told.line += name, saying; };
    };
    const auto draw = [this] { window->draw(); };
    window = std::make_unique<FrmRush>(
        RushState{frame, stats, sliders, totals, keys, history, queue},
        RushActs{[this](int tab) { showTab(tab); }, number("key"), act("transition"), number("rate"),
                 act("rateUp"), number("level"), number("jog"), number("history"),
                 [this](double part) { told.number("zoom")(std::lround(part * 100)); }, act("whole"),
                 number("height"), act("preview"), act("render"), says("save ", "Saved"), says("saveAs ", ""),
                 act("stop"), act("close"), act("queue")},
        WindowPlace(store, desktop, "EditorPlace"), KVO_SHARE "/kvo5/Buttons/");
    const CreatePage::Acts acts{act("preview"), act("render"), act("save"), act("help"), act("quit"), draw};
    auto* page = made<CreatePage>(create, frame, createRules, acts, window.get());
    window->setPage(1, page, [page] { page->draw(); });
    const auto mask = [] { return "/m/mask.jpg"; };
    const TransitionPage::Logic logic{transition, transitionRules, collection, samples, mask, draw};
    auto* tiles = made<TransitionPage>(logic, window.get());
    window->setPage(3, tiles, [tiles] { tiles->draw(); });
    auto* row = made<QFrame>();
    row->setFixedHeight(72);
    window->setPreview(made<QFrame>(), row, [] {});
    auto* timeline = made<QFrame>();
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

  /// What stands on the plate of the window now, and ends with the next act.
  [[nodiscard]] std::string said() const {
    const auto* plate = window->findChild<QWidget*>("whyNot", Qt::FindDirectChildrenOnly);
    return plate != nullptr && plate->isVisible() ? plate->accessibleName().toStdString() : "";
  }
  template <class Part>
  Part* part(const QString& name) const {
    return test::named<Part>(*window, name);
  }
};

TEST_F(RushBench, ColumnsAndTimelineTakeTheRoomThatThereIs) {
  desktop.facts = {2600, 1600, 24, 1};
  open();
  const auto* page = part<QScrollArea>("Create");
  const auto* quit = part<QPushButton>("Quit");
  const auto* timeline = part<QFrame>("timeline");
  using Row = std::tuple<int, int, int, int>;
  for (const auto& [width, height, ofPage, ofTimeline] :
       {Row{1024, 640, 440, 134}, Row{1100, 664, 440, 134}, Row{1280, 764, 440, 196},
        Row{1920, 1044, 632, 300}}) {
    window->resize(width, height);
    QApplication::processEvents();
    EXPECT_EQ(page->verticalScrollBar()->maximum(), 0) << height;
    EXPECT_LE(quit->geometry().bottom(), page->widget()->height() - 6) << height;
    EXPECT_EQ(page->widget()->width(), ofPage);
    EXPECT_NEAR(timeline->height(), ofTimeline, 10) << height;
  }
}

TEST_F(RushBench, ASizeFromALargerScreenLeavesRoomForAFrame) {
  desktop.facts = {1366, 768, 24, 1};
  store.write("EditorPlace", "100,60,1280,764,0,0,1600,1000,\"first\"");
  open();
  EXPECT_EQ(window->width(), 1280);
  EXPECT_LE(window->y() + 36 + window->height(), 768) << window->height();
}

TEST_F(RushBench, TheTimelineKeepsTheHeightThatTheUserGivesIt) {
  desktop.facts = {2600, 1600, 24, 1};
  frame.timelineHeight = 280;
  open();
  window->resize(1280, 1000);
  QApplication::processEvents();
  const auto* splitter = window->findChild<QSplitter*>();
  EXPECT_EQ(splitter->sizes().back(), 280);
  auto* handle = splitter->handle(1);
  const auto middle = handle->rect().center();
  QTest::mousePress(handle, Qt::LeftButton, {}, middle);
  QTest::mouseMove(handle, middle + QPoint(0, 30));
  QTest::mouseRelease(handle, Qt::LeftButton, {}, middle + QPoint(0, 30));
  const int low = splitter->sizes().back();
  EXPECT_EQ(low, 250);
  window->resize(1280, 980);
  QApplication::processEvents();
  EXPECT_EQ(splitter->sizes().back(), low);
  window->hide();
  EXPECT_EQ(told.look(), "height250 ");
  frame.timelineHeight = 300;
  window->draw();  // appears anew
  for (const int height : {732, 700}) {
    window->resize(1280, height);
    QApplication::processEvents();
    EXPECT_EQ(splitter->sizes().back(), 300) << "though the columns scroll";
  }
}

TEST_F(RushBench, TheCardOfARenderHasTheRoomThatItNeeds) {
  desktop.facts = {2600, 1600, 24, 1};
  open();
  auto* card = made<QWidget>(window.get());
  bool isShown = false;
  window->setRender(card, [&isShown] { return isShown; });
  const auto* right = part<QScrollArea>("The clip in hand");
  const auto* timeline = part<QFrame>("timeline");
  for (const auto& [width, height, beside, wanted] : {std::tuple{952, 640, false, 0},
                                                      {1024, 640, false, 0},
                                                      {1280, 764, true, 0},
                                                      {1280, 764, true, 400}}) {
    window->hide();
    frame.timelineHeight = wanted;
    window->draw();
    isShown = true;
    window->resize(width, height);
    window->draw();
    QApplication::processEvents();
    EXPECT_EQ(right->isVisible(), beside) << width;
    EXPECT_EQ(timeline->isVisible(), beside) << width;
    EXPECT_TRUE(card->width() >= 914 && card->height() >= 442) << width;
    isShown = false;
    window->draw();
    EXPECT_TRUE(right->isVisible() && timeline->isVisible()) << width;
  }
}

// What a key does where nothing else has a use for it, and what a disabled one does not.
TEST_F(RushBench, KeysReachTheClipAndTheTabs) {
  open();
  keys.of(ClipKey::Equi) = "There is nothing behind Mark-Out";
  queue = {"43%, 2 renders wait", "a.mp4 is being made in the background", 0.43, false};
  window->draw();
  part<QAbstractButton>("43%, 2 renders wait")->click();
  EXPECT_EQ(told.look(), "queue ");
  window->setFocus();
  for (const auto* keys : {"I", "Shift+O", "Shift+C", "E", "F2", "Space", "-", "+", "0", "D", "Ctrl+Z",
                           "Ctrl+Shift+Z", "Ctrl+Return", "Ctrl+Shift+S", "Ctrl+S"})
    QTest::keySequence(window.get(), QKeySequence(keys));
  EXPECT_EQ(
      told.look(),
      "key0 key3 key6 key9 preview zoom35 zoom45 whole transition history-1 history1 render saveAs save ")
      << "E is off";
  EXPECT_EQ(said(), "Saved");
  QTest::keyClick(window.get(), Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(frame.CurrentTab, 3);
  part<TransitionTiles>("Transitions")->setFocus();
  QTest::keyClick(window->focusWidget(), Qt::Key_1, Qt::ControlModifier);
  auto* strip = part<QTabBar>("Tabs of the editor");
  EXPECT_EQ(window->focusWidget(), strip);
  showTab(1);
  auto* width = part<QLineEdit>("Width in pixels");
  width->setFocus();
  QTest::keyClicks(width, "0ic");
  EXPECT_EQ(told.look(), "") << "a field has its letters for itself";
  strip->setFocus();
  play();
  ASSERT_NE(window->focusWidget(), nullptr);
  for (const auto key : {Qt::Key_I, Qt::Key_Space, Qt::Key_Escape})
    QTest::keyClick(window->focusWidget(), key);
  strip->setCurrentIndex(4);
  EXPECT_EQ(told.look(), "preview stop ");
  EXPECT_EQ(frame.CurrentTab, 1);
  frame.toolsOn = true;
  frame.toolsOffBecause.clear();
  window->draw();
  EXPECT_EQ(window->focusWidget(), strip);
}

TEST_F(RushBench, WhatCannotBeDoneIsSaidWhereTheHandIs) {
  history = {};
  open();
  keys.of(ClipKey::Equi) = "Nothing lies behind the Mark-Out";
  sliders.Sld_Rate = {10, 200, 100, false, {}, "A still has no speed"};
  window->draw();
  const auto answered = [&] {
    auto answer = said() + told.look();
    QTest::qWait(200);  // the press that was answered is over
    return answer;
  };
  const auto press = [&](const char* keys) {
    QTest::keySequence(window.get(), QKeySequence(keys));
    return answered();
  };
  const auto click = [&](QWidget* part) {
    QTest::mouseClick(part, Qt::LeftButton);
    return answered();
  };
  EXPECT_EQ(press("E"), "Nothing lies behind the Mark-Out");
  EXPECT_EQ(press("I"), "key0 ");
  EXPECT_EQ(press("Ctrl+Z"), "There is nothing to undo");
  EXPECT_EQ(click(part<KVOBut>("Copy equal chunk from end of current clip - Right Click on Movie Name to "
                               "Re-Name\nNothing lies behind the Mark-Out")),
            "Nothing lies behind the Mark-Out");
  EXPECT_EQ(click(part<QSlider>("Clip speed")), "A still has no speed");
  play();
  EXPECT_EQ(press("Ctrl+3"), "Stop the preview first");
  EXPECT_EQ(press("Q"), "");
  EXPECT_EQ(click(part<QComboBox>("Resolution")), "Stop the preview first");
  EXPECT_EQ(press("Q"), "");
  EXPECT_EQ(press("Ctrl+S"), "Stop the preview first");
}

TEST(HandWatch, TellsWhatIsHeldInItsWindow) {
  QWidget window;
  QSlider slider(Qt::Horizontal, &window);
  QWidget other;
  test::Told told;
  HandWatch watch(window, [&](bool held) { told.line += held ? "+" : "-"; });
  window.show();
  const auto comesToRest = [&] { return QTest::qWaitFor([&] { return told.line == "-"; }); };
  QTest::mousePress(&slider, Qt::LeftButton);
  EXPECT_EQ(told.look().front(), '+');
  QTest::mouseRelease(&slider, Qt::LeftButton);
  EXPECT_EQ(told.look().back(), '-');
  QTest::keyPress(&slider, Qt::Key_Right);
  told.look();
  QKeyEvent again(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&slider, &again);
  EXPECT_EQ(told.look(), "") << "the key is still down";
  QTest::keyRelease(&slider, Qt::Key_Right);
  QTest::keyPress(&slider, Qt::Key_Right);
  EXPECT_EQ(told.look().find('-'), std::string::npos) << "as a desktop may tell of a key that is held";
  QTest::keyRelease(&slider, Qt::Key_Right);
  QTest::keyPress(&slider, Qt::Key_Up);
  EXPECT_EQ(told.look().substr(0, 2), "-+") << "another key is another gesture";
  QTest::keyRelease(&slider, Qt::Key_Up);
  EXPECT_TRUE(comesToRest());
  told.look();
  QTest::mouseClick(&other, Qt::LeftButton);
  EXPECT_EQ(told.look(), "");
  test::turnWheel(slider, {5, 5}, 1);
  EXPECT_EQ(told.look().back(), '+');
  EXPECT_TRUE(comesToRest());
}

TEST_F(RushBench, SaysWhyAKeyIsOff) {
  keys.of(ClipKey::Split) = "A still cannot be split";
  totals = {"051.900", "030.000(s)", "Audio Length does not match video Length", true, "0 to 51.90 (s)"};
  history = {};
  open();
  QStringList off;
  for (const auto* button : window->findChildren<QAbstractButton*>()) {
    const auto* key = dynamic_cast<const KVOBut*>(button);
    if (key == nullptr) continue;
    EXPECT_FALSE(key->accessibleName().isEmpty());
    EXPECT_GE(std::min(key->width(), key->height()), 24) << key->accessibleName().toStdString();
    if (!key->isEnabled()) off << key->toolTip();
  }
  EXPECT_EQ(off.size(), 4) << "split, undo, redo, their list";
  EXPECT_TRUE(off.join("").contains("A still cannot be split"));
  EXPECT_EQ(part<QLabel>("Length of the video")->toolTip(), "0 to 51.90 (s)");
  const auto* length = part<QLabel>("Length of the audio");
  EXPECT_EQ(length->toolTip(), "Audio Length does not match video Length");
  for (const bool isRed : {false, true}) {
    totals.audioIsRed = isRed;
    window->draw();
    EXPECT_EQ(length->palette().color(QPalette::WindowText) == toColour(token("red")), isRed);
  }
}

TEST_F(RushBench, ItsControlsHaveNamesAndTabGoesFromTheStripDownToTheTimeline) {
  open();
  EXPECT_GT(test::expectNamed(*window), 20);
  const auto order = test::tabOrder(*part<QTabBar>("Tabs of the editor"));
  std::size_t at = 0;
  for (const auto* name : {"Resolution", "Preview, ", "Clip speed", "Position in the clip",
                           "Set Mark-IN frame", "Zoom", "timeline"}) {
    at = order.find(name, at);
    ASSERT_NE(at, std::string::npos) << name << " in " << order;
  }
}

TEST_F(RushBench, CreatePageActsAndFollows) {
  open();
  auto* size = part<QComboBox>("Resolution");
  EXPECT_EQ(size->currentText(), "640 x 480");
  auto* width = part<QLineEdit>("Width in pixels");
  width->selectAll();
  QTest::keyClicks(width, "800");
  QTest::keyClick(width, Qt::Key_Return);
  EXPECT_EQ(settings.preferences().RenderWidth, 800);
  EXPECT_EQ(size->currentIndex(), -1) << "800 x 480 is none of the list";
  auto* power = part<QSlider>("Preview performance");
  QTest::keyClick(power, Qt::Key_Right);
  EXPECT_EQ(settings.preferences().PreviewCPU, 6);
  EXPECT_EQ(power->toolTip(), "60% CPU");
  settings.change().PreviewCPU = 2;  // an undo
  createRules.refresh();
  window->draw();
  EXPECT_EQ(power->value(), 2);
}

TEST_F(RushBench, TransitionTilesArePickedByMouseAndArrows) {
  frame.CurrentTab = 3;
  open();
  auto* tiles = part<TransitionTiles>("Transitions");
  auto* find = part<QLineEdit>("Find a transition by its name");
  QTest::keyClicks(find, "circle");
  EXPECT_EQ(transition.names.shown.rows().size(), 6U);
  EXPECT_GT(test::expectNamed(*window), 20);
  QTest::mouseClick(tiles->widget(), Qt::LeftButton, {}, QPoint(110, 50));
  EXPECT_EQ(clip(2).TransType(), "Circle2");
  QTest::keyClick(tiles, Qt::Key_Down);
  EXPECT_EQ(clip(2).TransType(), "Circle16");
  QTest::keyClick(tiles, Qt::Key_Left);
  EXPECT_EQ(clip(2).TransType(), "Circle8");
  QTest::mouseMove(tiles->widget(), QPoint(30, 30));
  QTest::mouseClick(tiles->widget(), Qt::LeftButton, {}, QPoint(68, 12));
  EXPECT_EQ(transition.names.favourites.rows(), std::vector<std::string>{"Circle1"}) << "by its star";
  EXPECT_EQ(clip(2).TransType(), "Circle8");
  EXPECT_FALSE(tiles->verticalScrollBar()->isVisible()) << "six fit";
  QTest::keyClicks(find, "zzz");
  EXPECT_TRUE(transition.names.shown.rows().empty());
  const auto seen = tiles->widget()->grab().toImage();
  bool isBlank = true;
  for (int y = 0; y < seen.height(); ++y) {
    for (int x = 0; x < seen.width(); ++x) isBlank = isBlank && seen.pixel(x, y) == seen.pixel(0, 0);
  }
  EXPECT_FALSE(isBlank) << "it says that there is none";
  EXPECT_FALSE(tiles->verticalScrollBar()->isVisible());
  QTest::keyClick(find, Qt::Key_Escape);
  EXPECT_GT(transition.names.shown.rows().size(), 50U);
  EXPECT_EQ(find->text(), "");
  EXPECT_TRUE(tiles->verticalScrollBar()->isVisible());
}

TEST_F(RushBench, RemembersItselfAndFitsASmallScreen) {
  desktop.facts = {1366, 768, 24, 1};
  open();
  EXPECT_TRUE(window->width() <= 1366 && window->height() <= 768);
  window->resize(1100, 700);
  frame.visible = false;
  window->draw();
  frame.visible = true;
  window->resize(1280, 760);
  window->draw();
  EXPECT_EQ(window->size(), QSize(1100, 700));
  window->close();
  EXPECT_TRUE(window->isVisible()) << "it goes when the editor has closed";
  EXPECT_EQ(told.look(), "close ");
}

TEST(FrmAnalysing, TellsHowFarItIsAndCanBeStoppedByKeyAndPointer) {
  AnalysingState state;
  int stops = 0;
  QWidget owner;
  owner.show();
  FrmAnalysing window(state, [&] { ++stops; });
  window.draw(&owner);
  EXPECT_FALSE(window.isVisible());
  state = {
      .visible = true, .done = 2, .total = 12, .file = "beach.avi", .film = {}, .plays = 0, .picture = {}};
  window.draw(&owner);
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
