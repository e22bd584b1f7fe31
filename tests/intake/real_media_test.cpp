// Media of many kinds, made on the spot and added in one go: what the records hold, or why there is none.
#include "adapters/posix/posix_clock.h"
#include "adapters/posix/posix_files.h"
#include "program/collection_store.h"
#include "support/real_world.h"
#include "support/scripted_boxes.h"

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
  const char* resolution = "64 x 48";
  const char* codec = "";
  double seconds = 1;  // 0: none is told
  double rate = 25;
  bool sound = false;
  bool still = false;
};

constexpr Made film(const char* name, const char* encoding, const char* codec,
                    const char* resolution = "64 x 48", double rate = 25) {
  return {name, kBoth, encoding, resolution, codec, 1, rate, true};
}
constexpr Made silent(const char* name, const char* encoding, const char* codec,
                      const char* resolution = "64 x 48", double rate = 25, double seconds = 1) {
  return {name, kPictures, encoding, resolution, codec, seconds, rate};
}
constexpr Made tone(const char* name, const char* encoding, const char* codec,
                    const char* resolution = "44.1 KHz") {
  return {name, kTone, encoding, resolution, codec, 1, 0, true};
}
constexpr Made still(const char* name, const char* encoding, const char* codec,
                     const char* resolution = "64 x 48") {
  return {name, kOne, encoding, resolution, codec, 0, 0, false, true};
}

// Pictures so large that each has a time of its own in a program stream.
#define NOISY "-s 176x144 -vf noise=alls=80:allf=t -q:v 1 "

const Made kFiles[] = {
    film("mpeg4.avi", "-c:v mpeg4 -c:a libmp3lame", "MPEG-4 part 2"),
    film("h264.mp4", "-c:v libx264 -c:a aac", "H.264"),
    film("hevc.mkv", "-c:v libx265 -x265-params log-level=error -c:a ac3", "H.265"),
    film("vp8.webm", "-c:v libvpx -c:a libvorbis", "On2 VP8"),
    film("mpeg1.mpg", NOISY "-c:v mpeg1video -c:a mp2", "MPEG-1 video", "176 x 144"),
    film("mpeg2.ts", "-c:v mpeg2video -c:a mp2", "MPEG-2 video"),
    film("disc.vob", NOISY "-f vob -c:v mpeg2video -c:a ac3", "MPEG-2 video", "176 x 144"),
    film("prores.mov", "-c:v prores_ks -c:a pcm_s16le", "Apple ProRes"),
    film("phone.3gp", "-s 176x144 -c:v h263 -c:a aac", "H.263", "176 x 144"),
    film("flash.flv", "-c:v flv -c:a libmp3lame", "FLV"),
    film("windows.wmv", "-c:v wmv2 -c:a wmav2", "Windows Media Video 8"),
    film("ntsc.avi", "-r 30000/1001 -c:v mpeg4 -c:a pcm_s16le", "MPEG-4 part 2", "64 x 48", 29.97),
    film("two sounds.mkv", "-map 0:v -map 1:a -map 1:a -c:v mpeg4 -c:a ac3", "MPEG-4 part 2"),
    film("rotated.mp4", "-c:v libx264 -metadata:s:v rotate=90 -c:a aac", "H.264"),
    silent("odd.avi", "-s 63x47 -c:v ffv1 -pix_fmt yuv444p", "FFmpeg video codec #1", "63 x 47"),
    silent("thin.mkv", "-s 2x1000 -c:v ffv1", "FFmpeg video codec #1", "2 x 1000"),
    silent("slow.avi", "-r 5 -c:v mpeg4", "MPEG-4 part 2", "64 x 48", 5, 1.2),
    silent("silent.mp4", "-c:v libx264", "H.264"),
    silent("bare.m2v", "-c:v mpeg2video", "MPEG-2 video"),
    silent("edit list.mp4", "-ss 0.4 -c:v libx264", "H.264", "64 x 48", 25, 0.6),
    silent("uneven.mkv", "-vf select='not(between(n,5,14))' -fps_mode vfr -c:v libx264", "H.264", "64 x 48",
           25),
    silent("several seconds.mp4", "-vf loop=3:25 -c:v libx264", "H.264", "64 x 48", 25, 4),
    tone("no picture.mp4", "-c:a aac", "AAC"),
    tone("m.mp3", "-c:a libmp3lame -id3v2_version 3", "MP3"),
    {"uneven.mp3", "-f lavfi -i sine=duration=5 ", "-c:a libmp3lame -q:a 4 -write_xing 0", "44.1 KHz", "MP3",
     5, 0, true},
    tone("m.wav", "-c:a pcm_s16le", "PCM signed 16-bit little-endian"),
    tone("m.flac", "-c:a flac", "FLAC"),
    tone("m.ogg", "-c:a libvorbis", "Vorbis"),
    tone("m.opus", "-c:a libopus", "Opus", "48 KHz"),
    tone("m.m4a", "-c:a aac", "AAC"),
    tone("m.aac", "-c:a aac", "AAC"),
    tone("m.wma", "-c:a wmav2", "Windows Media Audio 2"),
    tone("telephone.wav", "-ar 8000 -c:a pcm_mulaw", "PCM mu-law", "8 KHz"),
    still("s.jpg", "-pix_fmt yuvj420p", "JPEG"),
    still("s.png", "-pix_fmt rgba", "PNG"),
    still("s.bmp", "", "BMP"),
    still("s.tiff", "", "TIFF image"),
    still("s.webp", "-c:v libwebp", "WebP"),
    still("phone.heic", "heif-enc", "HEIC"),
    still("s.avif", "-c:v libaom-av1 -still-picture 1", "AVIF"),
    still("one.gif", "", "CompuServe GIF"),
    still("renamed.avi", "-f image2 -c:v png", "PNG"),
};

