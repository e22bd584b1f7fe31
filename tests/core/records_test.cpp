// The records of clips, the rows of the settings, and the sections of files that hold both.
#include "core/file/section_reader.h"
#include "core/records/movie.h"
#include "core/records/setting_rows.h"
#include "support/fakes.h"

#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

std::string sampleOf(SettingKind kind) {
  if (kind == SettingKind::Boolean || kind == SettingKind::Flag) return "True";
  if (kind == SettingKind::Integer || kind == SettingKind::Long) return "3";
  return kind == SettingKind::Single || kind == SettingKind::Double ? "2.5" : "a text";
}

const SettingRow* settingRow(std::string_view name) {
  for (const auto& section : settingSections()) {
    const auto found = std::ranges::find(section.rows, name, &SettingRow::name);
    if (found != section.rows.end()) return &*found;
  }
  return nullptr;
}

TEST(SettingRows, EachFieldConvertsBothWaysAndMarksAsItShould) {
  std::set<std::string_view> names;
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      EXPECT_TRUE(names.insert(row.name).second || row.name == "ShowVids") << row.name;
      KVO2 s;
      const auto sample = sampleOf(row.kind);
      EXPECT_TRUE(row.take(s, sample)) << row.name;
      EXPECT_EQ(row.text(s), sample) << row.name;
      EXPECT_EQ(s.state.IsDirty, row.marks || row.name == "IsDirty") << row.name;
      EXPECT_EQ(row.take(s, "no number"), sample == "a text") << row.name;
      EXPECT_EQ(row.kept == Kept::Collection, !row.key.empty() && row.kept != Kept::User) << row.name;
    }
  }
  EXPECT_TRUE(settingRow("OutPutFrameRate")->marks && !settingRow("RenderHeight")->marks);
}

struct AnyField {
  template <class Type>
  operator Type() const;  // NOLINT(google-explicit-constructor): a field of any type
};

// How many values make a Struct, which has no base.
template <class Struct, class... Fields>
consteval std::size_t fieldsOf() {
  if constexpr (requires { Struct{Fields()..., AnyField()}; }) {
    return fieldsOf<Struct, Fields..., AnyField>();
  } else {
    return sizeof...(Fields);
  }
}

// The user's values, which are no plain struct, are together as large as their rows tell.
TEST(SettingRows, NoFieldIsWithout) {
  std::size_t bytes = sizeof(UserStore*);
  std::set<std::string_view> marking, quiet, state;
  for (const auto& section : settingSections()) {
    for (const auto& row : section.rows) {
      if (row.kept != Kept::User) {
        (row.marks ? marking : row.kept == Kept::Collection ? quiet : state).insert(row.name);
        continue;
      }
      bytes += row.kind == SettingKind::Boolean   ? sizeof(UserValue<Boolean>)
               : row.kind == SettingKind::Integer ? sizeof(UserValue<Integer>)
                                                  : sizeof(UserValue<double>);
    }
  }
  EXPECT_EQ(bytes, sizeof(UserValues));
  EXPECT_EQ(marking.size(), fieldsOf<MarkingPreferences>());
  EXPECT_EQ(quiet.size(), fieldsOf<QuietPreferences>());
  EXPECT_EQ(state.size(), fieldsOf<RunState>());
}

