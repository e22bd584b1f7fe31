// Media of many kinds, made on the spot and added in one go: what the records hold, or why there is none.
#include "support/real_world.h"
#include "support/store_bench.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::ScratchFolder;

constexpr const char* kPictures = "-f lavfi -i testsrc2=size=64x48:rate=25:duration=1 ";
constexpr const char* kBoth =
    "-f lavfi -i testsrc2=size=64x48:rate=25:duration=1 -f lavfi -i sine=sample_rate=44100:duration=1 ";
constexpr const char* kTone = "-f lavfi -i sine=sample_rate=44100:duration=1 ";
constexpr const char* kOne = "-f lavfi -i testsrc2=size=64x48:rate=25:duration=1 -frames:v 1 -update 1 ";

struct Made {
  const char* name;
  const char* source;
  const char* encoding;
  const char* codec;
  const char* resolution = "64 x 48";
  double seconds = 1;
  double rate = 25;
  [[nodiscard]] bool isStill() const { return source == kOne; }
  [[nodiscard]] bool hasSound() const { return std::string_view(source).find("sine") != std::string::npos; }
};

// Pictures so large that each has a time of its own in a program stream.
#define NOISY "-s 176x144 -vf noise=alls=80:allf=t -q:v 1 "

const Made kFiles[] = {
    {"mpeg4.avi", kBoth, "-c:v mpeg4 -c:a libmp3lame", "MPEG-4 part 2"},
    {"h264.mp4", kBoth, "-c:v libx264 -c:a aac", "H.264"},
    {"hevc.mkv", kBoth, "-c:v libx265 -x265-params log-level=error -c:a ac3", "H.265"},
    {"vp8.webm", kBoth, "-c:v libvpx -c:a libvorbis", "On2 VP8"},
    {"mpeg1.mpg", kBoth, NOISY "-c:v mpeg1video -c:a mp2", "MPEG-1 video", "176 x 144"},
    {"mpeg2.ts", kBoth, "-c:v mpeg2video -c:a mp2", "MPEG-2 video"},
    {"disc.vob", kBoth, NOISY "-f vob -c:v mpeg2video -c:a ac3", "MPEG-2 video", "176 x 144"},
    {"prores.mov", kBoth, "-c:v prores_ks -c:a pcm_s16le", "Apple ProRes"},
    {"phone.3gp", kBoth, "-s 176x144 -c:v h263 -c:a aac", "H.263", "176 x 144"},
    {"flash.flv", kBoth, "-c:v flv -c:a libmp3lame", "FLV"},
    {"windows.wmv", kBoth, "-c:v wmv2 -c:a wmav2", "Windows Media Video 8"},
    {"ntsc.avi", kBoth, "-r 30000/1001 -c:v mpeg4 -c:a pcm_s16le", "MPEG-4 part 2", "64 x 48", 1, 29.97},
    {"two sounds.mkv", kBoth, "-map 0:v -map 1:a -map 1:a -c:v mpeg4 -c:a ac3", "MPEG-4 part 2"},
    {"rotated.mp4", kBoth, "-c:v libx264 -metadata:s:v rotate=90 -c:a aac", "H.264"},
    {"odd.avi", kPictures, "-s 63x47 -c:v ffv1 -pix_fmt yuv444p", "FFmpeg video codec #1", "63 x 47"},
    {"thin.mkv", kPictures, "-s 2x1000 -c:v ffv1", "FFmpeg video codec #1", "2 x 1000"},
    {"slow.avi", kPictures, "-r 5 -c:v mpeg4", "MPEG-4 part 2", "64 x 48", 1.2, 5},
    {"silent.mp4", kPictures, "-c:v libx264", "H.264"},
    {"bare.m2v", kPictures, "-c:v mpeg2video", "MPEG-2 video"},
    {"edit list.mp4", kPictures, "-ss 0.4 -c:v libx264", "H.264", "64 x 48", 0.6},
    {"uneven.mkv", kPictures, "-vf select='not(between(n,5,14))' -fps_mode vfr -c:v libx264", "H.264"},
    {"several seconds.mp4", kPictures, "-vf loop=3:25 -c:v libx264", "H.264", "64 x 48", 4},
    {"no picture.mp4", kTone, "-c:a aac", "AAC", "44.1 KHz", 1, 0},
    {"m.mp3", kTone, "-c:a libmp3lame -id3v2_version 3", "MP3", "44.1 KHz", 1, 0},
    {"uneven.mp3", "-f lavfi -i sine=duration=5 ", "-c:a libmp3lame -q:a 4 -write_xing 0", "MP3", "44.1 KHz",
     5, 0},
    {"m.wav", kTone, "-c:a pcm_s16le", "PCM signed 16-bit little-endian", "44.1 KHz", 1, 0},
    {"m.flac", kTone, "-c:a flac", "FLAC", "44.1 KHz", 1, 0},
    {"m.ogg", kTone, "-c:a libvorbis", "Vorbis", "44.1 KHz", 1, 0},
    {"m.opus", kTone, "-c:a libopus", "Opus", "48 KHz", 1, 0},
    {"m.m4a", kTone, "-c:a aac", "AAC", "44.1 KHz", 1, 0},
    {"m.aac", kTone, "-c:a aac", "AAC", "44.1 KHz", 1, 0},
    {"m.wma", kTone, "-c:a wmav2", "Windows Media Audio 2", "44.1 KHz", 1, 0},
    {"telephone.wav", kTone, "-ar 8000 -c:a pcm_mulaw", "PCM mu-law", "8 KHz", 1, 0},
    {"s.jpg", kOne, "-pix_fmt yuvj420p", "JPEG"},
    {"s.png", kOne, "-pix_fmt rgba", "PNG"},
    {"s.bmp", kOne, "", "BMP"},
    {"s.tiff", kOne, "", "TIFF image"},
    {"s.webp", kOne, "-c:v libwebp", "WebP"},
    {"phone.heic", kOne, "heif-enc", "HEIC"},
    {"s.avif", kOne, "-c:v libaom-av1 -still-picture 1", "AVIF"},
    {"one.gif", kOne, "", "CompuServe GIF"},
    {"renamed.avi", kOne, "-f image2 -c:v png", "PNG"},
};

