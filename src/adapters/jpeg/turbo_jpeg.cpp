#include "adapters/jpeg/turbo_jpeg.h"

#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>
#include <memory>

namespace kvo {
namespace {

// A progressive file is held whole as coefficients, however small it is to be shown.
constexpr long kMostMemory = 256L << 20;
// Each pass over a picture costs time and may add nothing; encoders make about ten.
constexpr int kMostPasses = 100;

// The library tells failures by calling back, and goes on when such a call comes back: so it does not.
struct Faults {
  jpeg_error_mgr calls{};
  std::jmp_buf wayOut{};
  std::array<char, JMSG_LENGTH_MAX> text{};
};

[[noreturn]] void leave(j_common_ptr coder) {
  auto& faults = *reinterpret_cast<Faults*>(coder->err);  // its first member
  faults.calls.format_message(coder, faults.text.data());
  std::longjmp(faults.wayOut, 1);
}

void hear(j_common_ptr coder, int level) {
  const bool isDamage = level < 0;
  if (isDamage) leave(coder);
}

void countPasses(j_common_ptr coder) {
  if (reinterpret_cast<j_decompress_ptr>(coder)->input_scan_number <= kMostPasses) return;
  auto& faults = *reinterpret_cast<Faults*>(coder->err);
  std::snprintf(faults.text.data(), faults.text.size(), "more than %d passes over the picture", kMostPasses);
  std::longjmp(faults.wayOut, 1);
}

// One decoder, gone with the object. The steps that can fail are run by functions that hold nothing a jump
// out of them would leave behind.
class Decoder {
 public:
  Decoder() {
    coder_.err = jpeg_std_error(&faults_.calls);
    faults_.calls.error_exit = leave;
    faults_.calls.emit_message = hear;
    progress_.progress_monitor = countPasses;
  }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;
  ~Decoder() { jpeg_destroy_decompress(&coder_); }

  bool readHead(std::string_view file) {
    if (setjmp(faults_.wayOut) != 0) return false;
    jpeg_create_decompress(&coder_);
    coder_.progress = &progress_;
    coder_.mem->max_memory_to_use = kMostMemory;
    jpeg_mem_src(&coder_, reinterpret_cast<const unsigned char*>(file.data()), file.size());
    return jpeg_read_header(&coder_, TRUE) == JPEG_HEADER_OK;
  }

  bool readRows(int scale, std::span<std::uint8_t> rows, std::size_t stride) {
    if (setjmp(faults_.wayOut) != 0) return false;
    coder_.scale_num = 1;
    coder_.scale_denom = static_cast<unsigned>(scale);
    coder_.out_color_space = JCS_EXT_BGR;
    jpeg_start_decompress(&coder_);
    while (coder_.output_scanline < coder_.output_height) {
      JSAMPROW row = rows.data() + coder_.output_scanline * stride;
      jpeg_read_scanlines(&coder_, &row, 1);
    }
    return jpeg_finish_decompress(&coder_) != FALSE;
  }

  [[nodiscard]] JpegSize size() const {
    return {static_cast<int>(coder_.image_width), static_cast<int>(coder_.image_height)};
  }
  [[nodiscard]] Error error() const { return {faults_.text.data()}; }

 private:
  Faults faults_;
  jpeg_progress_mgr progress_{};
  jpeg_decompress_struct coder_{};
};

// One encoder, gone with the object, as above.
class Encoder {
 public:
  Encoder() {
    coder_.err = jpeg_std_error(&faults_.calls);
    faults_.calls.error_exit = leave;
  }
  Encoder(const Encoder&) = delete;
  Encoder& operator=(const Encoder&) = delete;
  ~Encoder() {
    jpeg_destroy_compress(&coder_);
    const std::unique_ptr<unsigned char, decltype(&std::free)> bytes(bytes_,
                                                                     &std::free);  // as the library made them
  }

  bool write(JpegSize size, std::span<const std::uint8_t> rows, int quality) {
    if (setjmp(faults_.wayOut) != 0) return false;
    jpeg_create_compress(&coder_);
    jpeg_mem_dest(&coder_, &bytes_, &count_);
    coder_.image_width = static_cast<JDIMENSION>(size.width);
    coder_.image_height = static_cast<JDIMENSION>(size.height);
    coder_.input_components = 3;
    coder_.in_color_space = JCS_EXT_BGR;
    jpeg_set_defaults(&coder_);
    jpeg_set_quality(&coder_, quality, TRUE);
    jpeg_start_compress(&coder_, TRUE);
    const auto stride = static_cast<std::size_t>(size.width) * 3;
    while (coder_.next_scanline < coder_.image_height) {
      auto* row = const_cast<JSAMPROW>(rows.data() + coder_.next_scanline * stride);
      jpeg_write_scanlines(&coder_, &row, 1);
    }
    jpeg_finish_compress(&coder_);
    return true;
  }

  [[nodiscard]] std::string bytes() const { return {reinterpret_cast<const char*>(bytes_), count_}; }
  [[nodiscard]] Error error() const { return {faults_.text.data()}; }

 private:
  Faults faults_;
  jpeg_compress_struct coder_{};
  unsigned char* bytes_ = nullptr;  // the library's, by malloc
  unsigned long count_ = 0;
};

bool holds(std::span<const std::uint8_t> rows, std::size_t stride, JpegSize size, int scale) {
  const auto rowBytes = static_cast<std::size_t>(jpegSide(size.width, scale)) * 3;
  const auto height = static_cast<std::size_t>(jpegSide(size.height, scale));
  return stride >= rowBytes && rows.size() / stride >= height;
}

}  // namespace

Result<JpegSize> TurboJpeg::size(std::string_view file) const {
  Decoder decoder;
  if (!decoder.readHead(file)) return decoder.error();
  return decoder.size();
}

Outcome TurboJpeg::decode(std::string_view file, int scale, std::span<std::uint8_t> rows,
                          std::size_t stride) const {
  if (scale != 1 && scale != 2 && scale != 4 && scale != 8) return Error{"JPEG is decoded at 1, 2, 4 or 8"};
  Decoder decoder;
  if (!decoder.readHead(file)) return decoder.error();
  if (!holds(rows, stride, decoder.size(), scale)) return Error{"there is no room for the picture"};
  if (!decoder.readRows(scale, rows, stride)) return decoder.error();
  return {};
}

Result<std::string> TurboJpeg::encode(JpegSize size, std::span<const std::uint8_t> rows, int quality) const {
  const auto wanted = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) * 3;
  if (size.width <= 0 || size.height <= 0 || rows.size() < wanted)
    return Error{"there is no picture to encode"};
  Encoder encoder;
  if (!encoder.write(size, rows, quality)) return encoder.error();
  return encoder.bytes();
}

}  // namespace kvo
