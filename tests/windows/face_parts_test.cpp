// The parts of the normal face: its list and its picture, the keys, the slider with the marks, and the knob.
#include "windows/face_bench.h"
#include "windows/main/hover_part.h"

#include <QUrl>

namespace kvo {
namespace {

using test::FaceBench;
using NormalFace = test::Face;
using Names = std::vector<std::string>;

TEST(SkinnedFace, ListsAreChosenMovedDroppedOnAndRenamed) {
  FaceBench b({"a.avi", "b.avi", "c.avi", "d.avi"});
  auto& view = b.clips();
  const auto press = [&](int row, Qt::KeyboardModifiers held) {
    QTest::mouseClick(&view, Qt::LeftButton, held, view.itemRect(row).center());
  };
  const auto drop = [&](const QMimeData& what, int before) {
    ASSERT_TRUE(view.accepts(what));
    view.dropped(what, before);
  };
  press(1, {});
  EXPECT_EQ(b.window.list.chosen, std::vector{2});
  EXPECT_EQ(view.toolTip(), "Current clip source = /v/b.avi");
  press(3, Qt::ControlModifier);
  EXPECT_EQ(b.window.list.chosen, (std::vector{2, 4}));
  EXPECT_EQ(b.window.list.ListIndex, 3);

  QMimeData rows;
  rows.setData("application/x-kvo5-rows", "rows");
  drop(rows, 0);
  EXPECT_EQ(b.names(), (Names{"b.avi", "d.avi", "a.avi", "c.avi"}));
  b.click("Undo");
  EXPECT_EQ(b.names(), (Names{"a.avi", "b.avi", "c.avi", "d.avi"}));

  b.files.all["/v/new \xC3\xBC.avi"] = "x";
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile("/v/new \u00FC.avi")});
  drop(files, 1);
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
  EXPECT_EQ(b.names()[2] + " " + view.list().item(2).ItemText, "Sea Sea");
  EXPECT_TRUE(view.hasFocus());
  EXPECT_FALSE(plays) << "Return ended the name";
  b.key(Qt::Key_Return);
  EXPECT_TRUE(plays);
  transport.Image8_Click();
  QTest::mouseDClick(&view, Qt::LeftButton, {}, view.itemRect(2).center());
  EXPECT_TRUE(plays);
}

// Of a clip that is a stream: what is waited for stands in the picture's place, and a click ends it.
TEST_F(NormalFace, AStreamTellsHowItComesAndWhatItIs) {
  const std::string address = "http://127.0.0.1:9/live";
  auto& clip = collection.MovieList[2];
  clip.Path("");
  clip.MovieName(address);
  clip.IsStream(true);
  engineFiles[address] = {.rate = 0};
  show(2);
  const auto shown = [&] { return seen({"Clips", "Connecting...", "Connection aborted", "Output Level"}); };
  const auto drawn = [&](const char* part) { return at(part).grab().toImage(); };
  EXPECT_EQ(shown(), "Connecting..., Output Level");
  EXPECT_EQ(at("Connecting...").accessibleDescription(), "Click to stop");
  const auto dark = drawn("Connecting...");
  loop.advance(500);
  EXPECT_NE(drawn("Connecting..."), dark) << "its colour changes";
  click("Connecting...");
  loop.advance(100);
  const auto without = drawn("Display");
  EXPECT_EQ(shown(), "Clips, Connection aborted, Output Level");

  window.transport.stream = {true, "128000 bps", "Morning - Ann", "", true, false};
  const auto plain = drawn("Display");
  EXPECT_NE(plain, without);
  EXPECT_TRUE(at("Display").toolTip().contains("Morning - Ann"));
  EXPECT_EQ(shown(), "Clips, Connection aborted") << "it has the place of the level";
  window.transport.stream.bufferLit = true;
  EXPECT_NE(drawn("Display"), plain);
}

TEST_F(NormalFace, TheOfferToResumeStandsOnThePicture) {
  window.resume.chip = "Resume at 12:34";
  auto& chip = at("Resume at 12:34");
  EXPECT_TRUE(at("Picture").rect().contains(QRect(chip.mapTo(&at("Picture"), QPoint()), chip.size())));
  EXPECT_GE(chip.height(), 24) << "a mouse hits it";
  window.resume.chip.clear();
  draw();
  EXPECT_FALSE(chip.isVisible());
}

TEST_F(NormalFace, ThePictureComesByItselfAndSoundHasASign) {
  collection.MovieList[2].MovieName("b.mp3");
  engineFiles["/v/b.mp3"] = {};
  list.fill();
  const auto grey = [&] {
    waitForPicture();
    return qGray(at("Picture").grab().toImage().pixel(100, 70));
  };
  EXPECT_EQ(grey(), 0) << "as grey as its time";
  EXPECT_EQ(window.picture.wish.path, "/v/a.avi");
  links.PreviewMovie(1);
  collection.MovieList[1].LoopStart(Value(5));
  list.PreviewMovie(1);
  loop.advance(2000);  // the handle glides there
  draw();
  EXPECT_EQ(grey(), 5);
  show(2);
  EXPECT_NE(find("Sound"), nullptr);
  streams.all.clear();
  show(3);
  waitForPicture();
  EXPECT_EQ(at("No picture").toolTip(), "cannot open /v/c.jpg");
}

