#include "render/output_kinds.h"
#include "render/render_texts.h"
#include "render/work_view.h"
#include "support/render_bench.h"

#include <limits>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::EngineTurn;
using test::RenderBench;

std::string captionsOf(const test::ScriptedBoxes& boxes) {
  std::string all;
  for (const auto& box : boxes.shown) all += box.caption + "|";
  for (const auto& box : boxes.styled) all += box.caption + "|";
  return all;
}

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
  for (const auto& [text, wanted] : {
           std::pair{completedText(12.4), "Completed in 12.40 (s)"},
           {completedText(59.996), "Completed in 60.00 (s)"},
           {completedText(125.9), "Completed in 2 mins 5 (s)"},
           {countdownText(1, 2, 3), "About 01.02.03(s) Remaining"},
           {estimatedSizeText(3.2), "Estimated output file size = 3.20 Mb"},
           {outputSizeText(1536 * 1024), "Output file size = 1.50 Mb"},
           {diskSpaceWarning(1000).message, "This render will create a movie about 1000. Mb in size.\r\n"},
           {diskSpaceWarning(1536).message, "This render will create a movie about 1.50 Gb in size.\r\n"},
           {renderTimeWarning(5432).message, "This render may take longer than 90.53 mins.\r\n"},
           {renderSummary(OutputKind::Wmv, 125, "P"), "Encoding 2 mins 5 secs of video to 'P'"},
           {renderSummary(OutputKind::Wma, 12, "P"), "Encoding 12 secs of audio to 'P'"},
           {renderSummary(OutputKind::Mp4, 125, ""),
            "Encoding 2 mins 5 secs of video to MP4 (H.264 and AAC)"},
           {renderSummary(OutputKind::Mp3, 12, ""), "Encoding 12 secs of audio to MP3 (MP3)"},
           {renderSummary(OutputKind::Avi, 59, ""), "Writing 59 secs of uncompressed video."},
           {renderSummary(OutputKind::Wav, 59, ""), "Writing 59 secs of '44.1Khz Stereo PCM' Audio only."},
           {renderSummary(OutputKind::Wav, 65, ""), "Writing 1 mins - 5 of '44.1Khz Stereo PCM' Audio only."},
       }) {
    EXPECT_EQ(text, wanted);
  }
  EXPECT_EQ(diskShortBox(12.5).text,
            "There is not enough disk space to create your movie.\r\nKVO requires at least 12.5 MB of disk "
            "space to "
            "create this movie.\r\nReduce the output resolution or Free up some space and try again.");
}

TEST(MovieRender, GoesFromTheOptionsToTheReport) {
  RenderBench b;
  b.choose(OutputKind::Wmv, 9);
  EXPECT_EQ(b.state.frame, RenderFrame::Options);
  b.engine.turns = {{.seconds = 20, .bytes = 1 << 20}, {.seconds = 45, .bytes = 3 << 20}};
  b.boxes.styledAnswer = {Answer::Yes, false};
  b.settings.state.IsDirty = false;
  std::string headings;
  std::string countdowns;
  double aheadOfIt = 0;
  b.host.onChange = [&] {
    if (b.state.frame == RenderFrame::Rendering && b.state.countdown.empty() && b.state.isRunning)
      aheadOfIt = std::max(aheadOfIt, b.state.pie.percent);
    if (headings.rfind(b.state.heading) == std::string::npos) headings += b.state.heading + "|";
    if (b.state.frame == RenderFrame::Rendering && !b.state.countdown.empty() &&
        countdowns.rfind(b.state.countdown) == std::string::npos)
      countdowns += b.state.countdown.substr(6, 8) + " ";
  };
  b.render.WriteRenderMovie();
  EXPECT_EQ(b.engine.calls.size(), 2U);
  EXPECT_EQ(b.engine.calls[0],
            "'/bin/KVORender' '/[3.00-8.00]' '/P' '9' '/S' '77' '/W' '/out/.rendering-77.WMV' "
            "'/prog/KVORender.xtl'");
  EXPECT_EQ(b.engine.calls[1],
            "'/bin/KVORender' '/P' '9' '/S' '77' '/W' '/out/my film.wmv' '/prog/KVORender.xtl'");
  // 20 s for 5 s of 12, with its margin 76.8 s; half of that is counted down.
  EXPECT_DOUBLE_EQ(b.state.RenderSeconds, 76.8);
  EXPECT_EQ(aheadOfIt, 0);
  EXPECT_TRUE(countdowns.starts_with("00.00.38 00.00.33 00.00.28 00.00.23 00.00.21 ")) << countdowns;
  EXPECT_EQ(headings, "Pre-Render - Phase 1|Rendering - Phase 2|Create Movie|");
  EXPECT_EQ(b.host.notes, "stop controls- read images- read sweep tabs add:/out/my film.wmv controls+");
  EXPECT_EQ(b.state.completed, "Completed in 45.00 (s)");
  EXPECT_EQ(b.state.sizeLabel, "Output file size = 3.00 Mb");
  EXPECT_EQ(b.state.caption, "   Create New Movie from Holiday Collection");
  EXPECT_EQ(captionsOf(b.boxes), "KVO - Movie Successfully Created|");
  EXPECT_EQ(b.dialogs.asked.at(0).name, "Holiday.WMV");
  EXPECT_FALSE(b.files.all.contains("/out/.rendering-77.WMV"));
  EXPECT_FALSE(b.settings.state.IsDirty) << "a movie is no change of the collection";
  EXPECT_FALSE(b.state.isRunning);
  EXPECT_EQ(b.work.notes, "awake [my film.wmv has been created !] asleep ");
}

