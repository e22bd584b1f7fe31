// The codec of AVI clips as the window tells of it.
#include "program/codec_info.h"

#include "support/held_player.h"
#include "support/program_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct CodecBench : test::ProgramBench {
  test::HeldPlayer player{*this};
  test::ScriptedProbe probe;
  std::vector<int> reloaded;
  std::size_t halted = 0;
  CodecInfo codec{{window, settings, collection, list, files, folder, probe, boxes, loop, player}};

  CodecBench() {
    codec.driveBy([this](int number) { reloaded.push_back(number); }, [this] { ++halted; });
    files.all[folder.beside("\\Fourcc.dat")] =
        "XVID,Xvid,www.xvid.com,\"" + std::string(53, 'x') + "yz\"\r\nMJPG,,,short\r\n";
  }
  Movie& show(const std::string& name, const std::string& head) {
    auto& clip = addVideo(name, 0, 5);
    files.all["/v/" + name] = head;
    const int number = collection.MovieList.count();
    list.fill();
    list.select(number);
    player.PlayerSetFilename(clipFile(clip), number);
    codec.Displaymovieinfo(number);
    return clip;
  }
};

TEST(CodecInfo, AnAviGetsItsCodecOnceAndTheWindowTellsOfIt) {
  CodecBench b;
  b.codec.Displaymovieinfo(0);  // of an empty collection there is nothing to tell
  b.codec.Displaymovieinfo(1);
  auto& clip = b.show("a.avi", std::string("xvid\0", 5));
  EXPECT_EQ(clip.VideoCodec(), "XVID");
  EXPECT_EQ(b.window.details.pairs[8], (Detail{"Codec", "XVID", "Click Here for more info on the Codec"}));
  b.codec.ShowCodec();
  EXPECT_EQ(b.window.codec,
            (CodecWindowState{true, "XVID", "Xvid", "www.xvid.com", std::string(53, 'x') + "\r\nyz"}));
  b.files.all["/v/a.avi"] = "DIVX";
  clip.VideoCodec("MJPG");
  b.codec.Displaymovieinfo(1);
  EXPECT_EQ(clip.VideoCodec(), "MJPG");
  EXPECT_EQ(b.window.codec.notes, "short") << "the open window follows the clip";
  EXPECT_EQ(b.show("b.vcr", "IV50").VideoCodec(), "IV50");
  EXPECT_EQ(b.window.codec, (CodecWindowState{true, "IV50", "Unknown", "Unknown", "N/A"}));
  EXPECT_TRUE(b.show("c.mpg", "DIVX").VideoCodec().empty());
  EXPECT_FALSE(b.window.codec.visible) << "there is nothing to tell of another kind";
  EXPECT_EQ(b.probe.asked, 0);
}

TEST(CodecInfo, AClipThatAnotherTakesThePlaceOfIsAskedAboutWhenItIsShownAgain) {
  CodecBench b;
  const auto& first = b.show("a.avi", "nothing known");
  const auto& second = b.show("b.avi", "nor here");
  const auto askedOnce = [&](const Movie& clip) {
    b.codec.Displaymovieinfo(b.collection.icurMov);
    b.loop.advance(1000);
    EXPECT_EQ(clip.VideoCodec(), "Unknown");
    return std::exchange(b.probe.asked, 0) == 1;
  };
  EXPECT_TRUE(askedOnce(second));
  EXPECT_TRUE(first.VideoCodec().empty());
  b.list.select(1);
  EXPECT_TRUE(askedOnce(first));
  b.loop.advance(1000);
  EXPECT_EQ(b.probe.asked, 0);
}

TEST(CodecInfo, WindowsMediaUnderAnAviNameIsToldOrGoesByAGraph) {
  const struct {
    const char* name;
    const char* report;
    bool IsCorona, editing, moves;
    std::size_t boxes;
    double seconds;
    bool empties;
    std::size_t reloads;
  } rows[] = {
      {"told", "Video Stream proper", false, false, false, 1, 0, true, 0},
      {"told for a second", "Video Stream proper", false, true, false, 1, 1, false, 0},
      {"by a graph", "Video Stream proper", true, false, false, 0, 0, true, 1},
      {"none", "KVO_FAIL", false, false, false, 0, 0, false, 0},
      {"gone on meanwhile", "Video Stream proper", false, false, true, 0, 0, false, 0},
  };
  for (const auto& row : rows) {
    CodecBench b;
    b.probe.told = row.report;
    b.settings.state.KVOIsInEditMode = row.editing;
    b.window.face.stayOnTop = true;
    b.addVideo("other.mpg", 0, 5);
    b.show("a.avi", "nothing known").IsCorona(row.IsCorona);
    if (row.moves) b.probe.meanwhile = [&] { b.collection.icurMov = 1; };
    b.window.commandRuns = true;
    b.loop.advance(1000);
    EXPECT_EQ(b.probe.asked, 0) << row.name << ": a command runs";
    b.window.commandRuns = false;
    b.loop.advance(1000);
    EXPECT_EQ(b.probe.asked, 1) << row.name;
    EXPECT_EQ(b.reloaded.size(), row.reloads) << row.name;
    EXPECT_EQ(b.halted, row.editing ? 0 : row.boxes) << row.name;
    EXPECT_EQ(b.player.PlayerIsEmpty(), row.empties) << row.name;
    EXPECT_EQ(b.window.face.stayOnTop, row.boxes != 1 || row.editing) << row.name;
    ASSERT_EQ(b.boxes.shown.size(), row.boxes) << row.name;
    if (row.boxes == 0) continue;
    EXPECT_EQ(b.boxes.shown[0].seconds, row.seconds) << row.name;
  }
}

}  // namespace
}  // namespace kvo
