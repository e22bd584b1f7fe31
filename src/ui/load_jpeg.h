// JPEG files on surfaces.
#pragma once

#include "ports/files.h"
#include "ports/jpeg.h"

#include <string>

namespace kvo {

class cDIBSection;

/// What reading pictures needs.
struct PictureReading {
  const Files& files;
  const Jpeg& jpeg;
};

/// No picture file is larger, in bytes.
inline constexpr std::uint64_t kMostPictureFile = 256U << 20U;

/// Puts the picture of the file at `path` on `surface`, at 1/scale of its size: 1, 2, 4 or 8. Above 0 when
/// that is done; 0, and an empty surface, for a file that is missing, damaged or too large, or another scale.
int LoadJpeg(const PictureReading& reading, cDIBSection& surface, const std::string& path, int scale);

/// The same with the file's bytes at hand; tells what went wrong.
Outcome loadJpeg(const Jpeg& jpeg, cDIBSection& surface, std::string_view file, int scale);

/// Whether the file can be shown as a still: what is named ".bmp" in any case, unread, and other files that
/// are whole JPEG files.
bool CanLoadStill(const PictureReading& reading, const std::string& path);

}  // namespace kvo
