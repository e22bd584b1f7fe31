#include "adapters/mpv/mpv_file.h"

#include "base/numbers.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <mpv/client.h>
#include <string_view>
#include <system_error>
#include <utility>

namespace kvo {
namespace {

// Replies of the core.
enum Reply : std::uint64_t { kSeekReply = 1, kOpenReply = 1000 };  // and up, by what has been opened
enum Observed : std::uint64_t { kTime = 1, kEnd, kLength, kWaits, kFilled, kTracks, kSeekable, kTitle };

// The core takes a picture that begins this little ahead of a wanted time for the wanted one, seconds.
constexpr double kCoreTolerance = 0.005;
constexpr double kWholeEnough = 0.875;  // of the bytes
constexpr double kCutOff = 2;  // seconds that may be missing at the end of what comes from an address

// A sound that nobody hears, where the program's other sounds are not to be heard either. The core is kept
// from SDL, which knows one device for a whole process, and from JACK, whose clients share one thread for
// messages and join it twice where they open side by side: cores that come and go hang in both. PipeWire
// serves those who have JACK.
std::string soundOutput() {
  const char* driver = std::getenv("SDL_AUDIODRIVER");
  return driver != nullptr && std::string_view(driver) == "dummy" ? "null" : "pipewire,pulse,alsa";
}

std::string whyNot(int error) {
  switch (error) {
    case MPV_ERROR_NOTHING_TO_PLAY:
      return "there is neither picture nor sound in it";
    case MPV_ERROR_UNKNOWN_FORMAT:
      return "it is no media file, or damaged";
    default:
      return "it is not there, or cannot be read";
  }
}

// How the core calls the file that it was told to load.
std::int64_t entryOf(const mpv_event& reply) {
  const auto& result = static_cast<const mpv_event_command*>(reply.data)->result;
  if (reply.error < 0 || result.format != MPV_FORMAT_NODE_MAP) return -1;
  for (int i = 0; i < result.u.list->num; ++i) {
    if (std::string_view(result.u.list->keys[i]) == "playlist_entry_id")
      return result.u.list->values[i].u.int64;
  }
  return -1;
}

}  // namespace

MpvFile::MpvFile(House house, const VideoOutput::OpenGl* gl)
    : house_(std::move(house)),
      wake_(home(&MpvFile::drain)),
      core_(
          {{"config", "no"},
           {"load-scripts", "no"},
           {"load-auto-profiles", "no"},
           {"load-stats-overlay", "no"},
           {"load-osd-console", "no"},
           {"osc", "no"},
           {"ytdl", "no"},
           {"input-default-bindings", "no"},
           {"input-vo-keyboard", "no"},
           {"input-media-keys", "no"},
           {"autoload-files", "no"},
           {"ordered-chapters", "no"},
           {"resume-playback", "no"},
           {"stop-screensaver", "no"},
           {"osd-level", "0"},
           {"idle", "yes"},
           {"pause", "yes"},
           {"keep-open", "yes"},
           {"vo", "libmpv"},
           {"video-timing-offset", "0"},  // the window draws when it is told
           {"ao", soundOutput()},
           {"audio-fallback-to-null", "yes"},
           {"audio-display", "no"},  // the cover picture of a music file is no video
           {"audio-client-name", "KVO5"},
           {"volume-max", "1000"},
           {"sub-visibility", "no"},
           {"network-timeout", ShortText(std::chrono::duration<double>(2 * house_.limits.address).count())}}),
      watch_(house_.loop.timer([this] {
        watch_->stop();
        fail(origin_ ? name_ + " sends nothing any more" : name_ + " does not answer");
      })) {
  mpv_request_log_messages(core_.get(), "error");
  core_.observe("time-pos", MPV_FORMAT_DOUBLE, kTime);
  core_.observe("eof-reached", MPV_FORMAT_FLAG, kEnd);
  core_.observe("duration", MPV_FORMAT_DOUBLE, kLength);
  core_.observe("paused-for-cache", MPV_FORMAT_FLAG, kWaits);
  core_.observe("cache-buffering-state", MPV_FORMAT_INT64, kFilled);
  core_.observe("track-list", MPV_FORMAT_NONE, kTracks);
  core_.observe("seekable", MPV_FORMAT_FLAG, kSeekable);
  core_.observe("media-title", MPV_FORMAT_NONE, kTitle);
  mpv_set_wakeup_callback(
      core_.get(), [](void* of) { (*static_cast<const std::function<void()>*>(of))(); }, &wake_);
  makePicture(gl);
}

MpvFile::~MpvFile() { mpv_set_wakeup_callback(core_.get(), nullptr, nullptr); }

// Work of this file for other threads to ask for; asked for again before it is done, it is done once.
std::function<void()> MpvFile::home(void (MpvFile::*work)()) {
  return [this, work, loop = &house_.loop, alive = std::weak_ptr(alive_),
          waits = std::make_shared<std::atomic<bool>>(false)] {
    if (waits->exchange(true)) return;
    loop->post([this, work, alive, waits] {
      waits->store(false);
      if (!alive.expired()) (this->*work)();
    });
  };
}

void MpvFile::makePicture(const VideoOutput::OpenGl* gl) {
  core_.set("hwdec", std::string(gl != nullptr ? "auto-safe" : "no"));  // where there is any
  picture_ = std::make_unique<MpvPicture>(core_, gl, home(&MpvFile::drawOrPass));
  if (gl != nullptr && !picture_->valid()) return makePicture(nullptr);
  if (opening_ != EngineOpening::Closed)
    core_.set("vid", std::string("auto"));  // it was lost with what drew it
}

void MpvFile::hear(std::function<void()> ended, std::function<void()> changed) {
  ended_ = std::move(ended);
  changed_ = std::move(changed);
}

// At the loop's next turn, where whoever hears it may do anything to this file.
void MpvFile::tell(std::function<void()> MpvFile::*heard, std::uint64_t MpvFile::*holds) {
  house_.loop.post([this, heard, holds, alive = std::weak_ptr(alive_), was = this->*holds] {
    if (alive.expired() || was != this->*holds || !(this->*heard)) return;
    const auto work = this->*heard;
    work();
  });
}

void MpvFile::open(const std::string& fileOrAddress) {
  forget();
  name_ = fileOrAddress;
  isAddress_ = kvo::isAddress(name_);
  opening_ = EngineOpening::Connecting;
  // A pipe or a device would keep the core waiting.
  if (std::error_code code; !isAddress_) {
    const auto kind = std::filesystem::status(name_, code);
    if (std::filesystem::exists(kind) && !std::filesystem::is_regular_file(kind))
      return fail("cannot open " + name_ + ": it is no file");
  }
  // What a file refers to is not opened, neither by the core nor by FFmpeg below it.
  core_.set("access-references", isAddress_);
  core_.set("demuxer-lavf-o", std::string(isAddress_ ? "" : "protocol_whitelist=none"));
  core_.set("pause", true);
  core_.set("end", std::string("none"));
  core_.set("vid", std::string("auto"));
  core_.set("aid", std::string("auto"));
  core_.set("sid", std::string("auto"));
  core_.command({"loadfile", isAddress_ ? name_ : DvdSource(name_), "replace"}, kOpenReply + opened_);
  watch();
}

void MpvFile::close() {
  if (opening_ != EngineOpening::Closed) core_.command({"stop"});
  forget();
  hear({}, {});
  setRate(1);
  setSound({});
  showCaptions(false);
}

void MpvFile::forget() {
  ++opened_;
  ++ends_;
  watch_->stop();
  name_.clear();
  fault_.clear();
  captionFile_.clear();
  lastError_.clear();
  entry_ = -1;
  opening_ = EngineOpening::Closed;
  buffered_ = 0;
  origin_.reset();
  stoodAt_.reset();
  standAt_.reset();
  time_ = duration_ = end_ = averageRate_ = 0;
  width_ = height_ = 0;
  seekable_ = runs_ = asked_ = false;
  seeks_.reset();
  tracks_.reset();
}

void MpvFile::waitUntilOpen() {
  using Clock = std::chrono::steady_clock;
  const auto begun = Clock::now();
  const auto mine = opened_;
  const auto alive = std::weak_ptr(alive_);
  while (!alive.expired() && mine == opened_ && !origin_ && opening_ == EngineOpening::Connecting) {
    const auto passed = Clock::now() - begun;
    if (passed > house_.limits.file) return fail("cannot open " + name_ + ": it takes too long");
    if (passed > house_.limits.patience) house_.loop.yield();
    if (alive.expired() || mine != opened_) return;
    constexpr double kNap = 0.002;
    take(kNap);
    if (picture_->update()) picture_->passOver();  // the core waits for it
  }
}

// Everything that the core has to tell, after at most so many seconds.
void MpvFile::take(double seconds) {
  for (;;) {
    const auto& event = core_.nextEvent(seconds);
    if (event.event_id == MPV_EVENT_NONE) return;
    handle(event);
    seconds = 0;
  }
}

void MpvFile::handle(const mpv_event& event) {
  switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
      if (event.reply_userdata == kOpenReply + opened_) {
        entry_ = entryOf(event);
      } else if (event.reply_userdata == kSeekReply && event.error < 0) {
        settle();
      }
      break;
    case MPV_EVENT_START_FILE:
      current_ = static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id;
      break;
    case MPV_EVENT_PLAYBACK_RESTART:
      if (current_ == entry_) settle();
      break;
    case MPV_EVENT_END_FILE:
      handleEnd(event);
      break;
    case MPV_EVENT_PROPERTY_CHANGE:
      handleProperty(event);
      break;
    case MPV_EVENT_LOG_MESSAGE: {
      const auto& message = *static_cast<const mpv_event_log_message*>(event.data);
      if (std::string_view(message.prefix) != "cplayer") lastError_ = std::string(trimmed(message.text));
      break;
    }
    default:
      break;
  }
}

