#include "program/collection_store.h"

#include "support/golden.h"
#include "support/store_bench.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using Bench = test::StoreBench;

std::string withRow(std::string text, const std::string& key, const std::string& value) {
  const auto at = text.find(key);
  EXPECT_NE(at, std::string::npos) << key;
  const auto end = text.find("\r\n", at);
  return text.replace(at + key.size(), end - at - key.size(), value);
}

// The text of a saved collection of one clip.
std::string savedText(const std::function<void(Bench&)>& change = {}) {
  Bench b;
  auto& clip = b.addVideo("a.avi", 0, 5);
  clip.KeyID(42);
  if (change) change(b);
  EXPECT_TRUE(b.file.WriteINI("/col", "t.INI", true));
  return b.files.all["/col/t.INI"];
}

Bench& load(Bench& b, const std::string& text, const ReadOptions& options = {}) {
  b.files.all["/col/t.INI"] = text;
  b.files.all.emplace("/v/a.avi", "x");
  b.file.ReadINI("/col/t.INI", options);
  return b;
}

TEST(CollectionStore, WritesItsExactBytes) {
  Bench b;
  auto& clip = b.addVideo("a.avi", 1.5, 5);
  clip.Notes(Value("a note\r\nof two lines"));
  clip.TransType("Fade");
  clip.TransIn(10);
  clip.KeyID(42);
  clip.Size("1-2");
  AudMovies animation;
  animation.MovieName = "anim.avi";
  animation.Path = "/v/";
  b.collection.AudMovieList.add(animation);
  Keyframe keyframe;
  keyframe.FrameNo = 12;
  keyframe.EffectNo = 8;
  keyframe.Param[0] = Value("0.5");
  keyframe.ClipName = 42;
  b.collection.KeyframeList.add(keyframe);
  ASSERT_TRUE(b.file.WriteINI("/col", "t.INI", true));
  test::expectGolden("collection.INI", b.files.all["/col/t.INI"]);
}

TEST(CollectionStore, WhatIsWrittenReadsBackTheSame) {
  const auto text = savedText([](Bench& b) {
    auto& clip = b.addVideo("b c.avi", 0.25, 3);
    clip.KeyID(43);
    clip.Playspeed(25);
    clip.AudioOutputLevel(0.4F);
    clip.EffectWord("1000000000000000000000000000000000000000000000");
    clip.BorderColor(Value("&H00FF00&"));
    clip.stretchmode(2);
    b.settings.adjust().DefZoom = "75";
    b.settings.change().FadInVal = 1.25F;
    b.settings.adjust().SkinPath = "Quirl";
  });
  Bench b;
  b.files.all["/v/b c.avi"] = "x";
  load(b, text);
  ASSERT_EQ(b.collection.MovieList.count(), 2);
  // The load counts a use and fills what is the deployment's; those rows aside the text is the same.
  auto again = b.files.all["/col/t.INI"];
  auto before = text;
  for (const auto* key : {"ProgramVersion       = ", "ErrorLog             = ", "Support              = ",
                          "ReplyTo              = ", "TimesUsed            = ", "JoinSaveAs            = ",
                          "LoadFrom             = ", "ColLoadFrom          = ", "StillDelayTimer      = ",
                          "PreviewType          = ", "GrfFileName          = "}) {
    again = withRow(again, key, "");
    before = withRow(before, key, "");
  }
  EXPECT_EQ(again, before);
}

TEST(CollectionStore, TheHeadIsReadByItsRowsAndMissingSectionsByTheirs) {
  auto text = savedText([](Bench& b) { b.settings.adjust().RenderHeight = 99; });
  text = withRow(withRow(text, "SliderPauseOnRepo    = ", "True"), "MouseWheelControl    = ", "1");
  Bench whole;
  load(whole, text);
  EXPECT_EQ(whole.settings.preferences().RenderHeight, 99);
  EXPECT_EQ(whole.settings.preferences().MouseWheelControl, 2);
  EXPECT_FALSE(whole.settings.user.SliderPauseOnRepo) << "the file only mirrors what is the user's";
  EXPECT_TRUE(whole.log.texts().empty());

  for (const auto& [from, to] :
       {std::pair{"[EditDecisionListPrefs]", "[Movie1Main]"}, std::pair{"[Fonts]", "[Directories]"}}) {
    const auto at = text.find(from);
    text.erase(at, text.find(to) - at);
  }
  Bench b;
  b.settings.adjust().RenderHeight = 1;
  load(b, text);
  EXPECT_EQ(b.settings.preferences().RenderHeight, 320);
  EXPECT_EQ(b.settings.preferences().TextFont.text(), "Ariel");
  EXPECT_EQ(b.log.texts(), (std::vector<std::string>{"<<ERR031>> - Font Read Failure "}));
  EXPECT_EQ(b.boxes.shown.size(), 1U);
}