TEST(SettingRows, TextsBecomeValuesByTheRuleOfTheirRow) {
  const auto chars = [](std::size_t count) { return std::string(count, 'e'); };
  using Row = std::tuple<const char*, std::string, std::string>;  // a text, and what it becomes
  const auto expectRead = [](const Row& reading, bool rewrites) {
    const auto& [name, text, becomes] = reading;
    const auto* row = settingRow(name);
    ASSERT_NE(row, nullptr) << name;
    KVO2 s;
    const ProgramFolder folder("/prog");
    SettingRead read{s, folder};
    readSetting(*row, read, text);
    EXPECT_EQ(row->text(s), becomes) << name << " " << text;
    EXPECT_EQ(read.rewrite, rewrites) << name << " " << text;
  };
  for (const auto& row :
       {Row{"OutputColorDepth", "32", "32"}, Row{"DirectXPrebuffer", "1023", "1023"},
        Row{"MoviesInGroup", "-70000", "-1"}, Row{"WheelTripPlay", "70000", "7"},
        Row{"RenderHeight", "x", "320"}, Row{"DefaultStartupVid", "NO DEFAULT", ""},
        Row{"DefaultStartupVid", chars(128), ""}, Row{"RunMode", "x", "CREATOR"},
        Row{"AcceptedAgreement", "False", "True"}, Row{"GrfFileName", "a\\\\b.grf", "a\\b.grf"},
        Row{"GrfFileName", "", "/prog/KVORender.grf"}, Row{"LoadFrom", "/./x/", "/x/"},
        Row{"Email", chars(127), chars(127)}, Row{"Email", chars(129), chars(129)}})
    expectRead(row, false);
  // clang-format off
  for (const auto& row :
      {Row{"OutputColorDepth", "15", "24"}, Row{"OutputColorDepth", "65552", "24"},
       Row{"PreviewType", "0", "5"}, Row{"PreviewType", "11", "10"}, Row{"PreviewType", "x", "10"},
       Row{"PreviewType", "65546", "10"}, Row{"PreviewType", "-70000", "5"}, Row{"FadInVal", "0", "0.2"},
       Row{"FadInVal", "-1E+60", "0.2"}, Row{"FadInVal", "x", "3"}, Row{"MouseWheelControl", "1", "2"},
       Row{"DirectXPrebuffer", "1024", "30"}, Row{"DirectXPrebuffer", "0", "30"},
       Row{"KeyframeCount", "10001", "0"}, Row{"KeyframeCount", "-1", "0"},
       Row{"KeyframeCount", "3000000000", "0"}, Row{"MoviesInGroup", "two", "-1"},
       Row{"MuteAtStart", "yes", "False"}, Row{"RunMode", "NOT RUN", "CREATOR"}, Row{"NoofUses", "7", "8"},
       Row{"NoofUses", "x", "1"}, Row{"ErrorLog", "", "/prog/KVOError.Log"},
       Row{"Email", chars(128), "Unknown"}})
    expectRead(row, true);
  // clang-format on
}

TEST(SettingRows, AMissingSectionGivesWhatAFreshObjectHoldsButForThese) {
  const std::map<std::string_view, std::string_view> others = {{"LoopPreviews", "True"},
                                                               {"SliderPauseOnRepo", "True"},
                                                               {"LoopCol", "as it was"},
                                                               {"ShowVids", "as it was"},
                                                               {"StillsIndividual", "as it was"},
                                                               {"GrfFileName", "/prog/KVORender.grf"},
                                                               {"StillSavePath", "/prog/ExtractedFrames"}};
  const KVO2 fresh;
  const ProgramFolder folder("/prog");
  for (const auto& section : headSections().last(2)) {
    KVO2 s;
    for (const auto& row : section.rows) row.take(s, sampleOf(row.kind));
    SettingRead read{s, folder};
    readWithoutSection(section, read);
    EXPECT_TRUE(read.rewrite);
    for (const auto& row : section.rows) {
      const auto other = others.find(row.name);
      const auto becomes = other == others.end()          ? row.text(fresh)
                           : other->second == "as it was" ? sampleOf(row.kind)
                                                          : std::string(other->second);
      EXPECT_EQ(row.text(s), becomes) << row.name;
    }
  }
}

TEST(Movie, OnlyACutClearsTheExtraParameters) {
  for (const std::string name : {"cut", "CUT", "", "  ", "Blinds"}) {
    Movie clip;
    clip.ExtraParamName1("bands");
    clip.ExtraParamValue2("Left");
    clip.TransType(name);
    EXPECT_EQ(clip.ExtraParamName1() + clip.ExtraParamValue2(), name == "Blinds" ? "bandsLeft" : "") << name;
  }
}

TEST(Movie, SettersMarkTheRecordOnlyWhereTheyShould) {
  Movie clip;
  clip.MovieName("a");
  clip.Path("/");
  clip.AltName("b");
  clip.XPos(3);
  clip.Orderinplaylist(2);
  clip.Size("-12-3");
  clip.HasAudio(true);
  EXPECT_FALSE(clip.IsDirty());
  EXPECT_EQ(clip.Size(), "123");
  clip.Volume(7);
  EXPECT_TRUE(clip.IsDirty());
}

TEST(Movie, WithoutSoundNothingIsRendered) {
  Movie clip;
  clip.RenderAudio(true);
  EXPECT_TRUE(clip.RenderAudio() && !clip.HasAudio());
  EXPECT_FALSE(clip.RenderAudio()) << "once that is known";
}

