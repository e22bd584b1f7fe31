#include "base/numbers.h"
#include "base/text.h"
#include "render/output_kinds.h"
#include "render/render_texts.h"
#include "render/work_view.h"
#include "support/golden.h"
#include "support/render_bench.h"

#include <limits>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::EngineTurn;
using test::lineOf;
using test::RenderBench;

TEST(Slumber, PacesItsEventsAndWakesAtOnce) {
  test::VirtualLoop loop;
  clsSlumber slumber(loop);
  EXPECT_EQ(slumber.SlumberInterval(0).error().text, "SlumberInterval must be greater than 0!");
  EXPECT_EQ(slumber.Slumber(0, {}).error().text, "Parameter MilliSeconds must be greater than 0!");
  std::string seen;
  const auto at = [&] { return std::to_string(loop.now().count()) + " "; };
  ASSERT_TRUE(slumber.SlumberInterval(5000));
  // Two periods of five minutes, of which the second is halved; the sentinel is looked for each fourth round.
  ASSERT_TRUE(slumber.Slumber(
      300000, {.Slumber = [] {},
               .hasEnded = [] { return false; },
               .seesSentinel =
                   [&] {
                     if (loop.now().count() % 100000 == 0) seen += at();
                     return loop.now().count() >= 600000;
                   },
               .overran = [&](int time) { seen += "over" + std::to_string(time) + ":" + at(); }}));
  EXPECT_EQ(seen, "100000 200000 300000 over1:300000 400000 over2:450000 500000 600000 ");
  const auto ends = loop.now().count() + 7230;
  int events = 0;
  ASSERT_TRUE(
      slumber.Slumber(300000, {.Slumber = [&] { EXPECT_EQ(slumber.ElapsedMilliseconds(), 5000 * events++); },
                               .hasEnded = [&] { return loop.now().count() >= ends; }}));
  EXPECT_NEAR(static_cast<double>(loop.now().count() - ends), 0, 50);
  EXPECT_EQ(events, 2);
  ASSERT_TRUE(slumber.Slumber(60000, {.Slumber = [&] { slumber.WakeUp(); }}));
  EXPECT_EQ(slumber.ElapsedMilliseconds(), 5000);
}

TEST(RenderEstimate, KeepsItsBounds) {
  for (const auto& [given, held] : {std::pair{1, 5}, {2, 2}, {0, 5}, {-3, 5}, {1024, 1024}, {2000, 10}})
    EXPECT_EQ(boundEstimate(given), held) << given;
  struct Row {
    EstimateQuery query;
    double slice, from, to;  // from -1: the whole movie
  };
  for (const auto& row : {Row{{true, 100, 0, 100, 5}, 5, 25, 30}, Row{{true, 8, 0, 8, 5}, 2, 2, 7},
                          Row{{true, 0, 0, 9, 5}, 5, 0, 5}, Row{{true, 4, 0, 4, 5}, 1, -1, 0},
                          Row{{false, 0, 200, 200, 10}, 25, 50, 60}}) {
    EXPECT_EQ(estimateSlice(row.query), row.slice);
    const auto range = estimateRange(row.query);
    EXPECT_EQ(range.value_or(std::pair{-1.0, 0.0}), (std::pair{row.from, row.to}));
  }
  const EstimateQuery movie{true, 100, 0, 100, 5};
  EXPECT_DOUBLE_EQ(projected(movie, 2, 5 * 1024 * 1024, 100).megabytes, 100);
  EXPECT_EQ(projected(movie, 2, 0, 100).megabytes, 1);
  EXPECT_EQ(projected({true, 0.3, 0, 0.3, 5}, 2, 9, 0.3).estimateSeconds, 1) << "nothing is divided by 0";
  EXPECT_EQ(projected({false, 0, 90, 90, 5}, 40, 9, 90).seconds, 4);
  EXPECT_EQ(projected({false, 0, 90, 90, 5}, 30, 9, 90).seconds, 30);
  EXPECT_DOUBLE_EQ(renderSecondsOf({2, 1, 5}, 100), 0.4 * 100 * 1.6);
  EXPECT_DOUBLE_EQ(renderSecondsOf({0, 1, 5}, 100), 160) << "a rate of 0 is 1";
  EXPECT_EQ(countdownSeconds(64), 32);
  EXPECT_EQ(countdownSeconds(0.4), 1);
  EXPECT_EQ(countdownSeconds(0), 0);
  EXPECT_TRUE(isDiskShort(91, 100));
  EXPECT_FALSE(isDiskShort(90, 100));
}

