#include "media/heif.h"

#include "media/ffmpeg.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>

#include <libheif/heif.h>

namespace kvo::media {
namespace {

constexpr std::int64_t kMaxHeifPixels = 128LL << 20;  // as of any other picture

struct FreeHeif {
  void operator()(heif_context* c) const { heif_context_free(c); }
  void operator()(const heif_image_handle* h) const { heif_image_handle_release(h); }
  void operator()(const heif_image* i) const { heif_image_release(i); }
  void operator()(heif_decoding_options* o) const { heif_decoding_options_free(o); }
};

// A file and the picture in it that is to be shown.
struct OpenHeif {
  std::unique_ptr<heif_context, FreeHeif> context;
  std::unique_ptr<heif_image_handle, FreeHeif> picture;

  [[nodiscard]] int width() const { return heif_image_handle_get_width(picture.get()); }
  [[nodiscard]] int height() const { return heif_image_handle_get_height(picture.get()); }
};

Error heifError(const std::string& path, const heif_error& error) {
  return {"cannot open " + path + ": " + (error.message == nullptr ? "it is damaged" : error.message)};
}

// The file type box: its four letters, and those of the kinds that it also is, ISO/IEC 14496-12.
std::string brandsOf(const std::string& path) {
  std::error_code failed;
  if (!std::filesystem::is_regular_file(path, failed))
    return {};  // a pipe would keep whoever opens it waiting
  std::array<char, 128> head{};
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), head.size());
  const std::string_view bytes(head.data(), static_cast<std::size_t>(file.gcount()));
  if (bytes.size() < 16 || bytes.substr(4, 4) != "ftyp") return {};
  const auto size = AV_RB32(head.data());
  return std::string(bytes.substr(8, std::min<std::size_t>(bytes.size(), std::max(size, 8U)) - 8));
}

bool holdsBrand(std::string_view brands, std::string_view brand) {
  for (std::size_t at = 0; at + 4 <= brands.size(); at += 4) {
    if (at != 4 && brands.substr(at, 4) == brand) return true;  // between the first and the rest is a number
  }
  return false;
}

Result<OpenHeif> openHeif(const std::string& path) {
  OpenHeif file;
  file.context.reset(heif_context_alloc());
  if (!file.context) return Error{"cannot open " + path + ": out of memory"};
  if (const auto read = heif_context_read_from_file(file.context.get(), path.c_str(), nullptr);
      read.code != heif_error_Ok)
    return heifError(path, read);
  heif_image_handle* picture = nullptr;
  const auto found = heif_context_get_primary_image_handle(file.context.get(), &picture);
  file.picture.reset(picture);
  if (found.code != heif_error_Ok) return heifError(path, found);
  const auto pixels = std::int64_t{file.width()} * file.height();
  if (file.width() <= 0 || file.height() <= 0 || pixels > kMaxHeifPixels)
    return Error{"the picture in " + path + " is damaged, or too large"};
  return file;
}

}  // namespace

bool isHeif(const std::string& path) {
  const auto brands = brandsOf(path);
  constexpr std::array kSequences = {"msf1", "hevc", "hevx", "avis"};
  constexpr std::array kStills = {"mif1", "heic", "heix", "avif"};
  return std::none_of(kSequences.begin(), kSequences.end(),
                      [&](std::string_view brand) { return brands.starts_with(brand); }) &&
         std::any_of(kStills.begin(), kStills.end(),
                     [&](std::string_view brand) { return holdsBrand(brands, brand); });
}

Result<StreamFacts> heifFacts(const std::string& path) {
  const auto file = openHeif(path);
  if (!file) return file.error();
  StreamFacts facts;
  facts.hasVideo = facts.isStill = true;
  facts.width = file->width();
  facts.height = file->height();
  facts.codec = holdsBrand(brandsOf(path), "avif") ? "AVIF" : "HEIC";
  return facts;
}

Result<SharedFrame> readHeif(const std::string& path) {
  const auto file = openHeif(path);
  if (!file) return file.error();
  const bool hasAlpha = heif_image_handle_has_alpha_channel(file->picture.get()) != 0;
  const std::unique_ptr<heif_decoding_options, FreeHeif> options(heif_decoding_options_alloc());
  options->convert_hdr_to_8bit = 1;
  heif_image* raw = nullptr;
  const auto decoded =
      heif_decode_image(file->picture.get(), &raw, heif_colorspace_RGB,
                        hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, options.get());
  const std::unique_ptr<heif_image, FreeHeif> image(raw);
  if (decoded.code != heif_error_Ok) return heifError(path, decoded);
  int stride = 0;
  const auto* rows = heif_image_get_plane_readonly(raw, heif_channel_interleaved, &stride);
  const int width = heif_image_get_width(raw, heif_channel_interleaved);
  const int height = heif_image_get_height(raw, heif_channel_interleaved);
  if (rows == nullptr || width <= 0 || height <= 0) return Error{"the picture in " + path + " is damaged"};
  auto frame = newFrame(hasAlpha ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGB24, width, height);
  av_image_copy_plane(frame->data[0], frame->linesize[0], rows, stride, width * (hasAlpha ? 4 : 3), height);
  frame->color_range = AVCOL_RANGE_JPEG;
  frame->colorspace = AVCOL_SPC_RGB;
  return frame;
}

}  // namespace kvo::media
