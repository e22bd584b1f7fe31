// Files looked into by a process of its own: its words, its ends, and real media that it looks into.
#include "base/text.h"
#include "intake/look_words.h"
#include "intake/looking_process.h"
#include "support/fake_processes.h"
#include "support/virtual_loop.h"

#include <utility>

#include <gtest/gtest.h>

namespace kvo {
namespace {

const MediaLook kLook{{.hasVideo = true,
                       .hasAudio = true,
                       .width = 1920,
                       .height = 1080,
                       .frameRate = 30000.0 / 1001,
                       .steadyRate = 24000.0 / 1001,
                       .sampleRate = 44100,
                       .channels = 2,
                       .codec = "H.264",
                       .wholeDuration = 12.345678901,
                       .duration = 12.3},
                      {"two\nlines\\n", "a\r\nend", "end", ""},
                      "cannot open\nend"};

TEST(LookWords, ComeBackAsTheyWereWhateverIsInTheTexts) {
  MediaLook look;
  const auto lines = lookLines(kLook);
  EXPECT_TRUE(lines.ends_with("\n")) << "each is a whole line";
  for (std::string_view rest = lines; !rest.empty();) readLookLine(nextLine(rest), look);
  EXPECT_EQ(look.tags, kLook.tags);
  EXPECT_EQ(look.errorText + look.facts.codec, kLook.errorText + kLook.facts.codec);
  EXPECT_NEAR(look.facts.frameRate, kLook.facts.frameRate, 1e-12);
  EXPECT_NEAR(look.facts.wholeDuration, kLook.facts.wholeDuration, 1e-12);
  EXPECT_EQ(look.facts.width * look.facts.channels, 3840);
  EXPECT_TRUE(look.facts.hasVideo && look.facts.hasAudio && !look.facts.isStill);
  for (const auto* junk : {"", "width", "width 99999999999999999999", "nonsense 1", "title \\"})
    readLookLine(junk, look);
  EXPECT_EQ(look.facts.width, 2147483647);
}

// A looking process whose answers the test writes.
struct LookBench {
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  LookingProcess looker{{processes, loop, {.program = "/bin/looker"}}};

  LookAnswer look(
      const std::function<void()>& meanwhile, const std::function<bool()>& stopped = [] { return false; }) {
    bool told = false;
    loop.onYield = [&] {
      if (!std::exchange(told, true)) meanwhile();
    };
    return looker.look("/v/a.avi", stopped);
  }
};

TEST(LookingProcess, IsKeptForTheNextFileAndReplacedWhenItDoesNotSurviveOne) {
  LookBench b;
  const auto answers = [&] {
    for (const auto* line : {"video 1", "width 64", "end", "width 32"}) b.processes.say(line);
  };
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(b.look(answers).look.facts.width, 64) << "what comes behind the end is of no file";
  ASSERT_EQ(b.processes.all.size(), 1U);
  EXPECT_TRUE(b.processes.last().order.hasInput);
  EXPECT_EQ(b.processes.last().written.back(), std::string("/v/a.avi\0", 9));

  EXPECT_EQ(b.look([&] { b.processes.end(139, 11); }).end, LookEnd::Crashed);
  EXPECT_EQ(b.look(answers).end, LookEnd::Looked);
  EXPECT_EQ(b.processes.all.size(), 2U);
  const auto begun = b.loop.now();
  EXPECT_EQ(b.look([] {}).end, LookEnd::Hung);
  EXPECT_NEAR(static_cast<double>((b.loop.now() - begun).count()), 10000, 50);
  EXPECT_TRUE(b.processes.last().destroyed);
  EXPECT_EQ(b.look([] {}, [&] { return b.loop.now() > begun; }).end, LookEnd::Stopped);
  EXPECT_EQ(b.look(answers).end, LookEnd::Looked);
  b.processes.end(0);
  EXPECT_EQ(b.look(answers).end, LookEnd::Looked) << "one that ended in between is no fault of this file";
  b.processes.refusal = "no";
  b.processes.end(0);
  EXPECT_EQ(b.look(answers).look.errorText, "cannot start /bin/looker");
}

}  // namespace
}  // namespace kvo