TEST(RenderTexts, AreAsTold) {
  std::string log;
  for (const auto& text :
       {completedText(12.4), completedText(59.996), completedText(125.9), countdownText(1, 2, 3),
        estimatedSizeText(3.2), outputSizeText(1536 * 1024), diskSpaceWarning(1000).message,
        diskSpaceWarning(1536).message, renderTimeWarning(5432).message, diskShortBox(12.5).text,
        renderSummary(OutputKind::Wmv, 125, "P"), renderSummary(OutputKind::Wma, 12, "P"),
        renderSummary(OutputKind::Mp4, 125, ""), renderSummary(OutputKind::Mp3, 12, ""),
        renderSummary(OutputKind::Avi, 59, ""), renderSummary(OutputKind::Wav, 59, ""),
        renderSummary(OutputKind::Wav, 65, "")})
    log += text + "\n";
  test::expectGoldenLog(log);
}

std::string factsOf(const RenderState& state) {
  std::string all;
  for (const auto& [name, value] : state.facts) all.append(name).append("=").append(value).append("|");
  return all;
}

// What comes of a render: the boxes, what the engine, the host and the desktop are asked for, the files that
// stand, and what the window shows.
std::string endOf(RenderBench& b) {
  std::string text;
  const auto line = [&](const char* what, const std::string& said) {
    text += std::string("  ") + what + " " + replaced(said, "\r\n", " / ") + "\n";
  };
  for (const auto& box : b.boxes.shown) line("box", box.caption + ": " + box.text);
  for (const auto& box : b.boxes.styled) line("warning", box.caption + ": " + box.message);
  for (const auto& call : b.engine.calls) line("engine", call);
  line("host", b.host.notes);
  line("desktop", b.work.notes);
  for (const auto& [name, bytes] : b.files.all) {
    if (name.starts_with("/out/") || name.starts_with("/prog/"))
      line("file", name + (bytes.size() < 10           ? ", " + bytes
                           : name.starts_with("/out/") ? ", " + std::to_string(bytes.size()) + " bytes"
                                                       : ""));
  }
  constexpr const char* kFrames[] = {"none", "options", "pair", "estimate", "rendering", "report"};
  line("window", kFrames[static_cast<int>(b.state.frame)] + (", " + b.state.heading) + "|" + b.state.caption +
                     "|" + b.state.completed + "|" + b.state.sizeLabel + "|" + factsOf(b.state) +
                     (b.state.canView ? "can be viewed" : ""));
  EXPECT_FALSE(b.state.isRunning || b.engine.running > 0);
  EXPECT_FALSE(b.settings.state.IsDirty) << "a movie is no change of the collection";
  return text;
}

