#include "media/video_reader.h"

#include "base/numbers.h"
#include "media/heif.h"
#include "media/picture_feed.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

namespace kvo::media {
namespace {

// A mark is written with a few decimals and a stamp may count milliseconds: a frame that begins this little
// later is meant.
constexpr double kTimeTolerance = 0.00075;
// Ahead by more than this it is cheaper to seek to a key frame than to decode all between; and where one is
// known to lie ahead by this much.
constexpr double kSeekAhead = 4.0;
constexpr double kKeyAhead = 0.5;
// How long the last frame stands when the marks go on behind the file's end.
constexpr double kHoldLast = 0.5;
// Where a seek lands behind the wanted time, the next one aims this much further back, in seconds: some
// containers find a place by its bytes, with the key frame anywhere ahead of it.
constexpr double kStepsBack[] = {0, 1, 3, 9, 27, 81};

// Pictures that have gone by, in the order of showing, the last of them right ahead of the present one.
class Past {
 public:
  void keep(std::size_t bytes) { most_ = bytes; }
  void clear() {
    pictures_.clear();
    bytes_ = 0;
  }
  void add(const TimedFrame& picture) {
    if (most_ == 0 || !picture.frame) return;
    pictures_.push_back(picture);
    bytes_ += bytesOf(*picture.frame);
    while (bytes_ > most_) {
      bytes_ -= bytesOf(*pictures_.front().frame);
      pictures_.pop_front();
    }
  }
  /// The picture that is shown at `seconds`, where it is known that none is missing between it and the next.
  /// The present one begins at `present`; `usual` is how long one stands.
  [[nodiscard]] SharedFrame at(double seconds, double present, double usual) const {
    double next = present;
    for (auto picture = pictures_.rbegin(); picture != pictures_.rend(); ++picture) {
      if (picture->seconds <= seconds + kTimeTolerance)
        return next - picture->seconds <= 1.5 * usual ? picture->frame : nullptr;
      next = picture->seconds;
    }
    return nullptr;
  }

 private:
  static std::size_t bytesOf(const AVFrame& frame) {
    std::size_t bytes = 0;
    for (const auto* buffer : frame.buf) bytes += buffer != nullptr ? buffer->size : 0;
    return bytes;
  }

  std::size_t most_ = 0;
  std::size_t bytes_ = 0;
  std::deque<TimedFrame> pictures_;
};

}  // namespace

struct VideoReader::State {
  PictureFeed feed;
  DamageList* damage = nullptr;
  bool still = false;
  TimedFrame current{};
  TimedFrame next{};
  Past past{};
  bool begun = false;                // `next` has been asked for
  bool ended = false;                // and there is none
  double sought = 0;                 // the place that was sought last: what lies ahead of it leads there
  std::optional<double> soundEnd{};  // seconds after the first picture; looked for behind the last picture

  Outcome readNext(double wanted) {
    auto got = feed.next(wanted);
    if (!got) return got.error();
    next = std::move(*got);
    ended = !next.frame;
    return {};
  }

  // The frame that is shown at `seconds`, or one ahead of it, comes into `next`.
  Outcome seek(double seconds) {
    current = next = {};
    past.clear();
    sought = seconds;
    for (const double back : kStepsBack) {
      const double at = seconds + kTimeTolerance - back;
      if (feed.onlyForward() || at <= 2 * kTimeTolerance) break;
      if (!feed.seek(at)) continue;
      if (auto done = readNext(seconds); !done) return done;
      if (next.frame && next.seconds <= seconds + kTimeTolerance) return {};
    }
    if (auto done = feed.toStart(); !done) return done;
    return readNext(seconds);
  }

  [[nodiscard]] bool needsSeek(double seconds) const {
    if (!begun) return seconds > kTimeTolerance && !feed.onlyForward();  // a file is read from its start
    if (current.frame && seconds < current.seconds - kTimeTolerance && current.seconds > kTimeTolerance)
      return true;
    const double ahead = std::max(next.seconds, sought);
    if (ended || feed.onlyForward() || seconds <= ahead + kKeyAhead) return false;
    return seconds > ahead + kSeekAhead || feed.keyLiesBetween(ahead + kKeyAhead, seconds);
  }

