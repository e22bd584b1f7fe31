// The card of a render, in each of its frames and at two sizes of the interface.
#include "windows/render/render_card.h"

#include "editor/compiler/picture_in_picture.h"
#include "render/output_profiles.h"
#include "ui/widget_bench.h"
#include "windows/editor/editor_page.h"
#include "windows/editor/page_list.h"
#include "windows/render/frm_queue.h"
#include "windows/render/kind_row.h"

#include <QSpinBox>

namespace kvo {
namespace {

using test::named;

struct CardBench {
  static constexpr int kOverlay = 9;  // a clip that looks otherwise

  RenderState state;
  QueueState queue;
  test::Told told;
  std::unique_ptr<RenderCard> card;

  CardBench() {
    const auto act = [this](const char* name) { return told.act(name); };
    const auto number = [this](const char* name) { return told.number(name); };
    state.kind = OutputKind::Wmv;
    state.Lst_WMVFormats = PopulateWMVProfileOpts(false);
    state.profileRow = 25;
    state.codecSize = "320 x 240";
    state.profileDescription = "Use this profile.\r\nHxW IS maintained (320x240)";
    state.facts = {{"Length", "51.900 s"}, {"Free disk", "38.2 Gb"}};
    state.film = {{1, 0, 8}, {2, 8, 20}, {3, 20, 40}};
    state.filmLength = 40;
    QImage still(160, 90, QImage::Format_RGB32);
    still.fill(toColour(token("violet")));
    QImage overlay(still.size(), QImage::Format_RGB32);
    overlay.fill(toColour(token("amber")));
    card = std::make_unique<RenderCard>(
        state, queue,
        RenderActs{number("kind"), number("profile"), number("own"), number("for"), number("mb"),
                   number("device"), act("write"), act("queue"),
                   QueueActs{number("job"), act("pause"), act("remove"), number("move"), act("folder")},
                   act("pair"), act("abort"), act("view"), act("leave")},
        [still, overlay](int clip) { return clip == kOverlay ? overlay : still; }, nullptr);
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

struct RenderCards : testing::Test, CardBench {};

TEST_F(RenderCards, LeadsByItsKeys) {
  using Row = std::tuple<RenderFrame, bool, const char*, Qt::Key, const char*>;  // with the key in focus
  state.canView = true;
  for (const auto& [frame, isRunning, inFocus, key, asked] :
       {Row{RenderFrame::Options, false, "Write Movie", Qt::Key_Return, "write "},
        Row{RenderFrame::Options, false, "Write Movie", Qt::Key_Escape, "leave "},
        Row{RenderFrame::PicInPic, false, "Render New Clip", Qt::Key_Space, "pair "},
        Row{RenderFrame::Estimate, true, "", Qt::Key_Escape, ""},
        Row{RenderFrame::Estimate, true, "", Qt::Key_Space, ""},
        Row{RenderFrame::Rendering, true, "", Qt::Key_Return, ""},
        Row{RenderFrame::Report, false, "View Movie", Qt::Key_Space, "view "},
        Row{RenderFrame::Report, false, "View Movie", Qt::Key_Escape, "leave "}}) {
    go(RenderFrame::None);
    state.isRunning = state.canAbort = isRunning;
    go(frame);
    EXPECT_EQ(focus(), inFocus);
    QTest::keyClick(card->focusWidget(), key);
    EXPECT_EQ(told.look(), asked) << inFocus;
  }
  state.isRunning = state.canAbort = true;
  go(RenderFrame::Rendering);
  QTest::keyClick(card->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(focus(), "Abort");
  QTest::keyClick(card->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(told.look(), "abort ");
}

TEST_F(RenderCards, OffersKindsAndProfiles) {
  go(RenderFrame::Options);
  std::string rows;
  const auto kinds = card->findChildren<KindRow*>();
  for (auto* row : kinds) rows += row->text().toStdString() + (row->isChecked() ? "*|" : "|");
  for (auto* row : kinds) QTest::mouseClick(row, Qt::LeftButton);
  EXPECT_TRUE(rows.starts_with(
      "MP4 movie|Full Frames Uncompressed AVI|Windows Media Format (WMV)*|Windows Media Audio "
      "(WMA)|44.1Khz Stereo WAV|WebM movie|"))
      << rows;
  auto* list = named<PageList>(*card, "Profile");
  EXPECT_EQ(list->rowName(25).toStdString().substr(0, 36), "WMV8 for Broadband (NTSC, 1400 Kbps)");
  QTest::keyClick(list, Qt::Key_Down);
  tick("Use the size of the profile, 320 x 240");
  state.kind = OutputKind::Mp4;
  state.Lst_WMVFormats.clear();
  state.Lst_MadeFor = {{"", "As on the Create page", "640 x 480"}, {"email", "E-mail", "640 x 480"}};
  state.madeForRow = 0;
  go(RenderFrame::Options);
  auto* size = card->findChild<QSpinBox*>();
  EXPECT_TRUE(!list->isVisible() && says("Made for") && !size->isVisible());
  const auto* device = named<QCheckBox>(*card, "Encode by the graphics card");
  EXPECT_FALSE(device->isVisible()) << "no device works";
  state.offersHardware = true;
  go(RenderFrame::Options);
  EXPECT_TRUE(device->isVisible() && !device->isChecked());
  tick("Encode by the graphics card");
  state.madeForRow = 1;
  state.hasWishedSize = true;
  go(RenderFrame::Options);
  EXPECT_EQ(size->value(), 20);
  size->stepUp();
  EXPECT_EQ(
      told.look(),
      "kind4 kind2 kind0 kind1 kind3 kind6 kind5 kind7 kind9 kind10 kind8 profile26 own0 device1 mb21 ");
  state.kind = OutputKind::Wav;
  state.Lst_MadeFor.clear();
  go(RenderFrame::Options);
  EXPECT_FALSE(list->isVisible());
  EXPECT_TRUE(says(kindRow(OutputKind::Wav).hint)) << "in full, in the list's place";
  for (auto* row : kinds) {
    row->setChecked(true);  // as an arrow key does
    state.kind = row->kind();
    go(RenderFrame::Options);
    EXPECT_EQ(row->visibleRegion().boundingRect(), row->rect()) << row->text().toStdString();
  }
}

// Nothing stays as small as it is in a small window.
TEST_F(RenderCards, TakesTheRoomOfALargeWindow) {
  state.picture = std::make_shared<FramePicture>();
  for (const auto& [frame, name] : {std::pair{RenderFrame::Options, "Kind of movie"},
                                    {RenderFrame::Options, "Profile"},
                                    {RenderFrame::Options, "The clip in hand"},
                                    {RenderFrame::Rendering, "The picture being made"},
                                    {RenderFrame::PicInPic, "The new clip"}}) {
    card->resize(themed(976), themed(448));
    go(frame);
    const auto* part = named(*card, name);
    const auto small = part->size();
    card->resize(themed(1540), themed(760));
    QApplication::processEvents();
    EXPECT_GT(part->width() * part->height(), 2 * small.width() * small.height()) << name;
    EXPECT_TRUE(part->isVisible()) << name;
  }
}

TEST_F(RenderCards, ShowsBothClipsThatBecomeOne) {
  for (const auto& [position, left, right] :
       {std::tuple(1, token("amber"), token("violet")), {2, token("violet"), token("amber")}}) {
    const auto box = overlayBox(position, 160, 90);
    ASSERT_EQ(box.offsetX > 0, position == 2);
    state.pair = RenderPair{1, kOverlay, position};
    go(RenderFrame::PicInPic);
    auto* pane = named(*card, "The new clip");
    const auto seen = pane->grab().toImage();
    const double high = seen.width() * 90.0 / 160;
    const auto at = [&](double x, double y) {
      return seen.pixelColor(qRound(seen.width() * x), qRound((seen.height() - high) / 2 + high * y)).name();
    };
    const double middle = (box.offsetY + box.height / 2) / 90;
    EXPECT_EQ(at(0.05, middle), toColour(left).name()) << position;
    EXPECT_EQ(at(0.95, middle), toColour(right).name()) << position;
  }
}

TEST_F(RenderCards, SaysWhyAMovieCannotBeMade) {
  const std::string caution = "The width of 321 is odd. Change it on the Create page.";
  for (const bool canMake : {false, true}) {
    state.caution = canMake ? "" : caution;
    state.canMake = canMake;
    go(RenderFrame::Options);
    EXPECT_EQ(says(caution), !canMake);
    for (const auto* name : {"Write Movie", "Add to Queue"})
      EXPECT_EQ(named(*card, name)->isEnabled(), canMake) << name;
    EXPECT_TRUE(canMake || focus() == "Windows Media Format (WMV)") << focus();
  }
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
  test::Told told;
  test::MemoryStore store;
  test::PlainDesktop desktop;
  FrmQueue window(queue,
                  {told.number("job"), told.act("pause"), told.act("remove"), told.number("move"),
                   told.act("folder"), told.act("clear")},
                  {store, desktop, "QueuePlace"}, told.act("hide"));
  queue.isOpen = true;
  window.draw(true);
  QApplication::processEvents();
  auto* list = named<PageList>(window, "Queue");
  EXPECT_EQ(list->rowName(0), "a.mp4, 43%");
  EXPECT_EQ(list->rowName(2), "c.mp4, failed, disk full");
  const auto press = [&](std::initializer_list<const char*> names) {
    for (const auto* name : names) named<QPushButton>(window, name)->click();
  };
  press({"Pause", "Earlier", "Later", "Remove"});
  for (const auto key : {Qt::Key_Up, Qt::Key_Down}) QTest::keyClick(list, key, Qt::ControlModifier);
  for (const auto key : {Qt::Key_Space, Qt::Key_Delete}) QTest::keyClick(list, key);
  EXPECT_EQ(told.look(), "pause move1 move3 remove move1 move3 pause remove ");
  const auto carried = list->dragOut(0);
  for (const int before : {0, 1, 2, 3}) list->dropped(*carried, before);
  EXPECT_EQ(told.look(), "job0 move1 job0 move1 job0 move2 job0 move3 ")
      << "a place is counted without itself";
  queue.row = 2;
  window.draw(true);
  press({"Later", "Try Again"});
  EXPECT_EQ(told.look(), "pause ") << "the last one, which has failed";
  EXPECT_TRUE(named<QLabel>(window, "disk full")->isVisible());
  EXPECT_FALSE(named<QPushButton>(window, "Clear Finished")->isEnabled()) << "there is none";
  queue.Lst_Queue[2] = {9, "c.mp4", "done", "", false, false, false, false, true};
  queue.canClear = true;
  window.draw(true);
  EXPECT_FALSE(named<QPushButton>(window, "Earlier")->isVisible());
  press({"View Movie", "Open Folder", "Clear Finished"});
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(told.look(), "pause folder clear pause ");
  queue.trouble = "cannot read /home/me/.local/share/KVO5/Queue/Queue.txt: Permission denied";
  queue.Lst_Queue.clear();
  queue.row = -1;
  window.draw(true);
  EXPECT_TRUE(named<QLabel>(window, QString::fromStdString(queue.trouble))->isVisible());
  press({"Pause", "Earlier", "Later", "Remove"});
  QTest::keyClick(list, Qt::Key_Delete);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_EQ(told.look(), "hide ");
  window.draw(false);
  EXPECT_FALSE(window.isVisible()) << "the program has no other window";
}

TEST_F(RenderCards, ShowsHowFarTheMovieIs) {
  state.isRunning = true;
  state.countdown = "About 00.00.46(s) Remaining";
  state.movieSeconds = 20;
  state.pie = {43, kPieYellow};
  go(RenderFrame::Rendering);
  EXPECT_TRUE(says("About 00.00.46(s) Remaining") && says("51.900 s"));
  const auto image = card->grab().toImage();
  const auto at = [&](int x, int y) { return image.pixel(x, y) & 0xFFFFFFU; };
  // The ring at a quarter and at three quarters of its way, the strip before and behind the place.
  EXPECT_EQ(at(70 + 116 + 85, 57 + 80 + 116), token("amber"));
  EXPECT_EQ(at(70 + 116 - 85, 57 + 80 + 116), token("ink1"));
  EXPECT_GT(qGray(at(386 + 250, 57 + 302)), 2 * qGray(at(386 + 350, 57 + 302)));
  state.isRunning = false;
  state.completed = "Completed in 58.42 (s)";
  state.notes = {"holiday.avi: the sound from 1.00 to 2.00 s cannot be decoded"};
  go(RenderFrame::Report);
  EXPECT_TRUE(says("Completed in 58.42 (s)") && says(state.notes[0]));
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
