#include "sketches/sketch_maker.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr int kJpegQuality = 85;  // of 100
constexpr double kPerSecond = 1000;

}  // namespace

// The file as it is now comes in hand; false when it is not there.
bool SketchMaker::open(const std::string& path) {
  if (inHand_ && inHand_->key.path == path) return true;
  flush();
  inHand_ = parts_.folder.find(path);
  return inHand_.has_value();
}

std::string SketchMaker::picture(const std::string& path, std::uint32_t milliseconds) {
  if (!open(path)) return {};
  if (const auto* known = inHand_->find(milliseconds)) return known->jpeg;
  auto jpeg = draw(path, milliseconds / kPerSecond);
  inHand_->add({milliseconds, jpeg});
  isNew_ = true;
  return jpeg;
}

std::string SketchMaker::draw(const std::string& path, double seconds) const {
  const auto facts = parts_.frames.facts(path);
  if (!facts || !facts->hasVideo || facts->width <= 0 || facts->height <= 0) return {};
  const double scale = std::min({1.0, static_cast<double>(kSketchWidth) / facts->width,
                                 static_cast<double>(kSketchHeight) / facts->height});
  const auto frame = parts_.frames.frame(path, seconds, static_cast<int>(std::lround(facts->width * scale)),
                                         static_cast<int>(std::lround(facts->height * scale)));
  if (!frame) return {};
  auto jpeg = parts_.jpeg.encode({frame->width, frame->height}, frame->bgr, kJpegQuality);
  return jpeg ? std::move(*jpeg) : std::string();
}

std::string SketchMaker::peaks(const std::string& path, const std::function<void()>& alive) {
  if (!open(path)) return {};
  if (!inHand_->peaks) {
    const auto loud = parts_.sounds.peaks(path, kKeptPeaks, alive);
    inHand_->peaks = loud ? std::string(loud->begin(), loud->end()) : std::string();
    isNew_ = true;
  }
  return *inHand_->peaks;
}

// A disk that takes nothing costs no more than the work another time.
void SketchMaker::flush() {
  if (isNew_ && inHand_) static_cast<void>(parts_.folder.keep(*inHand_));
  isNew_ = false;
  inHand_.reset();
}

}  // namespace kvo
