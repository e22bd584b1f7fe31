// The normal face of the main window, as a user and a screen reader meet it.
#include "ui/cool_list_view.h"
#include "windows/face_bench.h"
#include "windows/main/hover_part.h"
#include "windows/main/plate.h"

#include <QAbstractButton>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>

namespace kvo {
namespace {

using test::FaceBench;
using Names = std::vector<std::string>;

TEST(FaceScale, PutsEdgesWhereTheyBelongAtEachSize) {
  struct Row {
    double size;
    QSize window;
    QRect rail, next;  // of places that touch at size 1
  };
  const Row rows[] = {
      {1, {562, 410}, {30, 4, 388, 19}, {418, 4, 7, 19}},
      {1.25, {702, 512}, {38, 5, 485, 24}, {523, 5, 8, 24}},
      {1.5, {843, 615}, {45, 6, 582, 29}, {627, 6, 11, 29}},
      {2, {1124, 820}, {60, 8, 776, 38}, {836, 8, 14, 38}},
  };
  for (const auto& row : rows) {
    const FaceScale scale(row.size);
    EXPECT_EQ(scale.window(562, 410), row.window) << row.size;
    EXPECT_EQ(scale.place({30, 4, 388, 19}), row.rail) << row.size;
    EXPECT_EQ(scale.place({418, 4, 7, 19}), row.next) << row.size;
    const QFontInfo font(scale.text(11.5));
    EXPECT_NEAR(QFontMetricsF(scale.text(20)).height() / QFontMetricsF(FaceScale(1).text(20)).height(),
                row.size, 0.08);
  }
}

TEST(SkinnedFace, OfAnEmptyCollectionIsOneKeyThatAddsMedia) {
  FaceBench b(Names{});
  auto& pane = b.at("Right Click to Add Media");
  EXPECT_EQ(pane.geometry().size(), QSize(446, 261));
  EXPECT_EQ(b.find("Clips"), nullptr);
  for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
    if (button == Qt::LeftButton) {
      QTest::mouseClick(&pane, button);
    } else {
      QContextMenuEvent event(QContextMenuEvent::Mouse, {9, 9}, pane.mapToGlobal(QPoint(9, 9)));
      QApplication::sendEvent(&pane, &event);
    }
  }
  b.key(Qt::Key_Return);
  EXPECT_EQ(b.dialogs.asked.size(), 3U);
  b.files.all["/v/a.avi"] = "x";
  b.dialogs.answers.push_back("/v/a.avi");
  b.key(Qt::Key_Space);
  EXPECT_EQ(b.names(), Names{"a.avi"});
  ASSERT_NE(b.find("Clips"), nullptr);
  EXPECT_TRUE(b.at("Clips").hasFocus()) << "the keyboard goes where the work goes on";
}

TEST(SkinnedFace, ShowsTheDetailsOrThePictureAlone) {
  FaceBench b;
  const Names parts = {"Clips", "Picture", "Display", "Mark-In"};
  const auto shown = [&] {
    Names there;
    for (const auto& name : parts) {
      if (b.find(QString::fromStdString(name)) != nullptr) there.push_back(name);
    }
    return there;
  };
  EXPECT_EQ(shown(), parts);
  EXPECT_EQ(b.at("Picture").size(), QSize(247, 144));
  b.links.display().turnDetails();
  b.draw();
  EXPECT_EQ(shown(), (Names{"Picture", "Display", "Mark-In"}));
  EXPECT_EQ(b.at("Picture").size(), QSize(442, 257));
  EXPECT_EQ(b.face().focusWidget(), &b.face()) << "no control has got the keyboard of the list that went";
  b.key(Qt::Key_2);
  EXPECT_EQ(b.window.list.ListIndex, 1) << "and its keys go on";
  b.key(Qt::Key_F2);
  ASSERT_NE(b.find("Text of the item"), nullptr) << "a name is edited in the list, which comes back";
  EXPECT_EQ(shown(), parts);
}

TEST(SkinnedFace, IsReachedByTabInOrder) {
  FaceBench b;
  b.history.edit(CommandPass(b.window), "turn", 1, 0, [](Movie& clip) { clip.Volume(5); });
  b.draw();
  auto* const first = &b.at("Menu");
  first->setFocus(Qt::TabFocusReason);
  Names order;
  do {
    order.push_back(b.face().focusWidget()->accessibleName().toStdString());
    QTest::keyClick(b.face().focusWidget(), Qt::Key_Tab);
  } while (b.face().focusWidget() != first && order.size() < 40);
  EXPECT_EQ(order, (Names{"Menu",
                          "Undo",
                          "Clips",
                          "Move up",
                          "Move down",
                          "Add media",
                          "Remove",
                          "Sort",
                          "Position",
                          "Mark-In",
                          "Mark-Out",
                          "Direct Positioner",
                          "Current Playback rate",
                          "Output Level",
                          "Volume",
                          "Play",
                          "Pause",
                          "Right-Click to position to start or Click or Hold Down to rewind 5 frames",
                          "One frame back",
                          "One frame forward",
                          "Right-Click to position to end or Click or Hold Down to advance 5 frames",
                          "A quarter of the speed",
                          "Half the speed",
                          "Twice the speed",
                          "Size of the picture",
                          "Free Zoom Mode",
                          "Minimise",
                          "Close"}))
      << "what cannot be done is left out";
}

TEST(SkinnedFace, TheListThatComesBehindAnIntroHasTheKeys) {
  FaceBench b;
  b.window.list.visible = b.window.emptyPane.visible = false;
  b.open();
  b.draw();
  b.window.list.visible = true;
  b.draw();
  EXPECT_TRUE(b.at("Clips").hasFocus());
}

// With the widest of the type faces that may stand in.
TEST(SkinnedFace, FitsAtEachSizeAndCutsNoTextThatHasRoom) {
  for (const double size : {1.0, 1.25, 1.5, 2.0}) {
    FaceBench b({"a.avi", "b.avi"}, size);
    auto& face = b.face();
    EXPECT_EQ(face.size(), FaceScale(size).window(562, 410));
    for (auto* widget : face.findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->inherits("QFocusFrame")) continue;
      const QRect place(widget->mapTo(&face, QPoint()), widget->size());
      EXPECT_TRUE(face.rect().contains(place))
          << size << " " << widget->accessibleName().toStdString() << " " << place.x() << "," << place.y();
      auto* label = dynamic_cast<FaceLabel*>(widget);
      if (label == nullptr || label->text().isEmpty()) continue;
      EXPECT_FALSE(label->isCut()) << size << " " << label->text().toStdString();
    }
  }
}