TEST(CollectionStore, ClipRowsHaveTheirOwnRules) {
  const auto text = savedText();
  struct Row {
    const char* key;
    std::string value;
    std::string (*read)(const Movie&);
    std::string becomes;
  };
  const Row rows[] = {
      {"Notes           = ", "before, behind", [](const Movie& m) { return m.Notes().text(); }, "before"},
      {"AltName         = ", "False", [](const Movie& m) { return m.AltName(); }, " "},
      {"AltName         = ", std::string(128, 'n'), [](const Movie& m) { return m.AltName(); }, " "},
      {"KeyID          = ", "0", [](const Movie& m) { return fieldText(m.KeyID()); }, "50709"},
      {"PlaySpeed       = ", "999", [](const Movie& m) { return fieldText(m.IsExtendedCD()); }, "True"},
      {"OutputLevel = ", "5.5", [](const Movie& m) { return fieldText(m.AudioOutputLevel()); }, "1"},
      {"OutputLevel = ", "x", [](const Movie& m) { return fieldText(m.AudioOutputLevel()); }, "1"},
      {"OutputLevel = ", "5", [](const Movie& m) { return fieldText(m.AudioOutputLevel()); }, "5"},
      {"BlurInt         = ", "40000", [](const Movie& m) { return fieldText(m.BlurInt()); }, "0"},
      {"Corona         = ", "-1", [](const Movie& m) { return fieldText(m.IsCorona()); }, "True"},
  };
  for (const auto& row : rows) {
    Bench b;
    load(b, withRow(text, row.key, row.value));
    ASSERT_EQ(b.collection.MovieList.count(), 1) << row.key;
    EXPECT_EQ(row.read(b.collection.MovieList[1]), row.becomes) << row.key << row.value;
    EXPECT_FALSE(b.collection.MovieList[1].KeyID() == 0);
  }
}

TEST(CollectionStore, MoreClipsThanTheHeadCanCountAreRefusedInWords) {
  constexpr int kClips = 32768;
  auto text = savedText([](Bench& b) { b.collection.MovieList.clear(); });
  for (int i = 1; i <= kClips; ++i) {
    text += "[Movie" + std::to_string(i) + "Main]\r\nMovieName = a.avi\r\nPath = /v/\r\n\r\n\r\n";
  }
  text = withRow(text, "MoviesInGroup        = ", std::to_string(kClips));
  Bench b;
  load(b, text);
  ASSERT_FALSE(b.boxes.shown.empty());
  EXPECT_NE(b.boxes.shown[0].text.find("32767"), std::string::npos) << b.boxes.shown[0].text;
  EXPECT_EQ(b.files.all["/col/t.INI"], text);

  Bench full;
  for (int i = 0; i < kClips; ++i) full.collection.MovieList.add({});
  EXPECT_FALSE(full.file.WriteINI("/col", "t.INI", false));
  EXPECT_FALSE(full.files.exists("/col/t.INI"));
  ASSERT_FALSE(full.boxes.shown.empty());
  EXPECT_NE(full.boxes.shown[0].text.find("32767"), std::string::npos) << full.boxes.shown[0].text;
}

TEST(CollectionStore, ALineInAnotherEncodingSpoilsNoOther) {
  const auto text = savedText([](Bench& b) {
    b.collection.MovieList[1].Notes(Value("\xC3\xBC"));
    b.addVideo("inv\xFF.avi", 0, 5, "/d\xE9/");
    b.addVideo("\xE6\x97\xA5.avi", 0, 5);
    b.collection.MovieList[3].SrcPath("/s\xFE/");
    b.collection.MovieList[3].SrcName("over\xFE.avi");
  });
  Bench b;
  for (const auto* there : {"/d\xE9/inv\xFF.avi", "/v/\xE6\x97\xA5.avi", "/s\xFE/over\xFE.avi"}) {
    b.files.all[there] = "x";
  }
  load(b, withRow(text, "AltName         = ", "caf\xE9"));
  EXPECT_TRUE(b.boxes.shown.empty()) << b.boxes.shown[0].text;
  ASSERT_EQ(b.collection.MovieList.count(), 3);
  const auto& clips = b.collection.MovieList;
  EXPECT_EQ(clips[1].Notes().text(), "\xC3\xBC");
  EXPECT_EQ(clips[1].AltName(), "caf\xC3\xA9");
  EXPECT_EQ(clips[2].Path() + clips[2].MovieName(), "/d\xE9/inv\xFF.avi");
  EXPECT_EQ(clips[3].MovieName(), "\xE6\x97\xA5.avi");
  EXPECT_EQ(clips[3].SrcPath() + clips[3].SrcName(), "/s\xFE/over\xFE.avi");
}

