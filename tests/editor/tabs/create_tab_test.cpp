// The Create tab: what its controls write, and what they show of it.
#include "editor/tabs/create_tab.h"

#include "editor/tabs/editor_parts_state.h"
#include "editor/tabs/operations.h"
#include "editor/tabs/tab_bench.h"

namespace kvo {
namespace {

using test::lineOf;

struct CreateBench : test::Bench {
  CreateTab tab;
  test::NotingHost host{collection};
  CreateRules rules{editing, tab, host};

  CreateBench() {
    addVideo("a.avi", 0, 5);
    rules.restore();
  }
  [[nodiscard]] const Preferences& kept() const { return settings.preferences(); }
};

int rowOfSize(std::string_view text) {
  const auto sizes = outputSizes();
  return static_cast<int>(std::find(sizes.begin(), sizes.end(), text) - sizes.begin());
}

// The size that is shown, the one that is kept and the one that a compile asks for are one.
TEST(CreateTab, ASizeIsOneForWindowFileAndCompile) {
  const struct {
    std::function<void(CreateRules&)> act;
    const char* size;
    bool isPreset;
  } rows[] = {{[](auto&) {}, "240 x 320", false},
              {[](auto& r) { r.chooseSize(rowOfSize("1280 x 720")); }, "1280 x 720", true},
              {[](auto& r) { r.chooseSize(999); }, "240 x 320", false},
              {[](auto& r) { r.typeSize(500, 400); }, "500 x 400", false},
              {[](auto& r) { r.typeSize(640, 480); }, "640 x 480", true},
              {[](auto& r) { r.typeSize(0, 0); }, "320 x 240", true},
              {[](auto& r) { r.typeSize(3001, -1); }, "240 x 320", false}};
  for (const auto& row : rows) {
    CreateBench b;
    row.act(b.rules);
    int width = 0, height = 0;
    GetHeightWidth(b.editor.controls, height, width);
    EXPECT_EQ(lineOf(width, "x", height), row.size);
    EXPECT_EQ(lineOf(b.tab.txtWidth, "x", b.tab.txtHeight), row.size);
    EXPECT_EQ(lineOf(b.kept().RenderWidth, "x", b.kept().RenderHeight), row.size);
    EXPECT_EQ(b.tab.sizeRow, row.isPreset ? rowOfSize(row.size) : -1) << row.size;
  }
}

TEST(CreateTab, RateDepthAndPowerGoThroughTheHistory) {
  CreateBench b;
  for (const auto& [typed, rate] :
       {std::pair{"30", 30.0F}, {"1.5", 24.0F}, {"500", 120.0F}, {"abc", 120.0F}}) {
    b.rules.typeRate(typed);
    EXPECT_EQ(b.kept().OutPutFrameRate, rate) << typed;
  }
  b.rules.chooseDepth(16);
  b.rules.movePower(3);
  b.rules.movePower(11);
  EXPECT_EQ(lineOf(b.tab.frameRate, b.kept().OutputColorDepth, b.kept().PreviewCPU), "120 16 10");
  EXPECT_EQ(b.host.look(),
            "edit Frame rate 0 0, edit Frame rate 0 0, edit Frame rate 0 0, edit Colors 0 0, "
            "edit Preview power 0 0, edit Preview power 0 0");
  EXPECT_TRUE(b.settings.state.IsDirty);
}

TEST(CreateTab, ThePowerSaysWhatItCosts) {
  CreateBench b;
  EXPECT_EQ(b.tab.Fra_PreviewOpts, "Preview Performance \\ CPU Power Required - 50% CPU");
  EXPECT_TRUE(test::holds(b.tab.Label42, "FPS drop from 25 to 10 fps")) << b.tab.Label42;
  b.rules.movePower(10);
  EXPECT_EQ(lineOf(b.tab.powerToolTip, b.tab.Label42Changes), "100% CPU 1");
  EXPECT_TRUE(test::holds(b.tab.Label42, "H x W is output dimensions")) << b.tab.Label42;
  EXPECT_EQ(b.tab.lines.back(), (PreviewLine{"Clip Effects ARE shown", PreviewLine::Sign::Shown}));
  b.collection.clearLists();
  b.rules.refresh();
  EXPECT_EQ(b.tab.Label42 + (b.tab.Label42Bold ? " in bold" : ""), "\r\n\r\n\r\nNothing to Preview in bold");
}

TEST(CreateTab, WhatIsOffSaysWhy) {
  const std::string watch = "Preview - Watch the movie|", from = "Choose From first",
                    end = "Stop the preview - End the preview of the movie|", stop = "Stop the preview first";
  for (const auto& [hasClips, runs, whole, expected] :
       {std::tuple{true, false, true, watch + "|" + from + "|"},
        {true, false, false, watch + "||"},
        {true, true, false, end + "|" + stop + "|" + stop},
        {true, true, true, end + "|" + from + "|" + stop},
        {false, false, true, watch + "Nothing to Preview|" + from + "|"}}) {
    CreateBench b;
    if (!hasClips) b.collection.clearLists();
    b.rules.refresh();
    b.rules.showPreview(runs);
    b.rules.chooseRange(whole);
    const auto& key = b.tab.Cmd_PrevGrph;
    EXPECT_EQ(key.caption + " - " + key.tip + "|" + key.whyNot + "|" + b.tab.rangeWhyNot + "|" + b.tab.whyNot,
              expected);
  }
}

TEST(EditorParts, StepsOfTheHistorySayWhyTheyCannotBeTaken) {
  const std::string noUndo = "There is nothing to undo", noRedo = "There is nothing to redo";
  const std::vector<std::string> one{"Fade on beach.avi"};
  EditorFrame frame;
  const auto whyNot = [&](const EditorHistory& history) {  // go back, either way, on
    return whyNoStep(frame, history, -1) + "|" + whyNoStep(frame, history, 0) + "|" +
           whyNoStep(frame, history, 1);
  };
  EXPECT_EQ(whyNot({one, {}}), "||" + noRedo);
  EXPECT_EQ(whyNot({{}, one}), noUndo + "||");
  EXPECT_EQ(whyNot({}), noUndo + "|" + noUndo + "|" + noRedo);
  frame.toolsOn = false;
  frame.toolsOffBecause = "Stop";
  EXPECT_EQ(whyNot({one, one}), "Stop|Stop|Stop") << "the preview first";
}

TEST(CreateTab, WhatIsRefusedShowsWhatHolds) {
  CreateBench b;
  b.host.refuses = true;
  b.rules.chooseSize(0);
  b.rules.movePower(9);
  b.rules.chooseDepth(32);
  EXPECT_EQ(lineOf(b.tab.sizeRow, b.tab.Sld_CPURequired, b.tab.Cmb_ColorDepth, b.tab.Fra_PreviewOpts),
            "-1 5 24 50% CPU - Preview Performance \\ CPU Power Required");
}

TEST(CreateTab, ARangeStaysWithinTheMovie) {
  CreateBench b;
  b.editor.VideoTotalTime = "51.9";
  const auto range = [&] {
    return ShortText(b.tab.Txt_From) + " to " + ShortText(b.tab.Txt_Too) +
           (b.tab.Opt_RenderRangeWhole ? " whole" : "");
  };
  b.rules.chooseRange(true);
  EXPECT_EQ(range(), "0 to 51.9 whole");
  b.rules.typeRange(90, 10);
  EXPECT_EQ(range(), "10 to 51.9");
  b.editor.VideoTotalTime = "0";  // the movie has become one of sound
  b.editor.AudioTotalTime = "8";
  b.rules.refresh();
  EXPECT_EQ(range(), "8 to 8");
  b.rules.chooseRange(true);
  EXPECT_EQ(range(), "0 to 8 whole");
}

}  // namespace
}  // namespace kvo
