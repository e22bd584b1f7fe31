// The probe: its batch file, its report, and what is read from it.
#include "intake/batch_probe.h"
#include "intake/codec_words.h"
#include "intake/property_report.h"
#include "support/fake_processes.h"
#include "support/memory_files.h"
#include "support/memory_folders.h"
#include "support/still_clock.h"
#include "support/virtual_loop.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(CodecWords, TheLastWordOfTheTableHolds) {
  const std::string audio = "Audio Stream proper\r\n WMA V9\r\n rate: 64 kbps\r\n";
  const std::string video = "Video Stream proper\r\n ";
  const struct {
    std::string report;
    const char* extension;
    CodecWords words;
  } rows[] = {
      {"KVO_FAIL" + audio, "WMV", {"Unknown", "0", "Unknown", "Unknown"}},
      {"", "WMV", {"", "", "Unknown", ""}},
      {audio, "WMA", {"", "", "WMA V9", "64 k"}},
      {"Audio Stream proper WMA V9 (Lossless) rate: 1bps", "WMA", {"", "", "WMA V9 (LossLess)", "1"}},
      {"Audio Stream proper WMA V7/V8, WMA V2, rate: nothing", "WMA", {"", "", "WMA V2", ""}},
      {"Audio Stream proper PCM", "WMA", {"", "", "Unknown", ""}},
      {audio + video + "WMV V9 WMV V8 rate: 300000 bps", "WMV", {"WMV9", "300000", "WMA V9", "64 k"}},
      {video + "MS MPEG-4 V3", "AVI", {"MS MPEG4 V3", "", "Unknown", ""}},
      {"Seekable: false\r\n" + video + "WMV V7", "WMV", {"WMV7(Buffrd)", "", "Unknown", "", false, false}},
      {"Is Protected (DRM): true\r\n" + video + "WMV V7", "WMV", {"WMV7", "", "Unknown", "", true}},
      {video + "H.264", "ASF", {"WMV7(Buffrd)", "", "Unknown", ""}},
      {video + "H.264", "WMV", {"", "", "Unknown", ""}},
      {"NoofStreams 3 ", "ASF", {"WMV7(Buffrd)", "", "Unknown", ""}},
      {"NoofStreams 3 ", "WMV", {"", "", "Unknown", ""}},
  };
  for (const auto& row : rows) EXPECT_EQ(readCodecWords(row.report, row.extension), row.words) << row.report;
}

StreamProperties properties(std::vector<StreamProperty> streams, bool isWindowsMedia = true) {
  return {.isWindowsMedia = isWindowsMedia,
          .streams = std::move(streams),
          .tags = {{"title", "KVO_FAIL WMV V9"}}};
}

TEST(PropertyReport, WhatIsPrintedIsFoundAgain) {
  using enum StreamProperty::Kind;
  const StreamProperty wmv{.kind = Video, .codec = "wmv3", .bitRate = 300000};
  const StreamProperty wma{.kind = Audio, .codec = "wmav2", .bitRate = 64000};
  const auto sound = [](const char* codec) { return StreamProperty{.kind = Audio, .codec = codec}; };
  const auto picture = [](const char* codec) { return StreamProperty{.kind = Video, .codec = codec}; };
  auto locked = properties({{.kind = Video, .codec = "wmv1", .bitRate = 1}});
  locked.isProtected = true;
  locked.isSeekable = false;
  const struct {
    const char* name;
    Result<StreamProperties> properties;
    const char* words;  // of an ASF file: picture, its rate, sound, its rate
  } rows[] = {
      {"sound and picture", properties({wmv, wma}), "WMV9,300000,WMA V7/8,64000, Windows Media"},
      {"sound alone", properties({sound("wmalossless")}), ",,WMA V9 (LossLess),0, Windows Media"},
      {"speech", properties({sound("wmavoice")}), ",,WMA Speech V9,0, Windows Media"},
      {"the second sound", properties({wma, sound("sipr")}), ",,WMA V7/8,64000, Windows Media"},
      {"locked", locked, "WMV7(Buffrd),1,Unknown,, DRM, no seek, Windows Media"},
      {"three of no kind", properties({{}, {}, {}}), "WMV7(Buffrd),,Unknown,"},
      {"an MP4", properties({picture("h264"), sound("aac")}, false), "WMV7(Buffrd),0,Unknown,0"},
      {"an AVI of WMV 7", properties({picture("wmv1")}, false), "WMV7,0,Unknown,, Windows Media"},
      {"an AVI of WMV 9", properties({wmv}, false), "WMV9,300000,Unknown,"},
      {"none", Error{"no file with WMV V9"}, "Unknown,0,Unknown,Unknown"},
  };
  for (const auto& row : rows) {
    const auto report = propertyReport(row.properties);
    const auto words = readCodecWords(report, "ASF");
    auto text =
        words.videoCodec + "," + words.videoBitRate + "," + words.audioCodec + "," + words.audioBitRate;
    if (words.isDrm) text += ", DRM";
    if (!words.seekable) text += ", no seek";
    if (tellsOfWindowsMedia(report)) text += ", Windows Media";
    EXPECT_EQ(text, row.words) << row.name << ": " << report;
  }
}

