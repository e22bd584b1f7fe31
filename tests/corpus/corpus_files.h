// Media files as people have them, made by ffmpeg's encoders: each row says how, and what is true of it.
#pragma once

#include "support/real_world.h"

#include <iosfwd>
#include <set>
#include <span>
#include <string>

namespace kvo::test {

inline constexpr int kPictureWidth = 320;  ///< of the display shape of each file, in square pixels
inline constexpr int kPictureHeight = 180;
inline constexpr double kMediaSeconds = 3.4;

/// A stretch of source time in seconds; none when it is empty.
struct Stretch {
  double from = 0;
  double to = 0;
  [[nodiscard]] bool holds(double time) const { return time >= from && time < to; }
};

/// What a light source's light cells and grey patch may become, in levels.
struct Tones {
  Stretch white;
  Stretch grey;
};

/// A row of the corpus. Its pictures count from 0, its sound beeps at every second, both from one instant,
/// unless the row says otherwise. Time 0 is the first picture's.
struct MediaFile {
  const char* name;
  const char* rate;             ///< pictures a second; empty for a sound
  const char* encoding;         ///< ffmpeg's arguments of the output, parted by blanks
  double soundLate = 0;         ///< seconds; below 0 the sound is first
  double soundLonger = 0;       ///< seconds that the sound outlasts the picture
  bool highDefinition = false;  ///< patches drawn with the weights of BT.709
  int numbersAFrame = 1;        ///< 2: fields of two successive numbers
  bool uneven = false;          ///< from number 30 to 59 only every third is there
  double startsAt = 0;          ///< source seconds of the first picture, where some are cut off
  double codecDelay = 0;    ///< seconds that the sound is late because its container does not tell of a delay
  int dropped = 0;          ///< pictures that the encoder may leave out: numbers may lag by so many
  int turned = 0;           ///< degrees counter-clockwise that the container tells players to turn it by
  const char* source = "";  ///< made of this file, without new encoding
  Stretch overwritten{};    ///< part of the bytes that is noise, as shares of the file
  double keptBytes = 1;     ///< share of the file that is there: what lies behind it is refused in words
  double deafUntil = 0;     ///< seconds: the decoder swallows what sounds ahead of it
  Stretch unsure{};         ///< where damage may be seen and heard: any number, any sound
  Tones tones{};            ///< of a source of high dynamic range, in place of the patches' colours
  bool still = false;
};

/// What the test framework calls a row.
void PrintTo(const MediaFile& file, std::ostream* out);

/// All rows: movies, stills, sounds.
std::span<const MediaFile> mediaFiles();

/// How many pictures a second.
double rateOf(const MediaFile& file);
/// How many pictures it holds.
int picturesOf(const MediaFile& file);
bool hasSound(const MediaFile& file);

/// The number shown at the place of picture `number`.
int shownNumber(const MediaFile& file, int number);
/// The number of the still pictures.
inline constexpr int kStillNumber = 77;

/// The files on disk, gone with the object. Those made from one input are made together when the first of
/// them is asked for.
class Corpus {
 public:
  Corpus();
  /// The file's path. The test fails when it cannot be made.
  std::string pathOf(const MediaFile& file);
  [[nodiscard]] const ScratchFolder& folder() const { return folder_; }

 private:
  void makeLike(const MediaFile& file);

  ScratchFolder folder_;
  std::set<std::string> made_;
};

}  // namespace kvo::test