TEST(MovieRender, EndsAsItShould) {
  struct Row {
    const char* what;
    std::function<void(RenderBench&)> prepare;
    std::function<void(RenderBench&)> during = [](auto&) {};
    OutputKind kind = OutputKind::Wmv;
  };
  const auto range = [](double from, double too) {
    return [=](auto& b) {
      b.create.Opt_RenderRangeWhole = false;
      b.create.Txt_From = from;
      b.create.Txt_Too = too;
    };
  };
  const auto named = [](const std::optional<std::string>& name, Answer replaces = Answer::Yes) {
    return [=](auto& b) {
      b.dialogs.answers = {name};
      b.boxes.answers = {replaces};
    };
  };
  const auto views = [](Answer answer, bool neverAgain) {
    return [=](auto& b) {
      b.engine.turns = {{.seconds = 20, .bytes = 1 << 20}, {.seconds = 45, .bytes = 3 << 20}};
      b.boxes.styledAnswer = {answer, neverAgain};
    };
  };
  const auto turns = [](const EngineTurn& first, const EngineTurn& second = {}) {
    return [=](auto& b) { b.engine.turns = {first, second}; };
  };
  // 600 s of movie: 5 Mb for five of them are 600, and 28.125 s of work for five are 90 minutes.
  const auto warns = [](double seconds, std::size_t bytes, bool goesOn, bool diskOff = false,
                        bool timeOff = false, bool on = true) {
    return [=](auto& b) {
      b.addVideo("long.avi", 0, 588);
      auto& adjust = b.settings.adjust();
      adjust.OutputWarningsOn = on;
      adjust.RenderDiskWarning = diskOff;
      adjust.RenderTimeWarning = timeOff;
      adjust.RenderAutoView = true;
      b.engine.turns = {{.seconds = seconds, .bytes = bytes}};
      b.boxes.styledAnswer = {goesOn ? Answer::Yes : Answer::No, true};
    };
  };
  const auto abortsIn = [](RenderFrame frame) {
    return [=](auto& b) {
      if (b.state.frame != frame || b.engine.running == 0 || b.loop.now().count() % 30000 <= 7000) return;
      b.render.AbortRender();
    };
  };
  const EngineTurn heeds{.seconds = 30};
  const EngineTurn deaf{.seconds = 30, .heedsStop = false};
  // A WAV is taken from a movie of Windows Media.
  const auto song = [](const auto& strips) {
    return [=](RenderBench& b) {
      b.collection.MovieList.clear();
      b.addMusic("song.mp3", 0, 60);
      b.dialogs.answers = {"/out/song.wav"};
      b.files.all["/out/song.WMA"] = "mine";
      b.files.all["/out/song.wav"] = "old";
      if (strips) b.host.strips = [&b, strips](const auto&, const auto& wav) { return strips(b, wav); };
    };
  };
  using Strips = std::function<Outcome(RenderBench&, const std::string&)>;
  const auto nothing = [](auto&) {};
  const Row rows[] = {
      {"it is viewed", views(Answer::Yes, false)},
      {"it is not, and who says so is asked again", views(Answer::No, true)},
      {"it takes longer than the 19 s that are counted down", turns({.seconds = 10}, {.seconds = 100})},
      {"an extension is missing", named("/out/film"), nothing, OutputKind::Avi},
      {"Cancel", named(std::nullopt)},
      {"an older file stays", named("/out/older", Answer::No)},
      {"a clip of its own", [](auto& b) { b.addVideo("my film.wmv", 0, 2, "/out/"); }},
      {"no such folder", named("/gone/film.wmv")},
      {"asks again for a name that cannot be",
       [](auto& b) {
         b.addVideo("own.avi", 0, 2, "/out/");
         b.dialogs.answers = {"/out/own.avi", "/gone/new.avi", "/out/older.avi", "/out/new.avi"};
         b.boxes.answers = {Answer::Ok, Answer::Ok, Answer::No};
       },
       nothing, OutputKind::Avi},
      {"no room", [](auto& b) { b.freeMegabytes = 10; }},
      {"no range", range(2, 2)},
      {"no profile file", [](auto& b) { b.files.all.erase("/prog/wmsysprx.prx"); }},
      {"the engine fails", turns({}, {.exitCode = 1, .says = "/out/my film.wmv: No space"})},
      {"the first part is killed", turns({.exitCode = 137, .says = "Killed"})},
      {"the engine says nothing, for a minute and then for two",
       [](auto& b) {
         b.engine.turns = {{.seconds = 1}, {.seconds = 100000}};
         b.boxes.answers = {Answer::Yes, Answer::No, Answer::Yes};
       }},
      {"600 Mb are not much", warns(1, 5U << 20U, true)},
      {"more than 600 are, and it goes on", warns(1, 6U << 20U, true)},
      {"more than 600 are, and it ends", warns(1, 6U << 20U, false)},
      {"more than 600, of which nobody wants to hear", warns(1, 6U << 20U, false, true)},
      {"more than 600, without warnings", warns(1, 6U << 20U, false, false, false, false)},
      {"90 minutes are not long", warns(28.1, 1, false)},
      {"more than 90 are, and it ends", warns(28.2, 1, false)},
      {"more than 90, of which nobody wants to hear", warns(28.2, 1, false, false, true)},
      {"an abort of the first part, of which there is nothing to tell", turns(heeds, heeds),
       abortsIn(RenderFrame::Estimate)},
      {"an abort of the first part, which the engine does not hear", turns(deaf, deaf),
       abortsIn(RenderFrame::Estimate)},
      {"an abort of the movie", turns(heeds, heeds), abortsIn(RenderFrame::Rendering)},
      {"an abort of the movie, which the engine does not hear", turns(deaf, deaf),
       abortsIn(RenderFrame::Rendering)},
      {"an abort ahead of the engine", nothing,
       [](auto& b) {
         if (b.state.frame == RenderFrame::Rendering) b.render.AbortRender();
       }},
      {"a WAV", song(Strips()), nothing, OutputKind::Wav},
      {"a WAV that cannot be written",
       song(Strips([](auto&, const auto& wav) { return Error{"cannot write " + wav + ": No space"}; })),
       nothing, OutputKind::Wav},
      {"an abort while the WAV is taken", song(Strips([](auto& b, const auto&) {
         EXPECT_TRUE(b.render.canAbort());
         b.render.AbortRender();
         return Error{"it was stopped"};
       })),
       nothing, OutputKind::Wav}};
  std::string all;
  for (const auto& row : rows) {
    RenderBench b;
    b.choose(row.kind, 38);
    for (const auto* older : {"my film.wmv", "older.WMV", "older.avi"})
      b.files.all[std::string("/out/") + older] = "old";
    b.boxes.answers = {Answer::Yes};  // it may be replaced
    b.settings.state.IsDirty = false;
    row.prepare(b);
    std::string pies = "  pies";
    const auto lightsTheKey = [&] {
      EXPECT_EQ(workView(b.state).canAbort, b.render.canAbort()) << row.what << ": " << b.state.heading;
    };
    b.host.onChange = [&] {
      lightsTheKey();
      row.during(b);
      const auto colour = b.state.pie.colour;
      const auto* pie = colour == kPieBlue ? " blue" : colour == kPieGreen ? " green" : " yellow";
      if (b.state.frame == RenderFrame::Rendering && b.engine.running > 0 && !pies.ends_with(pie))
        pies += pie;
    };
    std::string behind = "  behind the boxes";
    b.boxes.whileShown = [&] {
      lightsTheKey();
      behind += " " + b.state.heading + "|" + b.state.caption;
      if (b.state.reached) behind += "|" + ShortText(*b.state.reached) + " % made";
    };
    b.render.WriteRenderMovie();
    all += std::string("== ") + row.what + ", after " + std::to_string(b.loop.now().count()) + " ms\n" +
           endOf(b) + behind + "\n" + pies + "\n";
    for (const auto& asked : b.dialogs.asked) all += "  name " + asked.folder + " " + asked.name + "\n";
    const auto& kept = b.settings.preferences();
    all += std::string("  never again:") + (kept.RenderDiskWarning ? " disk" : "") +
           (kept.RenderTimeWarning ? " time" : "") + (kept.RenderAutoView ? " view" : "") + "\n";
  }
  test::expectGoldenLog(all);
  RenderBench empty;
  empty.collection.MovieList.clear();
  empty.render.Rendertofile();
  EXPECT_EQ(empty.boxes.shown.at(0).caption, "KVO - No Movies in Collection");
}

