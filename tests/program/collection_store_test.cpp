#include "program/collection_store.h"

#include "base/text.h"
#include "support/golden.h"
#include "support/store_bench.h"

#include <map>
#include <set>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using Bench = test::StoreBench;

constexpr ReadOptions kLook{.mayRewrite = false, .keepMissingClips = true};

std::string withRow(std::string text, const std::string& key, const std::string& value) {
  const auto row = text.find("\r\n" + key + " ");
  EXPECT_NE(row, std::string::npos) << key;
  const auto at = text.find("= ", row) + 2;
  return text.replace(at, text.find("\r\n", at) - at, value);
}

// The text of a saved collection of one clip, and of what `change` adds.
std::string savedText(const std::function<void(Bench&)>& change = {}) {
  Bench b;
  b.addVideo("a.avi", 0, 5).KeyID(42);
  if (change) change(b);
  EXPECT_TRUE(b.file.WriteINI("/col", "t.INI", true));
  return b.files.all["/col/t.INI"];
}

ReadReport load(Bench& b, const std::string& text, const ReadOptions& options = {}) {
  b.files.all["/col/t.INI"] = text;
  for (const auto* there : {"/v/a.avi", "/v/b.avi", "/v/anim.avi"}) b.files.all.emplace(there, "x");
  return b.file.ReadINI("/col/t.INI", options);
}

void addOthers(Bench& b) {
  for (int i = 0; i < 2; ++i) {
    auto& animation = b.collection.AudMovieList.add({});
    animation.MovieName = "anim.avi";
    animation.Path = "/v/";
    auto& keyframe = b.collection.KeyframeList.add({});
    keyframe.FrameNo = 12 + i;
    keyframe.EffectNo = 8;
    keyframe.Param[0] = Value("0.5");
    keyframe.ClipName = 42;
  }
}

TEST(CollectionStore, WritesItsExactBytesAndReadsThemBack) {
  const auto text = savedText([](Bench& b) {
    auto& clip = b.addVideo("b.avi", 1.5, 5);
    clip.Notes(Value("a note\r\nof two lines"));
    clip.TransType("Fade");
    clip.TransIn(10);
    clip.KeyID(43);
    clip.Size("1-2");
    clip.Playspeed(25);
    clip.AudioOutputLevel(0.4F);
    clip.EffectWord("1000000000000000000000000000000000000000000000");
    clip.BorderColor(Value("&H00FF00&"));
    clip.stretchmode(2);
    b.settings.adjust().DefZoom = "75";
    b.settings.change().FadInVal = 1.25F;
    b.settings.adjust().SkinPath = "Quirl";
    addOthers(b);
  });
  test::expectGolden("collection.INI", text);
  Bench b;
  load(b, text);
  // The load counts a use and fills what is the deployment's; those rows aside the text is the same.
  auto again = b.files.all["/col/t.INI"];
  auto before = text;
  for (const auto* key : {"ProgramVersion", "ErrorLog", "Support", "ReplyTo", "TimesUsed", "JoinSaveAs",
                          "LoadFrom", "ColLoadFrom", "StillDelayTimer", "PreviewType", "GrfFileName"}) {
    again = withRow(again, key, "");
    before = withRow(before, key, "");
  }
  EXPECT_EQ(again, before);
}

TEST(CollectionStore, AMissingSectionIsToldAndGivesItsDefaults) {
  Bench b;
  b.settings.adjust().RenderHeight = 1;
  load(b, replaced(replaced(savedText(), "[EditDecisionListPrefs]", "[Other]"), "[Fonts]", "[Others]"));
  EXPECT_EQ(b.settings.preferences().RenderHeight, 320);
  EXPECT_EQ(b.settings.preferences().TextFont.text(), "Ariel");
  EXPECT_EQ(b.log.texts(), (std::vector<std::string>{"<<ERR031>> - Font Read Failure "}));
}

// As a program wrote it that did not know the later rows yet: the last collection's values stay.
TEST(CollectionStore, RowsThatASectionDoesNotHaveLeaveTheirFieldsAsTheyWere) {
  Bench b;
  load(b, withRow(withRow(savedText(), "RenderHeight", "480"), "PreviewCPU", "9"));
  auto older = savedText();
  const auto from = older.find("DubInAudioTrks");
  older.erase(from, older.find("\r\n\r\n", from) - from);
  load(b, older);
  EXPECT_EQ(b.settings.preferences().RenderHeight, 480);
  EXPECT_EQ(b.settings.preferences().PreviewCPU, 5) << "the section's rows that are there are taken";
}