TEST(SkinnedFace, GoesByTheScreenAndItsTextBehindAChoiceToo) {
  FaceBench b({"a.avi"}, 1.25);
  b.window.face.interfaceSize = 0;
  for (const auto& [textHeight, window] : {std::pair{13, QSize(562, 410)}, {20, QSize(702, 512)}}) {
    b.desktop.facts.textHeight = textHeight;
    b.links.takeInterfaceSize();
    b.draw();
    EXPECT_EQ(b.face().size(), window) << textHeight;
  }
}

TEST(SkinnedFace, ItsKeysSayWhatTheyAreAndWhetherTheyCanBePressed) {
  FaceBench b;
  const struct {
    const char* name;
    QRect place;  // of the label, which is larger than a small key
    bool enabled;
  } rows[] = {
      {"Play", {70, 350, 48, 48}, true},
      {"Pause", {126, 355, 32, 38}, true},
      {"One frame back", {188, 370, 28, 28}, true},
      {"A quarter of the speed", {300, 370, 32, 28}, true},
      {"Half the speed", {332, 370, 32, 28}, true},
      {"Twice the speed", {364, 370, 32, 28}, true},
      {"Free Zoom Mode", {500, 372, 44, 24}, true},
      {"Minimise", {425, 0, 24, 24}, true},
      {"Close", {451, 0, 24, 24}, true},
  };
  for (const auto& row : rows) {
    auto& key = b.at(row.name);
    EXPECT_EQ(key.geometry(), row.place) << row.name;
    EXPECT_EQ(key.isEnabled(), row.enabled) << row.name;
    EXPECT_FALSE(key.toolTip().isEmpty()) << row.name;
  }
  const auto dark = b.face().grab().toImage();
  b.links.BuildButton(KeyWord::PlayOn);
  b.draw();
  EXPECT_EQ(b.at("Play").accessibleDescription(), "Play, lit");
  EXPECT_NE(b.face().grab().toImage(), dark);
  b.click("Minimise");
  EXPECT_TRUE(b.face().isMinimized());
}