  // Where the way to a place begins.
  Outcome setOut(double seconds) {
    const bool seeks = needsSeek(seconds);
    const bool first = !std::exchange(begun, true);
    if (!seeks && !first) return {};
    return seeks ? seek(seconds) : readNext(seconds);
  }

  // On to the frame that is shown at `until`, on the way to `seconds`.
  Outcome goOn(double until, double seconds) {
    while (next.frame && (!current.frame || next.seconds <= until + kTimeTolerance)) {
      past.add(current);
      current = std::exchange(next, {});
      if (auto done = readNext(seconds); !done) return done;
    }
    return {};
  }

  // What has gone by and is at hand.
  [[nodiscard]] SharedFrame goneBy(double seconds) const {
    if (!current.frame || current.seconds <= seconds + kTimeTolerance) return nullptr;
    return past.at(seconds, current.seconds, feed.frameLength());
  }

  Outcome goTo(double seconds) {
    if (auto done = setOut(seconds); !done) return done;
    return goOn(seconds, seconds);
  }

  // Behind the last picture: it stands as long as the file's sound goes on, and a little longer.
  Outcome checkEnd(double seconds) {
    if (!ended || seconds <= feed.readEnd() + kHoldLast) return {};
    if (!soundEnd) soundEnd = endOfSound(feed.source().path(), feed.end() + feed.origin()) - feed.origin();
    const double end = std::max(feed.readEnd(), *soundEnd);
    if (seconds <= end + kHoldLast) return {};
    return Error{feed.source().path() + " ends at " + FormatMask(end, "0.00") + " s, the clip goes on to " +
                 FormatMask(seconds, "0.00") + " s"};
  }

  // Tells of the hole that lies at a time that is shown.
  void reportHoleAt(double seconds) {
    std::erase_if(feed.holes(), [&](const Damage& hole) {
      const bool shown = seconds >= hole.from - kTimeTolerance && seconds < hole.to;
      if (shown && damage != nullptr) damage->add(hole);
      return shown;
    });
  }
};

VideoReader::VideoReader(std::unique_ptr<State> state) : state_(std::move(state)) {}
VideoReader::VideoReader(VideoReader&&) noexcept = default;
VideoReader& VideoReader::operator=(VideoReader&&) noexcept = default;
VideoReader::~VideoReader() = default;

Result<VideoReader> VideoReader::open(const std::string& path, int threads, DamageList* damage) {
  if (isHeif(path)) {
    auto picture = readHeif(path);
    if (!picture) return picture.error();
    VideoReader reader(nullptr);
    reader.photograph_ = std::move(*picture);
    return reader;
  }
  auto feed = PictureFeed::open(path, threads);
  if (!feed) return feed.error();
  auto state = std::make_unique<State>(State{std::move(*feed), damage});
  state->still = state->feed.source().traits().isStill;
  return VideoReader(std::move(state));
}

void VideoReader::keepPast(std::size_t bytes) {
  if (state_) state_->past.keep(bytes);
}

Result<VideoReader::Toward> VideoReader::frameToward(double seconds, double most) {
  if (photograph_) return Toward{photograph_, 0};
  auto& s = *state_;
  if (s.still) seconds = 0;
  if (auto kept = s.goneBy(seconds)) return Toward{std::move(kept), 0};
  if (auto done = s.setOut(seconds); !done) return done.error();
  const double from = s.current.frame ? s.current.seconds : s.next.seconds;
  if (auto done = s.goOn(std::min(seconds, from + most), seconds); !done) return done.error();
  const bool there = !s.next.frame || s.next.seconds > seconds + kTimeTolerance;
  return Toward{s.current.frame, there ? 0 : seconds - s.current.seconds};
}

Result<SharedFrame> VideoReader::frameAt(double seconds) {
  if (photograph_) return photograph_;
  auto& s = *state_;
  if (s.still && s.current.frame) return s.current.frame;
  if (auto kept = s.goneBy(seconds)) return kept;
  if (auto done = s.goTo(s.still ? 0 : seconds); !done) return done.error();
  if (!s.current.frame) return Error{"no picture can be decoded in " + s.feed.source().path()};
  if (s.still) return s.current.frame;
  if (auto done = s.checkEnd(seconds); !done) return done.error();
  s.reportHoleAt(seconds);
  return s.current.frame;
}

}  // namespace kvo::media