TEST(MovieRender, ShowsTheReportWhenNobodyWantsToView) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  b.dialogs.answers = {"/out/film"};
  b.boxes.styledAnswer = {Answer::No, true};
  b.render.WriteRenderMovie();
  EXPECT_EQ(b.state.frame, RenderFrame::Report);
  EXPECT_TRUE(b.files.all.contains("/out/film.AVI"));
  EXPECT_FALSE(b.settings.preferences().RenderAutoView) << "who says no is asked again";
  EXPECT_EQ(b.host.notes, "stop controls- read images- read sweep controls+ kill");
  EXPECT_TRUE(test::holds(b.engine.calls[1], "'/bin/KVORender' '/S'")) << "no profile";
  EXPECT_EQ(b.work.notes, "awake asleep ") << "it was short";
  b.render.view();
  b.render.view();
  EXPECT_EQ(b.host.notes, "stop controls- read images- read sweep controls+ kill tabs add:/out/film.AVI");
  b.choose(OutputKind::Avi);
  b.dialogs.answers = {std::nullopt};
  b.render.WriteRenderMovie();
  EXPECT_EQ(b.host.notes, "stop") << "Cancel";
}

TEST(MovieRender, WarnsOfLargeAndLongMovies) {
  struct Row {
    double seconds;     // that five of the movie take
    std::size_t bytes;  // of them
    bool on, diskOff, timeOff;
    bool goesOn;  // the answer
    std::string captions;
    std::size_t renders;
  };
  const std::string disk = "KVO - Disk space warning|";
  const std::string time = "KVO - Render Time warning|";
  // 600 s of movie: 5 Mb for five of them are 600, and 28.125 s of work are 90 minutes.
  for (const auto& row :
       {Row{1, 5U << 20U, true, false, false, true, "", 2},
        Row{1, 6U << 20U, true, false, false, true, disk, 2},
        Row{1, 6U << 20U, true, false, false, false, disk, 1},
        Row{1, 6U << 20U, true, true, false, false, "", 2},
        Row{1, 6U << 20U, false, false, false, false, "", 2}, Row{28.1, 1, true, false, false, false, "", 2},
        Row{28.2, 1, true, false, false, false, time, 1}, Row{28.2, 1, true, false, true, false, "", 2}}) {
    RenderBench b;
    b.addVideo("long.avi", 0, 588);
    b.choose(OutputKind::Avi);
    auto& adjust = b.settings.adjust();
    adjust.OutputWarningsOn = row.on;
    adjust.RenderDiskWarning = row.diskOff;
    adjust.RenderTimeWarning = row.timeOff;
    adjust.RenderAutoView = true;
    b.engine.turns = {{.seconds = row.seconds, .bytes = row.bytes}};
    b.boxes.styledAnswer = {row.goesOn ? Answer::Yes : Answer::No, true};
    b.render.WriteRenderMovie();
    EXPECT_EQ(captionsOf(b.boxes), row.captions) << row.seconds << " " << row.bytes;
    EXPECT_EQ(b.engine.calls.size(), row.renders) << row.seconds << " " << row.bytes;
    EXPECT_EQ(b.settings.preferences().RenderDiskWarning,
              row.diskOff || (row.captions == disk && row.goesOn));
  }
}