TEST(SkinnedFace, TheCrossAndAltF4AskAndThenEndTheProgram) {
  FaceBench b;
  b.boxes.answers = {Answer::Cancel, Answer::No};
  b.settings.state.IsDirty = true;
  b.click("Close");
  EXPECT_TRUE(b.window.face.visible);
  EXPECT_TRUE(b.face().isVisible());
  auto& face = b.face();
  face.close();
  EXPECT_FALSE(b.window.face.visible || face.isVisible());
}

TEST(SkinnedFace, ListsAreChosenMovedDroppedOnAndRenamed) {
  FaceBench b({"a.avi", "b.avi", "c.avi", "d.avi"});
  auto& view = dynamic_cast<CoolListView&>(b.at("Clips"));
  const auto press = [&](int row, Qt::KeyboardModifiers held) {
    QTest::mouseClick(&view, Qt::LeftButton, held, view.itemRect(row).center());
  };
  press(1, {});
  EXPECT_EQ(b.window.list.chosen, std::vector{2});
  EXPECT_EQ(view.toolTip(), "Current clip source = /v/b.avi");
  press(3, Qt::ControlModifier);
  EXPECT_EQ(b.window.list.chosen, (std::vector{2, 4}));
  EXPECT_EQ(b.window.list.ListIndex, 3);

  QMimeData rows;
  rows.setData("application/x-kvo5-rows", "rows");
  ASSERT_TRUE(view.accepts(rows));
  view.dropped(rows, 0);
  EXPECT_EQ(b.names(), (Names{"b.avi", "d.avi", "a.avi", "c.avi"}));
  b.click("Undo");
  EXPECT_EQ(b.names(), (Names{"a.avi", "b.avi", "c.avi", "d.avi"}));

  b.files.all["/v/new \xC3\xBC.avi"] = "x";
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/v/new \u00FC.avi")});
  ASSERT_TRUE(view.accepts(files));
  view.dropped(files, 1);
  EXPECT_EQ(b.names(), (Names{"a.avi", "new \xC3\xBC.avi", "b.avi", "c.avi", "d.avi"})) << "where they fell";
  EXPECT_EQ(b.window.list.chosen, std::vector{2});
  b.key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(b.names().size(), 4U) << "one step";

  press(2, {});
  auto& transport = b.play.transport();
  const bool& plays = b.window.mode.player.IsPlaying;
  transport.Image8_Click();
  b.key(Qt::Key_F2);
  QTest::keyClicks(b.face().focusWidget(), "Sea");
  QTest::keyClick(b.face().focusWidget(), Qt::Key_Return);
  EXPECT_EQ(b.names()[2], "Sea");
  EXPECT_EQ(b.at("Undo").toolTip().contains("Sea") || b.at("Undo").toolTip().contains("c.avi"), true);
  EXPECT_TRUE(view.hasFocus());
  EXPECT_EQ(view.list().item(2).ItemText, "Sea");
  EXPECT_FALSE(plays) << "Return ended the name";
  b.key(Qt::Key_Return);
  EXPECT_TRUE(plays);
  transport.Image8_Click();
  QTest::mouseDClick(&view, Qt::LeftButton, {}, view.itemRect(2).center());
  EXPECT_TRUE(plays);
}