void MpvFile::handleEnd(const mpv_event& event) {
  const auto& end = *static_cast<const mpv_event_end_file*>(event.data);
  if (end.playlist_entry_id != entry_) return;
  // A list at an address leads to what it lists; a file that is a list is none that could be played.
  if (end.reason == MPV_END_FILE_REASON_REDIRECT && isAddress_) {
    entry_ = end.playlist_insert_id;
  } else if (end.reason == MPV_END_FILE_REASON_ERROR || end.reason == MPV_END_FILE_REASON_REDIRECT) {
    const int error = end.reason == MPV_END_FILE_REASON_ERROR ? end.error : MPV_ERROR_UNKNOWN_FORMAT;
    fail("cannot open " + name_ + ": " + (isAddress_ && !lastError_.empty() ? lastError_ : whyNot(error)));
  }
}

void MpvFile::handleProperty(const mpv_event& event) {
  const auto& property = *static_cast<const mpv_event_property*>(event.data);
  const auto flag = [&] {
    return property.format == MPV_FORMAT_FLAG && *static_cast<int*>(property.data) != 0;
  };
  const auto number = [&] {
    return property.format == MPV_FORMAT_DOUBLE ? *static_cast<double*>(property.data) : 0.0;
  };
  if (entry_ < 0 || current_ != entry_) return;
  switch (event.reply_userdata) {
    case kTime:
      if (property.format == MPV_FORMAT_DOUBLE) takeTime(number());
      break;
    case kEnd:
      if (flag()) reachEnd();
      break;
    case kLength:
      duration_ = number();
      tell(&MpvFile::changed_);
      break;
    case kWaits:
      if (isOpen() && isAddress_) setOpening(flag() ? EngineOpening::Buffering : EngineOpening::Open);
      break;
    case kFilled:
      if (property.format == MPV_FORMAT_INT64)
        buffered_ = static_cast<int>(*static_cast<std::int64_t*>(property.data));
      watch_->stop();  // it is on the move
      watch();
      tell(&MpvFile::changed_);
      break;
    case kSeekable:
      seekable_ = flag();
      break;
    case kTracks:
      tracks_.reset();
      tell(&MpvFile::changed_);
      break;
    default:
      tell(&MpvFile::changed_);
  }
}

