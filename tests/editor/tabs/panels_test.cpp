// What the editor's panels do to a clip, and the documents that go beside the collection's own.
#include "editor/tabs/effect_panel.h"
#include "editor/tabs/operations.h"
#include "editor/tabs/overlay_tab.h"
#include "editor/tabs/preview.h"
#include "editor/tabs/preview_params.h"
#include "editor/tabs/still_options.h"
#include "editor/tabs/transition_tab.h"
#include "support/fakes.h"
#include "support/golden.h"

namespace kvo {
namespace {

using test::Bench;
using test::holds;
using test::lineOf;

TEST(PicInPic, ItsDigitsGoInAndOut) {
  EXPECT_EQ(picInPicText({12, OverlayStyle::Radial, 8, 75, 1500, 20, true}), "012208075015000002001");
  EXPECT_EQ(picInPicText({}), "");
  for (const auto* bad : {"", "0122080750150000020010", "01220807501500000200", "012108075015000002001",
                          "012216075015000002001", "000208075015000002001", "01220807501500000200x"}) {
    EXPECT_FALSE(readPicInPic(bad)) << bad;
  }
  EXPECT_EQ(picInPicText({2000, OverlayStyle::Uniform, 1, 100, 200000, 0, false}), "2000001100999990000000");
  EXPECT_EQ(readPicInPic("2000001100999990000000")->overlayClip, 2000) << "as many digits as it needs";
  for (const auto* text : {"012208075015000002001", "32767208075015000002001"})
    EXPECT_EQ(picInPicText(*readPicInPic(text)), text);
}

TEST(PicInPic, HasItsPlacesTimesAndFades) {
  std::string all = "== height, width and offsets in 170 x 70\r\n";
  for (int position = 1; const auto name : overlayPositionNames()) {
    const auto box = overlayBox(position++, 170, 70);
    all += std::string(name);
    for (const double v : {box.height, box.width, box.offsetY, box.offsetX}) all += " " + ShortText(v);
    all += "\r\n";
  }
  for (const auto& [name, look, speed] :
       {std::tuple{"preview", PicInPic{2, OverlayStyle::Uniform, 1, 80, 0, 2000, false}, 10.0F},
        {"twice as fast", {2, OverlayStyle::Uniform, 2, 80, 1000, 20000, false}, 20},
        {"over all, trimmed", {2, OverlayStyle::Radial, 8, 80, 20000, 2000, true}, 10},
        {"twice as fast, trimmed", {2, OverlayStyle::Rectangular, 15, 80, 1000, 20000, true}, 20}}) {
    Bench b;
    b.addVideo("back.avi", 1, 9).HasPicInPic(picInPicText(look));
    auto& overlay = b.addVideo("over.avi", 0, 12);
    overlay.DurationTime(Value(12));
    overlay.Playspeed(speed);
    overlay.EffectWord(std::string("1") + std::string(45, '0'));
    const bool preview = std::string("preview") == name;
    all += std::string("== ") + name + "\r\n" +
           CreatePinPPreview(b.editing, 1, {.preview = preview, .backdropAudio = true, .overlayAudio = true});
  }
  test::expectGolden("picture-in-picture.txt", all);
}

TEST(PicInPic, TheEdgesOfItsRules) {
  Bench b;
  b.settings.state.DefaultStillDuration = 7;
  auto& backdrop = b.addVideo("back.avi", 0, 8);
  auto& still = b.addVideo("s.jpg", 3, 0);
  still.IsStill(true);
  still.DurationTime(Value("N/A"));
  const auto shown = [&](int backdropNo) {
    return CreatePinPPreview(b.editing, backdropNo, {.preview = true});
  };
  backdrop.HasPicInPic(picInPicText({9, OverlayStyle::Uniform, 1, 100, 0, 0, false}));
  EXPECT_FALSE(holds(shown(1), "<transition")) << "no clip of that number";
  backdrop.HasPicInPic(picInPicText({2, OverlayStyle::Uniform, 8, 100, 0, 0, false}));
  const auto text = shown(1);
  EXPECT_TRUE(holds(text, "s.jpg\" mstart=\"0\" mstop=\"7\"")) << text;
  EXPECT_TRUE(holds(text, "<param name=\"opacity\" value=\"100\">\r\n" + std::string(20, ' ') + "</param>"));
  EXPECT_TRUE(holds(shown(2), "mstart=\"0\" mstop=\"7\" start=\"0\" stop=\"7\"")) << "as a backdrop";
  EXPECT_EQ(b.settings.state.ObjectChange, 0);
  EXPECT_EQ(SetPicInPicSliderTexts({1, OverlayStyle::Uniform, 1, 80, 1500, 0, false})[1], "In over 1.5s");
  backdrop.HasAudio(true);
  backdrop.AudioOutputLevel(0.5F);
  EXPECT_EQ(backdropAudioBox(backdrop).caption, "Add Audio from Backdrop Clip - ( Level = 50% )");
}

TEST(Stills, TakeTheirDefaultsFromTheFile) {
  Bench b;
  GetStillOpts(b.editing);
  EXPECT_EQ(
      b.files.all["/prog/RenderStillOpts.dat"],
      "[DefaultGroupStillDuration]\r\nStillDur=7.000\r\n\r\n[DefaultGroupStillFrameRate]\r\nFrameRate=0\r\n");
  EXPECT_EQ(b.settings.state.DefaultStillDuration, 7);
  b.files.all["/prog/RenderStillOpts.dat"] = "junk\n[defaultgroupstillduration] \n stilldur=2.5\n";
  b.settings.state.DefaultStillFrameRate = 12;
  GetStillOpts(b.editing);
  EXPECT_EQ(lineOf(b.settings.state.DefaultStillDuration, b.settings.state.DefaultStillFrameRate), "2.5 12")
      << "a section that is not there changes nothing";
}

TEST(Samples, ShowATransitionInItsFourCases) {
  std::string all;
  for (const auto& [clipNo, name] : {std::pair{1, "Fade"}, {1, "CUT"}, {2, "Heart"}, {2, "CUT"}}) {
    Bench b;
    b.addVideo("a.avi", 0, 9).Playspeed(20);
    b.addVideo("b.avi", 2, 6);
    test::withTransition(b.collection.MovieList[clipNo], name, 15);
    b.editor.controls.Sld_In.Value = 15;
    all += "== " + transitionClipsText(b.collection, clipNo) + ", " + name + "\r\n" +
           Previewtransition(b.editing, clipNo);
  }
  Bench b;
  auto& still = b.addStill("s.jpg", 7);
  still.stretchmode(2);
  still.EffectWord("01");
  still.Sepia(true);
  all += "== effect\r\n" + PreviewEffect(b.editing, 1) + "== colours\r\n" + PreviewColourAdjust(b.editing, 1);
  test::expectGolden("samples.txt", all);
  EXPECT_EQ(PreviewEffect(b.editing, 0), "");
}

// What is played of a sample, whatever the size of its document that is kept.
TEST(Samples, AreShownInTheShapeOfTheMovie) {
  for (const auto& [width, height, tag] : {std::tuple{640, 480, "width=\"480\" height=\"360\""},
                                           {1920, 1080, "width=\"480\" height=\"270\""},
                                           {176, 144, "width=\"176\" height=\"144\""}}) {
    Bench b;
    b.addVideo("a.avi", 0, 9);
    b.addVideo("b.avi", 2, 6);
    b.settings.adjust().RenderWidth = static_cast<Integer>(width);
    b.settings.adjust().RenderHeight = static_cast<Integer>(height);
    b.editor.controls.Opt_Preset = false;
    b.editor.controls.txtWidth = width;
    b.editor.controls.txtHeight = height;
    for (const auto& text :
         {Previewtransition(b.editing, 2, SampleSize::Shown), PreviewEffect(b.editing, 2, SampleSize::Shown),
          PreviewColourAdjust(b.editing, 2, SampleSize::Shown),
          CreatePinPPreview(b.editing, 2, {.preview = true, .inShape = true})})
      EXPECT_TRUE(holds(text, tag)) << text;
  }
}

TEST(Preview, CompilesReducedByItsPower) {
  Bench b;
  b.addVideo("a.avi", 0, 5).EffectWord("1");
  b.addVideo("b.avi", 0, 5).TransType("Fade");
  for (const bool full : {false, true}) {
    const auto text = compilePreviewText(b.editing, full ? 10 : 1);
    EXPECT_EQ(
        lineOf(holds(text, "<effect clsid"), holds(text, "<transition"), holds(text, "PreviewMode=\"True\"")),
        full ? "1 1 0" : "0 0 1");
  }
  b.files.all["/prog/PreviewDefaults.dat"] = "[Preview1]\r\nScaleFactor = 7\r\n";
  EXPECT_EQ(GetPreviewParams(b.editing, 1).Scale, 7);
  const auto params = GetPreviewParams(b.editing, 4);
  EXPECT_EQ(params.Scale, 3) << "a file without the section is replaced";
  EXPECT_EQ(ShowUserPreviewParams(b.editing, params),
            "\r\n\r\nH x W reduced by 3\r\n\r\nAspect Ratio is maintained\r\nColor drop from 24 to 16 bit\r\n"
            "FPS drop from 25 to 10 fps \r\n\r\nTransitions ARE shown\r\nClip Effects are NOT shown\r\n");
  b.settings.change().OutPutFrameRate = 12;
  EXPECT_EQ(GetPreviewParams(b.editing, 2).Rate, 12) << "held to the output's";
}

TEST(Preview, TellsItsLengths) {
  Bench b;
  EXPECT_FALSE(CreatePreview(b.editing, {}));
  EXPECT_EQ(b.boxes.shown.back().caption + "|" + b.boxes.shown.back().text,
            "KVO - Nothing to Render|Nothing to render");
  b.addVideo("a.avi", 0, 12.5);
  const auto lengths = [&] {
    const auto made = CreatePreview(b.editing, {});
    const auto told = made ? *made : PreviewLabels{};
    return lineOf(told.lbl_VideoTotTime, "to", told.FSB_RenderRangeMax, "|", told.Lbl_AudTotal,
                  told.audioIsRed ? "red" : "");
  };
  EXPECT_EQ(lengths(), "012.500 to 12 | No Audio ");
  EXPECT_TRUE(b.files.exists("/prog/KVORender.xtl"));
  EXPECT_EQ(b.editor.ClipStopList, std::vector<float>{12.5F});
  auto& music = b.addMusic("m.mp3", 0, 20);
  b.settings.adjust().AutoTrimAudio = false;
  EXPECT_EQ(lengths(), "012.500 to 12 | 020.000 red");
  music.LoopEnd(Value(12.5));
  EXPECT_EQ(lengths(), "012.500 to 12 | 012.500 red") << "as texts they differ";
  b.settings.adjust().AutoTrimAudio = true;
  EXPECT_EQ(lengths(), "012.500 to 12 | 012.500 ");
  EXPECT_EQ(powerCaption(7), "70% CPU - Preview Performance \\ CPU Power Required");
}

TEST(EffectPanel, TellsItsEaseAndKnowsItsClasses) {
  Bench b;
  auto& clip = b.addVideo("a.avi", 0, 5);
  applyEaseDefaultIn(clip);
  EXPECT_EQ(SetEaseSliderHeadings(clip),
            (std::vector<std::string>{"Ease Progress speed - Log(n) - 0.0", "Motion Speed - 1.0",
                                      "Starting magnification - 0.75x", "Ending magnification - 1.0x"}));
  for (const auto& [system, keeps] : {std::pair{"XP", true}, {"2K", false}}) {
    clip.Sepia(true);
    ResetObjForNonEffectOs(clip, system);
    EXPECT_EQ(clip.Sepia(), keeps);
  }
  for (const auto& [name, language] : {std::pair{"blur", "DE-DE"}, {"", "EN-US"}})
    EXPECT_EQ(GetEffectClsid(name, language), "") << "a class without a name has none";
  EXPECT_EQ(GetEffectClsid("BLUR"), "{7312498D-E87A-11d1-81E0-0000F87557DB}");
}

}  // namespace
}  // namespace kvo
