// The card of a render, in each of its frames and at two sizes of the interface.
#include "windows/render/render_card.h"

#include "render/output_profiles.h"
#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "ui/made.h"
#include "ui/theme.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/page_list.h"
#include "windows/named_parts.h"
#include "windows/render/frm_queue.h"
#include "windows/render/kind_row.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::named;

struct CardBench {
  RenderState state;
  QueueState queue;
  std::string asked;
  std::unique_ptr<RenderCard> card;

  CardBench() {
    const auto note = [this](const char* what) { return [this, what] { asked += std::string(what) + " "; }; };
    const auto number = [this](const char* what) {
      return [this, what](auto value) { asked += what + std::to_string(static_cast<int>(value)) + " "; };
    };
    state.kind = OutputKind::Wmv;
    state.Lst_WMVFormats = PopulateWMVProfileOpts(false);
    state.profileRow = 25;
    state.codecSize = "320 x 240";
    state.profileDescription = "Use this profile.\r\nHxW IS maintained (320x240)";
    state.facts = {{"Length", "51.900 s"}, {"Free disk", "38.2 Gb"}};
    state.film = {{1, 0, 8}, {2, 8, 20}, {3, 20, 40}};
    state.filmLength = 40;
    card = std::make_unique<RenderCard>(
        state, queue,
        RenderActs{number("kind"), number("profile"), number("own"), number("for"), number("mb"),
                   number("device"), note("write"), note("queue"),
                   QueueActs{number("job"), note("pause"), note("remove"), number("move")}, note("pair"),
                   note("abort"), note("view"), note("leave")},
        [](int clip) {
          QImage image(160, 90, QImage::Format_RGB32);
          image.fill(QColor::fromHsv(clip * 80, 160, 200));
          return image;
        },
        nullptr);
    card->resize(themed(968), themed(441));  // in a window of 1280 x 720
    card->show();
  }
  void go(RenderFrame frame) {
    state.frame = frame;
    card->draw();
    QApplication::processEvents();
  }
  [[nodiscard]] std::string focus() const {
    const auto* key = qobject_cast<QAbstractButton*>(card->focusWidget());
    return key == nullptr ? "" : key->text().toStdString();
  }
  [[nodiscard]] bool says(const std::string& text) const { return test::says(*card, text); }
  void tick(const QString& name) const {
    QTest::mouseClick(named<QCheckBox>(*card, name), Qt::LeftButton, {}, {10, 10});
  }
};

