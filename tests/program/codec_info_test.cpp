// The codec of AVI clips as the window tells of it.
#include "program/codec_info.h"

#include "support/held_player.h"
#include "support/program_bench.h"
#include "support/scripted_probe.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

struct CodecBench : test::ProgramBench {
  test::HeldPlayer player{*this};
  test::ScriptedProbe probe;
  std::string asked;  // of those who drive it
  CodecInfo codec{{window, settings, collection, list, files, folder, probe, boxes, loop, player}};

  CodecBench() {
    codec.driveBy([this](int /*number*/) { asked += "reloaded "; }, [this] { asked += "halted "; });
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
  EXPECT_EQ(clip.VideoCodec() + b.window.codec.notes, "MJPGshort") << "the open window follows the clip";
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
  for (const int number : {2, 1, 1}) {
    b.list.select(number);
    b.codec.Displaymovieinfo(number);
    b.loop.advance(1000);
    EXPECT_EQ(second.VideoCodec() + "|" + first.VideoCodec(), number == 2 ? "Unknown|" : "Unknown|Unknown");
  }
  EXPECT_EQ(b.probe.asked, 2);
}

TEST(CodecInfo, WindowsMediaUnderAnAviNameIsToldOrGoesByAGraph) {
  // The report of the probe; whether the clip goes by a graph, is edited, and has been left meanwhile.
  const std::tuple<const char*, const char*, bool, bool, bool, const char*> rows[] = {
      {"told", "Video Stream proper", false, false, false, "0 s halted empty "},
      {"told for a second", "Video Stream proper", false, true, false, "1 s on top "},
      {"by a graph", "Video Stream proper", true, false, false, "reloaded empty on top "},
      {"none", "KVO_FAIL", false, false, false, "on top "},
      {"gone on meanwhile", "Video Stream proper", false, false, true, "on top "},
  };
  for (const auto& [name, report, IsCorona, editing, moves, told] : rows) {
    SCOPED_TRACE(name);
    CodecBench b;
    b.probe.told = report;
    b.settings.state.KVOIsInEditMode = editing;
    b.window.face.stayOnTop = true;
    b.addVideo("other.mpg", 0, 5);
    b.show("a.avi", "nothing known").IsCorona(IsCorona);
    if (moves) b.probe.meanwhile = [&] { b.collection.icurMov = 1; };
    b.window.commandRuns = true;
    b.loop.advance(1000);
    EXPECT_EQ(b.probe.asked, 0) << "a command runs";
    b.window.commandRuns = false;
    b.loop.advance(1000);
    EXPECT_EQ(b.probe.asked, 1);
    std::string becomes;
    for (const auto& box : b.boxes.shown) becomes += ShortText(box.seconds) + " s ";
    becomes += b.asked;
    if (b.player.PlayerIsEmpty()) becomes += "empty ";
    if (b.window.face.stayOnTop) becomes += "on top ";
    EXPECT_EQ(becomes, told);
  }
}

}  // namespace
}  // namespace kvo
