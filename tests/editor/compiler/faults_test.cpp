// What a check of a collection tells, and what a render refuses.
#include "editor/compiler/collection_faults.h"
#include "editor/compiler/document_check.h"
#include "editor/tabs/operations.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::Bench;

std::string told(Bench& b, const ReadReport& report = {}) {
  const auto made = compile(b.collection, optionsOf(b.editing), {b.streams, b.editor.effects});
  std::string all;
  for (const auto& fault : collectionFaults(made, b.streams, b.files, report)) {
    all += (all.empty() ? "" : "; ") + (fault.clip > 0 ? std::to_string(fault.clip) + " " : std::string()) +
           fault.text + (fault.stopsRender ? "!" : "");
  }
  return all;
}

TEST(CollectionFaults, AreFoundInEveryClip) {
  const std::pair<std::function<void(Bench&, Movie&)>, const char*> rows[] = {
      // What is done to the collection and to the second of its two clips, `m`.
      {[](auto&, auto&) {}, ""},
      {[](auto&, auto& m) { m.LoopStart(Value()); }, ""},
      {[](auto& b, auto&) { b.files.all.erase("/v/b.avi"); }, "2 the file is missing!"},
      {[](auto& b, auto&) { b.streams.all.erase("/v/b.avi"); }, "2 cannot open /v/b.avi!"},
      {[](auto& b, auto&) { b.streams.all["/v/b.avi"] = {.hasAudio = true}; },
       "2 there is no picture in it!"},
      {[](auto& b, auto&) { b.streams.all["/v/b.avi"].duration = 4.6; }, ""},
      {[](auto& b, auto&) { b.streams.all["/v/b.avi"].duration = 3; },
       "2 its section ends at 5 s, the file at 3.00 s"},
      {[](auto&, auto& m) { m.LoopEnd(Value()); }, "2 its section ends at 0 s, ahead of its start!"},
      {[](auto&, auto& m) { m.LoopStart(Value(-1)); }, "2 its section starts at -1 s, ahead of the file"},
      {[](auto&, auto& m) { m.Playspeed(-5); }, "2 its speed of -0.5 cannot be played!"},
      {[](auto&, auto& m) { m.Playspeed(1e9F); },
       "2 it has no length in the movie at its speed of 100000000!"},
      {[](auto&, auto& m) { m.TransType("Hart"); }, "2 there is no transition Hart!"},
      {[](auto&, auto& m) { m.BorderWidth(300); }, "2 its border width of 300 is held to 255"},
      {[](auto&, auto& m) { m.HasPicInPic("1"); },
       "2 its picture-in-picture field makes no sense and is left out"},
      {[](auto& b, auto&) { b.addMusic("m.mp3", 3, 2); }, "3 its section ends at 2 s, ahead of its start!"},
      {[](auto& b, auto&) { b.addMusic("m.mp3", 3, 2).RenderAudio(false); },
       "3 its section ends at 2 s, ahead of its start"},
      {[](auto& b, auto&) { b.addMusic("m.flac", 0, 2), b.addVideo("c.avi", 0, 2); },
       "3 it is sound ahead of a picture: sound belongs at the end of the collection!"},
      {[](auto& b, auto&) { b.addMusic("m.mid", 0, 2); }, "3 sound of its kind cannot be put into a movie!"},
      {[](auto&, auto& m) { m.Path(""), m.MovieName("http://h/a.asx"), m.LoopEnd(Value()); },
       "2 a stream cannot be put into a movie!"},
      {[](auto&, auto& m) { m.IsHTML(true); }, "2 a web page cannot be put into a movie!"},
      {[](auto& b, auto&) { b.settings.change().OutPutFrameRate = 0; },
       "its frame rate of 0 is not within 1 to 1000!"},
      {[](auto& b, auto&) { b.editor.controls.txtHeight = 0; },
       "its size of 320 x 0 is too small for a movie!"},
  };
  for (const auto& [change, faults] : rows) {
    Bench b;
    b.addVideo("a.avi", 0, 5);
    change(b, b.addVideo("b.avi", 0, 5));
    EXPECT_EQ(told(b), faults);
    EXPECT_TRUE(b.boxes.shown.empty()) << "plain data, for whoever shows it";
  }
  Bench empty;
  EXPECT_EQ(told(empty), "the collection has no clips!");
  Bench silent;
  silent.addMusic("m.mp3", 0, 5).RenderAudio(false);
  EXPECT_EQ(told(silent),
            "nothing of it goes into a movie: there is no picture, and its sound is switched off!");
  Bench damaged;
  damaged.addVideo("a.avi", 0, 5);
  EXPECT_EQ(
      told(damaged, {.skippedClips = {4}, .damaged = true}),
      "clip section 4 has no usable name or folder and is left out; sections of the collection are missing "
      "or out of order; clips may be missing");
}

TEST(DocumentCheck, KnowsAWholeDocument) {
  const std::pair<const char*, const char*> rows[] = {
      {"<timeline>\r\n<group type=\"video\" >\r\n<a b=\"<&>\"/>\r\n</group>\r\n</timeline>\r\n", ""},
      {"<timeline><clip src=\"a\" & <b>\">\".avi\" mstart=\"0\" mstop=\"1.0\" start=\"0\" stop=\"1\" >\r\n"
       "</clip></timeline>",
       ""},
      {"<timeline><param name=\"MaskName\" value=\"a\"b.jpg\"/></timeline>", ""},
      {"<timeline></group></timeline>", "byte 10: </group> closes nothing"},
      {"<timeline><group></timeline>", "byte 17: </timeline> closes nothing"},
      {"<timeline><group>", "byte 17: <group> is not closed"},
      {"<group></group>", "byte 0: <group> stands outside"},
      {"<timeline></timeline><timeline></timeline>", "byte 21: <timeline> stands outside"},
      {"<timeline><param name=\"BorderColor\" value=\"a\"b\"/></timeline>", "byte 10: a tag is not whole"},
      {"<timeline><a b=\"</timeline>", "byte 10: a tag is not whole"},
      {"<timeline", "byte 0: a tag is not whole"},
      {"", "byte 0: there is no <timeline>"},
  };
  for (const auto& [text, fault] : rows) {
    const auto sound = checkDocument(text);
    EXPECT_EQ(sound ? std::string() : sound.error().text,
              *fault == '\0' ? std::string() : std::string("the document would be damaged at ") + fault)
        << text;
  }
}

TEST(DocumentCheck, KeepsADamagedDocumentFromBeingWritten) {
  Bench b;
  b.files.all["/prog/KVORender.xtl"] = "old";
  const auto done = writeDocument(b.files, "/prog/KVORender.xtl", "<timeline><group>");
  ASSERT_FALSE(done);
  EXPECT_NE(done.error().text.find("/prog/KVORender.xtl"), std::string::npos) << done.error().text;
  EXPECT_EQ(b.files.all["/prog/KVORender.xtl"], "old");
}

}  // namespace
}  // namespace kvo