// At the end of the file the core tells the time of the sound when that is the later one.
void MpvFile::takeTime(double time) {
  if (stoodAt_ || time == time_) return;
  if (!seeks_.stepsOn()) {
    time_ = time;
  } else if (core_.isSet("eof-reached")) {
    arrive();
  } else {
    settle();
  }
}

// A picture stands that was asked for, or the first one.
void MpvFile::settle() {
  if (entry_ < 0 || opening_ == EngineOpening::Failed) return;
  time_ = core_.number("time-pos").value_or(time_);
  if (!origin_) {
    learn();
    return goOn();
  }
  stoodAt_.reset();
  arrive();
  if (!runs_) return;
  core_.set("pause", false);  // the core holds at the end of the file, which it may have come to meanwhile
  if (!seeks_.busy() && core_.isSet("eof-reached")) reachEnd();
}

// Sound is where it was sent, however long ago that was: there is no picture to look for, and none to step
// back to.
void MpvFile::arrive() {
  const double shown = time_ - *origin_;
  seeks_.arrived(hasPicture() ? shown : seeks_.wanted().value_or(shown));
  goOn();
}

void MpvFile::learn() {
  origin_ = time_;
  width_ = static_cast<int>(core_.number("dwidth").value_or(0));
  height_ = static_cast<int>(core_.number("dheight").value_or(0));
  const int turned = static_cast<int>(core_.number("video-params/rotate").value_or(0));
  if (turned % 180 != 0) std::swap(width_, height_);
  averageRate_ = core_.number("container-fps").value_or(0);
  duration_ = core_.number("duration").value_or(0);
  seekable_ = core_.isSet("seekable");
  house_.opened(*this);
  if (const auto format = core_.text("file-format"); format == "mpegts" || format == "mpeg")
    seeks_.reachBack();
  setOpening(EngineOpening::Open);
  if (const auto at = std::exchange(standAt_, std::nullopt)) seek(*at);
}