TEST(SkinnedFace, MarksAreDraggedSteppedAndCleared) {
  FaceBench b;
  auto& clip = b.collection.MovieList[1];
  const auto drag = [&](const char* name, int by) {
    auto& handle = b.at(name);
    const QPoint grip(handle.width() / 2, handle.height() / 2);  // not where its place is
    QTest::mousePress(&handle, Qt::LeftButton, {}, grip);
    const auto target = grip + QPoint(by, 0);
    QMouseEvent move(QEvent::MouseMove, target, handle.mapToGlobal(target), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&handle, &move);
    return &handle;
  };
  auto* in = drag("Mark-In", 100);
  EXPECT_EQ(clip.LoopStart().number(), 0) << "not ahead of the release";
  b.waitForPicture();
  EXPECT_NEAR(b.window.picture.wish.seconds, 2, 1e-9) << "what is there is shown meanwhile";
  QTest::mouseRelease(in, Qt::LeftButton);
  EXPECT_EQ(clip.LoopStart().number(), 2);
  QTest::mouseRelease(drag("Mark-Out", -100), Qt::LeftButton);
  EXPECT_EQ(clip.LoopEnd().number(), 8);
  // Mark-In ends, and Mark-Out begins, where the time is, but for the room that takes the mouse.
  EXPECT_EQ(b.at("Mark-In").geometry().right() + 1 + b.at("Mark-In").parentWidget()->x(), 140 + 3);
  EXPECT_EQ(b.at("Mark-Out").geometry().left() + b.at("Mark-Out").parentWidget()->x(), 440 - 3);
  EXPECT_EQ(b.at("Mark-In").width(), 24);

  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers held;
    double start;
  } steps[] = {{Qt::Key_Right, {}, 2.08}, {Qt::Key_Left, Qt::ControlModifier, 2.04}, {Qt::Key_Home, {}, 0}};
  b.at("Mark-In").setFocus();
  for (const auto& step : steps) {
    b.key(step.key, step.held);
    EXPECT_NEAR(clip.LoopStart().number(), step.start, 0.005) << step.key;
  }
  EXPECT_EQ(b.window.list.ListIndex, 0) << "no key of a handle moves the list";
  b.click("Mark-Out", Qt::RightButton);
  EXPECT_EQ(clip.LoopEnd().number(), 10);
  b.list.PreviewMovie(3);
  b.draw();
  EXPECT_EQ(b.find("Mark-In"), nullptr) << "a still has no marks";
}

TEST(SkinnedFace, APictureGoesWithThePointerOverTheSlider) {
  FaceBench b;
  auto& slider = *b.at("Position").parentWidget();
  HoverPart* part = nullptr;
  for (auto* child : b.face().findChildren<QWidget*>()) {
    if (auto* found = dynamic_cast<HoverPart*>(child); found != nullptr) part = found;
  }
  ASSERT_NE(part, nullptr);
  auto& hover = *part;
  const auto point = [&](int x) {
    const auto at = slider.mapFrom(&b.face(), QPoint(x, 325));
    QMouseEvent move(QEvent::MouseMove, at, slider.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&slider, &move);
  };
  EXPECT_FALSE(hover.isVisible());
  point(290);
  EXPECT_TRUE(hover.isVisible());
  EXPECT_EQ(b.window.hover.time, "0:05");
  EXPECT_NEAR(hover.geometry().center().x(), 290, 1);
  EXPECT_LT(hover.geometry().bottom(), 320) << "it covers nothing of the line";
  const int low = hover.height();
  for (int i = 0; i < 500 && b.window.hover.picture == nullptr; ++i) {
    QTest::qWait(2);
    b.loop.advance(1);
  }
  b.draw();
  EXPECT_GT(hover.height(), low + 50) << "the picture has come";
  EXPECT_EQ(qGray(hover.grab().toImage().pixel(hover.width() / 2, 40)), 5) << "as grey as its time";
  point(540);
  EXPECT_LE(hover.geometry().right(), b.face().width()) << "it stays on the face";
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&slider, &leave);
  EXPECT_FALSE(hover.isVisible());
}

