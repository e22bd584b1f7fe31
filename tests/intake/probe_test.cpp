// The probe: its batch file, its report and what is read from it; real files of names that would break a
// shell line, probed for real.
#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_clock.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_processes.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "intake/batch_probe.h"
#include "intake/codec_words.h"
#include "intake/property_report.h"
#include "support/fake_processes.h"
#include "support/memory_files.h"
#include "support/memory_folders.h"
#include "support/real_world.h"
#include "support/still_clock.h"
#include "support/virtual_loop.h"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

namespace kvo {
namespace {

TEST(CodecWords, TheLastWordOfTheTableHolds) {
  const std::string audio = "Audio Stream proper\r\n WMA V9\r\n rate: 64 kbps\r\n";
  const std::string video = "Video Stream proper\r\n ";
  const std::tuple<std::string, const char*, CodecWords> rows[] = {
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
  for (const auto& [report, extension, words] : rows)
    EXPECT_EQ(readCodecWords(report, extension), words) << report;
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
  const std::tuple<const char*, Result<StreamProperties>, const char*> rows[] = {
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
  for (const auto& [name, found, words] : rows) {
    const auto report = propertyReport(found);
    const auto read = readCodecWords(report, "ASF");  // picture, its rate, sound, its rate
    auto text = read.videoCodec + "," + read.videoBitRate + "," + read.audioCodec + "," + read.audioBitRate;
    if (read.isDrm) text += ", DRM";
    if (!read.seekable) text += ", no seek";
    if (tellsOfWindowsMedia(report)) text += ", Windows Media";
    EXPECT_EQ(text, words) << name << ": " << report;
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

  // What the probe is told when it answers after that many milliseconds.
  std::optional<std::string> report(const std::string& path, int at, const std::string& report, int tries) {
    const auto answers = loop.timer([&] {
      if (!report.empty()) files.all["/tmp/kvo/wmprops.txt"] = report;
      files.all["/tmp/kvo/Done.txt"] = "\n";
    });
    answers->start(at);
    return probe.report(path, tries);
  }
};

TEST(BatchProbe, WaitsAsLongAsToldWhileTheLoopRuns) {
  const std::tuple<const char*, int, const char*, int, std::optional<std::string>, int> rows[] = {
      {"at once", 1, "WMV V9\nrate\r\n", 40, "WMV V9\r\nrate\r\n", 400},
      {"late", 5000, "WMV V9", 40, "WMV V9\r\n", 5050},
      {"never", 60000, "WMV V9", 40, std::nullopt, 6250},
      {"never, when only tested", 60000, "WMV V9", 20, std::nullopt, 3250},
      {"without a report", 100, "", 20, std::nullopt, 400},
  };
  for (const auto& [name, answered, report, tries, told, taken] : rows) {
    ProbeBench b;
    EXPECT_EQ(b.report("/v/a.wmv", answered, report, tries), told) << name;
    EXPECT_EQ(b.loop.now().count(), taken) << name;
    EXPECT_TRUE(b.processes.last().destroyed && b.folders.standing == 0) << name;
  }
}

TEST(BatchProbe, TheBatchQuotesEveryName) {
  ProbeBench b;
  EXPECT_TRUE(b.report("/v/$(rm a)'; b\n.wmv", 1, "x", 1));
  EXPECT_EQ(b.processes.last().order.program, "/bin/sh");
  EXPECT_EQ(b.files.all.at("/tmp/kvo/KVOProps.bat"),
            "'/opt/it'\\''s/KVOprop' -- '/v/$(rm a)'\\''; b\n.wmv' > '/tmp/kvo/wmprops.txt'\n"
            "echo > '/tmp/kvo/Done.txt'\n");
  b.processes.refusal = b.folders.refusal = "no";
  EXPECT_EQ(b.probe.report("/v/a.wmv", 1), std::nullopt);
}

TEST(CodecWords, TheProbeRunsOnceAClipAndAnswersTheClipThatAsked) {
  struct : StreamProbe {
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

namespace fs = std::filesystem;

TEST(HostileNames, NothingRunsAndNothingIsLost) {
  const test::ScratchFolder scratch;
  fs::create_directory(scratch / "media");
  // A temporary folder that would break the line as well.
  const auto temporary = scratch / "it's $(touch ran) \"t\"";
  fs::create_directory(temporary);
  const auto clip = test::makeMedia(scratch, "clip.wmv",
                                    {"-f", "lavfi", "-i", "testsrc=s=64x48:r=25:d=0.4", "-f", "lavfi", "-i",
                                     "sine=d=0.4", "-c:v", "wmv2", "-c:a", "wmav2", "-b:a", "64k"});
  // clang-format off
  const std::string names[] = {
      "plain.wmv", "two  blanks and a tail .wmv", "it's 'quoted'.wmv", "\"double\".wmv",
      "$(touch ran).wmv", "`touch ran`.wmv", "a;touch ran;b.wmv", "a'$(touch ran)'b.wmv",
      "a&touch ran&.wmv", "> ran.wmv", "$HOME %PATH% !x *?[a] ~.wmv", "line\nend\r\n.wmv",
      "\ntouch ran\n.wmv", "back\\slash\\.wmv", "--json", "-.wmv", "\xFF\xFE \xE9 \x81\x82\x88.wmv",
      "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xAC.wmv", std::string(251, 'x') + ".wmv"};
  // clang-format on
  ::setenv("TMPDIR", temporary.c_str(), 1);
  PosixFiles files;
  PosixProcesses processes;
  PollLoop loop;
  PosixClock clock;
  PosixTemporaryFolders folders;
  BatchProbe probe({files, processes, loop, clock, folders, std::string(KVO_PROGRAMS) + "/KVOprop"});
  const auto here = fs::current_path();
  fs::current_path(scratch / "media");
  for (const auto& name : names) {
    fs::copy_file(clip, name);
    const auto report = probe.report(scratch / "media/" + name, 40);
    ASSERT_TRUE(report) << name;
    const auto words = readCodecWords(*report, "WMV");
    EXPECT_EQ(words.videoCodec + ", " + words.audioCodec, "WMV8, WMA V7/8") << name << ": " << *report;
    EXPECT_TRUE(tellsOfWindowsMedia(*report)) << name;
    EXPECT_EQ(fs::file_size(name), fs::file_size(clip)) << name;
  }
  fs::current_path(here);
  const fs::directory_iterator left(scratch / "media");
  EXPECT_EQ(std::distance(begin(left), end(left)), std::ssize(names)) << "and nothing called \"ran\"";
  EXPECT_TRUE(fs::is_empty(temporary));
  EXPECT_FALSE(fs::exists(here / "ran"));
  EXPECT_EQ(probe.report(scratch / "missing 'x'.wmv", 40), "KVO_FAIL\r\n");
  ::unsetenv("TMPDIR");
}

TEST(KVOprop, TellsOfAStillWithoutALengthAndHelpsWhenAsked) {
  const test::ScratchFolder scratch;
  const auto still =
      test::makeMedia(scratch, "s.png", {"-f", "lavfi", "-i", "color=size=64x48", "-frames:v", "1"});
  const std::string program = std::string(KVO_PROGRAMS) + "/KVOprop";
  const auto json = test::runProgram({program, "--json", still});
  EXPECT_EQ(json.exitCode, 0);
  EXPECT_NE(json.out.find("\"still\": true"), std::string::npos) << json.out;
  for (const auto* untold : {"seconds", "frameRate"})
    EXPECT_EQ(json.out.find(untold), std::string::npos) << json.out;
  const auto help = test::runProgram({program, "--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_TRUE(help.out.starts_with("usage: KVOprop") && help.err.empty()) << help.err;
  EXPECT_EQ(test::runProgram({program}).exitCode, 2);
}

}  // namespace
}  // namespace kvo
