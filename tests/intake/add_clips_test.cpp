// Names, files and addresses becoming clip records, or being refused.
#include "intake/add_clips.h"

#include "intake/asx_stream.h"
#include "intake/clip_names.h"
#include "intake/folders.h"
#include "intake/intake_bench.h"
#include "intake/load_check.h"
#include "support/golden.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::IntakeBench;
using Names = std::vector<std::string>;

const StreamFacts kFilm{.hasVideo = true,
                        .hasAudio = true,
                        .width = 640,
                        .height = 480,
                        .frameRate = 25,
                        .sampleRate = 48000,
                        .wholeDuration = 4,
                        .duration = 4};
const StreamFacts kSound{.hasAudio = true, .sampleRate = 44100, .wholeDuration = 3, .duration = 3};
const StreamFacts kStillPicture{.hasVideo = true, .isStill = true, .width = 320, .height = 200};

TEST(ClipNames, ATextNamesAFileSeveralOrAnAddress) {
  test::MemoryFiles files;
  files.all["/v/two  blanks \"quoted\".avi"] = "x";
  using Row = std::pair<std::string, Names>;
  for (const auto& [text, names] : {Row{"/v/a.avi", {"/v/a.avi"}}, Row{"\"/v/a b.avi\"", {"/v/a b.avi"}},
                                    Row{"http://h/a b.asx", {"http://h/a b.asx"}}, Row{"", {}},
                                    Row{"/v/two  blanks \"quoted\".avi", {"/v/two  blanks \"quoted\".avi"}},
                                    Row{"/v  \"b.avi\" \"a c.avi\"", {"/v/b.avi", "/v/a c.avi"}},
                                    Row{std::string("/v/\0b.avi\0a.avi\0", 15), {"/v/b.avi", "/v/a.avi"}}})
    EXPECT_EQ(namesIn(text, files), names) << text;
}

TEST(ClipNames, TracksComeFirstByTheirNumbersAndNamesBecomeWords) {
  Names tracks{"/m/Track10.cda", "/v/a.avi", "/m/track03.CDA", "/m/Track01.cda"};
  OrderCDATrackList(tracks);
  EXPECT_EQ(tracks, (Names{"/m/Track01.cda", "/m/track03.CDA", "/m/Track10.cda", "/v/a.avi"}));
  EXPECT_EQ(SmartName("my+holiday%202.avi"), "my holiday 2");
  EXPECT_EQ(SmartName("a%0Ab%zz++c%00.x.mpg"), "a b%zz c .x");
  EXPECT_TRUE(isUnmapped("\\\\server\\share\\a.avi") && isUnmapped("SMB://server/a.avi"));
  EXPECT_FALSE(isUnmapped("/net/server/a.avi") || isUnmapped("http://server/a.avi"));
}

TEST(ClipNames, OfAFolderTheClipsAre) {
  test::MemoryFiles files;
  files.put({"/v/f/b 10.avi", "/v/f/b 2.avi", "/v/f/deep/c.JPEG", "/v/f/notes.txt", "/v/f/x.zip",
             "/v/f/Holiday.INI", "/v/f/autorun.inf", "/v/f/a.sdp", "/v/f/b.xyz", "/v/other.avi"});
  EXPECT_EQ(withClipsOfFolders({"/v/z.txt", "/v/f", "/v/other.avi"}, files, [] { return true; }),
            (Names{"/v/z.txt", "/v/f/b 2.avi", "/v/f/b 10.avi", "/v/f/deep/c.JPEG", "/v/other.avi"}));
  EXPECT_LE(withClipsOfFolders({"/v/f"}, files, [] { return false; }).size(), 1U);
  for (const auto* kind :
       {"m4v", "FLV",  "f4v", "vcr", "qt",  "wm",  "divx", "mpe", "dat", "mka", "m4b", "wv",
        "oga", "jfif", "asx", "wvx", "wax", "swf", "html", "mid", "tif", "ico", "cda"}) {
    files.all = {{std::string("/v/f/a.") + kind, "x"}};
    EXPECT_EQ(withClipsOfFolders({"/v/f"}, files, [] { return true; }).size(), 1U) << kind;
  }
}