TEST(MovieRender, TellsWhatStandsInItsWay) {
  struct Row {
    const char* what;
    std::function<void(RenderBench&)> prepare;
    std::string captions;
    std::size_t renders;
    std::string why{};  // in the last box
  };
  const auto range = [](double from, double too) {
    return [=](RenderBench& b) {
      b.create.Opt_RenderRangeWhole = false;
      b.create.Txt_From = from;
      b.create.Txt_Too = too;
    };
  };
  const std::string failed = "KVO - Failed to Render Movie|";
  const std::string asked = "KVO - Create Movie|";
  for (const auto& row :
       {Row{"an older file",
            [](auto& b) {
              b.dialogs.answers = {"/out/older"};
              b.files.all["/out/older.WMV"] = "old";
              b.boxes.answers = {Answer::No};
            },
            asked, 0},
        Row{"a clip of its own", [](auto& b) { b.addVideo("my film.wmv", 0, 2, "/out/"); }, failed, 0,
            "it is one of the clips"},
        Row{"no such folder", [](auto& b) { b.dialogs.answers = {"/gone/film.wmv"}; }, failed, 0,
            "There is no folder /gone/"},
        Row{"no room", [](auto& b) { b.freeMegabytes = 10; }, asked + "KVO - Not enough Disk Space Warning|",
            1},
        Row{"no range", range(2, 2),
            asked + "KVO - ERR0233:REERR - Please tell Tarnwick Systems about this error|" + failed, 1},
        Row{"no profile file", [](auto& b) { b.files.all.erase("/prog/wmsysprx.prx"); },
            asked + "KVO - Write WM8 Movie|" + failed, 0},
        Row{"the engine fails",
            [](auto& b) {
              b.engine.turns = {{}, {.exitCode = 1, .says = "/out/my film.wmv: No space"}};
            },
            asked + failed, 2},
        Row{"the first part is killed",
            [](auto& b) { b.engine.turns = {{.exitCode = 137, .says = "Killed"}}; }, asked + failed, 1,
            "the render engine ended with code 137"}}) {
    RenderBench b;
    b.choose(OutputKind::Wmv, 38);
    b.boxes.answers = {Answer::Yes};  // it may be replaced
    row.prepare(b);
    b.files.all["/out/my film.wmv"] = "old";
    b.render.WriteRenderMovie();
    EXPECT_EQ(captionsOf(b.boxes), row.captions) << row.what;
    EXPECT_TRUE(test::holds(b.boxes.shown.back().text, row.why)) << row.what;
    EXPECT_EQ(b.engine.calls.size(), row.renders) << row.what;
    EXPECT_EQ(b.files.all["/out/my film.wmv"], "old") << row.what;
    EXPECT_FALSE(b.files.all.contains("/out/.rendering-77.WMV")) << row.what;
    EXPECT_FALSE(b.files.all.contains("/prog/wmsysprx.prx.old")) << row.what;
    EXPECT_EQ(b.state.frame, RenderFrame::Options) << row.what;
    EXPECT_EQ(test::holds(b.host.notes, "controls-"), test::holds(b.host.notes, "controls+")) << row.what;
    EXPECT_FALSE(b.state.isRunning) << row.what;
    EXPECT_EQ(b.engine.running, 0) << row.what;
  }
  RenderBench empty;
  empty.collection.MovieList.clear();
  empty.render.Rendertofile();
  EXPECT_EQ(captionsOf(empty.boxes), "KVO - No Movies in Collection|");
}

std::string factsOf(const RenderState& state) {
  std::string all;
  for (const auto& [name, value] : state.facts) all.append(name).append("=").append(value).append("|");
  return all;
}

TEST(MovieRender, BeginsWithWhatWasUsedLast) {
  RenderBench first;
  first.render.Rendertofile();
  EXPECT_EQ(first.state.kind, OutputKind::Mp4);
  first.choose(OutputKind::Wmv, 9);
  EXPECT_EQ(first.state.facts.at(3), (RenderFact{"Picture", "320 x 240"})) << "the profile's own";
  first.render.tickCodecDimensions(false);
  first.create.Opt_RenderRangeWhole = false;
  first.create.Txt_From = 2;
  first.create.Txt_Too = 5.5;
  first.render.WriteRenderMovie();
  EXPECT_EQ(first.dialogs.asked.at(0).folder, "/videos");
  RenderBench next;
  next.store.all = first.store.all;
  next.files.all["/out/another.avi"] = "";
  next.settings.adjust().RenderWidth = 640;
  next.render.Rendertofile();
  EXPECT_EQ(next.state.kind, OutputKind::Wmv);
  EXPECT_EQ(GetWMVRenderProfileInt(next.state.Lst_WMVFormats.at(9)), 9);
  EXPECT_EQ(next.state.profileRow, 9);
  EXPECT_FALSE(next.state.Chk_UseCodecOutputDimensions);
  EXPECT_EQ(next.state.codecSize, "320 x 240");
  next.render.WriteRenderMovie();
  EXPECT_EQ(next.dialogs.asked.at(0).folder, "/out");
}