TEST(MovieRender, GoesFromTheOptionsToTheReport) {
  RenderBench b;
  b.choose(OutputKind::Wmv, 9);
  b.engine.turns = {{.seconds = 20}, {.seconds = 45}};
  std::string headings;
  std::string countdowns;
  double aheadOfIt = 0;
  b.host.onChange = [&] {
    if (headings.rfind(b.state.heading) == std::string::npos) headings += b.state.heading + "|";
    if (b.state.frame != RenderFrame::Rendering || !b.state.isRunning) return;
    if (b.state.countdown.empty()) {
      aheadOfIt = std::max(aheadOfIt, b.state.pie.percent);
    } else if (countdowns.rfind(b.state.countdown) == std::string::npos) {
      countdowns += b.state.countdown.substr(6, 8) + " ";
    }
  };
  b.render.WriteRenderMovie();
  // 20 s for 5 s of 12, with its margin 76.8 s; half of that is counted down.
  EXPECT_DOUBLE_EQ(b.state.RenderSeconds, 76.8);
  EXPECT_EQ(aheadOfIt, 0);
  EXPECT_TRUE(countdowns.starts_with("00.00.38 00.00.33 00.00.28 00.00.23 00.00.21 ")) << countdowns;
  EXPECT_EQ(headings, "Pre-Render - Phase 1|Rendering - Phase 2|Create Movie|");
}

TEST(MovieRender, IsViewedOnce) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  b.boxes.styledAnswer = {Answer::No, true};
  b.render.WriteRenderMovie();
  b.host.notes.clear();
  b.render.view();
  b.render.view();
  EXPECT_EQ(b.host.notes, "tabs add:/out/my film.wmv.AVI");
}