TEST(CollectionStore, TextsComeBackAsTheyWereSaved) {
  struct Row {
    std::string folder, name, note;
  };
  const Row rows[] = {
      {"/v/", "a.avi", "before, behind"},
      {"/v/", "a.avi", ",,"},
      {"/v/", "a.avi", "[Movie1Audio] is the v1.0 heading, [so] it is"},
      {"/v/", "a.avi", "say \"a\" twice"},
      {"/v/", "a.avi", "Balance, Size, IsStill"},
      {"/v/x, y/", "a, b.avi", ""},
      {"/v/[clips]/", "[a] clip, [b]", ""},
      {"/v/", "br[ack]et", ""},
      {"/v/", " blank at both ends ", ""},
      {"/v/", "\"quoted\", and not.avi", ""},
      {"/" + std::string(126, 'd') + "/", "a.avi", ""},
      {"/" + std::string(120, 'd') + "\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC\xC3\xBC/", "a.avi", ""},
  };
  for (const auto& row : rows) {
    Bench b;
    auto& clip = b.addVideo(row.name, 0, 5, row.folder);
    clip.KeyID(42);
    clip.Notes(Value(row.note));
    clip.SrcPath(row.folder);
    clip.SrcName(row.name);
    clip.RenderAudio(true);
    b.settings.change().LoadFrom = row.folder;
    ASSERT_TRUE(b.file.WriteINI("/col", "t.INI", false));
    EXPECT_TRUE(b.boxes.shown.empty()) << row.name << row.note << b.boxes.shown[0].text;
    Bench again;
    again.files.all = b.files.all;
    again.file.ReadINI("/col/t.INI", {.mayRewrite = false});
    ASSERT_EQ(again.collection.MovieList.count(), 1) << row.name;
    const auto& read = again.collection.MovieList[1];
    EXPECT_EQ(read.Path(), row.folder);
    EXPECT_EQ(read.MovieName(), row.name);
    EXPECT_EQ(read.Notes().text(), row.note);
    EXPECT_EQ(read.SrcPath() + read.SrcName(), row.folder + row.name);
    EXPECT_TRUE(read.RenderAudio()) << "the last row is read for " << row.name << row.note;
    if (row.folder.size() < 126) {
      EXPECT_EQ(again.settings.preferences().LoadFrom, row.folder);
    }
  }
}

TEST(CollectionStore, ASaveThatCannotKeepATextSaysSoAndKeepsTheFileBefore) {
  for (const auto* note : {"two\r\nlines", "see [here]", "say \"a\", \"b\"", "My Audio]"}) {
    Bench b;
    b.addVideo("a.avi", 0, 5).RenderAudio(true);
    b.files.all["/col/t.INI"] = "what stood there";
    b.files.all["/col/t.INI.old"] = "an older one";
    b.collection.MovieList[1].Notes(Value(note));
    EXPECT_TRUE(b.file.WriteINI("/col", "t.INI", false));
    ASSERT_EQ(b.boxes.shown.size(), 1U) << note;
    EXPECT_NE(b.boxes.shown[0].text.find("t.INI.old2"), std::string::npos) << b.boxes.shown[0].text;
    EXPECT_EQ(b.files.all["/col/t.INI.old"], "an older one");
    EXPECT_EQ(b.files.all["/col/t.INI.old2"], "what stood there") << note;
    Bench again;
    load(again, b.files.all["/col/t.INI"], {.mayRewrite = false});
    ASSERT_EQ(again.collection.MovieList.count(), 1);
    EXPECT_TRUE(again.collection.MovieList[1].RenderAudio()) << "only the note suffers from " << note;
  }
}

