// What the normal face shows of clips: the list, the picture, how a stream comes.
#include "ui/cool_list_view.h"
#include "windows/face_bench.h"

#include <QMimeData>
#include <QUrl>

namespace kvo {
namespace {

using test::FaceBench;
using Names = std::vector<std::string>;

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
TEST(SkinnedFace, AStreamTellsHowItComesAndWhatItIs) {
  FaceBench b;
  const std::string address = "http://127.0.0.1:9/live";
  auto& clip = b.collection.MovieList[2];
  clip.Path("");
  clip.MovieName(address);
  clip.IsStream(true);
  b.engineFiles[address] = {.rate = 0};
  b.show(2);
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

TEST(SkinnedFace, TheOfferToResumeStandsOnThePicture) {
  FaceBench b;
  b.window.resume.chip = "Resume at 12:34";
  b.draw();
  auto& chip = b.at("Resume at 12:34");
  EXPECT_TRUE(b.at("Picture").rect().contains(QRect(chip.mapTo(&b.at("Picture"), QPoint()), chip.size())));
  EXPECT_GE(chip.height(), 24) << "a mouse hits it";
  b.window.resume.chip.clear();
  b.draw();
  EXPECT_FALSE(chip.isVisible());
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
  b.show(2);
  EXPECT_NE(b.find("Sound"), nullptr);
  b.streams.all.clear();
  b.show(3);
  b.waitForPicture();
  EXPECT_EQ(b.at("No picture").toolTip(), "cannot open /v/c.jpg");
}

TEST(SkinnedFace, BetweenTwoClipsThePictureIsStillThatOfTheFirst) {
  FaceBench b({"a.mp3", "b.jpg"});
  b.engineFiles["/v/a.mp3"] = {.rate = 0};
  b.streams.all.erase("/v/a.mp3");  // what is asked for its picture finds none
  b.show(1);
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

TEST(SkinnedFace, ARowShowsThePictureOfItsClipInThePlaceOfTheIcon) {
  FaceBench b;
  auto& list = dynamic_cast<CoolListView&>(b.at("Clips"));
  const auto grey = [&](int row) {
    const auto rect = list.itemRect(row);
    return qGray(list.grab().toImage().pixel(12, rect.center().y()));
  };
  const int before = grey(1);
  const int other = grey(0);
  b.sketches.come("/v/b.avi", 1);
  b.sketches.pictures[{"/v/b.avi", 1.0}] = std::make_shared<FramePicture>(
      FramePicture{16, 200, std::vector<std::uint8_t>(std::size_t{16} * 200 * 3, 200)});
  b.draw();
  EXPECT_EQ(grey(1), 200);
  EXPECT_NE(before, 200);
  EXPECT_EQ(grey(0), other) << "an icon still";
}

}  // namespace
}  // namespace kvo
