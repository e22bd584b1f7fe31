#include "intake/image_info.h"

#include "base/exif.h"
#include "base/numbers.h"
#include "core/records/movie.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

namespace kvo {
namespace {

constexpr std::size_t kHeadBytes = 64U << 10U;
constexpr std::uint64_t kMostBytes = 256U << 20U;

// Numbers of a picture's head. What lies beyond the end reads as 0, and isShort() tells of it.
class HeadBytes {
 public:
  explicit HeadBytes(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] std::uint32_t byte(std::size_t at) const {
    if (at < bytes_.size()) return static_cast<unsigned char>(bytes_[at]);
    isShort_ = true;
    return 0;
  }
  [[nodiscard]] std::uint32_t word(std::size_t at, bool bigEndian) const {
    return bigEndian ? byte(at) << 8U | byte(at + 1) : byte(at) | byte(at + 1) << 8U;
  }
  [[nodiscard]] std::uint32_t longWord(std::size_t at, bool bigEndian) const {
    return bigEndian ? word(at, true) << 16U | word(at + 2, true)
                     : word(at, false) | word(at + 2, false) << 16U;
  }
  [[nodiscard]] bool begins(std::string_view signature) const { return bytes_.starts_with(signature); }
  [[nodiscard]] bool isShort() const { return isShort_; }

