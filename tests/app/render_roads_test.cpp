// Movies made from the window's side with the real engine, each kind by its road, and taken apart again.
#include "adapters/posix/poll_loop.h"
#include "app/session.h"
#include "base/text.h"
#include "engine/run/profile_file.h"
#include "media/strip_wav.h"
#include "render/movie_render.h"
#include "render/wm8_profile.h"
#include "support/real_world.h"
#include "support/render_bench.h"
#include "vocabulary/encode_profiles.h"

#include <cmath>

namespace kvo {
namespace {

using test::lineOf;
using test::ScratchFolder;

// What the program writes is what the engine reads.
TEST(ProfileFile, SaysTheSameToBoth) {
  for (int number = kSystemProfiles; number <= kLastProfile; ++number) {
    const auto read = engine::readProfileFile(wm8ProfileBytes(number, std::nullopt, ""));
    ASSERT_TRUE(read && *read) << number;
    const auto& profile = **read;
    EXPECT_EQ((OutputSize{profile.width, profile.height}), *wm8ProfileSize(number)) << number;
    EXPECT_EQ(profile.frameRate, FrameRate(number < 29 ? 15 : 30)) << number;
    EXPECT_EQ(lineOf(profile.videoBits > 0, profile.quality > 0, profile.channels, profile.audioBits >= 5000,
                     profile.sampleRate >= 8000),
              number < 29   ? "1 0 1 1 1"
              : number < 36 ? "1 0 2 1 1"
                            : "0 1 2 1 1")
        << number;
  }
  const auto empty = PosixFiles().read(KVO_SHIPPED "/wmsysprx.prx", 1000);
  const auto none = engine::readProfileFile(*empty);
  EXPECT_TRUE(none && !*none) << "the one that is shipped leaves the engine as it is";
  auto whole = wm8ProfileBytes(30, std::nullopt, "");
  EXPECT_FALSE(engine::readProfileFile(""));
  EXPECT_FALSE(engine::readProfileFile(whole.substr(0, whole.size() / 2)));
  const auto wide = [](std::string_view text) {
    std::string bytes;
    for (const char c : text) bytes.append({c, '\0'});
    return bytes;
  };
  for (const auto& [from, to] :
       {std::pair{"320", "0"}, {"320", "99999"}, {"32000", "99999"}, {"333333", "0"}})
    EXPECT_FALSE(engine::readProfileFile(replaced(whole, wide(from), wide(to)))) << from;
}

// Three seconds of counted pictures; a beep after the first.
class RenderRoads : public testing::Test {
 protected:
  RenderRoads()
      : video_(test::makeCountingVideo(work_, "count.avi", "25", 75)),
        sound_(test::makeMedia(work_, "beep.wav",
                               {"-f", "lavfi", "-i", "sine=1000:duration=3", "-af",
                                "volume=0:enable='lt(t,1)'", "-ar", "44100", "-ac", "2"})) {
    std::filesystem::create_directories(home_.path());
    EXPECT_TRUE(prepareProgramFolder(session_.files, session_.folder, KVO_SHIPPED));
    boxes_.styledAnswer = {Answer::No, false};
  }

  void add(const std::string& file, bool hasPicture) {
    const std::filesystem::path path(file);
    auto& clip = session_.collection.MovieList.add({});
    clip.MovieName(path.filename().string());
    clip.Path(path.parent_path().string() + "/");
    clip.LoopStart(Value(0.0));
    clip.LoopEnd(Value(3.0));
    clip.AudioOutputLevel(1);
    clip.RenderAudio(true);
    clip.Resolution(hasPicture ? "64 x 48" : "44.1 Khz");
    clip.TransType("CUT");
  }