TEST(CollectionStore, ClipRowsHaveTheirOwnRules) {
  const auto text = savedText();
  using Row = std::tuple<const char*, std::string, std::string>;
  for (const auto& [key, value, becomes] :
       {Row{"AltName", "False", " |False|1|0|/v/"}, Row{"AltName", std::string(128, 'n'), " |False|1|0|/v/"},
        Row{"PlaySpeed", "999", "|True|1|0|/v/"}, Row{"OutputLevel", "5.5", "|False|1|0|/v/"},
        Row{"OutputLevel", "5", "|False|5|0|/v/"}, Row{"BlurInt", "40000", "|False|1|0|/v/"},
        Row{"Path", "CURRDIR", "|False|1|0|/prog/"}}) {
    Bench b;
    load(b, withRow(text, key, value), kLook);
    ASSERT_EQ(b.collection.MovieList.count(), 1) << key;
    const auto& clip = b.clip(1);
    const auto is = clip.AltName() + "|" + fieldText(clip.IsExtendedCD()) + "|" +
                    fieldText(clip.AudioOutputLevel()) + "|" + fieldText(clip.BlurInt()) + "|" + clip.Path();
    EXPECT_EQ(is, becomes) << key << value;
  }
}

// No row of a clip says that it is one.
TEST(CollectionStore, AStreamIsKnownAgain) {
  const auto text = savedText();
  for (const auto& [name, bytes, isStream] : {std::tuple{"http://h/a.wmv", "", true},
                                              {"live.asx", "<ref href=\"http://h/a\">", true},
                                              {"live.asx", "words", false}}) {
    Bench b;
    b.files.all[std::string("/v/") + name] = bytes;
    load(b, withRow(text, "MovieName", name), kLook);
    ASSERT_EQ(b.collection.MovieList.count(), 1) << name;
    EXPECT_EQ(b.clip(1).IsStream(), isStream) << name << bytes;
  }
}

TEST(CollectionStore, AClipWithoutAKeyGetsOneThatNoOtherHas) {
  const Long clock = 14 * 3600 + 5 * 60 + 9;
  const auto text = savedText([&](Bench& b) {
    for (const Long key : {Long{0}, clock, Long{0}, clock + 1, Long{5}}) b.addVideo("a.avi", 0, 5).KeyID(key);
    b.settings.adjust().KeyframeCount = 1;
    b.collection.KeyframeList.add({}).ClipName = clock + 2;
  });
  Bench b;
  load(b, text, kLook);
  std::vector<Long> keys;
  for (int i = 1; i <= b.collection.MovieList.count(); ++i) keys.push_back(b.clip(i).KeyID());
  EXPECT_EQ(keys, (std::vector<Long>{42, clock + 3, clock, clock + 4, clock + 1, 5}));
}

// In a collection that is open, and as the file that the program cannot do without.
TEST(CollectionStore, WhatCannotBeReadIsRefusedAndTakesNothingAway) {
  auto tooMany = withRow(savedText(), "MoviesInGroup", "32768");
  for (int i = 2; i <= 32768; ++i) tooMany += "[Movie" + std::to_string(i) + "Main]\r\nMovieName = a\r\n\r\n";
  const std::tuple<std::string, ReadEnd, const char*, const char*> rows[] = {
      {"hello\r\n", ReadEnd::NotReadable, "is not a collection", "Error 6"},
      {"[KVO]\r\na=1\r\nb=1\r\nc=1\r\nd=1\r\ne=1\r\n", ReadEnd::NotValid, "is not a collection", "Error 8"},
      {tooMany, ReadEnd::TooManyClips, "32767", "32767"},
  };
  for (const auto& [text, end, why, box] : rows) {
    Bench b;
    b.addVideo("open.avi", 0, 5);
    const auto report = load(b, text, {.isNeeded = false});
    EXPECT_EQ(report.end, end);
    EXPECT_TRUE(test::holds(report.why, why)) << report.why;
    EXPECT_EQ(b.collection.MovieList.count(), 1) << why;
    EXPECT_EQ(b.boxes.told(), "");
    EXPECT_EQ(load(b, text).end, end);
    EXPECT_TRUE(b.boxes.shown.size() == 1 && test::holds(b.boxes.shown[0].text, box)) << b.boxes.told();
    EXPECT_EQ(b.files.all["/col/t.INI"], text);
  }
  Bench full;
  for (int i = 0; i <= kMaxClips; ++i) full.collection.MovieList.add({});
  EXPECT_FALSE(full.file.WriteINI("/col", "t.INI", false));
  EXPECT_FALSE(full.files.exists("/col/t.INI"));
}