// Of a clip that is a stream: what is waited for stands in the picture's place, and a click ends it.
TEST(SkinnedFace, AStreamTellsHowItComesAndWhatItIs) {
  FaceBench b;
  const std::string address = "http://127.0.0.1:9/live";
  auto& clip = b.collection.MovieList[2];
  clip.Path("");
  clip.MovieName(address);
  clip.IsStream(true);
  b.engineFiles[address] = {.rate = 0};
  b.list.PreviewMovie(2);
  b.draw();
  EXPECT_EQ(b.find("Clips"), nullptr);
  ASSERT_NE(b.find("Connecting..."), nullptr);
  EXPECT_EQ(b.at("Connecting...").accessibleDescription(), "Click to stop");
  const auto dark = b.at("Connecting...").grab().toImage();
  b.loop.advance(500);
  b.draw();
  EXPECT_NE(b.at("Connecting...").grab().toImage(), dark) << "its colour changes";
  b.click("Connecting...");
  b.loop.advance(100);
  b.draw();
  EXPECT_NE(b.find("Connection aborted"), nullptr);
  EXPECT_NE(b.find("Clips"), nullptr);

  auto& glass = b.at("Display");
  const auto without = glass.grab().toImage();
  b.window.transport.stream = {true, "128000 bps", "Morning - Ann", "", true, false};
  b.draw();
  EXPECT_TRUE(glass.toolTip().contains("Morning - Ann"));
  EXPECT_EQ(b.find("Output Level"), nullptr) << "it has its place";
  const auto plain = glass.grab().toImage();
  EXPECT_NE(plain, without);
  b.window.transport.stream.bufferLit = true;
  b.draw();
  EXPECT_NE(glass.grab().toImage(), plain);
}

TEST(SkinnedFace, ItsKeysDigitsAndChipsGoByTheClip) {
  FaceBench b;
  EXPECT_EQ(b.find("Click for Previous Clip"), nullptr);
  b.list.PreviewMovie(3);
  b.draw();
  EXPECT_EQ(b.at("Click for Previous Clip").toolTip(), "Click for Previous Clip");
  EXPECT_NE(b.find("Click for Next Clip"), nullptr);
  b.links.display().Lbl_MiniMode_Click();
  b.draw();
  EXPECT_NE(b.find("Click for Next Clip"), nullptr);
  b.links.display().Lbl_MiniMode_Click();
  b.list.PreviewMovie(1);
  b.draw();
  EXPECT_EQ(b.find("Click for Previous Clip"), nullptr);

  EXPECT_TRUE(b.at("Direct Positioner").isEnabled());
  b.window.mode.panels.Pic_DigNumbers = false;
  b.window.mode.panels.Label2.visible = b.window.mode.panels.Label2On = true;
  b.window.details.chips = {"Mono"};
  b.draw();
  EXPECT_FALSE(b.at("Direct Positioner").isEnabled());
  EXPECT_NE(b.find("Mono"), nullptr) << "nothing is animated";
  b.window.mode.Med_AudAnim.visible = true;
  b.draw();
  EXPECT_NE(b.find("Mono, Anim ON"), nullptr);
}

TEST(SkinnedFace, TheOfferToResumeStandsOnThePicture) {
  FaceBench b;
  EXPECT_EQ(b.find("Resume at 12:34"), nullptr);
  b.window.resume.chip = "Resume at 12:34";
  b.draw();
  auto& chip = b.at("Resume at 12:34");
  EXPECT_EQ(chip.parentWidget(), &b.at("Picture"));
  EXPECT_TRUE(chip.parentWidget()->rect().contains(chip.geometry()));
  EXPECT_GE(chip.height(), 24) << "a mouse hits it";
  b.window.resume.chip.clear();
  b.draw();
  EXPECT_FALSE(chip.isVisible());
}