struct Refused {
  const char* name;
  const char* bytes;
  const char* caption;
};
constexpr Refused kRefused[] = {
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
struct Saved {
  explicit Saved(const std::string& path) {
    const auto report =
        file.ReadINI(path, {.mayRewrite = false, .keepMissingClips = true, .isNeeded = false});
    EXPECT_EQ(report.end, ReadEnd::Done) << report.why;
  }
  PosixFiles files;
  PosixClock clock;
  test::ScriptedBoxes boxes;
  ProgramFolder folder{"/nowhere"};
  KVO2 settings;
  Collection collection;
  ErrorLog log{files, clock, settings, folder};
  CollectionStore file{files, clock, boxes, log, folder, settings, collection};
};

void expectRecord(const Movie& clip, const Made& file) {
  SCOPED_TRACE(file.name);
  EXPECT_EQ(clip.MovieName(), file.name);
  EXPECT_EQ(clip.Resolution().text(), file.resolution);
  EXPECT_EQ(clip.IsStill(), file.still);
  EXPECT_EQ(clip.RenderAudio(), file.sound);
  EXPECT_EQ(clip.Size(), std::to_string(std::filesystem::file_size(clipFile(clip))));
  if (file.still) {
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

TEST(RealMedia, OfManyKindsJoinsInOneGo) {
  const ScratchFolder media;
  const ScratchFolder home;
  ::setenv("KVO5_HOME", home.path().c_str(), 1);
  const auto collection = home / "all.INI";
  std::vector<std::string> command{KVO_PROGRAMS "/kvo5", "--add", collection};
  for (const auto& file : kFiles) {
    make(media, file);
    command.push_back(media / file.name);
  }
  for (const auto& file : kRefused) {
    std::ofstream(media / file.name) << file.bytes;
    command.push_back(media / file.name);
  }
  std::filesystem::copy(media / "mpeg4.avi", media / "movie.jpg");
  std::filesystem::copy(media / "h264.mp4", media / "cut off.mp4");
  std::filesystem::resize_file(media / "cut off.mp4", 900);
  for (const auto* odd : {"movie.jpg", "cut off.mp4", "gone.avi"}) command.push_back(media / odd);

  const auto end = test::runProgram(command);
  EXPECT_EQ(end.exitCode, 1) << "some were refused";
  for (const auto& file : kRefused)
    EXPECT_NE(end.err.find((media / file.name) + ": " + file.caption + ":"), std::string::npos)
        << file.name << end.err;
  for (const auto* caption : {"Error Decoding Image:", "no synthesizer", "cut off.mp4 - Not added",
                              "KVO - Fatal File access Error:"})
    EXPECT_NE(end.err.find(caption), std::string::npos) << caption << end.err;

  const Saved saved(collection);
  const auto& clips = saved.collection.MovieList;
  ASSERT_EQ(clips.count(), static_cast<int>(std::size(kFiles))) << end.err;
  const auto check = test::runProgram({KVO_PROGRAMS "/kvo5", "--check", collection}).out;
  for (int i = 1; i <= clips.count(); ++i) {
    const auto& file = kFiles[i - 1];
    expectRecord(clips[i], file);
    const auto line = check.substr(check.find(clipFile(clips[i]) + "\n"), 400);
    EXPECT_NE(line.find(std::string(file.still      ? "still"
                                    : file.rate > 0 ? "video"
                                                    : "sound") +
                        ", " + file.codec),
              std::string::npos)
        << line;
    if (!file.still) continue;
    const auto probed = test::runProgram({KVO_PROGRAMS "/KVOprop", clipFile(clips[i])});
    EXPECT_EQ(probed.exitCode, 0) << "what joins can be asked: " << probed.err;
  }
}

TEST(RealMedia, TagsNamesAndFoldersAreTakenAsTheyAre) {
  const ScratchFolder media;
  const ScratchFolder home;
  ::setenv("KVO5_HOME", home.path().c_str(), 1);
  auto tagged = wordsOf(std::string(kTone) + kPictures +
                        "-map 0 -map 1 -frames:v 1 -c:v mjpeg -disposition:v attached_pic");
  for (const auto* tag : {"title=Two words", "artist=Somebody", "album=That", "genre=Folk"})
    tagged.insert(tagged.end(), {"-metadata", tag});
  test::makeMedia(media, "cover.mp3", tagged);
  const std::string odd = "a b \"$(touch x)\" 'c'\xff.avi";
  make(media, kFiles[0]);
  std::filesystem::create_directory(media / "deep");
  std::filesystem::rename(media / kFiles[0].name, media / ("deep/" + odd));
  const auto end = test::runProgram({KVO_PROGRAMS "/kvo5", "--add", home / "c.INI", media.path()});
  EXPECT_EQ(end.exitCode, 0) << end.err;
  const Saved saved(home / "c.INI");
  ASSERT_EQ(saved.collection.MovieList.count(), 2);
  EXPECT_EQ(saved.collection.MovieList[1].AltName(), "Two words");
  EXPECT_EQ(saved.collection.MovieList[1].Resolution().text(), "44.1 KHz") << "a cover is no picture";
  EXPECT_EQ(test::runProgram({KVO_PROGRAMS "/kvo5", "--add", home / "c.INI", media / "none"}).exitCode, 1);
  std::filesystem::create_directory(media / "empty");
  const auto none = test::runProgram({KVO_PROGRAMS "/kvo5", "--add", home / "c.INI", media / "empty"});
  EXPECT_EQ(none.exitCode, 1);
  EXPECT_EQ(none.err, "kvo5: no clip to add in " + (media / "empty") + "\n");
}

TEST(RealMedia, ACollectionThatIsBegunHasTheSkinOfTheProgram) {
  const ScratchFolder media;
  const ScratchFolder home;
  ::setenv("KVO5_HOME", home.path().c_str(), 1);
  make(media, kFiles[0]);
  const auto skinOf = [&](const std::string& collection) {
    test::runProgram({KVO_PROGRAMS "/kvo5", "--add", collection, media / kFiles[0].name});
    const Saved saved(collection);
    EXPECT_EQ(saved.collection.MovieList.count(), 1);
    return saved.settings.preferences().SkinPath;
  };
  EXPECT_EQ(skinOf(home / "first.INI"), "Def");
  PosixFiles files;
  auto own = files.read(home / "first.INI", 1U << 20U).value();
  own.replace(own.find("= Def"), 5, "= /s/mine.jpg");
  ASSERT_TRUE(writeDurably(files, home / "KVO5.INI", own));
  EXPECT_EQ(skinOf(home / "second.INI"), "/s/mine.jpg");
}

}  // namespace
}  // namespace kvo