TEST(CollectionStore, WhatTheDiskDoesNotGiveBackIsSetAsideWhereAFreshOneCanTakeItsPlace) {
  for (const bool writable : {true, false}) {
    Bench b;
    b.files.all["/col/t.INI"] = "what the disk does not give back";
    b.files.unreadable.insert("/col/t.INI");
    for (const auto& looks : {kLook, ReadOptions{.isNeeded = false}}) {
      EXPECT_EQ(b.file.ReadINI("/col/t.INI", looks).end, ReadEnd::NotReadable);
      EXPECT_FALSE(b.files.all.contains("/col/t.INI.old"));
    }
    b.files.failedReplaces = writable ? 0 : 1;
    EXPECT_EQ(b.file.ReadINI("/col/t.INI").end, writable ? ReadEnd::Done : ReadEnd::NotReadable);
    EXPECT_EQ(b.files.all[writable ? "/col/t.INI.old" : "/col/t.INI"], "what the disk does not give back");
    EXPECT_EQ(b.file.IsValidCollection("/col/t.INI"), writable);
    EXPECT_EQ(b.settings.preferences().DisplayColor, "9079296");
  }
}

TEST(CollectionStore, ALineInAnotherEncodingSpoilsNoOther) {
  const auto text = savedText([](Bench& b) {
    b.clip(1).Notes(Value("\xC3\xBC"));
    b.addVideo("inv\xFF.avi", 0, 5, "/d\xE9/");
    auto& overlaid = b.addVideo("\xE6\x97\xA5.avi", 0, 5);
    overlaid.SrcPath("/s\xFE/");
    overlaid.SrcName("over\xFE.avi");
  });
  Bench b;
  b.files.put({"/d\xE9/inv\xFF.avi", "/v/\xE6\x97\xA5.avi", "/s\xFE/over\xFE.avi"});
  load(b, withRow(text, "AltName", "caf\xE9"));
  EXPECT_TRUE(b.boxes.shown.empty()) << b.boxes.shown[0].text;
  const auto& clips = b.collection.MovieList;
  ASSERT_EQ(clips.count(), 3);
  EXPECT_EQ(clips[1].Notes().text() + clips[1].AltName(),
            "\xC3\xBC"
            "caf\xC3\xA9");
  EXPECT_EQ(clips[2].Path() + clips[2].MovieName(), "/d\xE9/inv\xFF.avi");
  EXPECT_EQ(clips[3].MovieName(), "\xE6\x97\xA5.avi");
  EXPECT_EQ(clips[3].SrcPath() + clips[3].SrcName(), "/s\xFE/over\xFE.avi");
}

