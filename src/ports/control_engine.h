// The port to the engine that lives as long as the window and plays by properties: a file or an address, a
// section of it, as often as told.
#pragma once

#include "ports/media_engine.h"

#include <functional>
#include <utility>

namespace kvo {

/// How far a file or an address is on its way.
enum class EngineOpening { Closed, Connecting, Buffering, Open, Failed };

/// What a stream, or a file, tells of itself and of its way here. Texts are empty when it does not tell.
struct StreamDetails {
  std::string description{};
  std::string author{};
  std::string rights{};
  std::string channelName{};
  std::string channelDescription{};
  std::string channelUrl{};
  std::string contactAddress{};
  std::string contactEmail{};
  std::string created{};
  std::vector<std::pair<std::string, std::string>> others{};  ///< whatever else: its name and its text
  std::vector<std::pair<std::string, std::string>> codecs{};  ///< "Video" and "H.264, 640 x 480", each track
  double receivedRate = 0;                                    ///< bits a second that come in
  double ahead = 0;                                           ///< seconds that have come and not been shown
  int lostPictures = 0;                                       ///< that came too late to be shown
};

class ControlEngine : public MediaEngine {
 public:
  /// Takes a file or an address in hand in place of the one before; empty lets go of it. A file is open, or
  /// found to be none, when this returns; for one that takes long, the program's loop runs meanwhile. An
  /// address is only on its way: see opening(). Nothing plays before Run, but with AutoStart.
  virtual void setFileName(const std::string& fileOrAddress) = 0;
  /// Empty while nothing is open or on its way.
  [[nodiscard]] virtual std::string fileName() const = 0;
  /// Gets a file ready in the background that is likely to be the next, standing at `seconds`, in place of
  /// the one before; empty lets go of that.
  virtual void openAhead(const std::string& file, double seconds) = 0;

  [[nodiscard]] virtual EngineOpening opening() const = 0;
  /// 0 to 100 per cent of what is needed to go on.
  [[nodiscard]] virtual int bufferingProgress() const = 0;
  /// Why the last file or address could not be opened, or stopped in the middle; else empty.
  [[nodiscard]] virtual std::string errorDescription() const = 0;

  /// The section that plays, in seconds; an end of 0 is the file's.
  virtual void setSelectionStart(double seconds) = 0;
  [[nodiscard]] virtual double selectionStart() const = 0;
  virtual void setSelectionEnd(double seconds) = 0;
  [[nodiscard]] virtual double selectionEnd() const = 0;

  /// How often the section plays before it counts as ended.
  virtual void setPlayCount(int times) = 0;
  /// At its end it goes back to its start and stands there.
  virtual void setAutoRewind(bool on) = 0;
  /// What is opened runs by itself.
  virtual void setAutoStart(bool on) = 0;

  /// What a stream tells of itself; empty and 0 when it does not.
  [[nodiscard]] virtual std::string mediaTitle() const = 0;
  [[nodiscard]] virtual std::string mediaAuthor() const = 0;
  [[nodiscard]] virtual int bandwidth() const = 0;  ///< bits a second

  [[nodiscard]] virtual StreamDetails streamDetails() const = 0;

  /// Heard on the program's thread: the section has been played as often as told.
  virtual void whenEndOfStream(std::function<void()> heard) = 0;
};

}  // namespace kvo
