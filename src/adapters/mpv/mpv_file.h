// One player core with at most one file or address open in it: what both engines are made of. For this room
// only. All on the program's thread; what the core tells comes home through the loop.
#pragma once

#include "adapters/mpv/mpv_handle.h"
#include "adapters/mpv/mpv_picture.h"
#include "adapters/mpv/mpv_seeks.h"
#include "ports/control_engine.h"
#include "ports/event_loop.h"
#include "ports/media_contents.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kvo {

/// What the sound of an engine is like, as its operations are told.
struct MpvSound {
  int volume = 0;   ///< hundredths of a decibel
  int balance = 0;  ///< -10000 to 10000
  bool mute = false;
  double level = 1;
  bool operator==(const MpvSound&) const = default;
};

struct MpvLimits {
  /// How long an address may take to answer, or to send more.
  std::chrono::milliseconds address = std::chrono::seconds(15);
  /// How long a file may take to open.
  std::chrono::milliseconds file = std::chrono::seconds(10);
  /// How much of that passes before the program's loop runs.
  std::chrono::milliseconds patience = std::chrono::milliseconds(100);
};

class MpvFile {
 public:
  struct House {
    EventLoop& loop;
    MediaContents& facts;  ///< asked for the rate of files that are sought in
    MpvLimits limits;
    std::function<void(MpvFile&)> pictureDue;  ///< a picture of this file is to be drawn or passed over
    std::function<void(MpvFile&)> opened;      ///< there is one now
  };

  /// `gl` as of MpvPicture.
  MpvFile(House house, const VideoOutput::OpenGl* gl);
  MpvFile(const MpvFile&) = delete;
  MpvFile& operator=(const MpvFile&) = delete;
  ~MpvFile();

  /// Who hears of the file that is open, or is opened next: see ControlEngine. Until close().
  void hear(std::function<void()> ended, std::function<void()> changed);

  /// Opens a file or an address in place of what is open, at its first picture; it is only on its way when
  /// this returns.
  void open(const std::string& fileOrAddress);
  /// Waits for a file that is on its way, as long as the limits say.
  void waitUntilOpen();
  /// Everything about the file is forgotten; sound, rate and captions are as at first.
  void close();
  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] bool isAddress() const { return isAddress_; }
  [[nodiscard]] EngineOpening opening() const { return opening_; }
  [[nodiscard]] int buffered() const { return buffered_; }
  [[nodiscard]] const std::string& fault() const { return fault_; }

  void run();
  void pause();
  [[nodiscard]] bool runs() const { return runs_; }
  [[nodiscard]] double position() const;
  void seek(double seconds);
  void step(int direction);
  /// As seek, once it is open.
  void standAt(double seconds);
  [[nodiscard]] double duration() const;
  [[nodiscard]] bool canSeek() const { return isOpen() && seekable_; }
  /// It comes to a stand here, seconds; 0 for the end of the file.
  void setEnd(double seconds);

  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }
  [[nodiscard]] bool hasPicture() const { return isOpen() && width_ > 0; }

  void setRate(double rate);
  [[nodiscard]] double rate() const { return rate_; }
  void setSound(const MpvSound& sound);
  [[nodiscard]] std::vector<MediaTrack> tracks() const;
  void choose(MediaTrack::Kind kind, int id);
  void showCaptions(bool on);
  /// Shows the texts of this file where captions are shown; empty lets go of it.
  void setCaptionFile(const std::string& file);
  [[nodiscard]] std::vector<EngineMarker> markers() const;
  /// What the file tells of itself under the first of these words that it knows.
  [[nodiscard]] std::string told(std::initializer_list<const char*> words) const;
  [[nodiscard]] int bandwidth() const;
  [[nodiscard]] StreamDetails details() const;

  [[nodiscard]] MpvPicture& picture() { return *picture_; }
  /// Draws with another OpenGL, or without one, from now on: the two halves of it.
  void dropPicture() { picture_.reset(); }
  void makePicture(const VideoOutput::OpenGl* gl);

 private:
  [[nodiscard]] bool isOpen() const {
    return opening_ == EngineOpening::Open || (opening_ == EngineOpening::Buffering && origin_.has_value());
  }
  [[nodiscard]] std::function<void()> home(void (MpvFile::*work)());
  void removeCaptions();
  void forget();
  void drain() { take(0); }
  void take(double seconds);
  void handle(const mpv_event& event);
  void handleEnd(const mpv_event& event);
  void handleProperty(const mpv_event& event);
  void drawOrPass() { house_.pictureDue(*this); }
  void takeTime(double time);
  void settle();
  void arrive();
  void learn();
  void goOn();
  void sendEnd(double from);
  [[nodiscard]] bool isCutOff(double at) const;
  void reachEnd();
  void watch();
  void fail(const std::string& text);
  void setOpening(EngineOpening opening);
  /// Not any more, when the number has changed by then.
  void tell(std::function<void()> MpvFile::*heard, std::uint64_t MpvFile::*holds = &MpvFile::opened_);
  [[nodiscard]] double shownTime(double time) const;

  House house_;
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);  // what is on its way home finds out by it
  std::function<void()> wake_;                             // as the core calls it
  MpvHandle core_;
  std::unique_ptr<MpvPicture> picture_;
  std::unique_ptr<Timer> watch_;
  std::function<void()> ended_;
  std::function<void()> changed_;

  std::string name_;
  bool isAddress_ = false;
  std::uint64_t opened_ = 0;   // counts what has been opened
  std::int64_t entry_ = -1;    // how the core calls it; -1 while that is not known
  std::int64_t current_ = -1;  // what the core is at
  EngineOpening opening_ = EngineOpening::Closed;
  int buffered_ = 0;
  std::string fault_;
  std::string lastError_;  // the core's last word of a library's

  std::optional<double> origin_;  // the core's time of the first picture; none until it is shown
  double time_ = 0;               // the core's time of what is shown
  double duration_ = 0;           // the core's
  bool seekable_ = false;
  int width_ = 0;
  int height_ = 0;
  double averageRate_ = 0;  // pictures a second; 0 when it is not known

  bool runs_ = false;
  std::optional<double> stoodAt_;  // the end that it has come to by itself
  std::uint64_t ends_ = 0;         // changes with each end and with what leads away from it
  double end_ = 0;
  bool endHolds_ = false;          // the core has been told of it
  bool asked_ = false;             // for the rate
  std::optional<double> standAt_;  // once it is open
  double rate_ = 1;
  MpvSound sound_;
  std::string captionFile_;
  MpvSeeks seeks_;
  mutable std::optional<std::vector<MediaTrack>> tracks_;
};

}  // namespace kvo
