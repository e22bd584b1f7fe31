// Real files of names that would break a shell line, probed for real.
#include "adapters/posix/poll_loop.h"
#include "adapters/posix/posix_clock.h"
#include "adapters/posix/posix_files.h"
#include "adapters/posix/posix_processes.h"
#include "adapters/posix/posix_temporary_folders.h"
#include "intake/batch_probe.h"
#include "intake/codec_words.h"
#include "support/real_world.h"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

namespace kvo {
namespace {

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
    EXPECT_EQ(words.videoCodec, "WMV8") << name << ": " << *report;
    EXPECT_EQ(words.audioCodec, "WMA V7/8") << name;
    EXPECT_TRUE(tellsOfWindowsMedia(*report)) << name;
    EXPECT_EQ(fs::file_size(name), fs::file_size(clip)) << name;
  }
  fs::current_path(here);
  std::size_t left = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(scratch / "media")) ++left;
  EXPECT_EQ(left, std::size(names));  // and nothing called "ran"
  EXPECT_TRUE(fs::is_empty(temporary));
  EXPECT_FALSE(fs::exists(here / "ran"));
  const auto failed = probe.report(scratch / "missing 'x'.wmv", 40);
  EXPECT_EQ(failed, "KVO_FAIL\r\n");
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