TEST(SkinnedFace, TheKnobTurnsTheVolume) {
  FaceBench b;
  auto& knob = b.at("Volume");
  knob.setFocus();
  const auto volume = [&] { return b.window.display.volume; };
  b.key(Qt::Key_Down);
  EXPECT_EQ(volume(), 95);
  b.key(Qt::Key_Home);
  EXPECT_EQ(volume(), 0);
  EXPECT_EQ(b.at("Volume").toolTip(), "Volume 0%");
  QWheelEvent notch({20, 20}, knob.mapToGlobal(QPointF(20, 20)), {}, {0, 240}, {}, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&knob, &notch);
  EXPECT_EQ(volume(), 10);
  // Where the pointer is pressed: the arc goes from half past seven to half past four.
  const struct {
    QPoint at;
    int volume;
  } places[] = {{{20, 1}, 50}, {{1, 20}, 17}, {{39, 20}, 83}, {{8, 32}, 0}, {{32, 32}, 100}, {{19, 39}, 100}};
  for (const auto& place : places) {
    QTest::mouseClick(&knob, Qt::LeftButton, {}, place.at);
    EXPECT_NEAR(volume(), place.volume, 1) << place.at.x() << "," << place.at.y();
  }
  QTest::mousePress(&knob, Qt::LeftButton, {}, {19, 39});
  QTest::mouseMove(&knob, {19, 79});
  EXPECT_EQ(volume(), 60) << "pulled down it is softer, wherever its arc ends";
  QTest::mouseRelease(&knob, Qt::LeftButton, {}, {19, 79});
  b.click("Undo");
  EXPECT_EQ(volume(), 100) << "however much it was turned, it is one step";
  b.list.PreviewMovie(3);
  b.draw();
  EXPECT_FALSE(b.at("Volume").isEnabled()) << "a still has no sound";
}

TEST(SkinnedFace, ThePictureComesByItselfAndSoundHasASign) {
  FaceBench b;
  b.collection.MovieList[2].MovieName("b.mp3");
  b.engineFiles["/v/b.mp3"] = {};
  b.list.fill();
  b.waitForPicture();
  auto& box = b.at("Picture");
  EXPECT_EQ(b.window.picture.wish.path, "/v/a.avi");
  EXPECT_EQ(qGray(box.grab().toImage().pixel(100, 70)), 0) << "as grey as its time";
  b.links.PreviewMovie(1);
  b.collection.MovieList[1].LoopStart(Value(5));
  b.list.PreviewMovie(1);
  b.loop.advance(2000);  // the handle glides there
  b.draw();
  b.waitForPicture();
  EXPECT_EQ(qGray(box.grab().toImage().pixel(100, 70)), 5);
  b.list.PreviewMovie(2);
  b.draw();
  EXPECT_NE(b.find("Sound"), nullptr);
  b.streams.all.clear();
  b.list.PreviewMovie(3);
  b.draw();
  b.waitForPicture();
  EXPECT_EQ(b.at("No picture").toolTip(), "cannot open /v/c.jpg");
}

TEST(SkinnedFace, BetweenTwoClipsThePictureIsStillThatOfTheFirst) {
  FaceBench b({"a.mp3", "b.jpg"});
  b.engineFiles["/v/a.mp3"] = {.rate = 0};
  b.streams.all.erase("/v/a.mp3");  // what is asked for its picture finds none
  b.list.PreviewMovie(1);
  b.draw();
  ASSERT_NE(b.find("Sound"), nullptr);
  b.window.mode.player.clipWaits = true;  // it has ended
  b.list.select(2);
  b.draw();
  QTest::qWait(20);
  b.loop.advance(10);
  b.draw();
  EXPECT_NE(b.find("Sound"), nullptr);
  EXPECT_EQ(b.find("No picture"), nullptr);
}