// Has the core do what is wanted next.
void MpvFile::goOn() {
  const auto order = seeks_.next(time_ - *origin_);
  if (order.kind != MpvOrder::Kind::None) core_.set("hr-seek-demuxer-offset", order.ahead);
  switch (order.kind) {
    case MpvOrder::Kind::Seek: {
      const double at = *origin_ + order.time + (hasPicture() ? kCoreTolerance : 0);
      core_.command({"seek", ShortText(std::max(at, 0.0)), "absolute+exact"}, kSeekReply);
      break;
    }
    case MpvOrder::Kind::StepOn:
      if (core_.isSet("eof-reached")) return arrive();
      core_.set("mute", true);  // the core runs for a moment
      core_.command({"frame-step"});
      break;
    case MpvOrder::Kind::StepBack:
      core_.command({"frame-back-step"}, kSeekReply);
      break;
    case MpvOrder::Kind::None:
      break;
  }
  watch();
}

// The connection ended ahead of what was promised: so many seconds, or bytes, since the length of some files
// is only guessed from what has come. Behind the last picture of a whole file there may be some that nobody
// reads.
bool MpvFile::isCutOff(double at) const {
  if (duration() > 0 && at < duration() - kCutOff) return true;
  const auto size = core_.number("file-size");
  const auto got = core_.number("stream-pos");
  return size && got && *got < *size * kWholeEnough;
}

void MpvFile::reachEnd() {
  if (seeks_.stepsOn()) return arrive();
  if (!runs_ || seeks_.busy()) return;
  runs_ = false;
  ++ends_;
  stoodAt_ = endHolds_ ? std::min(end_, duration()) : duration();
  const double at = shownTime(time_);
  if (*stoodAt_ <= 0) stoodAt_ = at;
  if (isAddress_ && !endHolds_ && isCutOff(at)) {
    stoodAt_ = at;
    return fail(name_ + " ended ahead of its time");
  }
  tell(&MpvFile::ended_, &MpvFile::ends_);
}

void MpvFile::watch() {
  const bool waits = opening_ == EngineOpening::Connecting || opening_ == EngineOpening::Buffering ||
                     (isOpen() && seeks_.busy());
  if (!isAddress_ || !waits) return watch_->stop();
  if (!watch_->running()) watch_->start(static_cast<int>(house_.limits.address.count()));
}

void MpvFile::fail(const std::string& text) {
  fault_ = text;
  runs_ = false;
  core_.command({"stop"});
  setOpening(EngineOpening::Failed);
}

void MpvFile::setOpening(EngineOpening opening) {
  opening_ = opening;
  watch();
  tell(&MpvFile::changed_);
}

}  // namespace kvo