TEST(AddClips, TheNameAndWhatIsInTheFileTellWhatTheRecordHolds) {
  auto silent = kFilm;
  silent.hasAudio = false;
  auto endless = kFilm;
  endless.duration = endless.wholeDuration = 0;
  const std::string film = "640 x 480, 0 to 4 of 4 s, 100 frames";
  const std::string song = "44.1 KHz, 0 to 3 of 3 s, N/A frames, heard";
  const std::string still = "320 x 200, 0 to N/A of N/A s, N/A frames, still 320";
  const std::string large = "640 x 480, 0 to N/A of N/A s, N/A frames, still 640";
  using Row = std::tuple<const char*, StreamFacts, std::string>;
  for (const auto& [name, facts, record] :
       {Row{"a.mp4", kFilm, film + ", heard"}, Row{"a.mp4", kSound, song}, Row{"a.avi", silent, film},
        Row{"a.M1V", kFilm, film}, Row{"a.ogg", kFilm, film + ", heard"},
        Row{"a.wma", kFilm, "48 KHz, 0 to 4 of 4 s, N/A frames, heard"}, Row{"a.flac", kSound, song},
        Row{"a.jpeg", kStillPicture, still}, Row{"a.webp", kStillPicture, still},
        Row{"renamed.avi", kStillPicture, still}, Row{"a.tiff", kStillPicture, still},
        Row{"a.gif", silent, large}, Row{"a.ico", endless, large}, Row{"a.flc", silent, film}}) {
    SCOPED_TRACE(name);
    IntakeBench b;
    b.put(std::string("/v/") + name, {facts});
    const auto* clip = b.add(std::string("/v/") + name);
    ASSERT_NE(clip, nullptr) << b.box();
    auto text = clip->Resolution().text() + ", " + clip->LoopStart().text() + " to " +
                clip->LoopEnd().text() + " of " + clip->DurationTime().text() + " s, " +
                clip->DurationFrames().text() + " frames";
    if (clip->HasAudio() && clip->RenderAudio()) text += ", heard";
    if (clip->IsStill()) text += ", still " + std::to_string(clip->StillW());
    EXPECT_EQ(text, record);
    EXPECT_EQ(clip->Size() + clip->FType(), "10Document");
    EXPECT_EQ(b.boxes.told(), "");
    EXPECT_EQ(b.settings.state.ObjectChange, 99);
  }
}

LookAnswer broken(std::string_view text) { return {LookEnd::Looked, {.errorText = std::string(text)}}; }

TEST(AddClips, RefusalsTellWhyAndChangeNothing) {
  const LookAnswer film{LookEnd::Looked, {kFilm}};
  auto wide = kStillPicture;
  wide.width = 30000;
  using Row = std::pair<const char*, std::optional<LookAnswer>>;
  std::string told;
  for (const auto& [name, answer] :
       {Row{"notes.txt", film}, Row{"thumbs.db", film}, Row{"a.ZIP", film}, Row{"a.rm", film},
        Row{"a.bmp", broken("no")}, Row{"a.jpg", film}, Row{"a.png", LookAnswer{LookEnd::Looked, {wide}}},
        Row{"a.mkv", broken("it is damaged")}, Row{"a.avi", broken("it is damaged")},
        Row{"a.mpeg", broken("it is damaged")}, Row{"a.wmv", broken(kDrmProtected)},
        Row{"a.wmv", broken("error &HC00D00C8")}, Row{"a.avi", broken("cannot open a.avi: Text file busy")},
        Row{"a.avi", LookAnswer{LookEnd::Crashed, {kFilm}}}, Row{"a.jpg", LookAnswer{LookEnd::Hung, {kFilm}}},
        Row{"a name that is long and gone.avi", std::nullopt}}) {
    IntakeBench b;
    const auto path = std::string("/v/") + name;
    if (answer) b.put(path, answer->look, answer->end);
    EXPECT_EQ(b.add(path), nullptr) << path;
    EXPECT_FALSE(b.dirty()) << path;
    EXPECT_EQ(b.settings.state.ObjectChange, 0);
    told += path + " > " + b.boxes.told() + "\n";
  }
  test::expectGolden("refusals.txt", told);
}