TEST(MovieRender, TellsWhatTheMovieIsLike) {
  struct Row {
    OutputKind kind;
    int profile;
    const char* facts;
  };
  for (const auto& row : {Row{OutputKind::Wmv, 38, "Frames a second=30|Colors=24 bit|Sound=44.1 kHz stereo|"},
                          Row{OutputKind::Wmv, 26, "Frames a second=15|Colors=24 bit|Sound=8 kHz mono|"},
                          Row{OutputKind::Wmv, 15, "Frames a second=24|Colors=24 bit|Sound=44.1 kHz stereo|"},
                          Row{OutputKind::Wma, 17, "Range=2.5 to 7.0 s|Sound=22.05 kHz mono|"},
                          Row{OutputKind::Mov, -1, "Frames a second=25|Colors=24 bit|Sound=48 kHz stereo|"},
                          Row{OutputKind::Gif, -1, "Frames a second=25|Colors=8 bit|Sound=none|"}}) {
    RenderBench b;
    b.create.Opt_RenderRangeWhole = false;
    b.create.Txt_From = 2.5;
    b.create.Txt_Too = 7;
    b.choose(row.kind, row.profile);
    EXPECT_TRUE(test::holds(factsOf(b.state), row.facts)) << factsOf(b.state);
    EXPECT_TRUE(test::holds(factsOf(b.state), "|Length=4.500 s|")) << factsOf(b.state);
  }
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
      EXPECT_TRUE(test::holds(factsOf(b.state), "|Elapsed=0 s|Left=|Speed=|")) << factsOf(b.state);
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

TEST(MovieRender, AsksAgainForANameThatCannotBe) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  b.addVideo("own.avi", 0, 2, "/out/");
  b.files.all["/out/older.avi"] = "old";
  b.dialogs.answers = {"/out/own.avi", "/gone/new.avi", "/out/older.avi", "/out/new.avi"};
  b.boxes.answers = {Answer::Ok, Answer::Ok, Answer::No};
  b.render.WriteRenderMovie();
  ASSERT_EQ(b.dialogs.asked.size(), 4U);
  EXPECT_EQ(b.dialogs.asked[2].folder + b.dialogs.asked[2].name, "/out/new.avi") << "where a folder is";
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO - Create Movie") << "asked of what is there";
  EXPECT_EQ(b.files.all["/out/older.avi"], "old");
  EXPECT_TRUE(b.files.all.contains("/out/new.avi"));
}

TEST(MovieRender, TellsHowFarItIs) {
  RenderBench b;
  b.freeMegabytes = std::numeric_limits<double>::max();  // of a folder that is gone
  b.choose(OutputKind::Avi);
  EXPECT_TRUE(factsOf(b.state).ends_with("|Free disk=not known|")) << factsOf(b.state);
  b.freeMegabytes = 1e6;
  b.choose(OutputKind::Avi);
  EXPECT_EQ(factsOf(b.state),
            "Clips=2|Length=0.000 s|Range=Whole movie|Picture=320 x 240|Frames a second=25|Colors=24 bit|"
            "Sound=44.1 kHz stereo|Free disk=976.6 Gb|");
  b.engine.turns = {{.seconds = 20}, {.seconds = 20}};
  std::string estimate, rendering;
  b.host.onChange = [&] {
    if (b.state.frame == RenderFrame::Estimate && b.engine.running > 0) {
      EXPECT_EQ(b.state.movieSeconds, 4) << "a second into the part that begins at 3";
      estimate = factsOf(b.state);
    }
    if (b.state.frame == RenderFrame::Rendering && b.engine.running > 0) rendering = factsOf(b.state);
  };
  b.render.WriteRenderMovie();
  EXPECT_EQ(estimate,
            "Result=not known yet|Free on this disk=976.6 Gb|Output='/out/my film.wmv.AVI'|"
            "Profile=Full Frames Uncompressed AVI|");
  EXPECT_TRUE(rendering.starts_with("Now=Cut 1   beach.avi|Elapsed=")) << rendering;
  EXPECT_EQ(b.state.film, (std::vector<FilmCut>{{1, 0, 4}, {2, 4, 12}}));
  EXPECT_EQ(factsOf(b.state),
            "Movie='/out/my film.wmv.AVI'|Length=12.000 s|Profile=Full Frames Uncompressed AVI|");
}

