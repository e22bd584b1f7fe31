// The shipped pictures as they were rendered: every name that a window asks for, at every interface size.
#include "base/numbers.h"

#include <QColor>
#include <QImage>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct Size {
  const char* folder;
  double factor;
};
constexpr Size kSizes[] = {{"", 1}, {"1.25/", 1.25}, {"1.5/", 1.5}, {"2/", 2}};

QImage pictureOf(const std::string& folder, const Size& size, const std::string& name) {
  return QImage(QString::fromStdString(KVO_SHARE "/kvo5/" + folder + "/" + size.folder + name));
}

struct Group {
  const char* folder;
  int width;
  int height;
  std::vector<std::string> stems;
  std::vector<std::string> endings;
};

const std::vector<Group>& groups() {
  static const std::vector<Group> all = {
      {"Skins", 562, 410, {"blue", "Plastique", "SkinMask"}, {".bmp"}},
      {"Skins", 562, 410, {"snakesk", "Waves"}, {".jpg"}},
      {"Remote", 176, 440, {"RCV"}, {".bmp"}},
      {"Buttons", 506, 46, {"Toolbarb"}, {".bmp"}},
      {"Buttons", 167, 27, {"WavStrip"}, {".bmp"}},
      {"Buttons", 491, 158, {"world"}, {".bmp"}},
      {"Buttons",
       36,
       30,
       {"Plst_UP", "Plst_DOWN", "Plst_ADD", "Plst_Cross", "Plst_SORT"},
       {"Nrm", "HVR", "DN"}},
      {"Buttons", 28, 23, {"Eject"}, {"Nrm", "HVR", "DN"}},
      {"Buttons",
       30,
       28,
       {"Tools_", "Voice_", "Name_", "Comp_", "Camera_", "Reverse_", "Split", "Copy", "Eqi",   "CPYEnd",
        "Trim",   "R1",     "F1",    "Quit",  "Rend",    "CLR",      "PINPR", "SAVE", "Abort", "Conf",
        "Opt",    "CONT",   "CANC",  "UP",    "DOWN",    "ADD",      "CUT",   "SORT"},
       {"Nrm", "HVR", "DN"}},
      {"Buttons", 30, 28, {"MRKGIN", "MRKGOUT", "RSTIN", "RSTOUT"}, {"Nm", "HV", "DN"}},
      {"Buttons", 30, 28, {"MRKIN", "MRKOUT"}, {"Nrm", "HVr", "DN"}},
      {"Buttons", 30, 28, {"APPLY"}, {"NRM", "HVR", "DN"}},
      {"Buttons", 30, 28, {"In_"}, {"Off", "Hvr", "On"}},
      {"Buttons", 30, 28, {"Apply_Rnd_"}, {"Off", "HVR", "ON"}},
      {"Buttons", 24, 22, {"Close_Rnd_"}, {"Off", "Hvr", "On"}},
      {"Buttons",
       18,
       18,
       {"Jose", "Maple", "Prag", "Berl", "Lond", "Syd", "Val", "TAM"},
       {"Nor", "HVR", "DN"}},
      {"Buttons",
       30,
       28,
       {"MediaFinder_Add_All", "MediaFinder_Add_Selected", "MediaFinder_Sort", "MediaFinder_Start_Search",
        "MediaFinder_Stop_Add"},
       {"_Off", "_Hvr", "_On"}},
      {"Buttons", 30, 28, {"MediaFinder_SingleSel", "MediaFinder_MultiSel"}, {"_On", "_Off"}},
      {"Buttons", 820, 520, {"MediaFinder_BackDrop"}, {""}},
      {"Buttons", 30, 28, {"Revvid", "AQuitnrm", "AQuithvr"}, {""}},
      {"Buttons", 130, 90, {"COMPRSS"}, {""}},
      {"Parts", 8, 13, {"Img_MarkIn", "Img_MarkOut"}, {""}},
      {"Parts", 13, 13, {"ImageBlob"}, {""}},
      {"ImageList1", 48, 48, {"01", "02"}, {""}},
      {"ImageList1", 32, 38, {"03", "04"}, {""}},
      {"ImageList1", 40, 40, {"05"}, {""}},
      {"ImageList1", 28, 28, {"06", "07", "08", "09", "10", "11", "12", "13"}, {""}},
      {"ImageList1", 96, 28, {"14"}, {""}},
      {"ImageList1", 38, 28, {"15"}, {""}},
      {"ImageList1", 52, 34, {"16", "17"}, {""}},
      {"ImageList1", 24, 22, {"18"}, {""}},
      {"ImageList1", 44, 18, {"19"}, {""}},
  };
  return all;
}

TEST(Art, EveryPictureIsThereAtEverySize) {
  for (const auto& group : groups()) {
    for (const auto& stem : group.stems) {
      for (const auto& ending : group.endings) {
        const auto name = stem + (ending.find('.') == std::string::npos ? ending + ".bmp" : ending);
        for (const auto& size : kSizes) {
          const auto picture = pictureOf(group.folder, size, name);
          EXPECT_EQ(picture.width(), RoundToWhole(group.width * size.factor)) << size.folder << name;
          EXPECT_EQ(picture.height(), RoundToWhole(group.height * size.factor)) << size.folder << name;
        }
      }
    }
  }
}

// The pixel at 1, 1 tells what shows the skin: in a key it is transparent, and the key has a body and soft
// edges.
TEST(Art, KeysAreCutOutByTheirAlpha) {
  for (int number = 1; number <= 19; ++number) {
    const auto name = (number < 10 ? "0" : "") + std::to_string(number) + ".bmp";
    for (const auto& size : kSizes) {
      const auto picture = pictureOf("ImageList1", size, name);
      ASSERT_TRUE(picture.hasAlphaChannel()) << size.folder << name;
      EXPECT_EQ(picture.pixelColor(1, 1).alpha(), 0) << size.folder << name;
      EXPECT_GT(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha(), 250)
          << size.folder << name;
    }
  }
}

// A shape is made of what is not black.
TEST(Art, MasksAreBlackOutsideAndNowhereElse) {
  struct Mask {
    const char* folder;
    const char* name;
  };
  for (const auto& mask : {Mask{"Skins", "SkinMask.bmp"}, Mask{"Remote", "RCV.bmp"}}) {
    for (const auto& size : kSizes) {
      const auto picture = pictureOf(mask.folder, size, mask.name).convertToFormat(QImage::Format_RGB32);
      const auto isBlack = [&](int x, int y) { return (picture.pixel(x, y) & 0xFFFFFFU) == 0; };
      EXPECT_TRUE(isBlack(0, 0)) << size.folder << mask.name;
      for (int y = 0; y < picture.height(); ++y) {
        // Each row is black up to the outline, then never, then black again.
        int changes = 0;
        for (int x = 1; x < picture.width(); ++x) changes += isBlack(x, y) != isBlack(x - 1, y) ? 1 : 0;
        ASSERT_EQ(changes, isBlack(0, y) ? 2 : 0) << size.folder << mask.name << " row " << y;
      }
    }
  }
}

TEST(Art, TheIconIsThereAtTheSizesOfADesktop) {
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    const auto folder = QString("%1x%1").arg(side);
    EXPECT_EQ(QImage(QString(KVO_SHARE "/icons/hicolor/%1/apps/kvo5.png").arg(folder)).size(),
              QSize(side, side));
  }
}

}  // namespace
}  // namespace kvo