// Or else a box says so, and the file before is kept.
TEST(CollectionStore, TextsComeBackAsTheyWereSaved) {
  using Texts = std::tuple<std::string, std::string, std::string>;  // folder, name and note
  std::vector<Texts> rows{
      {"/v/[clips], y/", "[a] clip, [b]", ""},
      {"/v/", " blank at both ends ", ""},
      {"/v/", "\"quoted\", and not.avi", ""},
      {"/" + std::string(120, 'd') + "\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC/", "a.avi", ""}};
  const std::set<std::string> lossy{"two\r\nlines", "see [here]", "say \"a\", \"b\"", "My Audio]"};
  for (const auto& note : lossy) rows.emplace_back("/v/", "a.avi", note);
  for (const auto* note : {"before, behind", "[Movie1Audio] is the v1.0 heading, [so] it is",
                           "say \"a\" twice", "Balance, Size, IsStill"})
    rows.emplace_back("/v/", "a.avi", note);
  for (const auto& [folder, name, note] : rows) {
    const bool comesBack = !lossy.contains(note);
    Bench b;
    auto& clip = b.addVideo(name, 0, 5, folder);
    clip.Notes(Value(note));
    clip.SrcPath(folder);
    clip.SrcName(name);
    b.files.all["/col/t.INI"] = "what stood there";
    b.files.all["/col/t.INI.old"] = "an older one";
    EXPECT_TRUE(b.file.WriteINI("/col", "t.INI", false));
    EXPECT_EQ(b.boxes.shown.size(), comesBack ? 0U : 1U) << name << note;
    EXPECT_EQ(b.files.all["/col/t.INI.old"] + b.files.all["/col/t.INI.old2"],
              comesBack ? "an older one" : "an older onewhat stood there");
    Bench again;
    again.files.all[folder + name] = "x";
    load(again, b.files.all["/col/t.INI"], kLook);
    ASSERT_EQ(again.collection.MovieList.count(), 1) << name;
    const auto& read = again.clip(1);
    EXPECT_EQ(read.Path() + read.MovieName() + read.SrcPath() + read.SrcName(),
              folder + name + folder + name);
    EXPECT_EQ(read.Notes().text() == note, comesBack) << note;
    EXPECT_TRUE(read.RenderAudio()) << "only the note suffers from " << note;
  }
}

TEST(CollectionStore, AFileIsFoundByWhatIsCarriedOfItsName) {
  const std::string names[] = {"line\nend\r\n.avi", "cr\rin it.avi", "\"a\", [Movie1Audio].avi"};
  Bench b;
  Bench again;
  for (const auto& name : names) {
    b.addVideo(name, 0, 5);
    again.files.all["/v/" + name] = again.files.all["/v/deep/" + name] = "x";
  }
  b.addVideo("it's gone.avi", 0, 5);
  const std::string folders[] = {"/v/two\nlines/", "/v/two\nlines/in \"it\"/"};
  for (const auto& folder : folders) {
    b.addVideo("a.avi", 0, 5).Path(folder);
    again.files.all[folder + "a.avi"] = "x";
  }
  b.addVideo("a.avi", 0, 5).Path("/v/is gone/");
  EXPECT_TRUE(b.file.WriteINI("/col", "t.INI", true));
  load(again, b.files.all["/col/t.INI"], kLook);
  ASSERT_EQ(again.collection.MovieList.count(), 7);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(clipFile(again.clip(i)), "/v/" + names[i - 1]);
  for (int i = 5; i <= 6; ++i) EXPECT_EQ(again.clip(i).Path(), folders[i - 5]);
  EXPECT_EQ(again.clip(7).Path(), "/v/is gone/");
}

TEST(CollectionStore, ALossyLoadKeepsACopyEachTime) {
  const auto text = savedText([](Bench& b) {
    b.addVideo("b.avi", 0, 1);
    addOthers(b);
  });
  std::map<std::string, std::string> texts{{"", text}};  // by what is damaged
  using Change = std::pair<const char*, const char*>;
  for (const auto& [key, value] :
       {Change{"MoviesInGroup", "two"}, Change{"MoviesInGroup", "1"}, Change{"MoviesInGroup", "70000"},
        Change{"MoviesInGroup", "3"}, Change{"Keyframes", "10001"}, Change{"FrameNo", "-1"},
        Change{"Notes", "see [here]"}, Change{"Notes", "before, behind"}, Change{"MovieName", ""}})
    texts[std::string(key) + value] = withRow(text, key, value);
  for (const auto& [part, instead] :
       {Change{"= anim.avi", "= gone.avi"}, Change{"[AudMovie1]", "[AudMovie3]"},
        Change{"[Movie2Main]", "[Movie3Main]"}, Change{"[EditDecisionListPrefs]", "[Other]"},
        Change{"= b.avi", "= gone.avi"}})
    texts[part] = replaced(text, part, instead);
  for (const auto& [what, damaged] : texts) {
    const bool lossy = damaged != text;
    EXPECT_EQ(lossy, !what.empty()) << what << " stands in the text";
    Bench b;
    load(b, damaged);
    EXPECT_EQ(b.files.all["/col/t.INI.old"], lossy ? damaged : "") << what;
    EXPECT_NE(b.files.all["/col/t.INI"], damaged) << what;
    // A second file of that name that loses something does not take the place of the first copy.
    const auto other = withRow(damaged, "DefZoom", "31");
    load(b, other);
    EXPECT_EQ(b.files.all["/col/t.INI.old2"], lossy ? other : "") << what;
  }
}