TEST(MovieRender, MakesOneClipOfTwo) {
  for (const bool fails : {false, true}) {
    RenderBench b;
    b.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1, .position = 11}));
    b.create.Opt_RenderRangeWhole = false;  // which is the movie's
    b.render.RenderPinP(1, {});
    EXPECT_EQ(b.state.frame, RenderFrame::None) << "no overlay";
    b.render.RenderPinP(2, {.backdropAudio = true});
    ASSERT_EQ(b.state.frame, RenderFrame::PicInPic);
    EXPECT_EQ(b.state.heading, "Render New Picture in Picture Clip");
    EXPECT_TRUE(factsOf(b.state).starts_with("Backdrop=hills.avi|Overlay=beach.avi|Length=8.000 s|"));
    b.dialogs.answers = {"/out/pair.avi"};
    if (fails) b.engine.turns = {{.exitCode = 1}};
    std::string document;
    b.host.onChange = [&] {
      if (b.engine.running > 0) document = b.files.all["/prog/KVORender.xtl"];
    };
    b.render.RenderNewPicInPic();
    EXPECT_TRUE(test::holds(document, "KVO PicInPic") && test::holds(document, "\"audio\"")) << document;
    EXPECT_TRUE(b.engine.calls.at(0).starts_with("'/bin/KVORender' '/[2.00-7.00]' '/S'"))
        << b.engine.calls[0];
    EXPECT_EQ(b.files.all.contains("/out/pair.avi"), !fails);
    EXPECT_EQ(b.state.frame, fails ? RenderFrame::PicInPic : RenderFrame::None);
    EXPECT_EQ(test::holds(b.host.notes, "add:/out/pair.avi"), !fails);
    EXPECT_FALSE(b.store.all.contains("RenderKind")) << "it is no choice of the user's";
  }
  for (const bool trims : {false, true}) {
    RenderBench b;
    b.collection.MovieList[1].HasPicInPic(picInPicText({.overlayClip = 2, .trimToBackdrop = trims}));
    b.render.RenderPinP(1, {});
    EXPECT_TRUE(test::holds(factsOf(b.state), trims ? "|Length=4.000 s|" : "|Length=8.000 s|"));
    b.dialogs.answers = {"/out/pair.avi"};
    b.render.RenderNewPicInPic();
    EXPECT_EQ(test::holds(b.engine.calls.at(0), "'/[2.00-7.00]'"), !trims)
        << "the whole pair is reckoned with";
  }
}

TEST(MovieRender, AsksAboutAnEngineThatSaysNothing) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  b.engine.turns = {{.seconds = 1}, {.seconds = 100000}};
  b.boxes.answers = {Answer::No, Answer::Yes};
  b.render.WriteRenderMovie();
  EXPECT_EQ(captionsOf(b.boxes), "KVO - Render Engine|KVO - Render Engine|KVO - Movie Render aborted|");
  EXPECT_TRUE(test::holds(b.boxes.shown.at(1).text, "for 2 min."));
  EXPECT_LT(b.loop.now(), std::chrono::seconds(200)) << "a minute, and then two";
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

TEST(MovieRender, CanBeAbortedAtAnyTime) {
  for (const auto frame : {RenderFrame::Estimate, RenderFrame::Rendering}) {
    for (const bool heedsStop : {true, false}) {
      RenderBench b;
      b.choose(OutputKind::Wmv, 9);
      b.files.all["/out/my film.wmv"] = "old";
      b.boxes.answers = {Answer::Yes};  // it may be replaced
      const EngineTurn turn{.seconds = 30, .heedsStop = heedsStop};
      b.engine.turns = {turn, turn};
      b.boxes.whileShown = [&] {
        const bool isTold = b.boxes.shown.back().text == "Render Aborted !";
        EXPECT_EQ(isTold, b.state.heading == "Render aborted");
        EXPECT_TRUE(!isTold || b.state.caption == "   Create New Movie from Holiday Collection");
      };
      b.host.onChange = [&] {
        if (b.state.frame == frame && b.engine.running > 0 && b.loop.now().count() % 30000 > 7000)
          b.render.AbortRender();
      };
      b.render.WriteRenderMovie();
      EXPECT_EQ(captionsOf(b.boxes),
                std::string("KVO - Create Movie|") +
                    (heedsStop ? "" : "KVO Failed to stop the Render Engine.|") +
                    (frame == RenderFrame::Rendering ? "KVO - Movie Render aborted|" : ""))
          << "of the first part there is nothing to tell";
      EXPECT_EQ(b.engine.running, 0);
      EXPECT_EQ(b.files.all["/out/my film.wmv"], "old");
      EXPECT_EQ(b.state.frame, RenderFrame::Options);
      EXPECT_EQ(b.state.heading, "Create Movie");
      EXPECT_LT(b.loop.now().count() % 30000, 13500) << "the end is heard at once";
    }
  }
}

TEST(MovieRender, AnAbortAheadOfTheEngineCounts) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  b.host.onChange = [&] {
    if (b.state.frame == RenderFrame::Rendering) b.render.AbortRender();
  };
  b.render.WriteRenderMovie();
  EXPECT_EQ(b.engine.calls.size(), 1U);
  EXPECT_EQ(captionsOf(b.boxes), "KVO - Movie Render aborted|");
}