TEST(MovieRender, BeginsWithWhatWasUsedLast) {
  RenderBench first;
  first.render.Rendertofile();
  EXPECT_EQ(first.state.kind, OutputKind::Mp4);
  first.choose(OutputKind::Wmv, 9);
  first.render.tickCodecDimensions(false);
  first.create.Opt_RenderRangeWhole = false;
  first.create.Txt_From = 2;
  first.create.Txt_Too = 5.5;
  first.render.WriteRenderMovie();
  EXPECT_EQ(first.dialogs.asked.at(0).folder, "/videos");
  RenderBench next(first.store.all);
  next.files.all["/out/another.avi"] = "";
  next.settings.adjust().RenderWidth = 640;
  next.render.Rendertofile();
  EXPECT_EQ(std::tuple(next.state.kind, next.state.profileRow, next.state.Chk_UseCodecOutputDimensions,
                       next.state.codecSize),
            std::tuple(OutputKind::Wmv, 9, false, "320 x 240"));
  EXPECT_EQ(GetWMVRenderProfileInt(next.state.Lst_WMVFormats.at(9)), 9);
  next.render.WriteRenderMovie();
  EXPECT_EQ(next.dialogs.asked.at(0).folder, "/out");
}

// What the sample has shown is not what the movie begins with.
TEST(MovieRender, BeginsEachPartWithoutAPicture) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  std::shared_ptr<const std::string> sampled;
  bool moved = false;
  b.host.onChange = [&] {
    if (b.state.frame == RenderFrame::Estimate) {
      sampled = b.state.document;
      b.state.picture = std::make_shared<FramePicture>();
    }
    if (b.state.frame != RenderFrame::Rendering) return;
    EXPECT_EQ(b.state.picture, nullptr);
    if (b.engine.calls.size() == 1) {
      EXPECT_EQ(b.state.pie, RenderPie{});
      EXPECT_TRUE(test::holds(factsOf(b.state), "|Elapsed=0 s|Made=|Speed=|")) << factsOf(b.state);
    } else if (b.state.pie.percent > 0 && b.state.pie.percent < 100) {
      EXPECT_EQ(workView(b.state).pieOf, "of the movie") << "it is done ahead of the countdown";
      moved = true;
    }
    EXPECT_NE(b.state.document, sampled) << "nor does one come that is still being made";
  };
  b.render.WriteRenderMovie();
  EXPECT_NE(sampled, nullptr);
  EXPECT_TRUE(moved);
}

TEST(MovieRender, TellsHowFarItIs) {
  RenderBench b;
  b.freeMegabytes = std::numeric_limits<double>::max();  // of a folder that is gone
  b.choose(OutputKind::Avi);
  auto log = factsOf(b.state) + "\n";
  b.freeMegabytes = 1e6;
  b.choose(OutputKind::Avi);
  log += factsOf(b.state) + "\n";
  b.engine.turns = {{.seconds = 20}, {.seconds = 20}};
  b.host.onChange = [&] {
    if (b.engine.running == 0) return;
    const auto told = std::to_string(b.state.movieSeconds) + " s: " + factsOf(b.state) + "\n";
    if (!test::holds(log, told)) log += told;
  };
  b.render.WriteRenderMovie();
  EXPECT_EQ(b.state.film, (std::vector<FilmCut>{{1, 0, 4}, {2, 4, 12}}));
  test::expectGoldenLog(log + factsOf(b.state) + "\n");
}

TEST(MovieRender, MakesOneClipOfTwo) {
  struct Row {
    int backdrop;  // of the two clips
    PicInPic pair;
    bool fails = false;
  };
  std::string log;
  for (const auto& row : {Row{2, {.overlayClip = 1, .position = 11}}, Row{2, {.overlayClip = 1}, true},
                          Row{1, {.overlayClip = 2}}, Row{1, {.overlayClip = 2, .trimToBackdrop = true}}}) {
    RenderBench b;
    b.collection.MovieList[row.backdrop].HasPicInPic(picInPicText(row.pair));
    b.create.Opt_RenderRangeWhole = false;  // which is the movie's
    b.render.RenderPinP(3 - row.backdrop, {});
    EXPECT_EQ(b.state.frame, RenderFrame::None) << "no overlay";
    b.render.RenderPinP(row.backdrop, {.backdropAudio = true});
    log += "== " + b.state.heading + "|" + factsOf(b.state) + "\n";
    b.dialogs.answers = {"/out/pair.avi"};
    if (row.fails) b.engine.turns = {{.exitCode = 1}};
    std::string document;
    b.host.onChange = [&] {
      if (b.engine.running > 0) document = b.files.all["/prog/KVORender.xtl"];
    };
    b.render.RenderNewPicInPic();
    EXPECT_TRUE(test::holds(document, "KVO PicInPic") && test::holds(document, "\"audio\"")) << document;
    EXPECT_FALSE(b.store.all.contains("RenderKind")) << "it is no choice of the user's";
    log += endOf(b);
  }
  test::expectGoldenLog(log);
}