TEST(CollectionStore, ALossyLoadKeepsACopyEachTime) {
  const auto text = savedText([](Bench& b) {
    b.addVideo("b.avi", 0, 1);
    b.files.all["/v/anim.avi"] = "x";
    for (int i = 0; i < 2; ++i) {
      auto& animation = b.collection.AudMovieList.add({});
      animation.MovieName = "anim.avi";
      animation.Path = "/v/";
      b.collection.KeyframeList.add({}).FrameNo = i;
    }
  });
  const auto gone = [&](const std::string& what, const std::string& with) {
    auto out = text;
    return out.replace(out.find(what), what.size(), with);
  };
  struct Row {
    const char* what;
    std::string text;
  };
  const Row rows[] = {
      {"count not numeric", withRow(text, "MoviesInGroup        = ", "two")},
      {"count too small", withRow(text, "MoviesInGroup        = ", "1")},
      {"count negative", withRow(text, "MoviesInGroup        = ", "-4")},
      {"count out of range", withRow(text, "MoviesInGroup        = ", "70000")},
      {"count too large", withRow(text, "MoviesInGroup        = ", "3")},
      {"10,001 keyframes", withRow(text, "Keyframes            = ", "10001")},
      {"fewer keyframes", withRow(text, "Keyframes            = ", "1")},
      {"keyframes not numeric", withRow(text, "Keyframes            = ", "x")},
      {"a frame below 0", withRow(text, "FrameNo         = ", "-1")},
      {"a missing animation", gone("= anim.avi", "= gone.avi")},
      {"animations out of order", gone("[AudMovie1]", "[AudMovie3]")},
      {"no edit section", gone("[EditDecisionListPrefs]", "[Other]")},
      {"a heading inside a note", withRow(text, "Notes           = ", "see [here]")},
      {"a comma in a note", withRow(text, "Notes           = ", "before, behind")},
      {"no name", withRow(text, "MovieName       = ", "")},
  };
  for (const auto& row : rows) {
    Bench b;
    b.files.all["/v/b.avi"] = b.files.all["/v/anim.avi"] = "x";
    load(b, row.text);
    EXPECT_EQ(b.files.all["/col/t.INI.old"], row.text) << row.what;
    EXPECT_NE(b.files.all["/col/t.INI"], row.text) << row.what;
    // A second file of that name that loses something does not take the place of the first copy.
    auto other = withRow(row.text, "DefZoom              = ", "31");
    load(b, other);
    EXPECT_EQ(b.files.all["/col/t.INI.old"], row.text) << row.what;
    EXPECT_EQ(b.files.all["/col/t.INI.old2"], other) << row.what;
  }
  Bench whole;
  whole.files.all["/v/b.avi"] = whole.files.all["/v/anim.avi"] = "x";
  load(whole, text);
  EXPECT_FALSE(whole.files.exists("/col/t.INI.old")) << "nothing was lost";
}

TEST(CollectionStore, ListsHaveTheirLimits) {
  const auto text = savedText([](Bench& b) {
    for (int i = 0; i < 101; ++i) {
      auto& animation = b.collection.AudMovieList.add({});
      animation.MovieName = "anim.avi";
      animation.Path = "/v";
    }
    for (Long i = 0; i < 3; ++i) b.collection.KeyframeList.add({}).FrameNo = i - 1;
  });
  Bench b;
  b.files.all["/v/anim.avi"] = b.files.all["/prog/a.avi"] = "x";
  load(b, withRow(text, "Path            = ", "CURRDIR"), {.mayRewrite = false});
  EXPECT_EQ(b.collection.AudMovieList.count(), 100);
  EXPECT_EQ(b.collection.KeyframeList.count(), 2) << "a frame below 0 is dropped";
  ASSERT_EQ(b.collection.MovieList.count(), 1);
  EXPECT_EQ(b.collection.MovieList[1].Path(), "/prog/");
}

TEST(CollectionStore, AMissingClipIsAskedAbout) {
  const auto text = savedText([](Bench& b) { b.addVideo("gone.avi", 0, 1); });
  Bench ok;
  load(ok, text);
  ASSERT_EQ(ok.boxes.shown.size(), 1U);
  EXPECT_EQ(ok.boxes.shown[0].caption, "KVO5 - File or Drive not found ");
  EXPECT_EQ(ok.boxes.shown[0].text,
            "KVO could not verify the file :- \r\nPath = /v/\r\nFile Name = gone.avi\r\n"
            "Click OK to continue loading the collection and all\r\nmissing files will be removed or Cancel "
            "to abort\r\n"
            "and no changes will be made to the collection");
  EXPECT_EQ(ok.collection.MovieList.count(), 1);
  EXPECT_EQ(ok.files.all["/col/t.INI"].find("gone.avi"), std::string::npos);
  EXPECT_EQ(ok.files.all["/col/t.INI.old"], text) << "what was dropped is still beside it";

  Bench cancel;
  cancel.boxes.answers = {Answer::Cancel};
  load(cancel, text);
  EXPECT_EQ(cancel.files.all["/col/t.INI"], text);

  Bench look;
  load(look, text, {.mayRewrite = false, .keepMissingClips = true});
  EXPECT_EQ(look.collection.MovieList.count(), 2);
  EXPECT_EQ(look.files.all["/col/t.INI"], text);
  EXPECT_TRUE(look.boxes.shown.empty());
}

