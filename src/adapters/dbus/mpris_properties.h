// The properties of the two MPRIS interfaces: their types on the bus, and how they are read and written.
#pragma once

#include "ports/media_controls.h"

#include <QString>
#include <QVariant>
#include <span>

namespace kvo {

inline constexpr const char* kMprisRoot = "org.mpris.MediaPlayer2";
inline constexpr const char* kMprisPlayer = "org.mpris.MediaPlayer2.Player";

struct MprisProperty {
  const char* interface;
  const char* name;
  const char* type;  ///< its D-Bus signature
  QVariant (*read)(const MediaTold& told, const MediaRequests& requests);
  bool (*write)(MediaRequests& requests, const QVariant& value) = nullptr;  ///< false: not of its type
  bool isSignalled = true;  ///< a change goes out; not that of the position, which changes all the time
};

std::span<const MprisProperty> mprisProperties();

/// Null where there is none.
const MprisProperty* mprisProperty(const QString& interface, const QString& name);

/// The object path that stands for a track; that of no track for 0.
QString trackPath(int track);
/// The track that a path stands for; 0 where it is none of ours.
int trackOf(const QString& path);

/// Microseconds, as all times on the bus are.
qlonglong toMicroseconds(double seconds);
double toSeconds(qlonglong microseconds);

}  // namespace kvo
