// What a picture file says of itself in its head: kind, size, depth. The bytes are the outside's: nothing is
// read beyond their end, and each walk through them comes to one.
#pragma once

#include "core/records/field_types.h"
#include "ports/files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvo {

using Byte = std::uint8_t;

inline constexpr Long kTooManyPixels = 30000;  ///< of a side

enum class ImageKind : Long { Unknown = 0, Gif, Jpeg, Png, Bmp, Pcx, Tiff };

class CImageInfo {
 public:
  /// Takes the facts of a file. One that cannot be read, or is none of the kinds, is Unknown, and both its
  /// sides are 0. As much of it is read as it takes, 256 MiB at most.
  void ReadImageInfo(const Files& files, const std::string& path);

  /// Takes the facts of a file of `fileSize` bytes from the bytes that it begins with. False when these end
  /// ahead of what tells its size.
  bool readBytes(std::string_view bytes, std::uint64_t fileSize);

  /// Pixels as they are stored. A PCX whose ends lie the wrong way round has sides of 0 or less.
  [[nodiscard]] Long Width() const { return width_; }
  [[nodiscard]] Long Height() const { return height_; }
  [[nodiscard]] Byte Depth() const { return depth_; }  ///< bits a pixel
  [[nodiscard]] ImageKind ImageType() const { return type_; }
  /// It begins like none of the kinds. One that begins like a kind, and is Unknown, is refused by its head.
  [[nodiscard]] bool isForeign() const { return isForeign_; }
  [[nodiscard]] Long FileSize() const { return fileSize_; }  ///< bytes

  /// How the camera was held, as Exif tells (1 to 8); 1 is upright, also where nothing is told.
  [[nodiscard]] int Orientation() const { return orientation_; }
  /// Pixels as it is shown, turned upright.
  [[nodiscard]] Long ShownWidth() const { return orientation_ > 4 ? height_ : width_; }
  [[nodiscard]] Long ShownHeight() const { return orientation_ > 4 ? width_ : height_; }

  /// Both sides are above 0 and below 30000.
  [[nodiscard]] bool isUsable() const;

 private:
  Long width_ = 0;
  Long height_ = 0;
  Byte depth_ = 0;
  ImageKind type_ = ImageKind::Unknown;
  bool isForeign_ = true;
  Long fileSize_ = 0;
  int orientation_ = 1;
};

class Movie;

/// True when the picture of a clip is usable; the record then has its sides as it is shown, StillW and
/// StillH. Else the record stays as it was.
bool AnalyseImage(Movie& clip, const CImageInfo& image);

}  // namespace kvo
