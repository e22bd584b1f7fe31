// What records hold on its way through the documents into the engine: names of files, and times.
#include "editor/compiler/collection_faults.h"
#include "editor/compiler/picture_in_picture.h"
#include "editor/tabs/operations.h"
#include "engine/document/document_reader.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace kvo {
namespace {

void addClips(test::Bench& b, const std::string& name, bool still) {
  for (int i = 1; i <= 2; ++i) {
    auto& clip = b.addVideo(name, 0, 5);
    clip.IsStill(still);
    clip.EffectWord("1");
    test::withTransition(clip, "Heart", 10).MaskName("/m/" + name);
  }
  b.addMusic(name + ".mp3", 0, 4);
  b.collection.MovieList[1].HasPicInPic(picInPicText({2, OverlayStyle::Uniform, 1, 100, 0, 0, false}));
}

std::vector<std::pair<std::string, std::string>> documentsOf(const test::Bench& b) {
  const auto& c = b.editing;
  return {{"render", compileText(c)},
          {"preview", compilePreviewText(c, 7)},
          {"transition", Previewtransition(c, 2)},
          {"first transition", Previewtransition(c, 1)},
          {"effect", PreviewEffect(c, 1)},
          {"colours", PreviewColourAdjust(c, 1)},
          {"picture-in-picture preview", CreatePinPPreview(c, 1, {.preview = true})},
          {"picture-in-picture", CreatePinPPreview(c, 1, {.backdropAudio = true, .overlayAudio = true})}};
}

// What the layers play, and their masks.
void expectNames(const std::vector<engine::Layer>& layers, const std::string& name, const std::string& what) {
  for (const auto& layer : layers) {
    EXPECT_EQ(layer.src, layer.inside.empty() ? "/v/" + name : "") << what;
    expectNames(layer.inside, name, what);
    for (const auto& transition : layer.transitions) {
      const auto* mask = transition.params.find("maskname");
      EXPECT_TRUE(mask == nullptr || mask->text == "/m/" + name) << what;
    }
  }
}

TEST(Names, StandAsTheyAreInEveryDocument) {
  for (const std::string name :
       {"plain.avi", "say \"so\".avi", "\"", "a\" b=\"c.avi", "a=\"1\".avi", "a\">b.avi", "a\" >b.avi",
        "a\" mstart=\"1.avi", "a\" stretchmode=\"crop.avi", "<i> & </i>.avi", "a\"\"b.avi",
        "two\nlines\".avi", "&quot;.avi"}) {
    for (const bool still : {false, true}) {
      test::Bench b;
      addClips(b, name, still);
      for (const auto& [what, text] : documentsOf(b)) {
        const auto timeline = engine::readDocument(text);
        ASSERT_TRUE(timeline) << name << ", " << what << ": " << timeline.error().text << text;
        ASSERT_FALSE(timeline->video.empty()) << what;
        expectNames(timeline->video, name, name + ", " + what);
        for (const auto& sound : timeline->audio)
          EXPECT_TRUE(sound.src == "/v/" + name || sound.src == "/v/" + name + ".mp3" || still) << sound.src;
      }
    }
  }
}

// Whatever times a record holds: a document that the engine refuses is announced as a fault.
TEST(Times, ThatTheEngineRefusesAreFaults) {
  const Value starts[] = {Value(), "abc", "-5", "3", "4.99999", "1e300", "2e9"};
  const Value ends[] = {"", "N/A", "-1", "0.00001", "3", "5", "3e9"};
  int refused = 0;
  for (const auto& start : starts) {
    for (const auto& end : ends) {
      for (const Single speed : {10.0F, -5.0F, 0.0F, 0.0001F, 1e20F}) {
        for (const double transition : {0.0, 20.0, -20.0, 1e12}) {
          for (const int odd : {1, 2, 3, 4}) {
            test::Bench b;
            b.addVideo("a.avi", 0, 5);
            test::withTransition(b.addStill("s.png", 5), "Fade", transition);
            for (const auto* name : {"m.mp3", "n.flac"}) b.addMusic(name, 0, 2);
            auto& clip = b.collection.MovieList[odd];
            clip.LoopStart(start);
            clip.LoopEnd(end);
            clip.Playspeed(speed);
            const auto made = compile(b.collection, optionsOf(b.editing), {b.streams, b.editor.effects});
            const auto timeline = engine::readDocument(made.text);
            if (timeline) continue;
            ++refused;
            const auto faults = collectionFaults(made, b.streams, b.files);
            EXPECT_TRUE(
                std::any_of(faults.begin(), faults.end(), [](const auto& f) { return f.stopsRender; }))
                << odd << ": " << start.text() << " to " << end.text() << " at " << speed << ", transition "
                << transition << ": " << timeline.error().text;
          }
        }
      }
    }
  }
  EXPECT_GT(refused, 100);
}

}  // namespace
}  // namespace kvo
