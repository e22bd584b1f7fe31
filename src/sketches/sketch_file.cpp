#include "sketches/sketch_file.h"

#include "base/fnv.h"

#include <algorithm>

namespace kvo {
namespace {

constexpr std::string_view kMagic = "KVOSKTCH";
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kSumBytes = 8;

template <class Number>
void put(std::string& bytes, Number number) {
  for (unsigned i = 0; i < sizeof(Number); ++i)
    bytes += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * i));
}

// Takes numbers and runs of bytes off the front; what there is too little for makes it fail for good.
class Taking {
 public:
  explicit Taking(std::string_view bytes) : bytes_(bytes) {}

  template <class Number>
  Number number() {
    const auto part = run(sizeof(Number));
    std::uint64_t value = 0;
    for (std::size_t i = part.size(); i-- > 0;) value = value << 8U | static_cast<unsigned char>(part[i]);
    return static_cast<Number>(value);
  }
  std::string_view run(std::uint64_t count) {
    failed_ = failed_ || count > bytes_.size();
    if (failed_) return {};
    const auto part = bytes_.substr(0, static_cast<std::size_t>(count));
    bytes_.remove_prefix(part.size());
    return part;
  }
  [[nodiscard]] bool failed() const { return failed_; }
  [[nodiscard]] bool atEnd() const { return !failed_ && bytes_.empty(); }

 private:
  std::string_view bytes_;
  bool failed_ = false;
};

auto placeOf(auto& pictures, std::uint32_t milliseconds) {
  return std::lower_bound(
      pictures.begin(), pictures.end(), milliseconds,
      [](const SketchFile::Picture& picture, std::uint32_t at) { return picture.milliseconds < at; });
}

}  // namespace

const SketchFile::Picture* SketchFile::find(std::uint32_t milliseconds) const {
  const auto at = placeOf(pictures, milliseconds);
  return at != pictures.end() && at->milliseconds == milliseconds ? &*at : nullptr;
}

void SketchFile::add(Picture picture) {
  const auto at = placeOf(pictures, picture.milliseconds);
  if (at != pictures.end() && at->milliseconds == picture.milliseconds) {
    *at = std::move(picture);
  } else {
    pictures.insert(at, std::move(picture));
  }
}

std::uint64_t sketchSum(std::string_view bytes) { return fnv1a(bytes); }

std::string sketchBytes(const SketchFile& sketch) {
  std::string bytes(kMagic);
  put(bytes, kVersion);
  put(bytes, static_cast<std::uint32_t>(sketch.key.path.size()));
  put(bytes, sketch.key.size);
  put(bytes, sketch.key.changed);
  put(bytes, static_cast<std::uint32_t>(sketch.pictures.size()));
  put(bytes, std::uint32_t{sketch.peaks ? 1U : 0U});
  put(bytes, static_cast<std::uint64_t>(sketch.peaks ? sketch.peaks->size() : 0));
  bytes += sketch.key.path;
  for (const auto& picture : sketch.pictures) {
    put(bytes, picture.milliseconds);
    put(bytes, static_cast<std::uint32_t>(picture.jpeg.size()));
    bytes += picture.jpeg;
  }
  if (sketch.peaks) bytes += *sketch.peaks;
  put(bytes, sketchSum(bytes));
  return bytes;
}

std::optional<SketchFile> readSketch(std::string_view bytes) {
  if (!bytes.starts_with(kMagic) || bytes.size() < kMagic.size() + kSumBytes) return std::nullopt;
  const auto body = bytes.substr(0, bytes.size() - kSumBytes);
  if (Taking(bytes.substr(body.size())).number<std::uint64_t>() != sketchSum(body)) return std::nullopt;
  Taking from(body.substr(kMagic.size()));
  if (from.number<std::uint32_t>() != kVersion) return std::nullopt;
  SketchFile sketch;
  const auto path = from.number<std::uint32_t>();
  sketch.key.size = from.number<std::uint64_t>();
  sketch.key.changed = from.number<std::int64_t>();
  const auto pictures = from.number<std::uint32_t>();
  const auto made = from.number<std::uint32_t>();
  const auto peaks = from.number<std::uint64_t>();
  if (made > 1 || (made == 0 && peaks > 0)) return std::nullopt;
  sketch.key.path = from.run(path);
  for (std::uint32_t i = 0; i < pictures && !from.failed(); ++i) {
    const auto milliseconds = from.number<std::uint32_t>();
    const auto jpeg = from.run(from.number<std::uint32_t>());
    const bool rises = sketch.pictures.empty() || sketch.pictures.back().milliseconds < milliseconds;
    if (!rises) return std::nullopt;
    sketch.pictures.push_back({milliseconds, std::string(jpeg)});
  }
  const auto loud = from.run(peaks);
  if (made == 1) sketch.peaks = loud;
  return from.atEnd() ? std::optional(std::move(sketch)) : std::nullopt;
}

}  // namespace kvo