TEST(SkinnedFace, DrawsTheEnginesPictureWhileThePlayerIsInSight) {
  FaceBench b;
  auto& box = b.at("Picture");
  auto& player = b.window.mode.player;
  const auto middle = [&] {
    b.draw();
    QApplication::processEvents();
    return qGray(box.grab().toImage().pixel(box.rect().center()));
  };
  EXPECT_FALSE(b.video.due()) << "nobody is going to draw";
  EXPECT_NE(middle(), 90);
  b.video.grey = 90;
  ASSERT_TRUE(player.visible && !player.path.empty());
  EXPECT_EQ(middle(), 90);
  const int drawn = b.video.drawn;
  EXPECT_EQ(middle(), 90);
  EXPECT_EQ(b.video.drawn, drawn) << "what stands is not drawn again";
  b.video.grey = 120;
  EXPECT_TRUE(b.video.due());
  EXPECT_EQ(middle(), 120);
  const auto place = player.place;
  player.place.left = kParked;
  EXPECT_NE(middle(), 120) << "parked";
  player.place = place;
  EXPECT_EQ(middle(), 120);
  player.visible = false;
  EXPECT_NE(middle(), 120) << "hidden";
  EXPECT_FALSE(b.video.due());
}

TEST(SkinnedFace, LongWorkIsToldAfterAMomentAndStoppedByAClick) {
  FaceBench b({"a.avi", "b.avi"});
  auto& progress = b.window.progress;
  progress = {
      .status = "Loading Clip 5 of 20\r\n/v/a.avi", .abortText = "Click to abort", .done = 5, .total = 20};
  b.draw();
  EXPECT_EQ(b.find("Progress"), nullptr) << "short work is not told";
  auto& view = dynamic_cast<CoolListView&>(b.at("Clips"));
  const auto chosen = b.window.list.chosen;
  for (const int row : {0, 1}) QTest::mouseClick(&view, Qt::LeftButton, {}, view.itemRect(row).center());
  EXPECT_EQ(b.window.list.chosen, chosen) << "nothing touches what is being filled";
  QTest::qWait(400);
  ASSERT_NE(b.find("Progress"), nullptr);
  EXPECT_EQ(b.find("Clips"), nullptr);
  b.click("Progress");
  EXPECT_TRUE(std::exchange(progress.abortClicked, false));
  b.key(Qt::Key_Escape);
  EXPECT_TRUE(progress.abortClicked);
  progress = {};
  b.draw();
  EXPECT_EQ(b.find("Progress"), nullptr);
  EXPECT_TRUE(b.at("Clips").hasFocus());
}

TEST(SkinnedFace, ASkinIsPaintedAnewOnlyWhenItHasChanged) {
  FaceBench b;
  b.window.skin.picture = KVO_SHARE "/kvo5/Skins/blue.bmp";
  ++b.window.skin.revision;
  b.draw();
  const auto blue = b.face().grab().toImage().pixelColor(556, 200);
  EXPECT_GT(blue.blue(), blue.red() + 20);
  b.window.skin.picture = KVO_SHARE "/kvo5/Skins/Plastique.bmp";
  b.draw();
  EXPECT_EQ(b.face().grab().toImage().pixelColor(556, 200), blue);
  ++b.window.skin.revision;
  b.draw();
  EXPECT_GT(b.face().grab().toImage().pixelColor(556, 200).red(), 150);
}

TEST(SkinnedFace, StaysWhereItWasAndOnTheScreen) {
  {
    FaceBench b;
    b.face().move(700, 300);
    b.shutDown.exit();
    b.draw();
    FaceBench again;
    again.frm.reset();
    again.store.write("FrmFileOpenPlace", b.store.read("FrmFileOpenPlace"));
    again.open();
    EXPECT_EQ(again.face().pos(), QPoint(700, 300));
    again.window.face.interfaceSize = 2;
    again.links.takeInterfaceSize();
    again.face().move(1400, 700);
    again.draw();
    EXPECT_EQ(again.face().size(), QSize(1124, 820));
    EXPECT_EQ(again.face().pos(), QPoint(1920 - 1124, 1080 - 820));
  }
}

}  // namespace
}  // namespace kvo