TEST(CollectionStore, AMissingClipIsAskedAbout) {
  const auto text = savedText([](Bench& b) { b.addVideo("gone.avi", 0, 1); });
  for (const auto answer : {Answer::No, Answer::Cancel}) {
    Bench b;
    b.boxes.answers = {answer};
    const auto report = load(b, text);
    EXPECT_EQ(report.end, answer == Answer::No ? ReadEnd::Done : ReadEnd::Cancelled);
    ASSERT_EQ(b.boxes.shown.size(), 1U);
    EXPECT_EQ(b.collection.MovieList.count(), 1);
    EXPECT_EQ(b.files.all["/col/t.INI"] == text, answer == Answer::Cancel);
  }
  Bench look;
  load(look, text, kLook);
  EXPECT_EQ(look.collection.MovieList.count(), 2);
  EXPECT_TRUE(look.boxes.shown.empty());
  const auto twoGone = savedText([](Bench& b) {
    b.addVideo("gone.avi", 0, 1);
    b.addVideo("gone too.avi", 0, 1);
  });
  Bench kept;
  kept.boxes.answers = {defaultAnswer(BoxButtons::YesNoCancel)};  // Enter loses nothing
  EXPECT_EQ(load(kept, twoGone).missingFiles.size(), 2U);
  EXPECT_EQ(kept.collection.MovieList.count(), 3) << "to be found elsewhere";
  EXPECT_EQ(kept.boxes.shown.size(), 1U);
}

TEST(CollectionStore, APortableCollectionMovesWithItsFiles) {
  Bench b;
  b.addVideo("in.avi", 0, 1, "/col/sub/");
  b.addVideo("out.avi", 0, 1).SrcPath("/col/");
  ASSERT_TRUE(b.file.WriteINI("/col", "plain.INI", true));
  b.collection.isPortable = true;
  ASSERT_TRUE(b.file.WriteINI("/col", "t.INI", true));
  const auto text = b.files.all["/col/t.INI"];
  EXPECT_NE(text.find("Path            = ./sub/\r\n"), std::string::npos);
  EXPECT_EQ(b.clip(1).Path(), "/col/sub/");

  Bench moved;
  moved.files.put({"/new place/sub/in.avi", "/v/out.avi"});
  moved.files.all["/new place/t.INI"] = text;
  EXPECT_EQ(moved.file.ReadINI("/new place/t.INI").end, ReadEnd::Done);
  ASSERT_EQ(moved.collection.MovieList.count(), 2);
  EXPECT_EQ(clipFile(moved.clip(1)), "/new place/sub/in.avi");
  EXPECT_EQ(moved.clip(2).Path() + moved.clip(2).SrcPath(), "/v//new place/");
  EXPECT_TRUE(moved.collection.isPortable) << "and stays so";

  Bench plain;
  plain.files.all = b.files.all;
  EXPECT_EQ(plain.file.ReadINI("/col/plain.INI").end, ReadEnd::Done);
  EXPECT_FALSE(plain.collection.isPortable);
}

TEST(CollectionStore, ASaveThatFailsAtAnyCallLeavesTheOldFile) {
  Bench b;
  for (int i = 0; i < 300; ++i) b.addVideo("clip.avi", 0, 1);
  b.files.all["/col/t.INI"] = "old";
  bool saved = false;
  int failures = 0;
  for (int n = 1; !saved; ++n) {
    b.files.calls = 0;
    b.files.failAt = n;
    b.settings.state.IsDirty = true;
    saved = b.file.WriteINI("/col", "t.INI", true);
    if (saved) break;
    ++failures;
    EXPECT_EQ(b.files.all["/col/t.INI"], "old") << n;
    EXPECT_TRUE(b.settings.state.IsDirty);
    EXPECT_EQ(b.boxes.shown.back().caption, "KVO V5 - Error");
    EXPECT_NE(b.log.texts().back().find("<<ERR040>> - General WriteINI Failure - Sect="), std::string::npos);
  }
  EXPECT_GE(failures, 3);
  EXPECT_FALSE(b.settings.state.IsDirty);
}

}  // namespace
}  // namespace kvo