TEST(MovieRender, AnAbortWhileTheWavIsTakenIsNoFailure) {
  RenderBench b;
  b.choose(OutputKind::Wav);
  b.dialogs.answers = {"/out/song.wav"};
  b.host.strips = [&](const auto& /*source*/, const auto& /*wav*/) {
    b.render.AbortRender();
    return Error{"it was stopped"};
  };
  b.render.WriteRenderMovie();
  EXPECT_EQ(captionsOf(b.boxes), "KVO - Movie Render aborted|");
}

TEST(MovieRender, GoesOnBeyondItsCountdownWithAnotherPie) {
  RenderBench b;
  b.choose(OutputKind::Avi);
  b.settings.adjust().RenderAutoView = true;
  b.engine.turns = {{.seconds = 10}, {.seconds = 100}};  // 19 s are counted down
  std::vector<int> colours;
  b.host.onChange = [&] {
    if (b.state.frame != RenderFrame::Rendering || b.engine.running == 0) return;
    if (colours.empty() || colours.back() != b.state.pie.colour) colours.push_back(b.state.pie.colour);
  };
  b.render.WriteRenderMovie();
  EXPECT_EQ(colours, (std::vector{kPieBlue, 65280, 65535}));
  EXPECT_EQ(b.state.completed, "Completed in 1 mins 40 (s)");
}

TEST(MovieRender, HandsAMovieToTheQueue) {
  RenderBench b;
  b.create.Opt_RenderRangeWhole = false;
  b.create.Txt_From = 1;
  b.create.Txt_Too = 3;
  for (const int number : {9, 30}) {
    b.choose(OutputKind::Wmv, number);
    b.dialogs.answers = {"/out/film.wmv"};
    b.render.AddToQueue();
    ASSERT_FALSE(b.queued.empty());
    const auto& order = b.queued.back();
    EXPECT_EQ(order.output, "/out/film.wmv");
    EXPECT_NE(order.document.find("hills.avi"), std::string::npos) << "as the collection is now";
    EXPECT_EQ(order.range, (std::pair{1.0, 3.0}));
    EXPECT_EQ(order.profile, number == 9 ? std::optional(9) : std::nullopt);
    EXPECT_EQ(b.queuedProfile.empty(), number == 9) << "a copy of its own";
  }
  EXPECT_TRUE(b.engine.calls.empty());
  EXPECT_EQ(b.store.all["RenderWorking"], "") << "no file of this program's own is begun";
  EXPECT_EQ(b.files.all["/prog/wmsysprx.prx"], "system");
  b.create.Txt_Too = 1;
  b.dialogs.answers = {"/out/film.wmv"};
  b.render.AddToQueue();
  EXPECT_EQ(b.queued.size(), 2U);
  EXPECT_EQ(b.boxes.shown.size(), 2U) << "both about the range";
}

TEST(MovieRender, MakesMoviesByWhatTheyAreFor) {
  struct Row {
    OutputKind kind;
    const char* preset;       // null for a kind without
    int megabytes;            // wished
    std::string facts;        // picture and rate
    std::string part, whole;  // what the engine is told
  };
  const std::string own = "Picture=2560 x 1440|Frames a second=50|";
  for (const auto& row : {Row{OutputKind::Mp4, "", 20, own, "", ""},
                          Row{OutputKind::Mp4, "phone", 20, "Picture=1280 x 720|Frames a second=30|",
                              "'/P' 'phone' ", "'/P' 'phone' "},
                          Row{OutputKind::Mp4, "email", 12, "Picture=1280 x 720|Frames a second=30|",
                              "'/P' 'email' '/M' '5.000' ", "'/P' 'email' '/M' '12.000' "},
                          Row{OutputKind::Mp4, "email", 0, "Picture=1280 x 720|Frames a second=30|",
                              "'/P' 'email' '/M' '0.417' ", "'/P' 'email' '/M' '1.000' "},
                          Row{OutputKind::WebM, "webm", 20, "Picture=1920 x 1080|Frames a second=50|",
                              "'/P' 'webm' ", "'/P' 'webm' "},
                          Row{OutputKind::Avi, nullptr, 20, own, "", ""}}) {
    RenderBench b;
    b.editor.controls.txtWidth = 2560;
    b.editor.controls.txtHeight = 1440;
    b.settings.change().OutPutFrameRate = 50;
    b.settings.adjust().RenderAutoView = true;
    b.choose(row.kind);
    EXPECT_EQ(b.state.Lst_MadeFor.empty(), row.preset == nullptr);
    if (row.preset != nullptr) b.chooseFor(row.preset);
    b.render.wishMegabytes(row.megabytes);
    EXPECT_TRUE(test::holds(factsOf(b.state), row.facts)) << factsOf(b.state);
    EXPECT_EQ(test::holds(b.state.madeForText, "within " + std::to_string(b.state.wishedMegabytes) + " MB"),
              b.state.hasWishedSize)
        << b.state.madeForText;
    b.engine.turns = {{.bytes = 50U << 20U}};
    b.dialogs.answers = {"/out/film", "/out/film"};
    b.render.AddToQueue();
    EXPECT_EQ(b.queued.at(0).preset, row.preset == nullptr ? "" : row.preset);
    b.render.WriteRenderMovie();
    ASSERT_EQ(b.engine.calls.size(), 2U);
    EXPECT_TRUE(test::holds(b.engine.calls[0], "'/[3.00-8.00]' " + row.part + "'/S'")) << b.engine.calls[0];
    EXPECT_TRUE(b.engine.calls[1].starts_with("'/bin/KVORender' " + row.whole + "'/S'")) << b.engine.calls[1];
    RenderBench next;
    next.store.all = b.store.all;
    next.render.Rendertofile();
    EXPECT_EQ(next.state.madeForRow, b.state.madeForRow) << "remembered";
    EXPECT_EQ(next.state.wishedMegabytes, b.state.hasWishedSize ? std::max(row.megabytes, 1) : 20);
  }
}