TEST(AddClips, TheHeadOfAnImageDecidesAndKnownCodecsAreTold) {
  IntakeBench b;
  b.put("/v/a.bmp", {kStillPicture});
  b.files.all["/v/a.bmp"] =
      "BM" + std::string(12, '\0') + std::string("\x28\0\0\0\x30\x75\0\0\xC8\0\0\0", 12) + "\1";
  for (const auto* box : {"Error Decoding Image|",
                          "Image not added to collection|"}) {  // its head is cut off, then 30000 pixels wide
    EXPECT_EQ(b.add("/v/a.bmp"), nullptr) << "whatever else is said of it";
    EXPECT_TRUE(b.box().starts_with(box)) << b.box();
    b.files.all["/v/a.bmp"] += std::string(20, '\0');
  }
  b.put("/v/a.png", {kStillPicture});
  b.files.all["/v/a.png"] = std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x02\x80\0\0\x01\xE0\x08\x05", 26) +
                            std::string(20, '\0');
  EXPECT_EQ(b.add("/v/a.png"), nullptr) << "of a colour type that there is not";

  b.put("/v/a.avi", {.errorText = "it is damaged"});
  b.files.all["/v/a.avi"] = "RIFF....AVI LIST....vidsDIVX";
  b.files.all[b.folder.beside("\\Fourcc.dat")] = "DIVX,\"Makers\",\"None known\",\"MPEG-4.\"\r\n";
  EXPECT_EQ(b.add("/v/a.avi"), nullptr);
  EXPECT_TRUE(
      b.box().ends_with("Code as DIVX\r\nThe Codec was developed by Makers\r\nFor more information or to "
                        "download and install the Codec, go to None known\r\nCodec Notes :- MPEG-4."))
      << b.box();
}

TEST(AddClips, WhatIsOddIsToldAndTheClipStays) {
  const MediaLook endless{{.hasAudio = true, .sampleRate = 44100}};
  const MediaLook noDecoder{kFilm, {}, std::string(kNoDecompressor)};
  using Row = std::pair<std::string, MediaLook>;
  std::string told;
  for (const auto& [path, look] :
       {Row{"/v/a.wav", endless}, Row{"/v/a.vcr", endless}, Row{"/v/a.mp3", endless},
        Row{"/v/a.mid", endless}, Row{"/v/a.mpg", noDecoder}, Row{"/v/a.asf", noDecoder},
        Row{"/v/empty.mp3", broken("it is no media file").look}}) {
    IntakeBench b;
    b.put(path, look);
    if (path == "/v/empty.mp3") b.files.all[path] = "";
    told += path;
    for (const auto* time : {"\n1 > ", "\n2 > "}) {  // what is odd of a kind is told once
      EXPECT_NE(b.add(path), nullptr) << path;
      told += time + b.boxes.told();
    }
    told += "\n";
  }
  test::expectGolden("odd-clips.txt", told);
}

TEST(AddClips, AnAddressIsAStreamOrAPageByItsName) {
  enum What { Stream, Page, Viewer, Refused };
  // clang-format off
  const std::tuple<const char*, bool, What> rows[] = {
      {"http://h/a.asx", false, Stream}, {"mms://h/a", false, Stream}, {"http://h/a.html", false, Page},
      {"http://h/a", true, Page}, {"http://h/a.wmv", true, Stream}, {"http://h/a.swf", false, Page},
      {"http://h/a.mov", true, Viewer}, {"rtsp://h/a.rm", false, Refused},
      {"http://h/setup.exe", true, Refused}, {"http://www.example.com", true, Page},
      {"http://h/a.log", true, Page}, {"udp://@:5004", false, Stream},
      {"rtsp://u:p@[::1]:8554/x", false, Stream}, {"file:///v/a.wmv", false, Stream},
      {"http://", true, Refused}, {"http://%%% nonsense", true, Refused}, {"foo://bar", false, Refused},
      {"http://h:99999/a", false, Refused}, {"http:///a.asx", false, Refused},
      {"http://h/a\x01", false, Refused}, {"smb://server/a.avi", false, Refused}};
  // clang-format on
  for (const auto& [address, asPage, what] : rows) {
    IntakeBench b;
    const auto* clip = b.add(address, {.IsWebPageAdd = asPage});
    const auto is = clip == nullptr ? Refused : clip->IsHTML() ? Page : clip->IsTrueQT4() ? Viewer : Stream;
    EXPECT_EQ(is, what) << address;
    EXPECT_EQ(b.boxes.shown.size(), what == Refused ? 1U : 0U) << address;
    EXPECT_TRUE(b.looks.asked.empty()) << "nobody waits for a network";
    if (clip == nullptr) continue;
    EXPECT_EQ(clip->MovieName() + "|" + clip->Path(), std::string(address) + "|");
    EXPECT_TRUE(clip->IsStream() && clip->HasAudio());
  }
  IntakeBench b;
  EXPECT_EQ(b.add("\\\\server\\share\\a.avi"), nullptr);
  EXPECT_EQ(b.box(),
            "KVO5 - Warning - Unmapped Network Drive|Cannot add media from non Mapped Network Drive");
}

