// The normal face of the main window, as a user and a screen reader meet it.
#include "ui/cool_list_view.h"
#include "ui/theme.h"
#include "windows/face_bench.h"
#include "windows/main/plate.h"

#include <QAbstractButton>

namespace kvo {
namespace {

using test::FaceBench;
using Names = std::vector<std::string>;

TEST(FaceScale, PutsEdgesWhereTheyBelongAtEachSize) {
  const struct {
    double size;
    QSize window;
    QRect rail, next;  // of places that touch at size 1
  } rows[] = {
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
  for (const auto* key : {"Play", "Pause", "One frame back", "Half the speed", "Size of the picture"})
    EXPECT_FALSE(b.at(key).isEnabled()) << key;
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
  EXPECT_TRUE(b.at("Play").isEnabled());
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

TEST(SkinnedFace, CreateMovieWantsAClip) {
  FaceBench b;
  QTest::mouseClick(&b.at("Create Movie"), Qt::LeftButton);
  b.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(b.moviesWanted, 2);
  b.window.menu.clipsEnabled = false;
  b.draw();
  QTest::mouseClick(&b.at("Create Movie"), Qt::LeftButton);
  EXPECT_EQ(b.moviesWanted, 2);
}

TEST(SkinnedFace, IsReachedByTabInOrder) {
  FaceBench b;
  b.history.edit(CommandPass(b.window), "turn", 1, 0, [](Movie& clip) { clip.Volume(5); });
  b.draw();
  auto* const first = &b.at("Menu");
  first->setFocus(Qt::TabFocusReason);
  std::string order;
  do {
    order += b.face().focusWidget()->accessibleName().toStdString() + ", ";
    QTest::keyClick(b.face().focusWidget(), Qt::Key_Tab);
  } while (b.face().focusWidget() != first && order.size() < 2000);
  EXPECT_EQ(order,
            "Menu, Undo, Clips, Advance Clip in playlist, Move clip down in playlist, Add media, "
            "Remove, Sort, Create Movie, Position, Mark-In, Mark-Out, Direct Positioner, "
            "Current Playback rate, Output Level, Volume, Play, Pause, "
            "Right-Click to position to start or Click or Hold Down to rewind 5 frames, "
            "One frame back, One frame forward, "
            "Right-Click to position to end or Click or Hold Down to advance 5 frames, "
            "A quarter of the speed, Half the speed, Twice the speed, Size of the picture, "
            "Free Zoom Mode, Minimise, Close, ")
      << "what cannot be done is left out";
}

TEST(SkinnedFace, TellsOfRendersInTheBackground) {
  for (const double size : {1.0, 2.0}) {
    FaceBench b({"a.avi"}, size);
    b.window.queue = {"43%, 2 renders wait", "a.mp4 is being made in the background", 0.43, false};
    b.draw();
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
    b.draw();
    EXPECT_EQ(b.find(words), nullptr);
  }
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

}  // namespace
}  // namespace kvo