 private:
  std::string_view bytes_;
  mutable bool isShort_ = false;
};

// A head that is cut off tells no more than the kind.
struct ImageFacts {
  Long width = 0;
  Long height = 0;
  Byte depth = 0;
  ImageKind type = ImageKind::Unknown;
};

Long asSide(std::uint32_t pixels) {
  return static_cast<Long>(std::min(pixels, static_cast<std::uint32_t>(std::numeric_limits<Long>::max())));
}

Byte asDepth(std::uint32_t bits) { return static_cast<Byte>(std::min(bits, 255U)); }

// Samples a pixel, by the colour type; 0 for one that there is not.
std::uint32_t pngSamples(std::uint32_t colourType) {
  switch (colourType) {
    case 0:
      return 1;
    case 2:
      return 3;
    case 4:
      return 2;
    case 6:
      return 4;
    default:
      return 0;
  }
}

// RFC 2083. A palette's index always leads to a colour of 8 bits.
ImageFacts readPng(const HeadBytes& bytes) {
  const auto depth = bytes.byte(24);
  const auto colourType = bytes.byte(25);
  const auto samples = pngSamples(colourType);
  if (samples == 0 && colourType != 3) return {};
  return {.width = asSide(bytes.longWord(16, true)),
          .height = asSide(bytes.longWord(20, true)),
          .depth = asDepth(colourType == 3 ? 8 : depth * samples),
          .type = ImageKind::Png};
}

ImageFacts readGif(const HeadBytes& bytes) {
  return {.width = asSide(bytes.word(6, false)),
          .height = asSide(bytes.word(8, false)),
          .depth = asDepth((bytes.byte(10) & 7U) + 1),
          .type = ImageKind::Gif};
}

// A height below 0 tells that the rows go from the top down. The oldest head, of 12 bytes, has short sides.
ImageFacts readBmp(const HeadBytes& bytes) {
  constexpr std::uint32_t kOldHead = 12;
  if (bytes.longWord(14, false) == kOldHead) {
    return {.width = asSide(bytes.word(18, false)),
            .height = asSide(bytes.word(20, false)),
            .depth = asDepth(bytes.word(24, false)),
            .type = ImageKind::Bmp};
  }
  const auto rows = static_cast<std::int32_t>(bytes.longWord(22, false));
  return {
      .width = asSide(bytes.longWord(18, false)),
      .height = asSide(rows < 0 ? 0U - static_cast<std::uint32_t>(rows) : static_cast<std::uint32_t>(rows)),
      .depth = asDepth(bytes.byte(28)),
      .type = ImageKind::Bmp};
}

ImageFacts readPcx(const HeadBytes& bytes) {
  const auto side = [&](std::size_t least, std::size_t most) {
    return static_cast<Long>(bytes.word(most, false)) - static_cast<Long>(bytes.word(least, false)) + 1;
  };
  return {.width = side(4, 8),
          .height = side(6, 10),
          .depth = asDepth(bytes.byte(65) * bytes.byte(3)),
          .type = ImageKind::Pcx};
}

// The first directory of a TIFF (revision 6.0).
ImageFacts readTiff(const HeadBytes& bytes, bool bigEndian) {
  constexpr std::size_t kEntry = 12;
  ImageFacts facts{.type = ImageKind::Tiff};
  const std::size_t directory = bytes.longWord(4, bigEndian);
  const std::size_t entries = bytes.word(directory, bigEndian);
  for (std::size_t i = 0; i < entries && !bytes.isShort(); ++i) {
    const auto at = directory + 2 + i * kEntry;
    const auto type = bytes.word(at + 2, bigEndian);
    const auto value = type == 1   ? bytes.byte(at + 8)
                       : type == 3 ? bytes.word(at + 8, bigEndian)
                       : type == 4 ? bytes.longWord(at + 8, bigEndian)
                                   : 0;
    switch (bytes.word(at, bigEndian)) {
      case 256:
        facts.width = asSide(value);
        break;
      case 257:
        facts.height = asSide(value);
        break;
      case 258:
        facts.depth = asDepth(type == 1 ? 0 : value);
        break;
      default:
        break;
    }
  }
  return facts;
}

std::optional<bool> tiffIsBigEndian(const HeadBytes& bytes) {
  constexpr std::string_view kIntel("II*\0", 4);
  constexpr std::string_view kMotorola("MM\0*", 4);
  if (bytes.begins(kIntel)) return false;
  if (bytes.begins(kMotorola)) return true;
  return std::nullopt;
}

// ITU-T T.81: segments up to the one that begins the frame. Its components have 8 bits each.
ImageFacts readJpeg(const HeadBytes& bytes) {
  ImageFacts facts{.type = ImageKind::Jpeg};
  std::size_t at = 2;
  while (!bytes.isShort() && bytes.byte(at) == 0xFF) {
    const auto marker = bytes.byte(at + 1);
    const bool isAlone = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
    if (marker == 0xFF || isAlone) {  // a byte that fills, or a marker without a segment
      at += isAlone ? 2 : 1;
      continue;
    }
    if (marker >= 0xC0 && marker <= 0xC3) {
      facts.height = asSide(bytes.word(at + 5, true));
      facts.width = asSide(bytes.word(at + 7, true));
      facts.depth = asDepth(bytes.byte(at + 9) * 8);
      return facts;
    }
    const auto length = bytes.word(at + 2, true);
    if (marker == 0xDA || marker == 0xD9 || length < 2) break;  // pictures begin, or it ends
    at += 2 + length;
  }
  return facts;
}

// Nothing for what begins like none of the kinds.
std::optional<ImageFacts> readHead(const HeadBytes& bytes) {
  if (bytes.begins("\x89PN")) return readPng(bytes);
  if (bytes.begins("GIF")) return readGif(bytes);
  if (bytes.begins("BM")) return readBmp(bytes);
  if (bytes.begins("\x0A")) return readPcx(bytes);
  if (bytes.begins("\xFF\xD8")) return readJpeg(bytes);
  if (const auto bigEndian = tiffIsBigEndian(bytes)) return readTiff(bytes, *bigEndian);
  return std::nullopt;
}

}  // namespace

bool CImageInfo::readBytes(std::string_view bytes, std::uint64_t fileSize) {
  const HeadBytes head(bytes);
  const auto known = readHead(head);
  auto facts = known.value_or(ImageFacts());
  if (head.isShort()) facts = {.type = facts.type};
  const bool isWhole = !head.isShort() || fileSize <= bytes.size();
  width_ = facts.width;
  height_ = facts.height;
  depth_ = facts.depth;
  type_ = facts.type;
  isForeign_ = !known;
  orientation_ = exifOrientation(bytes);
  fileSize_ = toLongClamped(static_cast<double>(fileSize));
  return isWhole;
}

void CImageInfo::ReadImageInfo(const Files& files, const std::string& path) {
  *this = {};
  const auto facts = files.facts(path);
  if (!facts) return;
  const auto head = files.readHead(path, kHeadBytes);
  if (!head || readBytes(*head, facts->size)) return;
  const auto whole = files.read(path, kMostBytes);
  whole ? static_cast<void>(readBytes(*whole, whole->size())) : static_cast<void>(*this = {});
}

bool CImageInfo::isUsable() const {
  const auto fits = [](Long side) { return side > 0 && side < kTooManyPixels; };
  return fits(width_) && fits(height_);
}

bool AnalyseImage(Movie& clip, const CImageInfo& image) {
  if (!image.isUsable()) return false;
  clip.StillW(toInteger(image.ShownWidth()).value_or(0));
  clip.StillH(toInteger(image.ShownHeight()).value_or(0));
  return true;
}

}  // namespace kvo