TEST(AddClips, LocalPagesStreamsTracksAndDiscsAreNotLookedInto) {
  IntakeBench b;
  b.files.all = {{"/v/p.htm", "x"},
                 {"/v/f.swf", "x"},
                 {"/v/s.asx", "<ref href=\"http://h/a\">"},
                 {"/v/s.wmv", "mms://h/a\n"},
                 {"/v/Track02.cda", std::string("RIFF....CDDAfmt ") + std::string(16, 'x') +
                                        std::string("\x96\0\0\0", 4) + std::string(8, 'x')}};
  EXPECT_TRUE(b.intake.add({"/v/p.htm", "/v/f.swf", "/v/s.asx", "/v/s.wmv", "/v/Track02.cda"}, {}));
  const auto& clips = b.collection.MovieList;
  ASSERT_EQ(b.names(), (Names{"Track02.cda", "p.htm", "f.swf", "s.asx", "s.wmv"}));
  EXPECT_EQ(clips[1].DurationTime().number(), 2);
  EXPECT_TRUE(clips[2].IsHTML() && !clips[2].HasAudio());
  EXPECT_TRUE(clips[3].IsHTML() && clips[3].HasAudio() && clips[3].RenderAudio());
  EXPECT_TRUE(clips[4].IsStream() && clips[5].IsStream());
  EXPECT_TRUE(b.looks.asked.empty() && b.boxes.shown.empty());

  const std::string blanks(70000, ' ');
  for (const auto& [name, text, stream] :
       {std::tuple{"/v/long.asx", "<ref href=\"http://h/a\">" + blanks, true},
        {"/v/far.asx", blanks + "//", false},
        {"/v/film.asf", std::string("0&\xB2u\x8E") + '\0' + " // " + blanks, false}}) {
    b.files.all[name] = text;
    Movie clip;
    clip.Path("/v/");
    clip.MovieName(std::string(fileNamePart(name)));
    EXPECT_EQ(IsASXAStream(clip, b.files), stream) << name;
  }
}

TEST(AddClips, AnExtendedDiscBecomesItsTracks) {
  IntakeBench b;
  b.files.all["/cd/Autorun.inf"] = "x";
  EXPECT_EQ(b.add("/cd/Autorun.inf"), nullptr) << "no disc that could be read";
  b.disc.table = {{{150}, {450}, {900, false}}, 1000};
  EXPECT_NE(b.add("/cd/Autorun.inf"), nullptr);
  EXPECT_EQ(b.names(), (Names{"Track01.cda", "Track02.cda"}));
  const auto& track = b.clip(2);
  EXPECT_TRUE(track.IsExtendedCD() && track.IsTrueQT4());
  EXPECT_EQ(track.DurationTime().text() + " " + ShortText(track.Playspeed()), "6 999");
  EXPECT_EQ(b.collection.kind, CollectionKind::HoldsExtendedCD);
}

TEST(AddClips, NamesComeFromTagsAndFromNamesThatAreNone) {
  IntakeBench b;
  b.put("/v/a+b.mp3", {kSound, {"A Title", "An Artist", "An Album", std::string("Folk\0rest", 9)}});
  b.put("/v/c+d.mp3", {kSound});
  b.put("/v/+e.ogg", {kSound, {"A Title", "", "", ""}});
  EXPECT_TRUE(b.intake.add({"/v/a+b.mp3", "/v/c+d.mp3", "/v/+e.ogg"}, {}));
  const auto& clips = b.collection.MovieList;
  EXPECT_EQ(clips[1].AltName() + clips[1].Artist() + clips[1].Album() + clips[1].Genre(),
            "A TitleAn ArtistAn AlbumFolk");
  EXPECT_EQ(clips[2].AltName(), "c d");
  EXPECT_EQ(clips[3].AltName(), "") << "a sign at the very front is part of the name";
}

