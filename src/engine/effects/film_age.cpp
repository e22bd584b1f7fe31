// Film age: an old film: faded to brown, flickering, with scratches, dust and grain.
#include "engine/effects/registry.h"
#include "engine/picture/planes.h"

#include <cmath>
#include <opencv2/imgproc.hpp>
#include <random>

namespace kvo::engine {
namespace {

constexpr double kBrownU = 118;
constexpr double kBrownV = 136;

// Faults that differ from one frame of the film to the next.
class Faults {
 public:
  Faults(double time, double age, double unit)
      : random_(static_cast<unsigned>(std::lround(time * 24))), age_(age), unit_(unit) {}

  void draw(cv::Mat luma) {
    cv::Mat grain(luma.size(), CV_16S);
    cv::RNG noise(random_());
    noise.fill(grain, cv::RNG::NORMAL, 0, 22 * age_);
    const double flicker = 1 - 0.18 * age_ * between(0, 1);
    luma.convertTo(luma, -1, flicker, 16 * (1 - flicker));
    cv::add(luma, grain, luma, cv::noArray(), CV_8U);
    const int scratches = static_cast<int>(std::lround(age_ * between(0, 5)));
    for (int i = 0; i < scratches; ++i) {
      const double x = between(0, luma.cols);
      cv::line(luma, {static_cast<int>(x), 0}, {static_cast<int>(x + between(-3, 3) * unit_), luma.rows},
               cv::Scalar(between(0, 1) < 0.6 ? 215 : 30), 1, cv::LINE_AA);
    }
    const int specks = static_cast<int>(std::lround(age_ * between(0, 14)));
    for (int i = 0; i < specks; ++i) {
      const cv::Point at(static_cast<int>(between(0, luma.cols)), static_cast<int>(between(0, luma.rows)));
      cv::ellipse(
          luma, at, {static_cast<int>(between(0, 4) * unit_), static_cast<int>(between(0, 3) * unit_)},
          between(0, 180), 0, 360, cv::Scalar(between(0, 1) < 0.5 ? 225 : 24), cv::FILLED, cv::LINE_AA);
    }
  }

 private:
  double between(double least, double most) {
    return least +
           (most - least) * (static_cast<double>(random_()) / static_cast<double>(std::mt19937::max()));
  }

  std::mt19937 random_;
  double age_;
  double unit_;
};

// The parameter "age", 0 (new) to 100.
DrawEffect makeFilmAge(const Params& params, int /*width*/, int height) {
  return [params, height](const media::Picture& picture, const EffectMoment& moment) {
    const double age = params.number("age", moment.time, 0, 0, 100) / 100;
    if (age <= 0) return picture;
    auto out = copyOf(picture);
    const auto towards = [&](int plane, double brown) {
      auto chroma = planeOf(out, plane);
      const double share = std::min(1.0, 1.3 * age);
      chroma.convertTo(chroma, -1, 1 - share, brown * share);
    };
    towards(1, kBrownU);
    towards(2, kBrownV);
    Faults(moment.time, age, height / 360.0).draw(planeOf(out, 0));
    return share(std::move(out));
  };
}

}  // namespace

const DrawnEffect effects::FilmAge{makeFilmAge, always};

}  // namespace kvo::engine