TEST(MovieRender, SaysWhatOfTheClipsIsNotInTheMovie) {
  RenderBench b;
  for (const int number : {1, 2}) b.collection.MovieList[number].Resolution(Value("320 x 240"));
  b.choose(OutputKind::Mp4);
  EXPECT_FALSE(test::holds(b.state.madeForText, "Your clips")) << b.state.madeForText;
  EXPECT_EQ(b.state.caution, "");
  b.collection.MovieList[1].Resolution(Value("1920 x 1080"));
  b.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1}));
  b.choose(OutputKind::Mp4);
  EXPECT_TRUE(test::holds(b.state.madeForText, "Your clips are up to 1920 x 1080:")) << b.state.madeForText;
  EXPECT_TRUE(b.state.canMake && b.state.caution.starts_with("1 clip has an overlay.")) << b.state.caution;
  b.choose(OutputKind::Mp3);
  EXPECT_EQ(b.state.caution, "") << "it has no picture";
  // Once it has been rendered, and as long as that stands in the collection and is what the user wants.
  b.render.leave();
  b.render.RenderPinP(2, {});
  b.dialogs.answers = {"/out/pair.avi"};
  b.render.RenderNewPicInPic();
  for (const bool joins : {false, true}) {
    RenderBench next;
    next.store.all = b.store.all;
    next.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1}));
    if (joins) next.addVideo("pair.avi", 0, 8, "/out/");
    next.choose(OutputKind::Mp4);
    EXPECT_EQ(next.state.caution.empty(), joins) << next.state.caution;
    next.collection.MovieList[2].HasPicInPic(picInPicText({.overlayClip = 1, .position = 3}));
    next.choose(OutputKind::Mp4);
    EXPECT_FALSE(next.state.caution.empty()) << "another place";
  }
}

TEST(MovieRender, KeepsTheChoiceOfMoviesForThoseWithAPicture) {
  RenderBench b;
  b.choose(OutputKind::Mp4);
  b.render.chooseMadeFor(2);
  b.render.leave();
  auto movies = std::move(b.collection.MovieList);
  b.collection.MovieList.clear();
  b.addMusic("song.mp3", 0, 60);
  for (const bool asksForIt : {false, true}) {
    b.render.Rendertofile();
    EXPECT_EQ(b.state.kind, OutputKind::Wav);
    if (asksForIt) {
      b.render.chooseKind(OutputKind::Mp4);  // which becomes a WAV
      b.render.chooseMadeFor(3);
    }
    b.dialogs.answers = {asksForIt ? "/out/another.wav" : "/out/song.wav"};
    b.render.WriteRenderMovie();
    RenderBench next;
    next.store.all = b.store.all;
    next.render.Rendertofile();
    EXPECT_EQ(next.state.kind, OutputKind::Mp4);
    EXPECT_EQ(next.state.madeForRow, asksForIt ? 3 : 0);
    b.render.leave();
    std::swap(movies, b.collection.MovieList);
    b.render.Rendertofile();
    EXPECT_EQ(b.state.kind, OutputKind::Mp4);
    EXPECT_EQ(b.state.madeForRow, asksForIt ? 3 : 2);
    b.render.leave();
    std::swap(movies, b.collection.MovieList);
  }
}