TEST(MovieRender, SweepsWhatAKilledRenderHasLeft) {
  RenderBench b;
  b.files.all = {{"/out/.rendering-5.WMA", ""},
                 {"/out/.rendering-6.AVI", ""},
                 {"/out/mine.AVI", ""},
                 {"/proc/6/stat", ""}};
  b.store.all["RenderWorking"] = "/out/.rendering-5.WMA\n/out/.rendering-6.AVI\n/out/mine.AVI\n";
  b.render.sweep();
  EXPECT_FALSE(b.files.all.contains("/out/.rendering-5.WMA"));
  EXPECT_TRUE(b.files.all.contains("/out/.rendering-6.AVI")) << "its program still runs";
  EXPECT_TRUE(b.files.all.contains("/out/mine.AVI"));
  EXPECT_EQ(b.store.all["RenderWorking"], "/out/.rendering-6.AVI\n/out/mine.AVI\n");
}

TEST(MovieRender, PutsItsProfileInForceForTheEngineAlone) {
  RenderBench b;
  b.choose(OutputKind::Wmv, 30);
  b.render.tickCodecDimensions(false);
  b.settings.adjust().RenderAutoView = true;
  std::string during;
  b.host.onChange = [&] {
    during += b.engine.running > 0 ? b.files.all["/prog/wmsysprx.prx"].substr(0, 3) : "";
  };
  b.render.WriteRenderMovie();
  EXPECT_TRUE(b.engine.calls[0].starts_with("KVO5_PROFILE='/prog/wmsysprx.prx' '/bin/KVORender' '/["));
  EXPECT_FALSE(test::holds(b.engine.calls[1], "/P'"));
  EXPECT_TRUE(during.starts_with(std::string("<\0P", 3)));
  EXPECT_EQ(b.files.all["/prog/wmsysprx.prx"], "system");
}

TEST(MovieRender, HandsAMovieToTheQueue) {
  RenderBench b;
  b.create.Opt_RenderRangeWhole = false;
  b.create.Txt_From = b.create.Txt_Too = 1;
  b.choose(OutputKind::Wmv, 30);
  b.render.AddToQueue();
  EXPECT_EQ(b.boxes.shown.size(), 2U) << "both about the range";
  EXPECT_TRUE(b.queued.empty());
  b.create.Txt_Too = 3;
  b.dialogs.answers = {"/out/film.wmv"};
  b.render.AddToQueue();
  ASSERT_EQ(b.queued.size(), 1U);
  EXPECT_EQ(b.queued[0].output, "/out/film.wmv");
  EXPECT_NE(b.queued[0].document.find("hills.avi"), std::string::npos) << "as the collection is now";
  EXPECT_TRUE(b.engine.calls.empty());
  EXPECT_EQ(b.store.all["RenderWorking"], "") << "no file of this program's own is begun";
  EXPECT_EQ(b.files.all["/prog/wmsysprx.prx"], "system");
}