TEST(Movie, FramesFollowTheSecondsWhereDurationsAreNumbers) {
  Movie clip;
  clip.DurationFrames(Value("250"));
  clip.DurationTime(Value("10"));
  clip.LoopStart(Value("2.5"));
  EXPECT_EQ(clip.LoopStartFrames(), 62) << "62.5 to the even neighbour";
  for (const auto& [duration, end, frames] :
       {std::tuple{"10", "N/A", 250}, {"10", "4", 100}, {"N/A", "6", 100}}) {
    clip.DurationTime(Value(duration));
    clip.LoopEnd(Value(end));
    EXPECT_EQ(clip.LoopEndFrames(), frames) << end;
    EXPECT_EQ(clip.LoopEnd().text(), end);
  }
}

TEST(Movie, PostsChangeCodesByTheirConditions) {
  KVO2 settings;
  ChangePoster poster(settings);
  Movie clip;
  clip.listener(&poster);
  const std::tuple<Integer, void (*)(Movie&), Integer> rows[] = {
      {0, [](Movie& m) { m.LoopStart(Value(1)); }, 1},   {95, [](Movie& m) { m.LoopStart(Value(1)); }, 1},
      {96, [](Movie& m) { m.LoopStart(Value(1)); }, 96}, {0, [](Movie& m) { m.LoopEnd(Value(1)); }, 1},
      {95, [](Movie& m) { m.LoopEnd(Value(1)); }, 95},   {1, [](Movie& m) { m.LoopEndFrames(5); }, 96},
      {99, [](Movie& m) { m.LoopStartFrames(5); }, 99},  {1, [](Movie& m) { m.AudioOutputLevel(1); }, 1},
      {95, [](Movie& m) { m.AudioOutputLevel(1); }, 95},
  };
  for (const auto& [before, set, after] : rows) {
    settings.state.ObjectChange = before;
    set(clip);
    EXPECT_EQ(settings.state.ObjectChange, after) << before;
  }
}

std::string rowsOf(SectionReader& reader, const char* name, int keepOpen = 0) {
  std::vector<SectionRow> rows(1);  // left of another section
  std::string out;
  if (!reader.GetSection(name, rows, keepOpen)) return "none";
  for (const auto& row : rows) out.append(row.key).append("|").append(row.value).append(";");
  return out;
}

TEST(SectionReader, FollowsTheItemRule) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [text, read] :
       {Row{"[A]\r\nk = v\r\nl=w x \r\n\r\nm = z\r\n", "k|v;l|w x;"},
        Row{"[A]\nk = v, and more\nl = w\n", "k|v;l|w;"}, Row{"[A]\r\nk = v,,x\r\nl = w\r\n", "k|v;l|w;"},
        Row{"[A]\r\n\"k = v, with comma\"\r\nl = w", "k|v, with comma;l|w;"},
        Row{"[A]\r\nk = see [here]\r\nl = w\r\n", "none"},
        Row{"[A]\r\nj = 1\r\nk = see [here.]\r\nl = w\r\n", "j|1;k|see [here.];l|w;"},
        Row{"[A]\r\n= nothing before\r\nno equals\r\nk = a=b\r\n", "k|a=b;"}, Row{"[B]\r\nk = v\r\n", "none"},
        Row{"[A]\r\n\r\nk = v\r\n", "none"}, Row{"", "none"}}) {
    SectionReader reader(text);
    EXPECT_EQ(rowsOf(reader, "A"), read) << text;
  }
}

TEST(SectionReader, KeepsItsPlaceAndStopsAtKnownLastRows) {
  SectionReader reader(
      "[M1Main]\r\nNotes = [odd]\r\nlost = 1\r\n\r\n[M1Audio]\r\nVolume = 1\r\nBalance = 2\r\n"
      "HasAudioFade= x\r\n\r\n[M2Main]\r\na = 1\r\n[M2Audio]\r\nVolume = 3\r\n");
  EXPECT_EQ(rowsOf(reader, "M1Main", 1), "none");
  EXPECT_EQ(rowsOf(reader, "M1Audio", 1), "Volume|1;Balance|2;");
  EXPECT_EQ(rowsOf(reader, "M2Main", 2), "a|1;");
  EXPECT_EQ(rowsOf(reader, "M2Audio", 2), "Volume|3;") << "a heading that ended a section is still found";
  EXPECT_EQ(rowsOf(reader, "M1Main", 2), "none") << "never backwards";
  EXPECT_NE(rowsOf(reader, "M1Audio", 0), "none") << "from the top again";
}

}  // namespace
}  // namespace kvo
