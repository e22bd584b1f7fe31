// Real media through the engine: the number in every picture, the beeps, the colours, or the refusal.
#include "base/numbers.h"
#include "base/text.h"
#include "corpus/beeps.h"
#include "corpus/corpus_files.h"
#include "corpus/pattern.h"
#include "engine/document/document_reader.h"
#include "engine/picture/compositor.h"
#include "engine/sound/mixer.h"
#include "media/audio_reader.h"
#include "media/damage.h"
#include "media/media_facts.h"
#include "support/documents.h"
#include "support/golden.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace kvo::test {
namespace {

constexpr double kBeepTolerance = 0.020;  // seconds
constexpr double kSlowTolerance = 0.025;  // of what is played slower: stretching blurs the beep
constexpr double kColourTolerance = 14;   // levels
constexpr double kLevelTolerance = 0.2;   // a beep's peak, as a share

// A part of a file as it is shown.
struct Section {
  double from = 0;    // source seconds
  double length = 0;  // source seconds
  double speed = 1;
  double rate = 25;  // the movie's
  int width = kPictureWidth;
  int height = kPictureHeight;

  [[nodiscard]] double shown() const { return length / speed; }
  [[nodiscard]] std::string text() const {
    return "from " + FormatMask(from, "0.000") + " s for " + FormatMask(length, "0.00") + " s, speed " +
           ShortText(speed) + ", " + FormatMask(rate, "0.00") + " a second, " + std::to_string(width) +
           " x " + std::to_string(height) + ": ";
  }
};

std::string documentOf(const std::string& path, const Section& section, bool picture, bool sound) {
  const std::vector<DocumentClip> clip{
      {path, section.from, section.from + section.length, 0, section.shown()}};
  const std::vector<DocumentClip> none;
  return documentOf(picture ? clip : none, sound ? clip : none,
                    {section.width, section.height, ShortText(section.rate)});
}

// The whole of the display shape within the canvas, bars left and right or above and below.
Part placeIn(const Section& section) {
  const double scale = std::min(1.0 * section.width / kPictureWidth, 1.0 * section.height / kPictureHeight);
  const double width = kPictureWidth * scale;
  const double height = kPictureHeight * scale;
  return {(section.width - width) / 2, (section.height - height) / 2, width, height};
}

// The faults of one kind: their number, and the words of the first.
struct Faults {
  std::int64_t count = 0;
  std::string first;
  void add(const std::string& fault) {
    if (count++ == 0) first = fault;
  }
  [[nodiscard]] std::string text(const std::string& what, std::int64_t of) const {
    if (count == 0) return "";
    return std::to_string(count) + " of " + std::to_string(of) + " " + what + " wrong, first " + first + "; ";
  }
};

std::string words(const Rgb& c) {
  return FormatMask(c[0], "0") + "," + FormatMask(c[1], "0") + "," + FormatMask(c[2], "0");
}

std::string colourFault(const MediaFile& file, const Reading& reading) {
  if (file.tones.white.to > 0) {
    const bool right =
        file.tones.white.holds(reading.white[1]) && file.tones.grey.holds(reading.patches[3][1]);
    return right ? "" : "white is " + words(reading.white) + ", grey " + words(reading.patches[3]);
  }
  for (std::size_t patch = 0; patch < kPatches.size(); ++patch) {
    const auto& seen = reading.patches[patch];
    for (std::size_t i = 0; i < 3; ++i) {
      if (std::fabs(seen[i] - kPatches[patch][i]) > kColourTolerance)
        return "patch " + std::to_string(patch) + " is " + words(seen) + ", not " + words(kPatches[patch]);
    }
  }
  return "";
}

// What is missing of a file that was cut off is refused in words that say where it ends.
bool isRefusedEnd(const MediaFile& file, double time, const Error& error) {
  return file.keptBytes < 1 && file.unsure.holds(time) &&
         error.text.find(std::string(file.name) + " ends at ") != std::string::npos &&
         error.text.find(" s, the clip goes on to ") != std::string::npos;
}

// Each frame shows the picture that begins there or before. Where the movie runs at the file's own rate from
// a frame's begin on, there is no room for another; else a neighbour will do.
std::string pictureFaults(const MediaFile& file, const Section& section, const engine::Timeline& timeline,
                          media::DamageList& damage) {
  engine::Compositor compositor(timeline, {.damage = &damage});
  const double rate = rateOf(file);
  const auto frames = timeline.frameRate.frameFrom(timeline.length());
  const bool exact = section.speed == 1 && std::fabs(section.rate - rate) < 1e-6;
  Faults numbers;
  Faults colours;
  Faults shapes;
  for (std::int64_t i = 0; i < frames; ++i) {
    const double time = section.from + static_cast<double>(i) / section.rate * section.speed;
    const auto picture = compositor.frame(i);
    if (!picture && isRefusedEnd(file, time, picture.error())) break;
    if (!picture) return "frame " + std::to_string(i) + ": " + picture.error().text + "; ";
    if (file.unsure.holds(time)) continue;
    const auto mean = meansOf(*picture);
    const auto place = placeIn(section);
    const auto reading = readPattern(mean, place);
    const auto at = "frame " + std::to_string(i) + ": ";
    const int wanted = static_cast<int>(std::floor(time * rate + 0.01));
    const int least = shownNumber(file, exact ? wanted : wanted - 1) - file.dropped;
    const int most = shownNumber(file, exact ? wanted : wanted + 1) + file.numbersAFrame - 1;
    if (!reading.number || *reading.number < least || *reading.number > most) {
      numbers.add(at + (reading.number ? std::to_string(*reading.number) : "nothing legible") + " for " +
                  std::to_string(shownNumber(file, wanted)));
      continue;
    }
    if (const auto fault = colourFault(file, reading); !fault.empty()) colours.add(at + fault);
    if (!fills(mean, place, section.width, section.height)) shapes.add(at + "edges are elsewhere");
  }
  return numbers.text("numbers", frames) + colours.text("colours", frames) + shapes.text("shapes", frames);
}

// Every beep that belongs into the section is heard in its place, as loud as it was, and no other.
std::string soundFaults(const MediaFile& file, const Section& section, const engine::Timeline& timeline,
                        media::DamageList& damage) {
  engine::Mixer mixer(timeline, 0, &damage);
  std::vector<float> samples(2 * static_cast<std::size_t>(std::lround(section.shown() * media::kSampleRate)));
  if (const auto done = mixer.read(samples); !done) return "sound: " + done.error().text + "; ";
  const double tolerance = section.speed < 1 ? kSlowTolerance : kBeepTolerance;
  std::string faults;
  auto heard = beepsIn(samples);
  for (int second = 0; second < kBeeps; ++second) {
    const double source = second + file.soundLate + file.codecDelay - file.startsAt;
    if (second >= kMediaSeconds + file.soundLonger) continue;
    const double at = (source - section.from) / section.speed;
    const auto found = std::find_if(heard.begin(), heard.end(), [&](const Beep& beep) {
      return beep.second == second && std::fabs(beep.at - at) <= tolerance;
    });
    if (found != heard.end()) {
      if (section.speed == 1 && std::fabs(found->level / kBeepLevel - 1) > kLevelTolerance &&
          found->at + kBeepLength < section.shown() && at > -0.005) {
        faults += "beep " + std::to_string(second) + " peaks at " + FormatMask(found->level, "0.00") + "; ";
      }
      heard.erase(found);
    } else if (at >= -0.001 && at + kBeepLength <= section.shown() && source >= file.deafUntil &&
               !file.unsure.holds(source)) {
      faults += "no beep " + std::to_string(second) + " at " + FormatMask(at, "0.000") + " s; ";
    }
  }
  for (const auto& beep : heard) {
    // One that began ahead of the section is heard to its end.
    if (beep.at < tolerance || file.unsure.holds(section.from + beep.at * section.speed)) continue;
    faults += "beep " + std::to_string(beep.second) + " at " + FormatMask(beep.at, "0.000") + " s; ";
  }
  return faults;
}

// What is damaged is told where it is shown, and nothing else is.
std::string tellingFaults(const MediaFile& file, const Section& section,
                          const std::vector<media::Damage>& told) {
  const bool holed = file.overwritten.to > 0;
  const bool cut = file.keptBytes < 1;  // the last picture may be half there, the promised length tells more
  for (const auto& hole : told) {
    if ((!holed && !cut) || hole.to < file.unsure.from || hole.from > file.unsure.to) {
      return "damage is told from " + FormatMask(hole.from, "0.00") + " to " + FormatMask(hole.to, "0.00") +
             " s; ";
    }
  }
  const bool shown = section.from <= file.unsure.from && section.from + section.length >= file.unsure.to;
  return holed && shown && told.empty() ? "no damage is told; " : "";
}

std::vector<Section> sectionsOf(const MediaFile& file) {
  const double rate = rateOf(file);
  const double end = picturesOf(file) / rate + file.soundLonger;
  std::vector<Section> sections;
  const auto add = [&](double from, double length, double speed, double movieRate) {
    const double first = std::round(from * rate) / rate;
    sections.push_back({first, std::min(length, end - first), speed, movieRate});
  };
  add(0, end, 1, rate);
  for (const double from : {1.6, end - 0.5}) add(from, 0.6, 1, rate);
  if (rate != 25) add(0.2, 1.2, 1, 25);
  // Stretching sound takes the most of the time, and is the same for all files: once from the first sample,
  // and once behind a seek and up to the end.
  add(0, 0.3, 0.5, rate);
  add(end - 0.5, 0.5, 2, rate);
  sections.push_back({0, 0.2, 1, rate, 240, 240});
  sections.push_back({1 / rate * std::floor(rate), 0.2, 1, rate, 480, 180});
  return sections;
}

// One for all tests of a run; the folder goes at its end.
Corpus& corpus() {
  static Corpus made;
  media::silenceRemarks();
  return made;
}

class CorpusFile : public testing::TestWithParam<MediaFile> {};

TEST_P(CorpusFile, ShowsAndSoundsInItsPlace) {
  const auto& file = GetParam();
  const bool picture = *file.rate != 0;
  const auto path = corpus().pathOf(file);
  std::string faults;
  for (const auto& section : sectionsOf(file)) {
    const auto timeline = engine::readDocument(documentOf(path, section, picture, hasSound(file)));
    ASSERT_TRUE(timeline) << timeline.error().text;
    std::string found;
    media::DamageList damage;
    if (picture) found += pictureFaults(file, section, *timeline, damage);
    if (hasSound(file)) found += soundFaults(file, section, *timeline, damage);
    found += tellingFaults(file, section, damage.all());
    if (!found.empty()) faults += "\n  " + section.text() + found;
  }
  EXPECT_TRUE(faults.empty()) << file.name << faults;
}

INSTANTIATE_TEST_SUITE_P(Media, CorpusFile, testing::ValuesIn(mediaFiles().begin(), mediaFiles().end()),
                         [](const auto& row) {
                           std::string name = row.param.name;
                           std::replace_if(
                               name.begin(), name.end(), [](char c) { return c == '-' || c == '.'; }, '_');
                           return name;
                         });

const MediaFile& fileNamed(std::string_view name) {
  return *std::find_if(mediaFiles().begin(), mediaFiles().end(),
                       [&](const auto& file) { return file.name == name; });
}

TEST(CorpusRefusal, SaysWhatIsWrongWithWhichFile) {
  const ScratchFolder folder;
  const auto write = [&](const std::string& name, const std::string& bytes) {
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return folder / name;
  };
  const auto movie = corpus().pathOf(fileNamed("h264.mp4"));
  const auto whole = bytesOf(movie);
  std::filesystem::copy_file(movie, folder / "whole.mp4");
  const struct {
    std::string path;
    bool picture = true;
    double from = 0;
  } rows[] = {
      {write("noise.mp4", noise(100000))},
      {write("noise.mp3", noise(100000)), false},
      {write("empty.mkv", "")},
      {write("text.avi", "This is a letter.\r\n")},
      // What tells of the pictures stands at the end of an MP4.
      {write("cut.mp4", whole.substr(0, whole.size() * 6 / 10))},
      {write("list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nwhole.mp4\n#EXT-X-ENDLIST\n")},
      {write("list.ffconcat", "ffconcat version 1.0\nfile whole.mp4\n")},
      {write("zero.ppm", "P6\n0 0\n255\n")},
      {write("huge.ppm", "P6\n20000 20000\n255\n")},
      {folder / "none.avi"},
      {corpus().pathOf(fileNamed("sound.wav"))},
      {corpus().pathOf(fileNamed("raw.h264")), false},
      {movie, true, 5},
  };
  std::string told;
  for (const auto& row : rows) {
    const auto timeline =
        engine::readDocument(documentOf(row.path, {row.from, 0.4, 1, 25}, row.picture, !row.picture));
    ASSERT_TRUE(timeline) << timeline.error().text;
    std::string text;
    if (row.picture) {
      engine::Compositor compositor(*timeline);
      if (const auto picture = compositor.frame(0); !picture) text = picture.error().text;
    } else {
      engine::Mixer mixer(*timeline, 0);
      std::vector<float> samples(2000);
      if (const auto done = mixer.read(samples); !done) text = done.error().text;
    }
    told += replaced(text, std::filesystem::path(row.path).parent_path().string() + "/", "IN/") + "\n";
  }
  expectGolden("refused-media.txt", told);
}

// A recording's clock may have run for hours when it begins.
TEST(CorpusRefusal, ARecordingEndsWhereItsOwnTimeDoes) {
  const auto path = corpus().pathOf(fileNamed("ten-hours.ts"));
  const auto timeline = engine::readDocument(documentOf(path, {0, 9, 1, 25}, true, false));
  ASSERT_TRUE(timeline) << timeline.error().text;
  media::DamageList damage;
  engine::Compositor compositor(*timeline, {.damage = &damage});
  std::string refused;
  for (int frame = 0; frame < 9 * 25 && refused.empty(); ++frame)
    if (const auto picture = compositor.frame(frame); !picture) refused = picture.error().text;
  EXPECT_EQ(refused.substr(0, path.size() + 10), path + " ends at 3") << refused;
  EXPECT_TRUE(damage.all().empty());
}

}  // namespace
}  // namespace kvo::test