TEST(SkinnedFace, BetweenTwoClipsThePictureIsStillThatOfTheFirst) {
  FaceBench b({"a.mp3", "b.jpg"});
  b.engineFiles["/v/a.mp3"] = {.rate = 0};
  b.streams.all.erase("/v/a.mp3");  // what is asked for its picture finds none
  b.show(1);
  b.window.mode.player.clipWaits = true;  // it has ended
  b.list.select(2);
  b.draw();
  QTest::qWait(20);
  b.loop.advance(10);
  EXPECT_EQ(b.seen({"Sound", "No picture"}), "Sound");
}

TEST_F(NormalFace, DrawsTheEnginesPictureWhileThePlayerIsInSight) {
  auto& box = at("Picture");
  auto& player = window.mode.player;
  const auto middle = [&] {
    draw();
    QApplication::processEvents();
    return qGray(box.grab().toImage().pixel(box.rect().center()));
  };
  EXPECT_FALSE(video.due()) << "nobody is going to draw";
  EXPECT_NE(middle(), 90);
  video.grey = 90;
  EXPECT_EQ(middle(), 90);
  const int drawn = video.drawn;
  EXPECT_EQ(middle(), 90);
  EXPECT_EQ(video.drawn, drawn) << "what stands is not drawn again";
  video.grey = 120;
  EXPECT_TRUE(video.due());
  EXPECT_EQ(middle(), 120);
  const auto place = std::exchange(player.place.left, kParked);
  EXPECT_NE(middle(), 120) << "parked";
  player.place.left = place;
  EXPECT_EQ(middle(), 120);
  player.visible = false;
  EXPECT_NE(middle(), 120) << "hidden";
  EXPECT_FALSE(video.due());
}

TEST_F(NormalFace, ARowShowsThePictureOfItsClipInThePlaceOfTheIcon) {
  const auto grey = [&](int row) {
    return qGray(clips().grab().toImage().pixel(12, clips().itemRect(row).center().y()));
  };
  const int before = grey(1);
  const int other = grey(0);
  sketches.come("/v/b.avi", 1);
  EXPECT_EQ(grey(1), 1) << "as grey as its second";
  EXPECT_NE(before, 1);
  EXPECT_EQ(grey(0), other) << "an icon still";
}

TEST_F(NormalFace, ItsKeysSayWhatTheyAreAndWhetherTheyAreLit) {
  const std::pair<const char*, QRect> rows[] = {{"Play", {70, 350, 48, 48}},
                                                {"One frame back", {188, 370, 28, 28}},
                                                {"Half the speed", {332, 370, 32, 28}},
                                                {"Free Zoom Mode", {500, 372, 44, 24}},
                                                {"Close", {451, 0, 24, 24}}};
  for (const auto& [name, place] : rows) {  // of the label, which is larger than a small key
    const auto& key = at(name);
    EXPECT_EQ(key.geometry(), place) << name;
    EXPECT_TRUE(key.isEnabled()) << name;
    EXPECT_FALSE(key.toolTip().isEmpty()) << name;
  }
  const auto dark = face().grab().toImage();
  links.BuildButton(KeyWord::PlayOn);
  EXPECT_EQ(at("Play").accessibleDescription(), "Play, lit");
  EXPECT_NE(face().grab().toImage(), dark);
  click("Minimise");
  EXPECT_TRUE(face().isMinimized());
}

TEST_F(NormalFace, MarksAreDraggedSteppedAndCleared) {
  auto& clip = collection.MovieList[1];
  const auto drag = [&](const char* name, int by) {
    auto& handle = at(name);
    const QPoint grip(handle.width() / 2, handle.height() / 2);  // not where its place is
    QTest::mousePress(&handle, Qt::LeftButton, {}, grip);
    test::movePointer(handle, grip + QPoint(by, 0), Qt::LeftButton);
    return &handle;
  };
  auto* in = drag("Mark-In", 100);
  EXPECT_EQ(clip.LoopStart().number(), 0) << "not ahead of the release";
  waitForPicture();
  EXPECT_NEAR(window.picture.wish.seconds, 2, 1e-9) << "what is there is shown meanwhile";
  QTest::mouseRelease(in, Qt::LeftButton);
  EXPECT_EQ(clip.LoopStart().number(), 2);
  QTest::mouseRelease(drag("Mark-Out", -100), Qt::LeftButton);
  EXPECT_EQ(clip.LoopEnd().number(), 8);
  // Mark-In ends, and Mark-Out begins, where the time is, but for the room that takes the mouse.
  EXPECT_EQ(in->geometry().right() + 1 + in->parentWidget()->x(), 140 + 3);
  EXPECT_EQ(at("Mark-Out").x() + in->parentWidget()->x(), 440 - 3);
  EXPECT_EQ(in->width(), 24);

  in->setFocus();
  for (const auto& [keys, start] : {std::pair{"Right", 2.08}, {"Ctrl+Left", 2.04}, {"Home", 0.0}}) {
    QTest::keySequence(in, QKeySequence(keys));
    EXPECT_NEAR(clip.LoopStart().number(), start, 0.005) << keys;
  }
  EXPECT_EQ(window.list.ListIndex, 0) << "no key of a handle moves the list";
  click("Mark-Out", Qt::RightButton);
  EXPECT_EQ(clip.LoopEnd().number(), 10);
  show(3);
  EXPECT_EQ(find("Mark-In"), nullptr) << "a still has no marks";
}

