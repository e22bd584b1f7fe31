#include "adapters/dbus/mpris_properties.h"

#include "base/paths.h"

#include <QDBusObjectPath>
#include <QFile>
#include <QStringList>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

constexpr double kMicrosecond = 1e-6;  // seconds
constexpr double kSlowest = 0.25;
constexpr double kFastest = 2;
constexpr std::array kRepeatings = {std::pair{Repeating::Nothing, "None"},
                                    std::pair{Repeating::Clip, "Track"},
                                    std::pair{Repeating::Collection, "Playlist"}};
const QString kTrackPaths = QStringLiteral("/kvo5/track/");
const QString kNoTrack = QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack");

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

QString toUri(const std::string& fileOrAddress) {
  if (isAddress(fileOrAddress)) return text(fileOrAddress);
  return QUrl::fromLocalFile(QFile::decodeName(QByteArray::fromStdString(fileOrAddress)))
      .toString(QUrl::FullyEncoded);
}

QString statusText(PlayingState state) {
  return state == PlayingState::Playing ? "Playing" : state == PlayingState::Paused ? "Paused" : "Stopped";
}

QString repeatingText(Repeating repeating) {
  for (const auto& [value, name] : kRepeatings) {
    if (value == repeating) return name;
  }
  return {};
}

QVariantMap metadata(const MediaFacts& clip) {
  QVariantMap map{{"mpris:trackid", QVariant::fromValue(QDBusObjectPath(trackPath(clip.track)))}};
  if (clip.track == 0) return map;
  const auto add = [&](const char* key, const std::string& value) {
    if (!value.empty()) map.insert(key, text(value));
  };
  add("xesam:title", clip.title);
  add("xesam:album", clip.album);
  if (!clip.artist.empty()) map.insert("xesam:artist", QStringList(text(clip.artist)));
  if (clip.length > 0) map.insert("mpris:length", toMicroseconds(clip.length));
  if (!clip.file.empty()) map.insert("xesam:url", toUri(clip.file));
  if (!clip.cover.empty()) map.insert("mpris:artUrl", toUri(clip.cover));
  return map;
}

bool writeRepeating(MediaRequests& requests, const QVariant& value) {
  for (const auto& [repeating, name] : kRepeatings) {
    if (value.toString() != name) continue;
    requests.setRepeating(repeating);
    return true;
  }
  return false;
}

// A speed of 0 is a pause; one that the program does not have is left alone.
bool writeRate(MediaRequests& requests, const QVariant& value) {
  bool isNumber = false;
  const double rate = value.toDouble(&isNumber);
  if (!isNumber) return false;
  if (rate == 0) {
    requests.pause();
  } else if (rate >= kSlowest && rate <= kFastest) {
    requests.setRate(rate);
  }
  return true;
}

bool writeVolume(MediaRequests& requests, const QVariant& value) {
  bool isNumber = false;
  const double volume = value.toDouble(&isNumber);
  if (!isNumber || std::isnan(volume)) return false;
  requests.setVolume(std::clamp(volume, 0.0, 1.0));
  return true;
}

#define READ(value) \
  [](const MediaTold& told [[maybe_unused]], const MediaRequests&) { return QVariant(value); }

const std::array kMprisProperties = {
    MprisProperty{kMprisRoot, "CanQuit", "b", READ(true)},
    MprisProperty{kMprisRoot, "CanRaise", "b", READ(true)},
    MprisProperty{kMprisRoot, "HasTrackList", "b", READ(false)},
    MprisProperty{kMprisRoot, "Identity", "s", READ("KVO5")},
    MprisProperty{kMprisRoot, "DesktopEntry", "s", READ("kvo5")},
    MprisProperty{kMprisRoot, "SupportedUriSchemes", "as",
                  READ(QStringList({"file", "http", "https", "rtsp", "mms"}))},
    MprisProperty{
        kMprisRoot, "SupportedMimeTypes", "as",
        READ(QStringList({"video/mpeg", "video/mp4", "video/x-msvideo", "video/x-matroska", "video/quicktime",
                          "video/webm", "video/x-ms-wmv", "audio/mpeg", "audio/x-wav", "audio/ogg",
                          "audio/flac", "audio/x-ms-wma", "image/jpeg", "image/png", "image/bmp"}))},
    MprisProperty{kMprisPlayer, "PlaybackStatus", "s", READ(statusText(told.state))},
    MprisProperty{kMprisPlayer, "LoopStatus", "s", READ(repeatingText(told.repeating)), writeRepeating},
    MprisProperty{kMprisPlayer, "Rate", "d", READ(told.rate), writeRate},
    MprisProperty{kMprisPlayer, "MinimumRate", "d", READ(kSlowest)},
    MprisProperty{kMprisPlayer, "MaximumRate", "d", READ(kFastest)},
    MprisProperty{kMprisPlayer, "Metadata", "a{sv}", READ(metadata(told.clip))},
    MprisProperty{kMprisPlayer, "Volume", "d", READ(told.volume), writeVolume},
    MprisProperty{kMprisPlayer, "Position", "x",
                  [](const MediaTold& /*told*/, const MediaRequests& requests) {
                    return QVariant(toMicroseconds(requests.position()));
                  },
                  nullptr, false},
    MprisProperty{kMprisPlayer, "CanGoNext", "b", READ(told.canGoNext)},
    MprisProperty{kMprisPlayer, "CanGoPrevious", "b", READ(told.canGoPrevious)},
    MprisProperty{kMprisPlayer, "CanPlay", "b", READ(told.canPlay)},
    MprisProperty{kMprisPlayer, "CanPause", "b", READ(told.canPlay)},
    MprisProperty{kMprisPlayer, "CanSeek", "b", READ(told.canSeek)},
    MprisProperty{kMprisPlayer, "CanControl", "b", READ(true), nullptr, false},
};

#undef READ

}  // namespace

std::span<const MprisProperty> mprisProperties() { return kMprisProperties; }

const MprisProperty* mprisProperty(const QString& interface, const QString& name) {
  for (const auto& property : kMprisProperties) {
    if (interface == property.interface && name == property.name) return &property;
  }
  return nullptr;
}

QString trackPath(int track) { return track == 0 ? kNoTrack : kTrackPaths + QString::number(track); }

int trackOf(const QString& path) {
  return path.startsWith(kTrackPaths) ? path.mid(kTrackPaths.size()).toInt() : 0;
}

qlonglong toMicroseconds(double seconds) { return std::llround(seconds / kMicrosecond); }

double toSeconds(qlonglong microseconds) { return static_cast<double>(microseconds) * kMicrosecond; }

}  // namespace kvo