TEST(RenderCard, LeadsByItsKeys) {
  struct Row {
    RenderFrame frame;
    bool isRunning;
    const char* focus;  // the key that has the keyboard
    Qt::Key key;
    const char* asked;
  };
  CardBench b;
  b.state.canView = true;
  for (const auto& row : {Row{RenderFrame::Options, false, "Write Movie", Qt::Key_Return, "write "},
                          Row{RenderFrame::Options, false, "Write Movie", Qt::Key_Escape, "leave "},
                          Row{RenderFrame::PicInPic, false, "Render New Clip", Qt::Key_Space, "pair "},
                          Row{RenderFrame::Estimate, true, "", Qt::Key_Escape, ""},
                          Row{RenderFrame::Estimate, true, "", Qt::Key_Space, ""},
                          Row{RenderFrame::Rendering, true, "", Qt::Key_Return, ""},
                          Row{RenderFrame::Report, false, "View Movie", Qt::Key_Space, "view "},
                          Row{RenderFrame::Report, false, "View Movie", Qt::Key_Escape, "leave "}}) {
    b.go(RenderFrame::None);
    b.state.isRunning = row.isRunning;
    b.go(row.frame);
    EXPECT_EQ(b.focus(), row.focus);
    b.asked.clear();
    QTest::keyClick(b.card->focusWidget(), row.key);
    EXPECT_EQ(b.asked, row.asked) << row.focus;
  }
  b.state.isRunning = true;
  b.go(RenderFrame::Rendering);
  QTest::keyClick(b.card->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(b.focus(), "Abort");
  QTest::keyClick(b.card->focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(b.asked.ends_with("abort ")) << b.asked;
}

TEST(RenderCard, OffersKindsAndProfiles) {
  CardBench b;
  b.go(RenderFrame::Options);
  std::string rows;
  const auto kinds = b.card->findChildren<KindRow*>();
  for (auto* row : kinds) rows += row->text().toStdString() + (row->isChecked() ? "*|" : "|");
  for (auto* row : kinds) QTest::mouseClick(row, Qt::LeftButton);
  EXPECT_TRUE(rows.starts_with(
      "MP4 movie|Full Frames Uncompressed AVI|Windows Media Format (WMV)*|Windows Media Audio "
      "(WMA)|44.1Khz Stereo WAV|WebM movie|"))
      << rows;
  auto* list = named<PageList>(*b.card, "Profile");
  EXPECT_EQ(list->list().ListIndex(), 25);
  EXPECT_EQ(list->rowName(25).toStdString().substr(0, 36), "WMV8 for Broadband (NTSC, 1400 Kbps)");
  QTest::keyClick(list, Qt::Key_Down);
  b.tick("Use the size of the profile, 320 x 240");
  for (const auto* area : b.card->findChildren<QScrollArea*>()) {
    EXPECT_TRUE(area->accessibleName() != "Create Movie" || !area->isVisible() ||
                area->verticalScrollBar()->maximum() + area->horizontalScrollBar()->maximum() == 0);
  }
  b.state.kind = OutputKind::Mp4;
  b.state.Lst_WMVFormats.clear();
  b.state.Lst_MadeFor = {{"", "As on the Create page", "640 x 480"}, {"email", "E-mail", "640 x 480"}};
  b.state.madeForRow = 0;
  b.go(RenderFrame::Options);
  auto* size = b.card->findChild<QSpinBox*>();
  EXPECT_TRUE(!list->isVisible() && b.says("Made for") && !size->isVisible());
  const auto* device = named<QCheckBox>(*b.card, "Encode by the graphics card");
  EXPECT_FALSE(device->isVisible()) << "no device works";
  b.state.offersHardware = true;
  b.go(RenderFrame::Options);
  EXPECT_TRUE(device->isVisible() && !device->isChecked());
  b.tick("Encode by the graphics card");
  b.state.madeForRow = 1;
  b.state.hasWishedSize = true;
  b.go(RenderFrame::Options);
  EXPECT_EQ(size->value(), 20);
  size->stepUp();
  EXPECT_TRUE(b.asked.starts_with("kind4 kind2 kind0 kind1 kind3 ") &&
              b.asked.ends_with("profile26 own0 device1 mb21 "))
      << b.asked;
  b.state.kind = OutputKind::Wav;
  b.state.Lst_MadeFor.clear();
  b.go(RenderFrame::Options);
  EXPECT_FALSE(list->isVisible());
  EXPECT_TRUE(b.says(kindRow(OutputKind::Wav).hint)) << "in full, in the list's place";
  for (auto* row : kinds) {
    row->setChecked(true);  // as an arrow key does
    b.state.kind = row->kind();
    b.go(RenderFrame::Options);
    EXPECT_EQ(row->visibleRegion().boundingRect(), row->rect()) << row->text().toStdString();
  }
}

// Nothing stays as small as it is in a small window.
TEST(RenderCard, TakesTheRoomOfALargeWindow) {
  CardBench b;
  b.state.picture = std::make_shared<FramePicture>();
  for (const auto& [frame, name] : {std::pair{RenderFrame::Options, "Kind of movie"},
                                    {RenderFrame::Options, "Profile"},
                                    {RenderFrame::Options, "The clip in hand"},
                                    {RenderFrame::Rendering, "The picture being made"},
                                    {RenderFrame::PicInPic, "The backdrop"}}) {
    b.card->resize(themed(976), themed(448));
    b.go(frame);
    const auto* part = named(*b.card, name);
    const auto small = part->size();
    b.card->resize(themed(1540), themed(760));
    QApplication::processEvents();
    EXPECT_GT(part->width() * part->height(), 2 * small.width() * small.height()) << name;
    EXPECT_TRUE(part->isVisible()) << name;
  }
}

TEST(RenderCard, SaysWhyAMovieCannotBeMade) {
  const std::string caution =
      "The width of 321 is odd, and a WMV has an even one. Change it on the Create page.";
  CardBench b;
  b.state.caution = caution;
  b.state.canMake = false;
  b.go(RenderFrame::Options);
  EXPECT_TRUE(b.says(caution));
  EXPECT_EQ(b.focus(), "Windows Media Format (WMV)");
  for (const auto* name : {"Write Movie", "Add to Queue"})
    EXPECT_FALSE(named(*b.card, name)->isEnabled()) << name;
  b.state.caution.clear();
  b.state.canMake = true;
  b.go(RenderFrame::Options);
  EXPECT_FALSE(b.says(caution));
}

// Three renders, the second one in hand.
QueueState threeRenders() {
  QueueState queue;
  queue.Lst_Queue = {{7, "a.mp4", "43%", "", true, false},
                     {3, "b.mp4", "waiting", "", true, false},
                     {9, "c.mp4", "failed", "disk full", false, true, true}};
  queue.row = 1;
  return queue;
}

TEST(RenderQueueWindow, IsLedByKeysAndKeyboard) {
  auto queue = threeRenders();
  std::string asked;
  const auto number = [&](const char* what) {
    return [&asked, what](int value) { asked += what + std::to_string(value) + " "; };
  };
  const auto note = [&](const char* what) { return [&asked, what] { asked += std::string(what) + " "; }; };
  test::MemoryStore store;
  test::PlainDesktop desktop;
  FrmQueue window(queue, {number("job"), note("pause"), note("remove"), number("move")},
                  {store, desktop, "QueuePlace"}, note("hide"));
  queue.isOpen = true;
  window.draw(true);
  QApplication::processEvents();
  auto* list = named<PageList>(window, "Queue");
  EXPECT_EQ(list->rowName(0), "a.mp4, 43%");
  EXPECT_EQ(list->rowName(2), "c.mp4, failed, disk full");
  const auto look = [&] { return std::exchange(asked, {}); };
  const auto press = [&](std::initializer_list<const char*> names) {
    for (const auto* name : names) named<QPushButton>(window, name)->click();
  };
  press({"Pause", "Earlier", "Later", "Remove"});
  EXPECT_EQ(look(), "pause move1 move3 remove ");
  for (const auto key : {Qt::Key_Up, Qt::Key_Down}) QTest::keyClick(list, key, Qt::ControlModifier);
  for (const auto key : {Qt::Key_Space, Qt::Key_Delete}) QTest::keyClick(list, key);
  EXPECT_EQ(look(), "move1 move3 pause remove ");
  const auto carried = list->dragOut(0);
  for (const int before : {0, 1, 2, 3}) list->dropped(*carried, before);
  EXPECT_EQ(look(), "job0 move1 job0 move1 job0 move2 job0 move3 ") << "a place is counted without itself";
  queue.row = 2;
  window.draw(true);
  press({"Later", "Try Again"});
  EXPECT_EQ(look(), "pause ") << "the last one, which has failed";
  EXPECT_TRUE(named<QLabel>(window, "disk full")->isVisible());
  queue.trouble = "cannot read /home/me/.local/share/KVO5/Queue/Queue.txt: Permission denied";
  queue.Lst_Queue.clear();
  queue.row = -1;
  window.draw(true);
  EXPECT_TRUE(named<QLabel>(window, QString::fromStdString(queue.trouble))->isVisible());
  press({"Pause", "Earlier", "Later", "Remove"});
  QTest::keyClick(list, Qt::Key_Delete);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_EQ(look(), "hide ");
  window.draw(false);
  EXPECT_FALSE(window.isVisible()) << "the program has no other window";
}

TEST(RenderCard, ShowsHowFarTheMovieIs) {
  CardBench b;
  b.state.isRunning = true;
  b.state.countdown = "About 00.00.46(s) Remaining";
  b.state.movieSeconds = 20;
  b.state.pie = {43, kPieYellow};
  b.go(RenderFrame::Rendering);
  EXPECT_TRUE(b.says("About 00.00.46(s) Remaining") && b.says("51.900 s"));
  const auto image = b.card->grab().toImage();
  const auto at = [&](int x, int y) { return image.pixelColor(x, y).rgb() & 0xFFFFFFU; };
  // The ring at a quarter and at three quarters of its way, the strip before and behind the place.
  EXPECT_EQ(at(70 + 116 + 85, 57 + 80 + 116), token("amber"));
  EXPECT_EQ(at(70 + 116 - 85, 57 + 80 + 116), token("ink1"));
  EXPECT_GT(qGray(at(386 + 250, 57 + 302)), 2 * qGray(at(386 + 350, 57 + 302)));
  b.state.isRunning = false;
  b.state.completed = "Completed in 58.42 (s)";
  b.state.notes = {"holiday.avi: the sound from 1.00 to 2.00 s cannot be decoded"};
  b.go(RenderFrame::Report);
  EXPECT_TRUE(b.says("Completed in 58.42 (s)") && b.says(b.state.notes[0]));
}

TEST(RenderCard, FitsAtEachSize) {
  for (const double size : {1.0, 2.0}) {
    setThemeSize(*qApp, size);
    CardBench b;
    b.state.sample = {18, 22};
    b.queue = threeRenders();
    for (const auto frame :
         {RenderFrame::Options, RenderFrame::Estimate, RenderFrame::Report, RenderFrame::PicInPic}) {
      b.go(frame);
      SCOPED_TRACE(static_cast<int>(frame));
      test::expectNamed(*b.card, themed(24));
      for (const auto* area : b.card->findChildren<QScrollArea*>())
        EXPECT_TRUE(!area->isVisible() || dynamic_cast<EditorPage*>(area->widget()) == nullptr ||
                    area->maximumViewportSize() == area->viewport()->size())
            << "it scrolls";
    }
  }
  setThemeSize(*qApp, 1);
}

}  // namespace
}  // namespace kvo
