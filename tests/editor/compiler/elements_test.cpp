// The elements that transitions, effects and keyframes become, one golden file for each family.
#include "editor/compiler/durations.h"
#include "editor/compiler/effect_elements.h"
#include "editor/compiler/effect_word.h"
#include "editor/compiler/keyframe_copies.h"
#include "editor/compiler/transition_element.h"
#include "editor/compiler/transition_names.h"
#include "editor/tabs/effects_file.h"
#include "editor/tabs/keyframe_edits.h"
#include "editor/tabs/operations.h"
#include "support/fakes.h"
#include "support/golden.h"

namespace kvo {
namespace {

using test::Bench;
using test::holds;
using test::lineOf;

// The element of a transition into the second of two clips.
std::string transition(
    std::string_view name, TransitionOptions o = {},
    const std::function<void(Movie&)>& change = [](Movie&) {}) {
  Bench b;
  b.addVideo("a.avi", 0, 5);
  auto& clip = test::withTransition(b.addVideo("b.avi", 2, 6), "Barn", 10);
  change(clip);
  o.Start = 4;
  o.Stop = {8, Digits::Four};
  o.Name = name;
  o.Duration = secondsFromTenths(clip.TransIn());
  o.Particles.maxParticles = b.settings.preferences().MaxParticles;
  TimelineClips clips(b.collection);
  return AddTransition(optionsOf(b.editing), clips, 2, o);
}

TEST(Transitions, EachNameHasItsElement) {
  std::string all;
  std::string particles;
  for (const auto name : transitionNames()) {
    all += "== " + std::string(name) + "\r\n" +
           transition(name, {.BorderWidth = 300,
                             .BorderColor = "&H00FF00&",
                             .BorderSoftness = 2.5F,
                             .ReplicateX = 0,
                             .ReplicateY = 3});
    if (ShowTransOptions(name).particles)
      particles +=
          "== " + std::string(name) + "\r\n" + transition(name, {.Particles = {.useDefaults = false}});
  }
  for (const auto* name : {"CUT", "Curtains", "Threshold", "No such name"})
    all += "== " + std::string(name) + "\r\n" + transition(name);
  test::expectGolden("transitions.txt", all);
  test::expectGolden("transitions-particles.txt", particles);
}

TEST(Transitions, FreeOptionsHaveTheirOwnCase) {
  const std::array<const char*, 4> rows[] = {
      {"Iris", "irisStyle", "Circle", "irisStyle\" value=\"CIRCLE"},
      {"Slide", "slideStyle", "push", "slideStyle\" value=\"PUSH"},
      {"Stretch", "stretchStyle", "HIDE", "stretchStyle\" value=\"hide"},
      {"Blinds", "Direction", "Left", "direction\" value=\"Left"}};
  for (const auto& [name, option, value, line] : rows) {
    const auto text = transition(name, {}, [&, option = option, value = value](Movie& clip) {
      clip.ExtraParamName1("bands");
      clip.ExtraParamValue1("5");
      clip.ExtraParamName2(option);
      clip.ExtraParamValue2(value);
    });
    for (const std::string param : {line, "bands\" value=\"5"})
      EXPECT_TRUE(holds(text, "<param name=\"" + param + "\" />")) << text;
  }
  EXPECT_TRUE(
      holds(transition("Heart", {.MaskName = "/m/a.jpg"}), "<param name=\"MaskName\" value=\"/m/a.jpg\"/>"));
  EXPECT_TRUE(holds(transition("Barn", {}, [](Movie& clip) { clip.TransIn(0); }),
                    "<linear time=\"-0.115\" value=\"1\"/>"));
  const auto iris = ShowTransOptions("Iris");
  EXPECT_EQ(lineOf(iris.secondCaption, iris.secondValues.size()), "irisStyle 5");
  EXPECT_EQ(TransitionFriendlyNameToCLSID(""), "") << "the classes without a name are found by none";
}

std::string effects(Bench& b, const std::string& word) {
  b.collection.MovieList[1].EffectWord(word);
  ValidateKeyFrames(b.collection);
  return CreateBasicImageStringFromEffectWord(
      {b.editor.effects, KeyframeIndex(b.collection), optionsOf(b.editing)}, TimelineClips(b.collection)[1],
      5);
}

std::string wordWith(std::initializer_list<int> positions) {
  EffectWord word;
  for (const int p : positions) word.set(p, true);
  return word.text();
}

void addLevels(Movie& clip) {
  clip.KeyID(7);
  clip.BlurInt(4);
  clip.MBlurStrength(14);
  clip.MBlurDirection(20);
  clip.AgeIntensity(35);
  clip.EaseDuration(0.5F);
  clip.ScaleA(1);
  clip.InitialScaleA(0.75F);
  clip.MoveSpeedA(1);
  clip.MoveADirection("out");
}

TEST(Effects, EachSwitchHasItsElement) {
  std::string all;
  for (int position = 1; position <= EffectWord::kSwitches; ++position) {
    Bench b;
    addLevels(b.addVideo("a.avi", 0, 5));
    all += "== " + std::to_string(position) + "\r\n" + effects(b, wordWith({position}));
  }
  Bench b;
  auto& clip = b.addVideo("a.avi", 0, 5);
  addLevels(clip);
  clip.RevolveCamera(true);
  clip.MoveARotationDirection("left");
  all += "== all that are built in\r\n" + effects(b, wordWith({1, 2, 3, 4, 5, 6, 7, 8, 43, 44, 45, 46, 9}));
  test::expectGolden("effects.txt", all);
  EXPECT_EQ(effects(b, ""), "");
}

TEST(Effects, ColourLevelsHaveTheirSlopes) {
  const std::pair<const char*, void (*)(Movie&)> rows[] = {
      {"nothing", [](Movie&) {}},
      {"red 128", [](Movie& m) { m.Red(128); }},
      {"red 200", [](Movie& m) { m.Red(200); }},
      {"blue -10", [](Movie& m) { m.Blue(-10); }},
      {"brightness", [](Movie& m) { m.Brightness(1); }},
      {"contrast", [](Movie& m) { m.Contrast(5); }},
      {"gamma and threshold",
       [](Movie& m) {
         m.Gamma(0.15F);
         m.Threshold(300);
       }},
      {"sepia", [](Movie& m) { m.Sepia(true); }},
      {"sepia, green and gamma",
       [](Movie& m) {
         m.Sepia(true);
         m.Green(10);
         m.Gamma(1);
       }},
  };
  std::string all;
  for (const auto& [name, set] : rows) {
    Bench b;
    auto& clip = b.addVideo("a.avi", 1, 5);
    clip.Playspeed(20);
    set(clip);
    all += std::string("== ") + name + "\r\n" +
           AddColorContrastAdjust(optionsOf(b.editing), TimelineClips(b.collection)[1]);
  }
  test::expectGolden("colours.txt", all);
}

Keyframe& addKeyframe(Bench& b, int effectNo, Long frame, double time, const std::string& param1,
                      Single transparency) {
  Keyframe k;
  k.EffectNo = static_cast<Integer>(effectNo);
  k.FrameNo = frame;
  k.Time = Value(time);
  for (auto& p : k.Param) p = Value("0");
  k.Param[0] = Value(param1);
  k.Transparency = transparency;
  k.ClipName = 7;
  k.FC = "RED";
  k.BC = frame == 0 ? "BLACK" : "WHITE";
  return b.collection.KeyframeList.add(std::move(k));
}

TEST(Keyframes, APaletteRowMovesFromKeyToKey) {
  Bench b;
  addLevels(b.addVideo("a.avi", 0, 5));
  const int position = 42;
  int id = 0;
  b.editor.effects.GetEffectIDFromName(b.editor.effects.slot(position - 8)->name, id);
  addKeyframe(b, id, 100, 4, "5", 30);
  auto& first = addKeyframe(b, id, 0, 0, "10", 100);
  for (std::size_t i = 1; i < first.Param.size(); ++i) first.Param[i] = Value("1" + std::to_string(i));
  first.EC = "GREEN";
  first.TextureFile = "/t/brick.jpg";
  addKeyframe(b, id, 62, 2.5, "40", 60);
  addKeyframe(b, id, 126, 5.04, "99", 0);  // behind the mark out
  test::expectGolden("keyframes-palette.txt", effects(b, wordWith({position})));
}

TEST(Keyframes, BlurAndMotionBlurHaveTheirOwnParameters) {
  Bench b;
  auto& clip = b.addVideo("a.avi", 0, 5);
  addLevels(clip);
  clip.Playspeed(5);
  addKeyframe(b, kBlurEffect, 0, 0, "4", 0);
  addKeyframe(b, kBlurEffect, 50, 2, "9", 0);
  auto& motion = addKeyframe(b, kMotionBlurEffect, 0, 0, "14", 0);
  motion.Param[1] = Value("20");
  motion.Param[2] = Value("True");
  addKeyframe(b, kMotionBlurEffect, 75, 3, "0", 0);
  test::expectGolden("keyframes-blur.txt", effects(b, wordWith({43, 44})));
}

std::string written(const Bench& b, int clip, const char* name, int effectNo) {
  return WriteKeyframesToTimeLine(KeyframeIndex(b.collection), TimelineClips(b.collection)[clip], name,
                                  effectNo, 25);
}

TEST(Keyframes, NumbersAndOrderAtTheirEdges) {
  Bench b;
  addLevels(b.addVideo("a.avi", 1, 5));
  addKeyframe(b, 8, 25, 0, "10", 40);
  const std::string in(20, ' ');
  EXPECT_EQ(written(b, 1, "Transparency", 8),
            in + "<param name=\"Transparency\" value=\"40\">\r\n" + in + "</param>\r\n")
      << "one keyframe stands as it is";
  addKeyframe(b, 8, 30, 1.2, "9", 0);
  addKeyframe(b, 8, 30, 1.2, "10", 0);
  const auto text = written(b, 1, "Control1Value", 8);
  EXPECT_LT(text.find("time=\"000000.2\"  value=\"10\""), text.find("time=\"000000.2\"  value=\"9\""))
      << text;
  EXPECT_EQ(written(b, 1, "Control1Value", 99), "");
}

/// The values of a parameter of a document with their times, from 0 on.
std::vector<std::pair<double, double>> valuesIn(const std::string& text) {
  std::vector<std::pair<double, double>> all;
  for (std::size_t at = 0, end = 0; (at = text.find("value=\"", end)) != std::string::npos; end = at + 7) {
    const auto time = end == 0 ? 0 : std::stod(text.substr(text.rfind("time=\"", at) + 6));
    all.emplace_back(time, std::stod(text.substr(at + 7)));
  }
  return all;
}

/// What it comes to at a time.
double valueIn(const std::string& text, double time) {
  const auto all = valuesIn(text);
  const auto next = std::find_if(all.begin(), all.end(), [&](const auto& v) { return time < v.first; });
  if (next == all.end()) return all.back().second;
  const auto& [from, value] = *std::prev(next);
  return value + (next->second - value) * (time - from) / (next->first - from);
}

// Keyframes lie at 4, 6 and 10 seconds of the file, a base one ahead of them.
TEST(Keyframes, CountFromTheMarkInAtTheSpeedOfTheClip) {
  for (const auto& [markIn, markOut, speed, expected] :  // times and values of control 1
       {std::tuple{0, 20, 10, "0:0 4:40 6:60 10:20 "},
        {3, 20, 10, "0:0 1:40 3:60 7:20 "},
        {3, 20, 20, "0:0 0.5:40 1.5:60 3.5:20 "},
        {3, 20, 5, "0:0 2:40 6:60 14:20 "},
        {4, 20, 10, "0:40 2:60 6:20 "},
        {8, 20, 10, "0:40 2:20 "},
        {5, 6, 10, "0:50 1:60 "},
        {12, 20, 10, "0:20 "}}) {
    Bench b;
    auto& clip = b.addVideo("a.avi", markIn, markOut);
    clip.KeyID(7);
    clip.Playspeed(static_cast<Single>(speed));
    addKeyframe(b, 8, 75, 0, "0", 0);  // wherever the Mark-In was
    for (const auto& [time, value] : {std::pair{4, "40"}, {6, "60"}, {10, "20"}})
      addKeyframe(b, 8, time * 25, time, value, 0);
    std::string values;
    for (const auto& [time, value] : valuesIn(written(b, 1, "Control1Value", 8)))
      values += ShortText(time) + ":" + ShortText(value) + " ";
    EXPECT_EQ(values, expected) << markIn << " at " << speed;
  }
}

// Both parts of a clip look as the whole did, whatever moves in it.
TEST(Keyframes, ASplitIsNotSeen) {
  using Points = std::vector<std::pair<double, int>>;  // seconds of the file, value
  for (const auto& points :
       {Points{{0, 30}}, Points{{0, 0}, {10, 90}}, Points{{0, 70}, {4, 20}, {9, 60}},
        Points{{0, 60}, {4, 40}, {10, 0}}, Points{{0, 10}, {9, 50}, {14, 0}}, Points{{5, 40}, {9, 10}}}) {
    for (const int effect : {8, kBlurEffect, kMotionBlurEffect}) {
      for (const double cut : {3.0, 4.0, 6.5, 11.0}) {
        Bench b, parts;
        auto& clip = b.addVideo("a.avi", 2, 12);
        clip.KeyID(7);
        clip.Playspeed(20);
        auto& first = parts.collection.MovieList.add(clip);
        auto& second = parts.collection.MovieList.add(clip);
        for (auto* bench : {&b, &parts}) {
          for (const auto& [time, value] : points)
            addKeyframe(*bench, effect, static_cast<Long>(time * 25), time, std::to_string(value),
                        static_cast<Single>(value));
        }
        second.KeyID(8);
        second.LoopStart(Value(cut));
        first.LoopEnd(Value(cut - 0.01));
        auto behind = keyframesOfCopy(parts.collection, clip, second, 25);
        endKeyframes(parts.collection, clip, first, 25);
        for (auto& k : behind) parts.collection.KeyframeList.add(std::move(k));
        const char* const params[] = {"Control1Value", "Transparency"};
        const char* const motion[] = {"Strength", "Direction"};
        for (const auto* name : effect == kMotionBlurEffect ? motion : params) {
          const auto whole = written(b, 1, name, effect);
          for (const double at : {2.0, 2.5, 3.9, 4.1, 6.4, 6.6, 9.5, 11.9}) {
            const auto part = written(parts, at < cut ? 1 : 2, name, effect);
            EXPECT_NEAR(valueIn(part, (at - (at < cut ? 2 : cut)) / 2), valueIn(whole, (at - 2) / 2), 0.01)
                << name << " of " << effect << " at " << at << " cut at " << cut << "\n"
                << whole << part;
          }
        }
      }
    }
  }
}

TEST(Keyframes, BeginWithTheWholeEffectWhereTheTableNamesNoLevel) {
  for (const auto& [effect, level] : {std::pair{4, 100}, {9, 100}, {17, 0}, {27, 30}}) {
    Bench b;
    b.addVideo("a.avi", 0, 4);
    LoadEffects(b.editing);
    b.collection.icurMov = 1;
    b.settings.state.KeyframeEffectNo = static_cast<Integer>(effect);
    AddSingleBaseKeyFrame(b.editing);
    EXPECT_EQ(b.collection.KeyframeList[1].Transparency, level) << effect;
  }
}

TEST(EffectsTable, IsWrittenAndReadToTheByte) {
  Bench b;
  auto& table = b.editor.effects;
  LoadEffects(b.editing);
  test::expectGolden("EffectParams.dat", b.files.all["/prog/EffectParams.dat"]);
  EXPECT_TRUE(b.boxes.shown.empty());
  auto chrome = *table.named("chrome");
  chrome.Control[0] = "7";
  chrome.foreColor = "None";
  EXPECT_TRUE(table.WriteEffectParamsToArray(chrome));
  chrome.name = "chrome";
  EXPECT_FALSE(table.WriteEffectParamsToArray(chrome)) << "by its very name only";
  EffectsTable again;
  ASSERT_TRUE(again.read(table.text(true)));
  EXPECT_EQ(again.text(true), table.text(true));
  EXPECT_EQ(again.named(" CHROME ")->Control[0] + again.named("CHROME")->foreColor, "7");
  int brush = -1, none = -1;
  EXPECT_TRUE(again.GetEffectIDFromName("dry brush", brush) && !again.GetEffectIDFromName("Emboss", none));
  EXPECT_EQ(lineOf(brush, none, again.slot(1)->name, again.slot(35) == nullptr), "14 0 Angled Strokes 1");
}

TEST(EffectsTable, IsRebuiltWhereTheFileCannotBeUsed) {
  const auto good = EffectsTable().text(false);
  auto tooMany = good;
  tooMany.replace(tooMany.find("0,\"Accents\""), 1, "1");
  for (const auto& [text, boxes] :
       {std::pair{std::string("junk"), 1U}, {good.substr(0, 900), 1U}, {tooMany, 2U}}) {
    Bench b;
    b.files.all["/prog/EffectParams.dat"] = text;
    LoadEffects(b.editing);
    ASSERT_EQ(b.boxes.shown.size(), boxes);
    EXPECT_EQ(b.boxes.shown.back().text, "KVOErr: IFIMGL003 - Failed to load Effects - Rebuilding");
    if (boxes == 2U) {
      EXPECT_EQ(b.boxes.shown[0].text, "KVOErr: IFIMGL004 - Too many Effects in effects palette selected");
    }
    EXPECT_EQ(b.files.all["/prog/EffectParams.dat"], good);
  }
}

TEST(EffectsTable, AWriteThatFailsIsTriedThreeTimesATenthOfASecondApart) {
  for (int failures = 0; failures <= 3; ++failures) {
    Bench b;
    b.files.failedReplaces = failures;
    LoadEffects(b.editing);
    EXPECT_EQ(b.clock.pauses, std::vector<int>(static_cast<std::size_t>(std::min(failures, 2)), 100))
        << failures;
    const auto& log = b.files.all["/prog/KVOError.Log"];
    EXPECT_EQ(holds(log, "EffectsDefaultWrite  Err -  - Aborting after 3 Attempts"), failures == 3) << log;
    EXPECT_TRUE(b.files.exists("/prog/EffectParams.dat")) << "written at the second go if not before";
  }
}

}  // namespace
}  // namespace kvo
