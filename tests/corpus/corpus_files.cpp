#include "corpus/corpus_files.h"

#include "corpus/beeps.h"
#include "corpus/pattern.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

namespace kvo::test {
namespace {

// The encoder's own delay, of which an AVI has no word.
constexpr double kLameDelay = 1105.0 / 48000;

#define X264 "-c:v libx264 -preset ultrafast -crf 24 -g 15 "
#define X264B X264 "-bf 2 "
#define X265 "-c:v libx265 -preset ultrafast -x265-params log-level=error:bframes=2:keyint=15:pools=1 "
#define MPEG2B "-c:v mpeg2video -q:v 4 -g 15 -bf 2 "
#define INTERLACED "-flags +ildct+ilme "
#define DV "-c:v dvvideo -s 720x576 -pix_fmt yuv420p -aspect 16:9 "
#define HDR "-pix_fmt yuv420p10le -color_primaries bt2020 -colorspace bt2020nc -color_range tv "
constexpr const char* kFilm = "24000/1001";
constexpr const char* kNtsc = "30000/1001";
constexpr const char* kNtscTwice = "60000/1001";

// Noise in a part of the bytes, as shares of the file; what may be seen and heard of it, in seconds.
constexpr MediaFile holed(const char* name, const char* rate, const char* source,
                          Stretch overwritten = {0.45, 0.52}, Stretch unsure = {1.04, 2.7}) {
  return {.name = name,
          .rate = rate,
          .encoding = "",
          .source = source,
          .overwritten = overwritten,
          .unsure = unsure};
}

constexpr MediaFile cutOff(const char* name, const char* rate, const char* source) {
  return {.name = name, .rate = rate, .encoding = "", .source = source, .keptBytes = 0.6, .unsure = {1.5, 9}};
}

// The sound late by so many seconds; below 0 it comes first.
constexpr MediaFile apart(const char* name, const char* rate, double soundLate, const char* encoding) {
  return {.name = name, .rate = rate, .encoding = encoding, .soundLate = soundLate};
}

constexpr MediaFile soundLonger(const char* name, const char* encoding) {
  return {.name = name, .rate = "25", .encoding = encoding, .soundLonger = 1};
}

// Pictures of two fields, of successive numbers.
constexpr MediaFile interlaced(const char* name, const char* encoding) {
  return {.name = name, .rate = "50", .encoding = encoding, .numbersAFrame = 2};
}

constexpr MediaFile late(MediaFile file, double codecDelay) {
  file.codecDelay = codecDelay;
  return file;
}

// Its decoder swallows the first block.
constexpr MediaFile deaf(MediaFile file) {
  file.deafUntil = 0.1;
  return file;
}

#define STILL R"(-an -vf select=eq(n\,77) -frames:v 1 -update 1 )"
constexpr MediaFile still(const char* name, const char* encoding = STILL) {
  return {.name = name, .rate = "25", .encoding = encoding, .still = true};
}

const MediaFile kFiles[] = {
    // AVI
    late({"mpeg4-b.avi", "25", "-c:v mpeg4 -q:v 4 -bf 2 -g 15 -c:a libmp3lame"}, kLameDelay),
    {"h264-b.avi", "25", X264B "-c:a pcm_s16le"},
    {"h264-b-ntsc.avi", kNtsc, X264B "-c:a ac3"},
    {.name = "xvid-packed.avi",
     .rate = "25",
     .encoding = "-c:v libxvid -q:v 4 -bf 2 -g 15 -c:a mp2",
     .dropped = 2},
    {"msmpeg4.avi", kFilm, "-c:v msmpeg4 -q:v 4 -g 15 -c:a adpcm_ms"},
    {"mjpeg.avi", "15", "-c:v mjpeg -q:v 3 -pix_fmt yuvj420p -c:a adpcm_ima_wav"},
    {"huffyuv.avi", "30", "-c:v huffyuv -pix_fmt yuv422p -c:a pcm_s16le"},
    {"dv.avi", "25", DV "-c:a pcm_s16le"},
    {"camera.dv", "25", DV "-c:a pcm_s16le"},
    // MP4, QuickTime, 3GP
    {"h264.mp4", "25", X264B "-c:a aac"},
    {"h264-film.mp4", kFilm, X264B "-c:a aac"},
    {"h264-twice.mp4", kNtscTwice, X264B "-c:a aac"},
    {"h264-50.mp4", "50", X264B "-c:a ac3"},
    {"hevc.mp4", "30", X265 "-tag:v hvc1 -c:a aac"},
    {"mpeg4.mp4", "24", "-c:v mpeg4 -q:v 4 -bf 2 -g 15 -c:a libmp3lame"},
    {"mono.mp4", "25", X264B "-af pan=mono|c0=c0 -c:a aac"},
    {"prores.mov", "24", "-c:v prores_ks -profile:v 0 -c:a pcm_s16le"},
    {"mjpeg.mov", kNtsc, "-c:v mjpeg -q:v 3 -pix_fmt yuvj420p -c:a adpcm_ima_qt"},
    {"phone.3gp", "15", X264 "-c:a aac -ar 44100"},
    // Matroska, WebM
    {"h264-film.mkv", kFilm, X264B "-c:a ac3"},
    {"h264-ntsc.mkv", kNtsc, X264B "-c:a libvorbis"},
    {"h264-twice.mkv", kNtscTwice, X264B "-c:a flac"},
    {"hevc.mkv", "50", X265 "-c:a libopus"},
    {"ffv1.mkv", kNtsc, "-c:v ffv1 -c:a pcm_s16le"},
    {"vp8.webm", kNtsc, "-c:v libvpx -deadline realtime -cpu-used 8 -b:v 900k -g 15 -c:a libvorbis"},
    {"vp9.webm", kFilm, "-c:v libvpx-vp9 -deadline realtime -cpu-used 8 -b:v 600k -g 15 -c:a libopus"},
    // MPEG streams
    {"h264-b.ts", "25", X264B "-c:a ac3"},
    {"h264-twice.m2ts", kNtscTwice, X264B "-c:a ac3 -f mpegts -mpegts_m2ts_mode 1"},
    {"hevc.ts", "50", X265 "-c:a aac"},
    {"mpeg2-b.ts", kNtsc, MPEG2B "-c:a mp2"},
    {"ten-hours.ts", "25", X264B "-c:a mp2 -output_ts_offset 36000"},
    {"mpeg1.mpg", "30", "-c:v mpeg1video -q:v 4 -g 15 -bf 2 -c:a mp2"},
    {"mpeg2-ac3.mpg", "25", MPEG2B "-c:a ac3 -f vob"},
    {"mpeg2.vob", kNtsc, MPEG2B "-c:a mp2 -f vob"},
    {"raw.h264", "25", X264B "-an"},
    {"raw.m2v", "25", MPEG2B "-an"},
    // Flash, Windows Media, Ogg
    {"flv1.flv", "25", "-c:v flv -q:v 4 -g 15 -c:a libmp3lame -ar 44100"},
    {"h264-ntsc.flv", kNtsc, X264B "-c:a aac"},
    deaf({"wmv2.wmv", "25", "-c:v wmv2 -q:v 4 -g 15 -c:a wmav2"}),
    deaf({"wmv2-ntsc.wmv", kNtsc, "-c:v wmv2 -q:v 4 -g 15 -c:a wmav2"}),
    {"theora.ogv", "30", "-c:v libtheora -q:v 8 -g 15 -c:a libvorbis"},
    // Starts apart, cuts, lengths, rates
    apart("sound-first.mkv", kNtsc, -0.3, "-fps_mode passthrough " X264B "-c:a libvorbis"),
    apart("sound-first.flv", "25", -0.32, "-fps_mode passthrough " X264B "-c:a aac"),
    apart("sound-first.ts", "25", -0.32, "-fps_mode passthrough " X264B "-c:a mp2"),
    apart("sound-first.mp4", "25", -0.32, "-fps_mode passthrough " X264B "-c:a aac"),
    apart("sound-late.mkv", kFilm, 0.3, X264B "-c:a ac3"),
    apart("sound-late.mp4", "25", 0.3, X264B "-c:a aac"),
    apart("sound-late.mpg", "25", 0.3, MPEG2B "-c:a mp2 -f vob"),
    {.name = "edit-list.mp4", .rate = "25", .encoding = "-ss 1.12", .startsAt = 1.12, .source = "h264.mp4"},
    soundLonger("sound-longer.mp4", X264B "-c:a aac"),
    soundLonger("sound-longer.avi", X264B "-c:a pcm_s16le"),
    soundLonger("sound-longer.mkv", X264B "-c:a flac"),
    {.name = "uneven.mkv",
     .rate = "30",
     .encoding = R"(-vf select=lt(n\,30)+gte(n\,60)+not(mod(n\,3)) -fps_mode vfr )" X264B "-c:a flac",
     .uneven = true},
    {.name = "uneven.mp4",
     .rate = "30",
     .encoding = R"(-vf select=lt(n\,30)+gte(n\,60)+not(mod(n\,3)) -fps_mode vfr )" X264B "-c:a aac",
     .uneven = true},
    // Shapes, fields, colours
    {.name = "rotated.mp4", .rate = "25", .encoding = "-vf transpose=1 " X264B "-c:a aac", .turned = 90},
    {.name = "upside-down.mov", .rate = "25", .encoding = "-vf hflip,vflip " X264B "-c:a aac", .turned = 180},
    {"anamorphic.mp4", "25", "-vf scale=220:180,setsar=16/11 " X264B "-c:a aac"},
    {"anamorphic.mpg", "25", "-vf scale=240:180 " MPEG2B "-aspect 16:9 -c:a mp2"},
    interlaced("top-first.ts", "-vf tinterlace=interleave_top " INTERLACED "-top 1 " MPEG2B "-c:a mp2"),
    interlaced("bottom-first.mpg",
               "-vf tinterlace=interleave_bottom " INTERLACED "-top 0 " MPEG2B "-c:a mp2 -f vob"),
    interlaced("camcorder.mts", "-vf tinterlace=interleave_top " INTERLACED "-x264-params tff=1 " X264B
                                "-c:a ac3 -f mpegts -mpegts_m2ts_mode 1"),
    {.name = "untagged-720.mp4",
     .rate = "25",
     .encoding = "-vf scale=1280:720:flags=neighbor " X264B "-c:a aac",
     .highDefinition = true},
    {.name = "tagged-709.mkv",
     .rate = "25",
     .encoding = X264B "-colorspace bt709 -color_primaries bt709 -color_trc bt709 -c:a aac",
     .highDefinition = true},
    // White of 203 nits, in the code values of each curve: seen as it is, it would be a light grey.
    {.name = "pq.mp4",
     .rate = "25",
     .encoding = "-vf lutyuv=y=16+(val-16)*0.58 " HDR "-color_trc smpte2084 " X265 "-tag:v hvc1 -c:a aac",
     .tones = {{165, 256}, {35, 150}}},
    {.name = "hlg.mkv",
     .rate = "25",
     .encoding = "-vf lutyuv=y=16+(val-16)*0.75 " HDR "-color_trc arib-std-b67 " X265 "-c:a aac",
     .tones = {{198, 256}, {60, 170}}},
    // Damage
    holed("damaged.ts", "25", "h264-b.ts"),
    holed("damaged.mpg", "25", "mpeg2-ac3.mpg"),
    late(holed("damaged.avi", "25", "mpeg4-b.avi"), kLameDelay),
    holed("damaged.mkv", kNtsc, "h264-ntsc.mkv"),
    holed("damaged.flv", "25", "flv1.flv"),
    holed("damaged.mp4", "25", "h264.mp4"),
    holed("damaged.wmv", "25", "wmv2.wmv", {0.4, 0.6}, {0, 2.7}),
    holed("damaged.opus", "", "sound.opus", {0.35, 0.5}, {0.9, 3.2}),
    cutOff("cut-off.ts", "25", "h264-b.ts"),
    late(cutOff("cut-off.avi", "25", "mpeg4-b.avi"), kLameDelay),
    cutOff("cut-off.mkv", kNtsc, "h264-ntsc.mkv"),
    cutOff("cut-off.flv", "25", "flv1.flv"),
    // Stills
    still("still.png"),
    still("still.jpg", STILL "-q:v 2"),
    still("still.bmp"),
    still("still.tiff"),
    still("still.webp", STILL "-c:v libwebp -q:v 90"),
    // Sounds
    {"sound.wav", "", "-vn -c:a pcm_s16le"},
    {"adpcm-ima.wav", "", "-vn -c:a adpcm_ima_wav"},
    {"adpcm-ms.wav", "", "-vn -c:a adpcm_ms"},
    {"sound.aiff", "", "-vn -c:a pcm_s16be"},
    {"sound.mp3", "", "-vn -c:a libmp3lame"},
    {"sound.flac", "", "-vn -c:a flac"},
    {"sound.ogg", "", "-vn -c:a libvorbis"},
    {"sound.opus", "", "-vn -c:a libopus"},
    {"sound.m4a", "", "-vn -c:a aac"},
    late({"sound.aac", "", "-vn -c:a aac"}, 1024.0 / 48000),
    {"sound.mp2", "", "-vn -c:a mp2"},
    {"sound.ac3", "", "-vn -c:a ac3"},
    late(deaf({"sound.wma", "", "-vn -c:a wmav2"}), 2048.0 / 48000),
    {"sound.au", "", "-vn -c:a pcm_s16be"},
    {"mono.wav", "", "-vn -af pan=mono|c0=c0 -c:a pcm_s16le"},
};

std::string inputRate(const MediaFile& file) { return *file.rate == 0 ? "25" : file.rate; }

bool sharesInput(const MediaFile& a, const MediaFile& b) {
  return *a.source == 0 && *b.source == 0 && inputRate(a) == inputRate(b) && a.soundLate == b.soundLate &&
         a.soundLonger == b.soundLonger && a.highDefinition == b.highDefinition;
}

// ffmpeg's arguments, parted by blanks.
void addWords(std::vector<std::string>& command, const std::string& words) {
  std::istringstream stream(words);
  for (std::string word; stream >> word;) command.push_back(word);
}

void run(const std::string& words, const std::string& output) {
  std::vector<std::string> command = {"ffmpeg", "-v", "error", "-nostdin", "-y"};
  addWords(command, words);
  command.push_back(output);
  const auto end = runProgram(command);
  EXPECT_EQ(end.exitCode, 0) << end.err;
}

void damage(const std::string& path, const MediaFile& file) {
  auto bytes = bytesOf(path);
  const auto placeOf = [size = bytes.size()](double share) {
    return static_cast<std::size_t>(share * static_cast<double>(size));
  };
  const auto first = placeOf(file.overwritten.from);
  const auto count = placeOf(file.overwritten.to) - first;
  bytes.replace(first, count, noise(count));
  std::ofstream(path, std::ios::binary) << bytes.substr(0, placeOf(file.keptBytes));
}

void tellToTurn(const std::string& path, int degrees) {
  const auto told = std::filesystem::path(path).replace_filename(
      "turned-" + std::filesystem::path(path).filename().string());
  run("-i " + path + " -c copy -metadata:s:v:0 rotate=" + std::to_string(degrees), told.string());
  std::filesystem::rename(told, path);
}

}  // namespace

void PrintTo(const MediaFile& file, std::ostream* out) { *out << file.name; }

std::span<const MediaFile> mediaFiles() { return kFiles; }

double rateOf(const MediaFile& file) {
  const std::string rate = inputRate(file);
  const auto slash = rate.find('/');
  return std::stod(rate) / (slash == std::string::npos ? 1 : std::stod(rate.substr(slash + 1))) /
         file.numbersAFrame;
}

int picturesOf(const MediaFile& file) {
  return static_cast<int>(std::lround(std::ceil((kMediaSeconds - file.startsAt) * rateOf(file) - 1e-6)));
}

bool hasSound(const MediaFile& file) {
  return !file.still && std::string_view(file.encoding).find("-an") == std::string_view::npos;
}

int shownNumber(const MediaFile& file, int number) {
  if (file.still) return kStillNumber;
  const int held = std::clamp(number, 0, picturesOf(file) - 1);
  if (file.uneven && held >= 30 && held < 60) return held / 3 * 3;
  return (held + static_cast<int>(std::lround(file.startsAt * rateOf(file)))) * file.numbersAFrame;
}

Corpus::Corpus() {
  for (const auto& [name, weights, count] :
       {std::tuple{"601.yuv", Weights::Bt601, kNumbers}, {"709.yuv", Weights::Bt709, 100}}) {
    std::ofstream pictures(folder_ / name, std::ios::binary);
    for (int number = 0; number < count; ++number)
      pictures << drawnPattern(number, kPictureWidth, kPictureHeight, weights);
  }
  std::ofstream(folder_ / "beeps", std::ios::binary) << drawnBeeps();
}

std::string Corpus::pathOf(const MediaFile& file) {
  const auto path = folder_ / file.name;
  if (made_.contains(file.name)) return path;
  if (*file.source == 0) {
    makeLike(file);
    return path;
  }
  const auto* source = std::find_if(std::begin(kFiles), std::end(kFiles), [&](const auto& row) {
    return std::string_view(row.name) == file.source;
  });
  const auto from = pathOf(*source);
  if (*file.encoding != 0) {
    run(std::string(file.encoding) + " -i " + from + " -c copy", path);
  } else {
    std::filesystem::copy_file(from, path);
    damage(path, file);
  }
  made_.insert(file.name);
  return path;
}

void Corpus::makeLike(const MediaFile& file) {
  const auto late = [](double seconds) {
    return seconds > 0 ? " -itsoffset " + std::to_string(seconds) : std::string();
  };
  auto words = late(-file.soundLate) + " -f rawvideo -pixel_format yuv420p -video_size " +
               std::to_string(kPictureWidth) + "x" + std::to_string(kPictureHeight) + " -framerate " +
               inputRate(file) + " -t " + std::to_string(kMediaSeconds) + " -i " +
               folder_ / (file.highDefinition ? "709.yuv" : "601.yuv") + late(file.soundLate) +
               " -f s16le -ar " + std::to_string(kBeepRate) + " -ac 2 -t " +
               std::to_string(kMediaSeconds + file.soundLonger) + " -i " + folder_ / "beeps";
  std::string last;
  for (const auto& row : kFiles) {
    if (!sharesInput(file, row)) continue;
    words += " " + last + " " + row.encoding;
    last = folder_ / row.name;
    made_.insert(row.name);
  }
  run(words, last);
  for (const auto& row : kFiles) {
    if (row.turned != 0 && sharesInput(file, row)) tellToTurn(folder_ / row.name, row.turned);
  }
}

}  // namespace kvo::test