TEST_F(NormalFace, APictureGoesWithThePointerOverTheSlider) {
  auto& slider = *at("Position").parentWidget();
  const auto parts = face().findChildren<QWidget*>();
  const auto isHover = [](QWidget* part) { return dynamic_cast<HoverPart*>(part) != nullptr; };
  auto& hover = **std::find_if(parts.begin(), parts.end(), isHover);
  const auto point = [&](int x) { test::movePointer(slider, slider.mapFrom(&face(), QPoint(x, 325))); };
  EXPECT_FALSE(hover.isVisible());
  point(290);
  EXPECT_TRUE(hover.isVisible());
  EXPECT_EQ(window.hover.time, "0:05");
  EXPECT_NEAR(hover.geometry().center().x(), 290, 1);
  EXPECT_LT(hover.geometry().bottom(), 320) << "it covers nothing of the line";
  const int low = hover.height();
  sketches.come("/v/a.avi", 5);
  draw();
  EXPECT_GT(hover.height(), low + 50) << "the picture has come";
  EXPECT_EQ(qGray(hover.grab().toImage().pixel(hover.width() / 2, 40)), 5) << "as grey as its time";
  point(540);
  EXPECT_LE(hover.geometry().right(), face().width()) << "it stays on the face";
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&slider, &leave);
  EXPECT_FALSE(hover.isVisible());
}

TEST_F(NormalFace, ItsKeysDigitsAndChipsGoByTheClip) {
  const auto offers = [&] { return seen({"Click for Previous Clip", "Click for Next Clip"}); };
  EXPECT_EQ(offers(), "");
  show(3);
  EXPECT_EQ(offers(), "Click for Previous Clip, Click for Next Clip") << "a still";
  links.display().Lbl_MiniMode_Click();
  EXPECT_TRUE(offers().ends_with("Click for Next Clip"));
  links.display().Lbl_MiniMode_Click();
  show(1);
  EXPECT_EQ(offers(), "");

  EXPECT_TRUE(at("Direct Positioner").isEnabled());
  window.mode.panels.Pic_DigNumbers = false;
  window.mode.panels.Label2.visible = window.mode.panels.Label2On = true;
  window.details.chips = {"Mono"};
  EXPECT_FALSE(at("Direct Positioner").isEnabled());
  EXPECT_NE(find("Mono"), nullptr) << "nothing is animated";
  window.mode.Med_AudAnim.visible = true;
  EXPECT_NE(find("Mono, Anim ON"), nullptr);
}

TEST_F(NormalFace, TheKnobTurnsTheVolume) {
  auto& knob = at("Volume");
  knob.setFocus();
  const int& volume = window.display.volume;
  key(Qt::Key_Down);
  EXPECT_EQ(volume, 95);
  key(Qt::Key_Home);
  EXPECT_EQ(volume, 0);
  EXPECT_EQ(knob.toolTip(), "Volume 0%");
  test::turnWheel(knob, {20, 20}, 2);
  EXPECT_EQ(volume, 10);
  // Where the pointer is pressed: the arc goes from half past seven to half past four.
  using Place = std::tuple<int, int, int>;
  for (const auto& [x, y, level] : {Place{20, 1, 50}, Place{1, 20, 17}, Place{39, 20, 83}, Place{8, 32, 0},
                                    Place{32, 32, 100}, Place{19, 39, 100}}) {
    QTest::mouseClick(&knob, Qt::LeftButton, {}, {x, y});
    EXPECT_NEAR(volume, level, 1) << x << "," << y;
  }
  QTest::mousePress(&knob, Qt::LeftButton, {}, {19, 39});
  QTest::mouseMove(&knob, {19, 79});
  EXPECT_EQ(volume, 60) << "pulled down it is softer, wherever its arc ends";
  QTest::mouseRelease(&knob, Qt::LeftButton, {}, {19, 79});
  click("Undo");
  EXPECT_EQ(volume, 100) << "however much it was turned, it is one step";
  show(3);
  EXPECT_FALSE(knob.isEnabled()) << "a still has no sound";
}

}  // namespace
}  // namespace kvo
