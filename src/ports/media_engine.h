// What the two engines of playing have in common: one file or address each, which runs, stands or is stopped,
// and whose picture is drawn by whoever has the VideoOutput. Times are seconds from the first picture of the
// file, or from its first sound where it has no picture. Nothing here fails aloud: what cannot be done leaves
// all as it is.
#pragma once

#include <string>
#include <vector>

namespace kvo {

/// As engines tell it.
enum class EngineState { Stopped = 0, Paused = 1, Running = 2 };

/// A sound or a text of a file that can be chosen.
struct MediaTrack {
  enum class Kind { Sound, Subtitles };
  Kind kind = Kind::Sound;
  int id = 0;            ///< of its kind, from 1
  std::string title;     ///< as the file calls it; empty when it does not
  std::string language;  ///< "de"; empty when the file does not tell
  bool chosen = false;
  bool operator==(const MediaTrack&) const = default;
};

/// A place in a file that has a name there: a chapter.
struct EngineMarker {
  double time = 0;  ///< seconds
  std::string name;
  bool operator==(const EngineMarker&) const = default;
};

class MediaEngine {
 public:
  MediaEngine() = default;
  MediaEngine(const MediaEngine&) = delete;
  MediaEngine& operator=(const MediaEngine&) = delete;
  virtual ~MediaEngine() = default;

  /// Goes on from where it stands; at the end of its section it stays there.
  virtual void Run() = 0;
  /// Stands; the picture stays.
  virtual void Pause() = 0;
  /// As Pause, and what is kept ready for going on at once may be let go.
  virtual void Stop() = 0;
  [[nodiscard]] virtual EngineState state() const = 0;

  /// Where it is: the time of the picture that is shown, to the microsecond; the end of the section, exactly,
  /// when it has come there by itself. Behind a seek this is the wanted place until its picture is there.
  [[nodiscard]] virtual double position() const = 0;
  /// Shows the picture that stands at `seconds`, held within the file; runs on from there if it was running.
  /// A seek to what is already shown costs nothing.
  virtual void seek(double seconds) = 0;
  /// Stands, and shows the next picture of the file (+1) or the one before (-1), whatever its rate.
  virtual void step(int direction) = 0;
  /// 0 while it is not known, and for what has no end.
  [[nodiscard]] virtual double duration() const = 0;
  [[nodiscard]] virtual bool canSeek() const = 0;

  /// Of the picture as it is to be shown, pixels, turned and stretched as the file says; 0 without a picture.
  [[nodiscard]] virtual int sourceWidth() const = 0;
  [[nodiscard]] virtual int sourceHeight() const = 0;

  /// 1 is normal; sound keeps its pitch.
  [[nodiscard]] virtual double rate() const = 0;
  virtual void setRate(double rate) = 0;

  /// Hundredths of a decibel, -10000 (silent) to 0.
  virtual void setVolume(int hundredths) = 0;
  /// -10000 (left alone) to 10000 (right alone).
  virtual void setBalance(int balance) = 0;
  virtual void setMute(bool on) = 0;
  /// What the file's sound is multiplied with ahead of the volume; 1 leaves it.
  virtual void setOutputLevel(double factor) = 0;

  /// In the order of their times; empty for most files.
  [[nodiscard]] virtual std::vector<EngineMarker> markers() const = 0;

  [[nodiscard]] virtual std::vector<MediaTrack> tracks() const = 0;
  /// Plays this track of its kind; id 0 none of it.
  virtual void choose(MediaTrack::Kind kind, int id) = 0;

  /// Whether texts are shown at all: those of the chosen track, or those of the caption file.
  virtual void setShowCaptions(bool on) = 0;
  /// The texts of a file of their own, by its full path, which counts as a chosen track; empty lets go of it.
  virtual void setCaptionFile(const std::string& file) = 0;
  [[nodiscard]] virtual std::string captionFile() const = 0;
};

}  // namespace kvo