  // Makes the movie and gives its path, with what the boxes said where there is none.
  std::string made(OutputKind kind, int profile, bool usesCodecSize = true) {
    const auto file = out_ / ("movie" + std::to_string(profile));
    dialogs_.answers = {file};
    session_.editor.controls.txtWidth = session_.settings.adjust().RenderWidth = 128;
    session_.editor.controls.txtHeight = session_.settings.adjust().RenderHeight = 96;
    render_.Rendertofile();
    render_.chooseKind(kind);
    render_.tickCodecDimensions(usesCodecSize);
    const auto& rows = state_.Lst_WMVFormats;
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const auto& text) { return GetWMVRenderProfileInt(text) == profile; });
    if (row != rows.end()) render_.chooseProfile(static_cast<int>(row - rows.begin()));
    render_.WriteRenderMovie();
    for (const auto& box : boxes_.shown) ADD_FAILURE() << box.caption << ": " << box.text;
    constexpr const char* kNames[] = {".WMV", ".WMA", ".AVI", ".WAV"};
    return file + kNames[static_cast<int>(kind)];
  }

  // Seconds to the first sound.
  static double beginOf(const std::string& path) {
    const auto samples = test::samplesOf(path);
    const auto first =
        std::find_if(samples.begin(), samples.end(), [](float s) { return std::fabs(s) > 0.02; });
    return static_cast<double>(first - samples.begin()) / 44100;
  }

  ScratchFolder work_;
  ScratchFolder out_;
  ScratchFolder home_;
  test::ScriptedBoxes boxes_;
  test::ScriptedDialogs dialogs_;
  PollLoop loop_;
  Session session_{ProgramFolder(home_.path()), boxes_};
  CreateTab create_;
  RenderState state_;
  test::NotingRenderHost host_{[this](const auto& source, const auto& wav) {
    return media::stripWav(session_.files, source, wav, [] { return true; });
  }};
  test::MemoryStore store_;
  test::NotedWork desktop_;
  MovieRender render_{
      {session_.editing,
       create_,
       dialogs_,
       session_.nameLocks,
       {session_.files, session_.temporaryFolders, session_.processes, loop_, KVO_PROGRAMS "/KVORender"},
       [](const std::string&) { return 1e6; },
       host_,
       store_,
       desktop_,
       [] { return std::string(); }},
      state_};
  std::string video_;
  std::string sound_;
};

TEST_F(RenderRoads, EachKindIsWhatWasChosen) {
  add(video_, true);
  add(sound_, false);
  const std::tuple<OutputKind, int, const char*> rows[] = {
      // codec, size and rates, channels of the streams
      {OutputKind::Avi, kNoProfile, "rawvideo 128 96 25/1 pcm_s16le 44100 2 0/0"},
      {OutputKind::Wmv, 9, "wmv2 320 240 30/1 wmav2 32000 2 0/0"},
      {OutputKind::Wmv, 27, "wmv2 176 144 15/1 wmav2 11025 1 0/0"},
      {OutputKind::Wmv, 36, "wmv2 128 96 30/1 wmav2 44100 2 0/0"},  // of its own size
      {OutputKind::Wma, 17, "wmav2 22050 1 0/0"},
      {OutputKind::Wav, 0, "pcm_s16le 44100 2 0/0"}};
  for (const auto& [kind, profile, streams] : rows) {
    SCOPED_TRACE(profile);
    const auto path = made(kind, profile, profile != 36);
    EXPECT_EQ(test::probed(path, "stream=codec_name,width,height,r_frame_rate,sample_rate,channels"),
              streams);
    EXPECT_EQ(test::runProgram({"ffmpeg", "-v", "error", "-i", path, "-f", "null", "-"}).err, "");
    EXPECT_NEAR(std::stod(test::probed(path, "format=duration")), 3, 0.07);
    EXPECT_NEAR(beginOf(path), beginOf(sound_), 0.010);
    EXPECT_EQ(state_.frame, RenderFrame::Report);
  }
  EXPECT_EQ(out_.names().size(), 6U) << "and nothing beside them";
}

}  // namespace
}  // namespace kvo
