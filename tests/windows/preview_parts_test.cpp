// The preview's picture and the row under it, driven as a user drives them.
#include "ui/digit_display.h"
#include "ui/widget_bench.h"
#include "windows/editor/position_row_part.h"
#include "windows/editor/preview_part.h"

namespace kvo {
namespace {

PreviewState movieState() {
  auto picture = std::make_shared<Bitmap>(Bitmap{64, 48, {}});
  for (int i = 0; i < 64 * 48; ++i) picture->bgr.insert(picture->bgr.end(), {40, 90, 200});
  PreviewState state;
  state.kind = PreviewKind::Movie;
  state.picture = picture;
  state.title = "Opening -->  lake at dusk.mpg";
  state.total = 51.9;
  state.FSB_RenderRange = {51, 9.2};
  state.cuts.assign({6, 14.4, 20, 33, 38, 51.9});
  state.Lbl_TimePos = "00:09.2000";
  state.Lbl_Remain = "00:42.7000";
  state.Lbl_TotDur = "00:51.9000";
  return state;
}

TEST(PreviewPart, ThePictureKeepsItsShapeOnBlack) {
  auto state = movieState();
  PreviewPart part(state, nullptr);
  part.resize(524, 366);
  part.draw();
  const auto seen = part.grab().toImage();

  EXPECT_EQ(part.pictureRect().size(), QSizeF(488, 366));
  EXPECT_EQ(seen.pixel(262, 250), qRgb(200, 90, 40));
  EXPECT_EQ(seen.pixel(9, 180), qRgb(0, 0, 0)) << "beside it";
  EXPECT_EQ(seen.pixel(514, 180), qRgb(0, 0, 0));
  EXPECT_NE(seen.pixel(40, 16), qRgb(200, 90, 40)) << "its title stands over it";

  state.kind = PreviewKind::None;
  state.picture.reset();
  state.title.clear();
  part.draw();
  EXPECT_TRUE(part.pictureRect().isEmpty());
  EXPECT_EQ(part.accessibleDescription(), "Nothing to Preview");
  state.failure = "cannot open gone.mkv";
  part.draw();
  EXPECT_EQ(part.accessibleDescription(), "cannot open gone.mkv");
}

TEST(PositionRow, KeysAndBarSayWhatTheUserDoes) {
  auto state = movieState();
  test::Told told;
  PositionRowPart row(state,
                      {told.act("start"), told.act("back"), told.act("play"), told.act("on"), told.act("end"),
                       [&](bool held) { told.line += held ? "held " : "free "; },
                       [&](double seconds) { told.number("tenths")(std::lround(seconds * 10)); }},
                      nullptr);
  row.resize(524, 72);
  row.show();
  row.draw();
  auto* bar = row.findChild<QSlider*>();
  const auto keys = row.findChildren<QAbstractButton*>();
  EXPECT_EQ(bar->value(), 920);
  EXPECT_EQ(told.look(), "") << "what it draws nobody has done";
  EXPECT_EQ(test::expectNamed(row, 24), 6);
  for (auto* key : keys) QTest::mouseClick(key, Qt::LeftButton);
  QTest::keyClick(bar, Qt::Key_Right);
  EXPECT_EQ(told.look(), "start back play on end tenths93 ");
  const QPoint handle(static_cast<int>(bar->width() * 9.3 / 51.9), bar->height() / 2);
  QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, handle);
  state.FSB_RenderRange.Value = 30;
  row.draw();
  EXPECT_LT(bar->value(), 1100) << "the hand has it";
  QTest::mouseMove(bar, handle + QPoint(100, 0));
  QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, handle + QPoint(100, 0));
  EXPECT_TRUE(told.line.starts_with("held ") && told.line.ends_with(" free ")) << told.line;
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(bar->width() / 2, bar->height() / 2));
  EXPECT_NEAR(bar->value(), bar->maximum() / 2, bar->maximum() / 100) << "where it was clicked";
  state.PreviewPlaying = true;
  row.draw();
  EXPECT_EQ(keys[2]->accessibleName(), "Pause");
  const std::pair<int, int> rows[] = {{460, 4}, {344, 4}, {274, 2}, {206, 4}};
  for (const auto& [narrow, labels] : rows) {
    row.resize(narrow, row.height());
    const auto all = row.findChildren<QLabel*>();
    EXPECT_EQ(std::ranges::count_if(all, [](const auto* label) { return label->isVisible(); }), labels)
        << narrow;
    QRegion taken(row.findChild<DigitDisplay*>()->geometry());
    for (const auto* key : keys) {
      EXPECT_TRUE(row.rect().contains(key->geometry())) << narrow;
      taken += key->geometry();
    }
    for (const auto* label : row.findChildren<QLabel*>())
      EXPECT_FALSE(label->isVisible() && taken.intersects(label->geometry())) << narrow;
  }
}

}  // namespace
}  // namespace kvo