TEST(CollectionStore, DamageEndsTheLoadWithoutLoss) {
  auto text = savedText([](Bench& b) { b.addVideo("b.avi", 0, 1); });
  text.replace(text.find("[Movie2Main]"), 12, "[Movie3Main]");
  Bench b;
  b.files.all["/v/b.avi"] = "x";
  load(b, text);
  EXPECT_EQ(b.collection.MovieList.count(), 1);
  EXPECT_EQ(b.log.texts().back(), "<<ERR033>> - Corrupt Movie Descriptions. Corrupt Descriptions Failure ");
  EXPECT_EQ(b.files.all["/col/t.INI.old"], text);
}

TEST(CollectionStore, AFileThatCannotBeReadIsSetAsideAndBegunAnew) {
  Bench b;
  b.files.all["/col/t.INI"] = "what the disk does not give back";
  b.files.all["/col/t.INI.old2"] = "an older one";
  b.files.unreadable.insert("/col/t.INI");
  EXPECT_EQ(b.file.ReadINI("/col/t.INI", {.mayRewrite = false}).end, ReadEnd::NotReadable);
  EXPECT_FALSE(b.files.all.contains("/col/t.INI.old"));
  EXPECT_EQ(b.file.ReadINI("/col/t.INI").end, ReadEnd::Done);
  EXPECT_EQ(b.files.all["/col/t.INI.old"], "what the disk does not give back");
  EXPECT_TRUE(b.file.IsValidCollection("/col/t.INI"));
  EXPECT_EQ(b.settings.preferences().DisplayColor, "9079296");
  EXPECT_EQ(b.settings.preferences().TitleDispClr, "8421504");
  EXPECT_EQ(b.settings.preferences().NoofUses, 41) << "40, and this use";
  const auto& log = b.log.texts();
  EXPECT_NE(std::find(log.begin(), log.end(), "<<Corrupt INI - Re-Write initiated>> on - /col/t.INI"),
            log.end());
}

TEST(CollectionStore, AFileThatCannotBeReadStaysUnderItsNameWhereNoneCanTakeItsPlace) {
  Bench b;
  b.files.all["/col/t.INI"] = "what the disk does not give back";
  b.files.unreadable.insert("/col/t.INI");
  b.files.failedReplaces = 1;
  EXPECT_EQ(b.file.ReadINI("/col/t.INI").end, ReadEnd::NotReadable);
  EXPECT_EQ(b.files.all["/col/t.INI"], "what the disk does not give back");
  EXPECT_FALSE(b.files.all.contains("/col/t.INI.old"));
}

TEST(CollectionStore, AClipWithoutAKeyGetsOneThatNoOtherHas) {
  const Long clock = 14 * 3600 + 5 * 60 + 9;
  const auto text = savedText([&](Bench& b) {
    for (const Long key : {Long{0}, clock, Long{0}, clock + 1, Long{5}}) b.addVideo("a.avi", 0, 5).KeyID(key);
    b.settings.adjust().KeyframeCount = 1;
    Keyframe keyframe;
    keyframe.ClipName = clock + 2;
    b.collection.KeyframeList.add(keyframe);
  });
  Bench b;
  load(b, text, {.mayRewrite = false, .keepMissingClips = true});
  std::vector<Long> keys;
  for (int i = 1; i <= b.collection.MovieList.count(); ++i) keys.push_back(b.collection.MovieList[i].KeyID());
  EXPECT_EQ(keys, (std::vector<Long>{42, clock + 3, clock, clock + 4, clock + 1, 5}));
}

TEST(CollectionStore, WhatIsNoCollectionIsRefused) {
  Bench b;
  b.files.all["/col/x.INI"] = "hello\r\n";
  EXPECT_EQ(b.file.ReadINI("/col/x.INI").end, ReadEnd::NotReadable);
  b.files.all["/col/x.INI"] = "[KVO]\r\na = 1\r\nb = 1\r\nc = 1\r\nd = 1\r\ne = 1\r\n";
  EXPECT_EQ(b.file.ReadINI("/col/x.INI").end, ReadEnd::NotValid);
  EXPECT_FALSE(b.file.IsValidCollection("/col/x.INI"));
  bool other = false;
  b.files.all["/col/old.INI"] = "[KVO]\r\nProgramVersion = Ver 3.1 - x\r\n";
  EXPECT_EQ(b.file.CollectionVersion("/col/old.INI", other), "Ver 3.1 - x");
  EXPECT_FALSE(other);
  EXPECT_EQ(b.file.CollectionVersion("/col/none.INI", other), "Unknown and Corrupt");
}

}  // namespace
}  // namespace kvo