TEST(AddClips, SeveralComeInTheirOrderUntilTheUserStops) {
  IntakeBench b;
  for (const auto* name : {"/v/b.avi", "/v/a.avi", "/v/c.avi"}) b.put(name, {kFilm});
  b.settings.state.AllDetOff = true;
  EXPECT_TRUE(b.intake.AddMoviesm("/v  \"b.avi\" \"a.avi\" \"c.avi\"", {}));
  EXPECT_FALSE(b.settings.state.AllDetOff) << "the first clip of a list turns the details on";
  EXPECT_EQ(b.names(), (Names{"b.avi", "a.avi", "c.avi"}));
  EXPECT_EQ(b.host.told, (Names{"1/3 /v/b.avi", "2/3 /v/a.avi", "3/3 /v/c.avi", "end"}));
  EXPECT_EQ(b.host.joined, (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(b.settings.preferences().LoadFrom, "/v/");

  b.host.told.clear();
  b.settings.state.AllDetOff = true;
  b.looks.whileLooking = [&] { b.host.stopsAt = 2; };
  EXPECT_TRUE(b.intake.add({"/v/b.avi", "/v/a.avi", "/v/c.avi"}, {}));
  EXPECT_EQ(b.collection.MovieList.count(), 4);
  EXPECT_TRUE(b.intake.wasStopped());
  EXPECT_EQ(b.boxes.told(), "");
  EXPECT_TRUE(b.settings.state.AllDetOff) << "there were clips";
  b.collection.MovieList.clear();
  b.settings.state.KVOIsInEditMode = true;
  b.looks.whileLooking = [] {};
  b.host.stopsAt = 0;
  EXPECT_TRUE(b.intake.add({"/v/b.avi"}, {}));
  EXPECT_FALSE(b.intake.wasStopped());
  EXPECT_TRUE(b.settings.state.AllDetOff) << "not while the movie is edited";
}

TEST(AddClips, ClipsOfOneSecondHaveKeysOfTheirOwnAndThereAreNotTooMany) {
  IntakeBench b;
  b.clock.time = {2026, 3, 7, 0, 0, 8.4};
  b.addVideo("old.avi", 0, 5).KeyID(9);
  b.collection.KeyframeList.add({}).ClipName = 10;  // left by a clip that was taken out
  b.put("/v/a.avi", {kFilm});
  std::vector<Long> keys;
  for (int i = 0; i < 3; ++i) keys.push_back(b.add("/v/a.avi")->KeyID());
  EXPECT_EQ(keys, (std::vector<Long>{8, 11, 12}));
  b.clock.time = {2026, 3, 7, 0, 0, 0};
  EXPECT_GT(b.add("/v/a.avi")->KeyID(), 0);

  while (b.collection.MovieList.count() < kMaxClips) b.collection.MovieList.add({});
  EXPECT_FALSE(b.intake.add({"/v/a.avi", "/v/a.avi"}, {}));
  EXPECT_TRUE(b.boxes.shown.size() == 1 && test::holds(b.box(), "32767")) << b.box();
  EXPECT_EQ(*std::prev(b.host.told.end(), 2), "1/2 /v/a.avi") << "which is the first that does not fit";
}

TEST(LoadGuard, APlayerThatFailsLosesTheClipOrEndsTheProgram) {
  struct Check : LoadCheck {
    std::string file;
    void beforeAdding() override {}
    void nothingAdded() override {}
    [[nodiscard]] std::string PlayerGetFileName() const override { return file; }
  } player;
  test::Bench b;
  const auto works = [] {};
  const auto fails = [] { throw std::runtime_error("lost"); };
  EXPECT_EQ(guardLoad(player, "/v/a.avi", works, b.boxes, b.log), GuardedLoad::Done);
  EXPECT_EQ(guardLoad(player, "/v/a.avi", fails, b.boxes, b.log), GuardedLoad::Refused);
  EXPECT_EQ(b.boxes.shown.back().caption, "Movie not added to collection");
  player.file = "/v/a.avi";
  EXPECT_EQ(guardLoad(player, "/v/a.avi", fails, b.boxes, b.log), GuardedLoad::Fatal);
  EXPECT_EQ(b.boxes.shown.back().caption, "KVO5 - FATAL Error - Player Subsystem Corrupted");
  EXPECT_EQ(b.log.texts().back(), "<<Movie Corrupted Playback System - FATAL - a.avi >>");
}

}  // namespace
}  // namespace kvo
