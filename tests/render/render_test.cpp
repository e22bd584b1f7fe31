#include "base/numbers.h"
#include "render/batch_file.h"
#include "render/render_driver.h"
#include "render/work_view.h"
#include "support/fake_processes.h"
#include "support/golden.h"
#include "support/memory_files.h"
#include "support/memory_folders.h"
#include "support/virtual_loop.h"

#include <tuple>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using Words = std::vector<std::string>;

TEST(EngineProtocol, IsReadAsItIsWritten) {
  const EngineProgress progress{1.5, 12, 70000, 1.25, 0.5};
  EXPECT_EQ(std::get<EngineProgress>(readEngineLine(engineLine(progress))), progress);
  EXPECT_EQ(std::get<EngineNote>(readEngineLine(engineLine(EngineNote{"the sound  has\nprogress"}))),
            EngineNote{"the sound  has\nprogress"});
  for (const bool isSound : {false, true}) {
    const EngineDamage damage{isSound, 1.2, 1.84, "/my clips/a  b\ndone 1 1 1.avi "};
    EXPECT_EQ(std::get<EngineDamage>(readEngineLine(engineLine(damage))), damage);
  }
  const EngineReport report{300, 12.04, 5'000'000'000};
  EXPECT_EQ(engineLine(report), "done 300 12.040 5000000000");
  EXPECT_EQ(std::get<EngineReport>(readEngineLine(engineLine(report))), report);
  for (const auto* line : {"", "progress", "progress 1", "progress x 2", "progress -1 2",
                           "damage smell 1 2 a.avi", "damage sound 1 2 ", "damage sound 1 a.avi", "done 1 2",
                           "note", "done 1 2 1e300", "Progress 1 2", "progresses 1 2"}) {
    EXPECT_EQ(readEngineLine(line).index(), 0U) << line;
  }
  EXPECT_EQ(damageText({false, 1.2, 1.84, "a.avi"}),
            "a.avi: the picture from 1.20 to 1.84 s cannot be decoded; the one ahead stands");
  EXPECT_EQ(damageText({true, 0, 2, "a.avi"}),
            "a.avi: the sound from 0.00 to 2.00 s cannot be decoded; it is silent");
}

std::string textOf(const WorkView& view) {
  return view.headline + "|" + view.below + "|" + ShortText(view.pie.percent) + " % " + view.pieOf +
         (view.pie.colour == kPieRed ? " red" : "") + (view.isDone ? " done" : "") +
         (view.showsFilm ? " film" : "") + (view.canAbort ? " abort" : "") + (view.canView ? " view" : "");
}

TEST(WorkView, SaysHowFarTheRenderIs) {
  RenderState state;
  std::string log;
  const auto tell = [&] { log += textOf(workView(state)) + "\n"; };
  state.frame = RenderFrame::Estimate;
  state.isRunning = state.canAbort = true;
  state.film.emplace_back();
  state.summary = "Encoding";
  tell();
  state.frame = RenderFrame::Rendering;
  tell();
  state.pie.percent = 7;
  tell();
  state.countdown = "About 00.01.30(s) Remaining";
  state.canAbort = false;
  tell();
  state.film.clear();  // sound
  tell();
  state.pie = {100, kPieGreen};
  state.reached = 62.5;
  tell();
  state.pie = {};
  state.reached.reset();
  state.frame = RenderFrame::Report;
  state.isRunning = false;
  state.film.emplace_back();
  state.completed = "Completed";
  state.sizeLabel = "3 Mb";
  tell();
  state.canView = true;
  tell();
  test::expectGoldenLog(log);
}

// The engine is slower in the second half, and stands still there for a while.
TEST(RenderProgress, TimeLeftNeverJumpsUpInTheSecondHalf) {
  SteadyTimeLeft steady;
  EXPECT_FALSE(steady.after({{0, 100}, 1}));
  EXPECT_DOUBLE_EQ(*steady.after({{10, 100}, 1}), 9);
  EXPECT_DOUBLE_EQ(*steady.after({{11, 100}, 11}), 89) << "in the first half it tells what it sees";
  double last = *steady.after({{60, 100}, 12});
  for (double elapsed = 13; elapsed < 300; ++elapsed) {
    const double now = *steady.after({{60 + elapsed / 10, 100}, elapsed});
    EXPECT_LE(now, last * 1.2 + 1e-9);
    last = now;
  }
  EXPECT_NEAR(last, 300 * 0.1 / 0.9, 1) << "and comes to what is true";
  EXPECT_EQ(madeText({{5, 20, 1'000'000, 4}, 2}, 6.0), "25 %, 0:06 left, 1.0 MB of about 5.0 MB");
  EXPECT_EQ(madeText({{0, 20}, 2}, std::nullopt), "0 %");
  EXPECT_EQ(madeText({.movie = {5, 20}, .most = 12e6}, 6.0), "25 %, 0:06 left, about 12.0 MB")
      << "a first pass";
  EXPECT_EQ(madeText({.movie = {15, 20, 8e6, 10}, .most = 12e6}, std::nullopt),
            "75 %, 8.0 MB of about 12.0 MB");
}

TEST(RenderProgress, TellsShareSpeedAndTimeLeft) {
  EXPECT_EQ(progressText({{0, 10}, 0}), "  0%");
  EXPECT_EQ(progressText({{5, 20}, 2}), " 25%  2.50 x real time  0:06 left");
  EXPECT_EQ(progressText({{5, 20}, 2, 1.5, 1}), " 25%  2.50 x real time  0:02 left")
      << "of which 1.5 to begin";
  EXPECT_EQ(progressText({{15, 20, 0, 0, 10}, 2}), " 75%  2.50 x real time  0:02 left") << "it goes on";
  EXPECT_EQ(progressText({{20, 20}, 8}), "100%  2.50 x real time  0:00 left");
  EXPECT_EQ(clockText(3661), "1:01:01");
  EXPECT_EQ(clockText(59.2), "1:00");
  EXPECT_EQ(bytesText(812), "812 bytes");
  EXPECT_EQ(bytesText(17432000), "17.4 MB");
}

struct Driven {
  test::MemoryFiles files;
  test::MemoryFolders folders;
  test::FakeProcesses processes;
  test::VirtualLoop loop;
  int changes = 0;
  RenderDriver driver{{files, folders, processes, loop, "/bin/KVORender", true}, [this] { ++changes; }};
  RenderOrder order{.document = "<timeline>", .output = "/o.avi"};

  void run() { EXPECT_TRUE(driver.start(order)); }
};

TEST(RenderDriver, FollowsTheEngineToTheMovie) {
  Driven d;
  d.order.range = {1.5, 4};
  d.order.codec = "mpeg4";
  d.order.workFolder = workFolderOf("/o.avi");
  d.run();
  const auto& order = d.processes.last().order;
  EXPECT_EQ(order.arguments, (Words{"--pdeathsig", "KILL", "/bin/sh", "/tmp/kvo/KVORender.bat"}));
  EXPECT_FALSE(order.ownGroup);
  EXPECT_EQ(d.files.all["/tmp/kvo/KVORender.xtl"], "<timeline>");
  EXPECT_FALSE(d.driver.start(d.order)) << "one at a time";

  d.loop.advance(2000);
  d.processes.say("progress 0.500 2.500");
  EXPECT_EQ(d.changes, 1);
  auto log = d.files.all["/tmp/kvo/KVORender.bat"] + progressText(d.driver.state().progress) + "\n";
  for (const auto* line : {"nonsense", "damage sound 1.00 2.00 /a b.avi", "done 63 2.500 1000"})
    d.processes.say(line);
  EXPECT_EQ(d.folders.standing, 1);
  d.processes.end(0);
  const auto& state = d.driver.state();
  log += progressText(state.progress) + "\n" + engineLine(state.report) + "\n";
  for (const auto& damage : state.damage) log += engineLine(damage) + "\n";
  test::expectGoldenLog(log);
  EXPECT_EQ(state.phase, EnginePhase::Done);
  EXPECT_EQ(d.folders.standing, 0);
  EXPECT_TRUE(d.processes.last().destroyed);

  d.run();
  EXPECT_EQ(d.driver.state().phase, EnginePhase::Running) << "and again";
  EXPECT_TRUE(d.driver.state().damage.empty());
}

// No name of a file is anything but a name to the shell.
TEST(BatchFile, QuotesEveryPath) {
  const std::string nasty = "it's $(touch x); `y`\n\"z\" \\";
  EXPECT_EQ(shellQuoted(nasty), "'it'\\''s $(touch x); `y`\n\"z\" \\'");
  EXPECT_EQ(
      batchScript({"/a b/KVORender", {"/P", "7", "/W", "-o'.wmv", "/d.xtl"}, "/p q.prx"}, "/c d/Rendone.txt"),
      "#!/bin/sh\nKVO5_PROFILE='/p q.prx' '/a b/KVORender' '/P' '7' '/W' '-o'\\''.wmv' '/d.xtl'\ncode=$?\n"
      "echo >'/c d/Rendone.txt'\nexit $code\n");
}

TEST(RenderDriver, TellsHowARenderEnded) {
  using Row = std::tuple<bool, int, std::string, EnginePhase, std::string, const char*>;
  for (const auto& [stop, exitCode, says, phase, failure, tells] :
       {Row{false, 1, "KVORender: o.avi: File too large", EnginePhase::Failed, "", ""},
        Row{false, 139, "oops", EnginePhase::Failed, "the render engine ended with code 139", ""},
        Row{true, 143, "", EnginePhase::Stopped, "", ""},
        Row{true, 0, "", EnginePhase::Done, "", ""},                         // it had ended already
        Row{true, 143, "", EnginePhase::Done, "", "done 63 2.500 1000"}}) {  // the movie stood
    Driven d;
    d.run();
    if (stop) d.driver.stop();
    EXPECT_EQ(d.processes.last().stopped, stop);
    EXPECT_EQ(d.driver.state().phase, stop ? EnginePhase::Stopping : EnginePhase::Running);
    if (!says.empty()) d.processes.sayError(says);
    d.processes.say(tells);
    d.processes.end(exitCode);
    const auto& state = d.driver.state();
    EXPECT_EQ(state.phase, phase) << exitCode;
    EXPECT_EQ(state.failure, failure);
    EXPECT_EQ(state.engineSays, says.empty() ? std::vector<std::string>{} : std::vector{says});
    EXPECT_TRUE(state.ended());
    EXPECT_EQ(d.folders.standing, 0);
  }
}

TEST(RenderDriver, WhatCannotBeginIsToldAndLeavesNothing) {
  for (int failAt = 1; failAt <= 6; ++failAt) {
    Driven d;
    d.files.failAt = failAt;
    const auto begun = d.driver.start(d.order);
    ASSERT_FALSE(begun);
    EXPECT_NE(begun.error().text.find("the timeline document"), std::string::npos) << begun.error().text;
    EXPECT_EQ(d.folders.standing, 0);
  }
  Driven d;
  d.processes.refusal = "cannot start it";
  EXPECT_EQ(d.driver.start(d.order).error().text, "cannot start it");
  EXPECT_EQ(d.folders.standing, 0);
  d.folders.refusal = "no room";
  EXPECT_EQ(d.driver.start(d.order).error().text, "no room");
  EXPECT_EQ(d.driver.state().phase, EnginePhase::Idle);
}

}  // namespace
}  // namespace kvo