TEST(PropertyReport, JsonHoldsAnyName) {
  const auto json = propertyJson("/v/\"a\"\n\\\xE9.wmv", properties({{.codec = "wmv3"}}));
  EXPECT_NE(json.find(R"("file": "/v/\"a\"\u000a\\é.wmv")"), std::string::npos) << json;
  EXPECT_NE(json.find(R"("title": "KVO_FAIL WMV V9")"), std::string::npos) << json;
  for (const auto* untold : {"seconds", "frameRate", "bitRate"})
    EXPECT_EQ(json.find(untold), std::string::npos) << untold << " of a file that does not tell: " << json;
}

struct ProbeBench {
  test::MemoryFiles files;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  test::StillClock clock;
  test::MemoryFolders folders;
  BatchProbe probe{{files, processes, loop, clock, folders, "/opt/it's/KVOprop"}};

  // After that many milliseconds the probe answers.
  void answerAt(int at, const std::string& report) {
    answers = loop.timer([this, report] {
      if (!report.empty()) files.all["/tmp/kvo/wmprops.txt"] = report;
      files.all["/tmp/kvo/Done.txt"] = "\n";
    });
    answers->start(at);
  }
  std::unique_ptr<Timer> answers;
};

TEST(BatchProbe, WaitsAsLongAsToldWhileTheLoopRuns) {
  const struct {
    const char* name;
    int answered;  // milliseconds
    const char* report;
    int tries;
    std::optional<std::string> told;
    int taken;
  } rows[] = {
      {"at once", 1, "WMV V9\nrate\r\n", 40, "WMV V9\r\nrate\r\n", 400},
      {"late", 5000, "WMV V9", 40, "WMV V9\r\n", 5050},
      {"never", 60000, "WMV V9", 40, std::nullopt, 6250},
      {"never, when only tested", 60000, "WMV V9", 20, std::nullopt, 3250},
      {"without a report", 100, "", 20, std::nullopt, 400},
  };
  for (const auto& row : rows) {
    ProbeBench b;
    b.answerAt(row.answered, row.report);
    EXPECT_EQ(b.probe.report("/v/a.wmv", row.tries), row.told) << row.name;
    EXPECT_EQ(b.loop.now().count(), row.taken) << row.name;
    EXPECT_TRUE(b.processes.last().destroyed) << row.name;
    EXPECT_EQ(b.folders.standing, 0) << row.name;
  }
}

TEST(BatchProbe, TheBatchQuotesEveryName) {
  ProbeBench b;
  b.answerAt(1, "x");
  static_cast<void>(b.probe.report("/v/$(rm a)'; b\n.wmv", 1));
  EXPECT_EQ(b.processes.last().order.program, "/bin/sh");
  EXPECT_EQ(b.files.all.at("/tmp/kvo/KVOProps.bat"),
            "'/opt/it'\\''s/KVOprop' -- '/v/$(rm a)'\\''; b\n.wmv' > '/tmp/kvo/wmprops.txt'\n"
            "echo > '/tmp/kvo/Done.txt'\n");
  b.processes.refusal = b.folders.refusal = "no";
  EXPECT_EQ(b.probe.report("/v/a.wmv", 1), std::nullopt);
}

TEST(CodecWords, TheProbeRunsOnceAClipAndAnswersTheClipThatAsked) {
  class Probe : public StreamProbe {
   public:
    std::function<void()> meanwhile = [] {};
    int asked = 0;
    std::optional<std::string> report(const std::string& /*path*/, int tries) override {
      EXPECT_EQ(tries, 40);
      ++asked;
      meanwhile();
      return "Video Stream proper WMV V8 rate: 5bps";
    }
  } probe;
  Collection collection;
  auto& first = collection.MovieList.add({});
  first.AudioBitRate(" 64 ");
  collection.MovieList.add({});
  EXPECT_EQ(GetWMVVer(collection, 1, "/v/a.wmv", probe).videoCodec, "WMV8");
  EXPECT_EQ(GetWMVVer(collection, 1, "/v/a.wmv", probe), (CodecWords{"WMV8", "5", "Unknown", "64"}));
  EXPECT_EQ(probe.asked, 1);
  probe.meanwhile = [&] { collection.MovieList.remove(1); };
  EXPECT_EQ(GetWMVVer(collection, 2, "/v/b.wmv", probe).videoCodec, "WMV8");
  EXPECT_EQ(collection.MovieList[1].VideoCodec(), "WMV8");
  collection.MovieList[1].VideoCodec("");
  EXPECT_EQ(GetWMVVer(collection, 1, "/v/b.wmv", probe), CodecWords());  // it has gone
  EXPECT_EQ(GetWMVVer(collection, 9, "/v/b.wmv", probe), CodecWords());
}

}  // namespace
}  // namespace kvo