// Names, bytes and captions.
constexpr std::tuple<const char*, const char*, const char*> kRefused[] = {
    {"noise.avi", "no movie at all", "noise.avi - Not added to collection"},
    {"empty.avi", "", "empty.avi - Not added to collection"},
    {"noise.png", "no picture", "Error Decoding Image"},
    {"notes.txt", "words", "Movie not added to collection"},
    {"a.zip", "PK", "Compressed File"},
    {"score.mid", "MThd", "score.mid - Not added to collection"},
    {"a.rm", ".RMF", "RealPlayer Supported version of KVO Required"},
};

std::vector<std::string> wordsOf(const std::string& text) {
  std::istringstream each(text);
  return {std::istream_iterator<std::string>(each), std::istream_iterator<std::string>()};
}

void make(const ScratchFolder& folder, const Made& file) {
  if (file.encoding == std::string_view("heif-enc")) {
    const auto plain = test::makeMedia(folder, "plain.png", wordsOf(file.source));
    const auto end = test::runProgram({"heif-enc", plain, "-o", folder / file.name});
    ASSERT_EQ(end.exitCode, 0) << end.err;
    return;
  }
  auto arguments = wordsOf(std::string(file.source) + file.encoding);
  test::makeMedia(folder, file.name, arguments);
}

// A collection as its file has it.
struct Saved : test::StoreBench {
  explicit Saved(const std::string& path) {
    files.all[path] = test::bytesOf(path);
    const auto report =
        file.ReadINI(path, {.mayRewrite = false, .keepMissingClips = true, .isNeeded = false});
    EXPECT_EQ(report.end, ReadEnd::Done) << report.why;
  }
};

void expectRecord(const Movie& clip, const Made& file) {
  SCOPED_TRACE(file.name);
  EXPECT_EQ(clip.MovieName() + " " + clip.Resolution().text(),
            std::string(file.name) + " " + file.resolution);
  EXPECT_EQ(clip.IsStill(), file.isStill());
  EXPECT_EQ(clip.RenderAudio(), file.hasSound());
  EXPECT_EQ(clip.Size(), std::to_string(std::filesystem::file_size(clipFile(clip))));
  if (file.isStill()) {
    EXPECT_EQ(clip.DurationTime().text() + clip.DurationFrames().text(), "N/AN/A");
    EXPECT_EQ(std::to_string(clip.StillW()) + " x " + std::to_string(clip.StillH()), file.resolution);
    return;
  }
  EXPECT_NEAR(clip.DurationTime().number(), file.seconds, 0.11);
  EXPECT_EQ(clip.LoopEnd().number(), clip.DurationTime().number());
  EXPECT_NEAR(static_cast<double>(clip.FrameRate()), file.rate, 0.4);
  if (file.rate > 0) {
    EXPECT_NEAR(clip.DurationFrames().number(), file.seconds * file.rate, 1.1);
  }
}

// The program that adds files, with a home of its own.
struct RealMedia : testing::Test {
  ScratchFolder media;
  ScratchFolder home;
  RealMedia() { ::setenv("KVO5_HOME", home.path().c_str(), 1); }