// What is told of them, what the engine is told, and what the next start remembers.
TEST(MovieRender, FollowsTheOptions) {
  struct Row {
    OutputKind kind;
    int width, height;
    Single rate;
    const char* preset = "";
    int megabytes = 20;  // wished
    int profile = -1;
    bool ownSize = true;
  };
  using enum OutputKind;
  std::string all;
  for (const auto& row : {Row{Mp4, 2560, 1440, 50},
                          Row{Mp4, 2560, 1440, 50, "phone"},
                          Row{Mp4, 2560, 1440, 50, "email", 12},
                          Row{Mp4, 2560, 1440, 50, "email", 0},
                          Row{WebM, 2560, 1440, 50, "webm"},
                          Row{Avi, 2560, 1440, 50},
                          Row{Mp4, 1080, 1920, 25, "phone"},
                          Row{Mp4, 1440, 1080, 25, "phone"},
                          Row{Mp4, 3000, 500, 25, "phone"},
                          Row{Mp4, 321, 240, 25},
                          Row{Mp4, 320, 241, 25},
                          Row{Mp4, 1921, 1081, 25, "phone"},
                          Row{Mp4, 321, 241, 25, "phone"},
                          Row{Mp4, 321, 241, 25, "email"},
                          Row{Mov, 321, 240, 25},
                          Row{Mov, 320, 241, 25},
                          Row{WebM, 321, 241, 25},
                          Row{Avi, 321, 241, 25},
                          Row{Gif, 321, 241, 25},
                          Row{Mp3, 321, 241, 25},
                          Row{Wma, 321, 241, 25, "", 20, 17},
                          Row{Wmv, 320, 241, 25, "", 20, 38, false},
                          Row{Wmv, 321, 241, 25, "", 20, 38, false},
                          Row{Wmv, 321, 241, 25, "", 20, 38},
                          Row{Wmv, 321, 241, 25, "", 20, 40},
                          Row{Wmv, 321, 241, 25, "", 20, 9, false},
                          Row{Wmv, 320, 240, 25, "", 20, 26},
                          Row{Wmv, 320, 240, 25, "", 20, 15}}) {
    RenderBench b;
    b.editor.controls.txtWidth = row.width;
    b.editor.controls.txtHeight = row.height;
    b.settings.change().OutPutFrameRate = row.rate;
    b.settings.adjust().RenderAutoView = true;
    b.create.Opt_RenderRangeWhole = row.profile < 0;
    b.create.Txt_From = 2.5;
    b.create.Txt_Too = 7;
    b.choose(row.kind, row.profile);
    b.render.tickCodecDimensions(row.ownSize);
    b.chooseFor(row.preset);
    b.render.wishMegabytes(row.megabytes);
    all += "== " + lineOf(kindRow(row.kind).title, row.width, "x", row.height, "at", row.rate);
    if (*row.preset != '\0') all += lineOf(", for", row.preset, "where", row.megabytes, "MB are wished");
    if (row.profile >= 0)
      all += lineOf(", profile", row.profile, row.ownSize ? "at its size" : "at the movie's");
    all += "\n  " + factsOf(b.state) + "\n  " + replaced(b.state.madeForText, "\r\n", " / ") + "\n  " +
           b.state.caution + (b.state.canMake ? "" : " NOT MADE") + "\n";
    if (!b.state.canMake) continue;
    b.engine.turns = {{.bytes = 50U << 20U}};
    b.dialogs.answers = {"/out/film", "/out/film"};
    b.render.AddToQueue();
    for (const auto& order : b.queued) {
      all +=
          "  queue '" + order.preset + "', profile " + std::to_string(order.profile.value_or(-1)) + ", " +
          (b.queuedProfile.empty() ? "none" : "one") + " of its own, from " +
          (order.range ? ShortText(order.range->first) + " to " + ShortText(order.range->second) : "start") +
          "\n";
    }
    b.render.WriteRenderMovie();
    for (const auto& call : b.engine.calls) all += "  engine " + call + "\n";
    RenderBench next(b.store.all);
    next.render.Rendertofile();
    all += "  then " + std::string(kindRow(next.state.kind).title) + " " +
           std::to_string(next.state.madeForRow) + ", " + std::to_string(next.state.wishedMegabytes) +
           " MB\n";
  }
  test::expectGoldenLog(all);
}

TEST(MovieRender, SaysWhatOfTheClipsIsNotInTheMovie) {
  RenderBench b;
  const auto overlay = picInPicText({.overlayClip = 1});
  std::string log;
  const auto tell = [&](RenderBench& bench, OutputKind kind) {
    bench.choose(kind);
    log += replaced(bench.state.madeForText, "\r\n", " / ") + "|" + bench.state.caution +
           (bench.state.canMake ? "" : " NOT MADE") + "\n";
  };
  for (const int number : {1, 2}) b.collection.MovieList[number].Resolution(Value("320 x 240"));
  tell(b, OutputKind::Mp4);
  b.collection.MovieList[1].Resolution(Value("1920 x 1080"));
  b.collection.MovieList[2].HasPicInPic(overlay);
  tell(b, OutputKind::Mp4);
  tell(b, OutputKind::Mp3);  // which has no picture
  // Once it has been rendered, and as long as that stands in the collection and is what the user wants.
  b.render.leave();
  b.render.RenderPinP(2, {});
  b.dialogs.answers = {"/out/pair.avi"};
  b.render.RenderNewPicInPic();
  for (const bool joins : {false, true}) {
    RenderBench next(b.store.all);
    next.collection.MovieList[2].HasPicInPic(overlay);
    if (joins) next.addVideo("pair.avi", 0, 8, "/out/");
    tell(next, OutputKind::Mp4);
    next.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1, .position = 3}));
    tell(next, OutputKind::Mp4);  // another place
  }
  test::expectGoldenLog(log);
}

