#include "base/exif.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace kvo {
namespace {

using namespace std::string_view_literals;

constexpr auto kIntel = "II*\0"sv;
constexpr auto kMotorola = "MM\0*"sv;

// Nothing beyond the end.
std::optional<std::uint32_t> numberAt(std::string_view bytes, std::size_t at, std::size_t size,
                                      bool bigEndian) {
  if (at > bytes.size() || bytes.size() - at < size) return std::nullopt;
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < size; ++i)
    number = number << 8U | static_cast<unsigned char>(bytes[at + (bigEndian ? i : size - 1 - i)]);
  return number;
}

// Of the first directory of a TIFF, which Exif is one of.
int ofTiff(std::string_view bytes) {
  constexpr std::size_t kEntry = 12;
  constexpr std::uint32_t kOrientation = 274;
  const bool bigEndian = bytes.starts_with(kMotorola);
  if (!bigEndian && !bytes.starts_with(kIntel)) return 1;
  const std::size_t directory = numberAt(bytes, 4, 4, bigEndian).value_or(0);
  const auto entries = numberAt(bytes, directory, 2, bigEndian).value_or(0);
  for (std::uint32_t i = 0; i < entries; ++i) {
    const auto at = directory + 2 + i * kEntry;
    const auto tag = numberAt(bytes, at, 2, bigEndian);
    if (!tag) return 1;
    if (*tag != kOrientation) continue;
    const auto value = numberAt(bytes, at + 8, 2, bigEndian).value_or(1);
    return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
  }
  return 1;
}

// WebP writes the Exif of a JPEG with its name ahead of it, or without.
int ofExif(std::string_view bytes) {
  constexpr auto kName = "Exif\0\0"sv;
  return ofTiff(bytes.starts_with(kName) ? bytes.substr(kName.size()) : bytes);
}

// ITU-T T.81: the segments ahead of the picture.
int ofJpeg(std::string_view bytes) {
  std::size_t at = 2;
  for (;;) {
    const auto marker = numberAt(bytes, at, 2, true);
    if (!marker || *marker < 0xFF00) return 1;
    if (*marker == 0xFFFF) {  // a byte that fills
      ++at;
      continue;
    }
    const auto length = numberAt(bytes, at + 2, 2, true);
    if (!length || *length < 2 || *marker == 0xFFDA) return 1;
    const auto content = bytes.substr(at + 4, *length - 2);
    if (*marker == 0xFFE1 && content.starts_with("Exif\0\0"sv)) return ofExif(content);
    at += 2 + *length;
  }
}

// The content of the first chunk of this name. Its length and its name stand ahead of it, four bytes each.
std::string_view chunkOf(std::string_view bytes, std::size_t at, std::string_view name, bool isPng) {
  for (;;) {
    const auto length = numberAt(bytes, at + (isPng ? 0 : 4), 4, isPng);
    if (!length || bytes.size() - at < 8) return {};
    const auto content = bytes.substr(at + 8, *length);
    if (bytes.substr(at + (isPng ? 4 : 0), 4) == name) return content;
    // A check sum stands behind one of PNG; one of RIFF is filled to an even length.
    const std::size_t next = at + 8 + std::size_t{*length} + (isPng ? 4 : *length & 1U);
    if (next >= bytes.size()) return {};
    at = next;
  }
}

bool isWebp(std::string_view bytes) { return bytes.starts_with("RIFF") && bytes.substr(8, 4) == "WEBP"; }
bool isTiff(std::string_view bytes) { return bytes.starts_with(kIntel) || bytes.starts_with(kMotorola); }

}  // namespace

int exifOrientation(std::string_view file) {
  if (file.size() < 12) return 1;
  if (file.starts_with("\xFF\xD8")) return ofJpeg(file);
  if (file.starts_with("\x89PNG\r\n\x1A\n")) return ofExif(chunkOf(file, 8, "eXIf", true));
  if (isWebp(file)) return ofExif(chunkOf(file, 12, "EXIF", false));
  return ofTiff(file);
}

bool exifMayLieFar(std::string_view head) {
  return head.size() >= kExifHead && (isTiff(head) || isWebp(head));
}

}  // namespace kvo