  static test::ProgramEnd add(const std::string& collection, const std::string& name) {
    return test::runProgram({KVO_PROGRAMS "/kvo5", "--add", collection, name});
  }
};

TEST_F(RealMedia, OfManyKindsJoinsInOneGo) {
  const auto collection = home / "all.INI";
  std::vector<std::string> command{KVO_PROGRAMS "/kvo5", "--add", collection};
  for (const auto& file : kFiles) {
    make(media, file);
    command.push_back(media / file.name);
  }
  for (const auto& [name, bytes, caption] : kRefused) {
    std::ofstream(media / name) << bytes;
    command.push_back(media / name);
  }
  std::filesystem::copy(media / "mpeg4.avi", media / "movie.jpg");
  std::filesystem::copy(media / "h264.mp4", media / "cut off.mp4");
  std::filesystem::resize_file(media / "cut off.mp4", 900);
  for (const auto* odd : {"movie.jpg", "cut off.mp4", "gone.avi"}) command.push_back(media / odd);

  const auto end = test::runProgram(command);
  EXPECT_EQ(end.exitCode, 1) << "some were refused";
  for (const auto& [name, bytes, caption] : kRefused)
    EXPECT_TRUE(test::holds(end.err, (media / name) + ": " + caption + ":")) << name << end.err;
  for (const auto* why : {"Error Decoding Image:", "no synthesizer", "cut off.mp4 - Not added",
                          "KVO - Fatal File access Error:"})
    EXPECT_TRUE(test::holds(end.err, why)) << why << end.err;

  const Saved saved(collection);
  const auto& clips = saved.collection.MovieList;
  ASSERT_EQ(clips.count(), static_cast<int>(std::size(kFiles))) << end.err;
  const auto check = test::runProgram({KVO_PROGRAMS "/kvo5", "--check", collection}).out;
  for (int i = 1; i <= clips.count(); ++i) {
    const auto& file = kFiles[i - 1];
    expectRecord(clips[i], file);
    const auto line = check.substr(check.find(clipFile(clips[i]) + "\n"), 400);
    const std::string kind = file.isStill() ? "still, " : file.rate > 0 ? "video, " : "sound, ";
    EXPECT_TRUE(test::holds(line, kind + file.codec)) << line;
    if (!file.isStill()) continue;
    const auto probed = test::runProgram({KVO_PROGRAMS "/KVOprop", clipFile(clips[i])});
    EXPECT_EQ(probed.exitCode, 0) << "what joins can be asked: " << probed.err;
  }
}

TEST_F(RealMedia, TagsNamesAndFoldersAreTakenAsTheyAre) {
  auto tagged = wordsOf(std::string(kTone) + kPictures +
                        "-map 0 -map 1 -frames:v 1 -c:v mjpeg -disposition:v attached_pic");
  for (const auto* tag : {"title=Two words", "artist=Somebody", "album=That", "genre=Folk"})
    tagged.insert(tagged.end(), {"-metadata", tag});
  test::makeMedia(media, "cover.mp3", tagged);
  const std::string odd = "a b \"$(touch x)\" 'c'\xff.avi";
  make(media, kFiles[0]);
  std::filesystem::create_directory(media / "deep");
  std::filesystem::rename(media / kFiles[0].name, media / ("deep/" + odd));
  const auto end = add(home / "c.INI", media.path());
  EXPECT_EQ(end.exitCode, 0) << end.err;
  Saved saved(home / "c.INI");
  ASSERT_EQ(saved.collection.MovieList.count(), 2);
  EXPECT_EQ(saved.clip(1).AltName(), "Two words");
  EXPECT_EQ(saved.clip(1).Resolution().text(), "44.1 KHz") << "a cover is no picture";
  EXPECT_EQ(add(home / "c.INI", media / "none").exitCode, 1);
  std::filesystem::create_directory(media / "empty");
  const auto none = add(home / "c.INI", media / "empty");
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_EQ(none.err, "kvo5: no clip to add in " + (media / "empty") + "\n");
}

TEST_F(RealMedia, ACollectionThatIsBegunHasTheSkinOfTheProgram) {
  make(media, kFiles[0]);
  const auto skinOf = [&](const std::string& collection) {
    add(collection, media / kFiles[0].name);
    const Saved saved(collection);
    EXPECT_EQ(saved.collection.MovieList.count(), 1);
    return saved.settings.preferences().SkinPath;
  };
  EXPECT_EQ(skinOf(home / "first.INI"), "Def");
  auto own = test::bytesOf(home / "first.INI");
  std::ofstream(home / "KVO5.INI") << own.replace(own.find("= Def"), 5, "= /s/mine.jpg");
  EXPECT_EQ(skinOf(home / "second.INI"), "/s/mine.jpg");
}

}  // namespace
}  // namespace kvo