TEST(MovieRender, CautionsWhileAnotherChoiceCanBeMade) {
  struct Row {
    OutputKind kind;
    int width, height;
    const char* caution;  // how it begins; empty for none
    int profile = -1;
    bool ownSize = true;
    const char* preset = "";
  };
  const char* width = "The width of 321 is odd, and ";
  const char* height = "The height of 241 is odd, and ";
  for (const auto& row :
       {Row{OutputKind::Mp4, 320, 240, ""}, Row{OutputKind::Mp4, 321, 240, width},
        Row{OutputKind::Mp4, 320, 241, height}, Row{OutputKind::Mov, 321, 240, width},
        Row{OutputKind::Mov, 320, 241, ""}, Row{OutputKind::WebM, 321, 241, ""},
        Row{OutputKind::Avi, 321, 241, ""}, Row{OutputKind::Gif, 321, 241, ""},
        Row{OutputKind::Mp3, 321, 241, ""}, Row{OutputKind::Wmv, 321, 241, "", 9, false},
        Row{OutputKind::Wmv, 321, 241, "", 38}, Row{OutputKind::Wmv, 321, 241, "", 40},
        Row{OutputKind::Wmv, 321, 241, width, 38, false}, Row{OutputKind::Wmv, 320, 241, "", 38, false},
        Row{OutputKind::Mp4, 1921, 1081, "", -1, true, "phone"},
        Row{OutputKind::Mp4, 321, 241, width, -1, true, "phone"},
        Row{OutputKind::Mp4, 321, 241, width, -1, true, "email"}}) {
    RenderBench b;
    b.editor.controls.txtWidth = row.width;
    b.editor.controls.txtHeight = row.height;
    b.choose(row.kind, row.profile);
    b.render.tickCodecDimensions(row.ownSize);
    b.chooseFor(row.preset);
    EXPECT_TRUE(b.state.caution.starts_with(row.caution)) << b.state.caution;
    EXPECT_EQ(b.state.caution.empty(), std::string(row.caution).empty()) << b.state.caution;
    EXPECT_EQ(b.state.canMake, b.state.caution.empty() || b.state.hasWishedSize)
        << kindRow(row.kind).title << " " << row.width << "x" << row.height << " " << row.profile;
  }
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
  EXPECT_FALSE(b.state.offersHardware);
  b.dialogs.answers = {"/out/a", "/out/b", "/out/c", "/out/d"};
  b.render.AddToQueue();
  EXPECT_EQ(b.queued.back().encoder, "") << "nobody has seen the row";
  b.render.hearHardware(true);
  EXPECT_TRUE(b.state.offersHardware);
  b.render.AddToQueue();
  EXPECT_EQ(b.queued.back().encoder, "auto");
  b.render.WriteRenderMovie();
  ASSERT_EQ(b.engine.calls.size(), 2U);
  for (const auto& call : b.engine.calls) EXPECT_TRUE(test::holds(call, "'/H' 'auto' '/S'")) << call;
  b.render.Rendertofile();
  b.chooseFor("email");
  EXPECT_FALSE(b.state.offersHardware) << "only the software keeps within a size";
  b.render.AddToQueue();
  EXPECT_EQ(b.queued.back().encoder, "");
  b.render.chooseKind(OutputKind::WebM);
  EXPECT_FALSE(b.state.offersHardware);
  RenderBench next;
  next.store.all = b.store.all;
  next.render.Rendertofile();
  EXPECT_TRUE(next.state.Chk_Hardware) << "remembered";
}

TEST(MovieRender, MakesAWavByWayOfWindowsMedia) {
  for (const bool fails : {false, true}) {
    RenderBench b;
    b.collection.MovieList.clear();
    b.addMusic("song.mp3", 0, 60);
    b.choose(OutputKind::Wav);
    b.dialogs.answers = {"/out/song.wav"};
    b.files.all["/out/song.WMA"] = "mine";
    b.files.all["/out/song.wav"] = "old";
    b.boxes.answers = {Answer::Yes};  // it may be replaced
    if (fails) {
      b.host.strips = [](const auto& /*source*/, const auto& wav) {
        return Error{"cannot write " + wav + ": No space"};
      };
    }
    b.render.WriteRenderMovie();
    ASSERT_EQ(b.engine.calls.size(), 2U);
    EXPECT_TRUE(test::holds(b.engine.calls[1], "'/P' '23' '/S' '77' '/W' '/out/.rendering-77.WMA'"));
    EXPECT_TRUE(test::holds(b.host.notes, "strip:/out/.rendering-77.WMA"));
    EXPECT_EQ(b.files.all["/out/song.wav"], fails ? "old" : "x");
    EXPECT_EQ(b.files.all["/out/song.WMA"], "mine");
    EXPECT_FALSE(b.files.all.contains("/out/.rendering-77.WMA"));
    EXPECT_EQ(captionsOf(b.boxes),
              std::string("KVO - Create Movie|") + (fails ? "KVO - Failed to Render Movie|" : ""))
        << "nobody is asked to view it";
    EXPECT_EQ(b.state.frame, fails ? RenderFrame::Options : RenderFrame::Report);
    EXPECT_EQ(b.collection.MovieList.count(), 1);
  }
}

}  // namespace
}  // namespace kvo
