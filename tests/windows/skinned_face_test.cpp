// The normal face of the main window, as a user and a screen reader meet it.
#include "windows/face_bench.h"
#include "windows/main/plate.h"

namespace kvo {
namespace {

using test::FaceBench;
using NormalFace = test::Face;
using Names = std::vector<std::string>;

TEST(FaceScale, PutsEdgesWhereTheyBelongAtEachSize) {
  // Of places that touch at size 1.
  using Row = std::tuple<double, QSize, QRect, QRect>;
  for (const auto& [size, window, rail, next] : {Row{1, {562, 410}, {30, 4, 388, 19}, {418, 4, 7, 19}},
                                                 Row{1.25, {702, 512}, {38, 5, 485, 24}, {523, 5, 8, 24}},
                                                 Row{1.5, {843, 615}, {45, 6, 582, 29}, {627, 6, 11, 29}},
                                                 Row{2, {1124, 820}, {60, 8, 776, 38}, {836, 8, 14, 38}}}) {
    const FaceScale scale(size);
    EXPECT_EQ(scale.window(562, 410), window) << size;
    EXPECT_EQ(scale.place({30, 4, 388, 19}), rail) << size;
    EXPECT_EQ(scale.place({418, 4, 7, 19}), next) << size;
    EXPECT_NEAR(QFontMetricsF(scale.text(20)).height() / QFontMetricsF(FaceScale(1).text(20)).height(), size,
                0.08);
  }
}

TEST(SkinnedFace, OfAnEmptyCollectionIsOneKeyThatAddsMedia) {
  FaceBench b(Names{});
  auto& pane = b.at("Right Click to Add Media");
  EXPECT_EQ(pane.geometry().size(), QSize(446, 261));
  EXPECT_EQ(b.find("Clips"), nullptr);
  for (const auto* key : {"Play", "Pause", "One frame back", "Half the speed", "Size of the picture"})
    EXPECT_FALSE(b.at(key).isEnabled()) << key;
  QTest::mouseClick(&pane, Qt::LeftButton);
  test::openMenu(pane, {9, 9});
  b.key(Qt::Key_Return);
  EXPECT_EQ(b.dialogs.asked.size(), 3U);
  b.files.all["/v/a.avi"] = "x";
  b.dialogs.answers.push_back("/v/a.avi");
  b.key(Qt::Key_Space);
  EXPECT_EQ(b.names(), Names{"a.avi"});
  EXPECT_TRUE(b.at("Clips").hasFocus()) << "the keyboard goes where the work goes on";
  EXPECT_TRUE(b.at("Play").isEnabled());
}

TEST_F(NormalFace, ShowsTheDetailsOrThePictureAlone) {
  const auto shown = [&] { return seen({"Clips", "Picture", "Display", "Mark-In"}); };
  EXPECT_EQ(shown(), "Clips, Picture, Display, Mark-In");
  EXPECT_EQ(at("Picture").size(), QSize(247, 144));
  links.display().turnDetails();
  EXPECT_EQ(shown(), "Picture, Display, Mark-In");
  EXPECT_EQ(at("Picture").size(), QSize(442, 257));
  EXPECT_EQ(face().focusWidget(), &face()) << "no control has got the keyboard of the list that went";
  key(Qt::Key_2);
  EXPECT_EQ(window.list.ListIndex, 1) << "and its keys go on";
  key(Qt::Key_F2);
  ASSERT_NE(find("Text of the item"), nullptr) << "a name is edited in the list, which comes back";
  EXPECT_EQ(shown(), "Clips, Picture, Display, Mark-In");
}

TEST_F(NormalFace, CreateMovieWantsAClip) {
  click("Create Movie");
  key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(moviesWanted, 2);
  window.menu.clipsEnabled = false;
  click("Create Movie");
  EXPECT_EQ(moviesWanted, 2);
}

TEST_F(NormalFace, ThePresentSpeedIsLit) {
  const auto picture = [&](const QString& key) { return at(key).grab().toImage(); };
  const auto unlit = picture("Twice the speed");
  click("Twice the speed");
  test::movePointer(face(), {1, 1});
  EXPECT_EQ(at("Twice the speed").accessibleDescription(), "Twice the speed, lit");
  EXPECT_NE(picture("Twice the speed"), unlit);
  click("A quarter of the speed");
  test::movePointer(face(), {1, 1});
  EXPECT_EQ(at("A quarter of the speed").accessibleDescription(), "A quarter of the speed, lit");
  EXPECT_EQ(picture("Twice the speed"), unlit);
}

TEST_F(NormalFace, IsReachedByTabInOrder) {
  history.edit(CommandPass(window), "turn", 1, 0, [](Movie& clip) { clip.Volume(5); });
  EXPECT_EQ(test::tabOrder(at("Menu")),
            "Menu, Undo, Clips, Advance Clip in playlist, Move clip down in playlist, Add media, "
            "Remove, Sort, Create Movie, Position, Mark-In, Mark-Out, Direct Positioner, "
            "Current Playback rate, Output Level, Volume, Play, Pause, "
            "Right-Click to position to start or Click or Hold Down to rewind 5 frames, "
            "One frame back, One frame forward, "
            "Right-Click to position to end or Click or Hold Down to advance 5 frames, "
            "A quarter of the speed, Half the speed, Twice the speed, Size of the picture, "
            "Play all, Free Zoom Mode, Minimise, Close, ")
      << "what cannot be done is left out";
}

TEST(SkinnedFace, TellsOfRendersInTheBackground) {
  for (const double size : {1.0, 2.0}) {
    FaceBench b({"a.avi"}, size);
    b.window.queue = {"43%, 2 renders wait", "a.mp4 is being made in the background", 0.43, false};
    const QString words("43%, 2 renders wait");
    auto& key = b.at(words);
    EXPECT_EQ(key.accessibleDescription(), "a.mp4 is being made in the background");
    EXPECT_GE(key.height(), 24 * size);
    EXPECT_GE(key.width(), key.fontMetrics().horizontalAdvance(words));
    EXPECT_FALSE(key.geometry().intersects(b.at("Undo").geometry()));
    const auto image = b.face().grab(key.geometry()).toImage();
    const auto ring = [&](int x) {
      return image.pixelColor(static_cast<int>((6 + 6.5 + x) * size), image.height() / 2);
    };
    EXPECT_EQ(ring(5), toColour(token("teal"))) << "a quarter is done";
    EXPECT_EQ(ring(-5), toColour(token("line2"))) << "three quarters are not";
    b.click(words);
    key.setFocus();
    b.key(Qt::Key_Return);
    EXPECT_EQ(b.queuesWanted, 2);
    b.window.queue = {};
    EXPECT_EQ(b.find(words), nullptr);
  }
}

TEST_F(NormalFace, TheListThatComesBehindAnIntroHasTheKeys) {
  window.list.visible = window.emptyPane.visible = false;
  open();
  draw();
  window.list.visible = true;
  EXPECT_TRUE(at("Clips").hasFocus());
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

TEST_F(NormalFace, TheCrossAndAltF4AskAndThenEndTheProgram) {
  boxes.answers = {Answer::Cancel, Answer::No};
  settings.state.IsDirty = true;
  click("Close");
  EXPECT_TRUE(window.face.visible);
  auto& shown = face();
  shown.close();
  EXPECT_FALSE(window.face.visible || shown.isVisible());
}

TEST_F(NormalFace, LongWorkIsToldAfterAMomentAndStoppedByAClick) {
  auto& progress = window.progress;
  progress = {
      .status = "Loading Clip 5 of 20\r\n/v/a.avi", .abortText = "Click to abort", .done = 5, .total = 20};
  EXPECT_EQ(find("Progress"), nullptr) << "short work is not told";
  auto& view = clips();
  const auto chosen = window.list.chosen;
  for (const int row : {0, 1}) QTest::mouseClick(&view, Qt::LeftButton, {}, view.itemRect(row).center());
  EXPECT_EQ(window.list.chosen, chosen) << "nothing touches what is being filled";
  QTest::qWait(400);
  EXPECT_EQ(find("Clips"), nullptr);
  click("Progress");
  EXPECT_TRUE(std::exchange(progress.abortClicked, false));
  key(Qt::Key_Escape);
  EXPECT_TRUE(progress.abortClicked);
  progress = {};
  EXPECT_EQ(find("Progress"), nullptr);
  EXPECT_TRUE(at("Clips").hasFocus());
}

TEST_F(NormalFace, ASkinIsPaintedAnewOnlyWhenItHasChanged) {
  const auto colourOf = [&](const char* skin, int revision) {
    window.skin.picture = std::string(KVO_SHARE "/kvo5/Skins/") + skin;
    window.skin.revision += revision;
    draw();
    return face().grab().toImage().pixelColor(556, 200);
  };
  const auto blue = colourOf("blue.bmp", 1);
  EXPECT_GT(blue.blue(), blue.red() + 20);
  EXPECT_EQ(colourOf("Plastique.bmp", 0), blue);
  EXPECT_GT(colourOf("Plastique.bmp", 1).red(), 150);
}

TEST_F(NormalFace, StaysWhereItWasAndOnTheScreen) {
  face().move(700, 300);
  shutDown.exit();
  draw();
  FaceBench again;
  again.frm.reset();
  again.store.write("FrmFileOpenPlace", store.read("FrmFileOpenPlace"));
  again.open();
  EXPECT_EQ(again.face().pos(), QPoint(700, 300));
  again.window.face.interfaceSize = 2;
  again.links.takeInterfaceSize();
  again.face().move(1400, 700);
  again.draw();
  EXPECT_EQ(again.face().size(), QSize(1124, 820));
  EXPECT_EQ(again.face().pos(), QPoint(1920 - 1124, 1080 - 820));
}

}  // namespace
}  // namespace kvo
