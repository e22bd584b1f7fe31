#include "art/picture_files.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace kvo::art {
namespace {

constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kV4Header = 108;
constexpr std::uint32_t kBitFields = 3;                 // compression: the masks stand in the header
constexpr std::uint32_t kPixelsPerMetre = 3780;         // 96 to the inch
constexpr std::uint32_t kStandardColours = 0x73524742;  // 'sRGB'
constexpr std::array<std::uint32_t, 4> kMasks = {0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000};

void add(std::string& out, std::uint32_t number, int bytes) {
  for (int i = 0; i < bytes; ++i) out += static_cast<char>(number >> (8 * i) & 0xFFU);
}

bool isOpaque(const Picture& picture) {
  for (std::size_t i = 3; i < picture.bgra.size(); i += 4) {
    if (picture.bgra[i] != 0xFF) return false;
  }
  return true;
}

void addHeader(std::string& out, const Picture& picture, bool opaque, std::uint32_t pixelBytes) {
  const auto header = opaque ? kInfoHeader : kV4Header;
  out += "BM";
  add(out, kFileHeader + header + pixelBytes, 4);
  add(out, 0, 4);
  add(out, kFileHeader + header, 4);
  add(out, header, 4);
  add(out, static_cast<std::uint32_t>(picture.width), 4);
  add(out, static_cast<std::uint32_t>(picture.height), 4);
  add(out, 1, 2);
  add(out, opaque ? 24 : 32, 2);
  add(out, opaque ? 0 : kBitFields, 4);
  add(out, pixelBytes, 4);
  add(out, kPixelsPerMetre, 4);
  add(out, kPixelsPerMetre, 4);
  add(out, 0, 4);
  add(out, 0, 4);
  if (opaque) return;
  for (const auto mask : kMasks) add(out, mask, 4);
  add(out, kStandardColours, 4);
  out.resize(kFileHeader + kV4Header, '\0');  // end points and gammas have no meaning in sRGB
}

}  // namespace

std::string bmpOf(const Picture& picture) {
  const bool opaque = isOpaque(picture);
  const auto width = static_cast<std::size_t>(picture.width);
  const auto height = static_cast<std::size_t>(picture.height);
  const auto stride = opaque ? (width * 3 + 3) / 4 * 4 : width * 4;
  std::string out;
  addHeader(out, picture, opaque, static_cast<std::uint32_t>(stride * height));
  for (std::size_t y = height; y-- > 0;) {
    const auto* pixel = picture.bgra.data() + y * width * 4;
    const auto rowEnd = out.size() + stride;
    for (std::size_t x = 0; x < width; ++x, pixel += 4) {
      out.append(reinterpret_cast<const char*>(pixel), opaque ? 3 : 4);
    }
    out.resize(rowEnd, '\0');
  }
  return out;
}

std::string jpegOf(const Picture& picture) {
  constexpr int kQuality = 92;
  jpeg_compress_struct coder{};
  jpeg_error_mgr errors{};
  // Its way to fail is to end the program with a line, which serves here.
  coder.err = jpeg_std_error(&errors);
  jpeg_create_compress(&coder);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&coder, &bytes, &size);
  coder.image_width = static_cast<JDIMENSION>(picture.width);
  coder.image_height = static_cast<JDIMENSION>(picture.height);
  coder.input_components = 4;
  coder.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&coder);
  jpeg_set_quality(&coder, kQuality, TRUE);
  for (int i = 0; i < coder.num_components; ++i) {  // colours as fine as the light
    coder.comp_info[i].h_samp_factor = 1;
    coder.comp_info[i].v_samp_factor = 1;
  }
  jpeg_start_compress(&coder, TRUE);
  const auto rowBytes = static_cast<std::size_t>(picture.width) * 4;
  std::vector<JSAMPLE> row(rowBytes);
  for (auto at = picture.bgra.begin(); coder.next_scanline < coder.image_height;
       at += static_cast<std::ptrdiff_t>(rowBytes)) {
    std::copy_n(at, rowBytes, row.begin());
    JSAMPROW rows = row.data();
    jpeg_write_scanlines(&coder, &rows, 1);
  }
  jpeg_finish_compress(&coder);
  jpeg_destroy_compress(&coder);
  std::string file(reinterpret_cast<const char*>(bytes), size);
  std::free(bytes);  // NOLINT(cppcoreguidelines-owning-memory): the library gives it so
  return file;
}

}  // namespace kvo::art