TEST(MovieRender, KeepsTheChoiceOfMoviesForThoseWithAPicture) {
  RenderBench b;
  b.choose(OutputKind::Mp4);
  b.render.chooseMadeFor(2);
  b.render.leave();
  auto movies = std::move(b.collection.MovieList);
  b.collection.MovieList.clear();
  b.addMusic("song.mp3", 0, 60);
  const auto choice = [](RenderBench& bench) {
    bench.render.Rendertofile();
    return std::string(kindRow(bench.state.kind).title) + " " + std::to_string(bench.state.madeForRow);
  };
  for (const bool asksForIt : {false, true}) {
    EXPECT_TRUE(choice(b).starts_with(kindRow(OutputKind::Wav).title));
    if (asksForIt) {
      b.render.chooseKind(OutputKind::Mp4);  // which becomes a WAV
      b.render.chooseMadeFor(3);
    }
    b.dialogs.answers = {asksForIt ? "/out/another.wav" : "/out/song.wav"};
    b.render.WriteRenderMovie();
    const auto mp4 = std::string(kindRow(OutputKind::Mp4).title);
    RenderBench next(b.store.all);
    EXPECT_EQ(choice(next), mp4 + (asksForIt ? " 3" : " 0"));
    b.render.leave();
    std::swap(movies, b.collection.MovieList);
    EXPECT_EQ(choice(b), mp4 + (asksForIt ? " 3" : " 2"));
    b.render.leave();
    std::swap(movies, b.collection.MovieList);
  }
}

TEST(MovieRender, SoundAloneIsCautionedOf) {
  RenderBench sound;
  sound.collection.MovieList.clear();
  sound.addMusic("song.mp3", 0, 60);
  sound.choose(OutputKind::Wmv, 9);
  EXPECT_FALSE(sound.state.canMake);
  EXPECT_EQ(sound.state.caution, "No clip has a picture. Choose a kind of sound.");
  sound.render.chooseKind(OutputKind::Mp4);
  EXPECT_TRUE(sound.state.canMake);
  EXPECT_EQ(sound.state.caution, "No clip has a picture: a WAV of the sound is made.");
  sound.render.chooseKind(OutputKind::Wma);
  EXPECT_EQ(sound.state.caution, "");
}

// The row is there where a device works and can make the movie; only then the engine is asked for it.
TEST(MovieRender, OffersADeviceWhereOneWorks) {
  RenderBench b;
  b.settings.adjust().RenderAutoView = true;
  b.choose(OutputKind::Mp4);
  EXPECT_EQ(b.asksForHardware, 1);
  b.render.tickHardware(true);
  const auto encoder = [&] {
    b.dialogs.answers = {"/out/" + std::to_string(b.queued.size())};
    b.render.AddToQueue();
    return (b.state.offersHardware ? "offered " : "not offered ") + b.queued.back().encoder;
  };
  EXPECT_EQ(encoder(), "not offered ") << "nobody has seen the row";
  b.render.hearHardware(true);
  EXPECT_EQ(encoder(), "offered auto");
  b.dialogs.answers = {"/out/a"};
  b.render.WriteRenderMovie();
  ASSERT_EQ(b.engine.calls.size(), 2U);
  for (const auto& call : b.engine.calls) EXPECT_TRUE(test::holds(call, "'/H' 'auto' '/S'")) << call;
  b.render.Rendertofile();
  b.chooseFor("email");
  EXPECT_EQ(encoder(), "not offered ") << "only the software keeps within a size";
  b.render.chooseKind(OutputKind::WebM);
  EXPECT_FALSE(b.state.offersHardware);
  RenderBench next(b.store.all);
  next.render.Rendertofile();
  EXPECT_TRUE(next.state.Chk_Hardware) << "remembered";
}

}  // namespace
}  // namespace kvo
