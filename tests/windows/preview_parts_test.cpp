// The preview's picture and the row under it, driven as a user drives them.
#include "windows/editor/position_row_part.h"
#include "windows/editor/preview_part.h"
#include "windows/named_parts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QSlider>
#include <QTest>

#include <gtest/gtest.h>

namespace kvo {
namespace {

std::shared_ptr<const Bitmap> pictureOf(int width, int height, std::uint8_t blue, std::uint8_t green,
                                        std::uint8_t red) {
  auto bitmap = std::make_shared<Bitmap>(Bitmap{width, height, {}});
  for (int i = 0; i < width * height; ++i) bitmap->bgr.insert(bitmap->bgr.end(), {blue, green, red});
  return bitmap;
}

PreviewState movieState() {
  PreviewState state;
  state.kind = PreviewKind::Movie;
  state.picture = pictureOf(64, 48, 40, 90, 200);
  state.title = "Opening -->  lake at dusk.mpg";
  state.total = 51.9;
  state.FSB_RenderRange = {51, 9.2};
  state.cuts = {6, 14.4, 20, 33, 38, 51.9};
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
  const auto colour = [&](int x, int y) { return seen.pixelColor(x, y).rgb(); };
  EXPECT_EQ(part.pictureRect().size(), QSizeF(488, 366));
  EXPECT_EQ(colour(262, 250), qRgb(200, 90, 40));
  EXPECT_EQ(colour(9, 180), qRgb(0, 0, 0)) << "beside it";
  EXPECT_EQ(colour(514, 180), qRgb(0, 0, 0));
  EXPECT_NE(colour(40, 16), qRgb(200, 90, 40)) << "its title stands over it";

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
  QString told;
  const auto tells = [&](const char* what) { return [&told, what] { told += QString(what) + " "; }; };
  PositionRowPart row(state,
                      {.toStart = tells("start"),
                       .stepBack = tells("back"),
                       .playOrPause = tells("play"),
                       .stepForward = tells("on"),
                       .toEnd = tells("end"),
                       .holdRange = [&](bool held) { told += held ? "held " : "free "; },
                       .moveRange = [&](double seconds) { told += QString::number(seconds) + " "; }},
                      nullptr);
  row.resize(524, 72);
  row.show();
  row.draw();
  auto* bar = row.findChild<QSlider*>();
  const auto keys = row.findChildren<QAbstractButton*>();
  const auto look = [&] { return std::exchange(told, {}); };
  EXPECT_EQ(bar->value(), 920);
  EXPECT_EQ(look(), "") << "what it draws nobody has done";
  EXPECT_EQ(test::expectNamed(row, 24), 6);
  for (auto* key : keys) QTest::mouseClick(key, Qt::LeftButton);
  QTest::keyClick(bar, Qt::Key_Right);
  EXPECT_EQ(look(), "start back play on end 9.3 ");
  const QPoint handle(static_cast<int>(bar->width() * 9.3 / 51.9), bar->height() / 2);
  QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, handle);
  state.FSB_RenderRange.Value = 30;
  row.draw();
  EXPECT_LT(bar->value(), 1100) << "the hand has it";
  QTest::mouseMove(bar, handle + QPoint(100, 0));
  QTest::mouseRelease(bar, Qt::LeftButton, Qt::NoModifier, handle + QPoint(100, 0));
  EXPECT_TRUE(told.startsWith("held ") && told.endsWith(" free ")) << told.toStdString();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, QPoint(bar->width() / 2, bar->height() / 2));
  EXPECT_NEAR(bar->value(), bar->maximum() / 2, bar->maximum() / 100) << "where it was clicked";
  state.PreviewPlaying = true;
  row.draw();
  EXPECT_EQ(keys[2]->accessibleName(), "Pause");
  for (const int narrow : {460, 274}) {
    row.resize(narrow, row.height());
    for (const auto* key : keys) {
      EXPECT_TRUE(row.rect().contains(key->geometry())) << narrow;
      for (const auto* label : row.findChildren<QLabel*>())
        EXPECT_FALSE(label->isVisible() && key->geometry().intersects(label->geometry())) << narrow;
    }
  }
}

}  // namespace
}  // namespace kvo
