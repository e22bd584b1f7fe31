#include "engine/effects/palette/tools.h"

#include "engine/effects/streaks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace kvo::engine {

cv::Mat greyOf(const cv::Mat& bgr) {
  cv::Mat grey;
  cv::cvtColor(bgr, grey, cv::COLOR_BGR2GRAY);
  return grey;
}

cv::Mat flattened(const cv::Mat& image, int pixels) {
  cv::Mat out;
  cv::medianBlur(image, out, std::clamp(pixels | 1, 3, 61));
  return out;
}

cv::Mat soft(const cv::Mat& image, double pixels) {
  if (pixels < 0.3) return image.clone();
  cv::Mat out;
  const int side = 2 * static_cast<int>(std::ceil(std::min(pixels, 80.0) * 1.5)) + 1;
  cv::GaussianBlur(image, out, {side, side}, pixels / 2, pixels / 2, cv::BORDER_REPLICATE);
  return out;
}

cv::Mat smoothed(const cv::Mat& image, const Style& style, double pixels) {
  return soft(image, (pixels + style.smoothness) * style.unit);
}

cv::Mat edgesOf(const cv::Mat& grey, double strength) {
  cv::Mat across;
  cv::Mat down;
  cv::Sobel(grey, across, CV_16S, 1, 0, 3, 1, 0, cv::BORDER_REPLICATE);
  cv::Sobel(grey, down, CV_16S, 0, 1, 3, 1, 0, cv::BORDER_REPLICATE);
  cv::Mat edges;
  cv::Mat edgesDown;
  cv::convertScaleAbs(across, edges, strength / 2);
  cv::convertScaleAbs(down, edgesDown, strength / 2);
  cv::add(edges, edgesDown, edges);
  return edges;
}

cv::Mat noise(cv::Size size, double pixels, double amount, unsigned seed) {
  const cv::Size small(std::max(2, static_cast<int>(size.width / std::max(pixels, 1.0))),
                       std::max(2, static_cast<int>(size.height / std::max(pixels, 1.0))));
  cv::Mat grains(small, CV_8U);
  cv::RNG random(seed + 1);
  random.fill(grains, cv::RNG::NORMAL, 128, amount);
  if (small == size) return grains;
  cv::Mat out;
  cv::resize(grains, out, size, 0, 0, cv::INTER_CUBIC);
  return out;
}

void addNoise(cv::Mat& image, const cv::Mat& grey) {
  cv::Mat wide = grey;
  if (image.channels() == 3) cv::cvtColor(grey, wide, cv::COLOR_GRAY2BGR);
  cv::addWeighted(image, 1, wide, 1, -128, image);
}

cv::Mat hatching(const cv::Mat& grey, double angle, int length, double strength, unsigned seed) {
  cv::Mat grains(grey.size(), CV_8U);
  cv::RNG random(seed + 7);
  random.fill(grains, cv::RNG::UNIFORM, 0, 256);
  // Drawn out, noise loses its range; it is spread again, and what is darker than its grain gets ink.
  cv::Mat strokes = streaks(grains, angle, length);
  const double range = std::sqrt(static_cast<double>(std::max(length, 1)));
  strokes.convertTo(strokes, CV_16S, range, 128 - 128 * range);
  cv::Mat ink;
  grey.convertTo(ink, CV_16S);
  cv::subtract(ink, strokes, ink, cv::noArray(), CV_16S);
  cv::Mat out;
  ink.convertTo(out, CV_8U, 1.5 * strength, 128);
  return out;
}

cv::Mat inSteps(const cv::Mat& image, int steps) {
  cv::Mat table(1, 256, CV_8U);
  for (int v = 0; v < 256; ++v) {
    const int step = std::min(v * steps / 256, steps - 1);
    table.at<std::uint8_t>(0, v) = static_cast<std::uint8_t>(step * 255 / std::max(steps - 1, 1));
  }
  cv::Mat out;
  cv::LUT(image, table, out);
  return out;
}

void contrast(cv::Mat& image, double factor, double middle) {
  image.convertTo(image, -1, factor, middle * (1 - factor));
}

cv::Mat lit(const cv::Mat& height, double angle, double strength, int distance) {
  const double radians = angle * std::numbers::pi / 180;
  const cv::Mat beyond = moved(height, static_cast<int>(std::lround(distance * std::cos(radians))),
                               static_cast<int>(std::lround(-distance * std::sin(radians))));
  cv::Mat light;
  cv::addWeighted(height, -strength, beyond, strength, 128, light, CV_16S);
  light.convertTo(light, CV_8U);
  return light;
}

void shade(cv::Mat& image, const cv::Mat& light, double share) {
  cv::Mat wide = light;
  if (image.channels() == 3) cv::cvtColor(light, wide, cv::COLOR_GRAY2BGR);
  cv::addWeighted(image, 1, wide, share, -128 * share, image);
}

cv::Mat printed(const cv::Mat& grey, const cv::Vec3b& ink, const cv::Vec3b& paper) {
  cv::Vec3b middle;
  for (int c = 0; c < 3; ++c) middle[c] = static_cast<std::uint8_t>((ink[c] + paper[c]) / 2);
  return printed(grey, ink, middle, paper);
}

cv::Mat printed(const cv::Mat& grey, const cv::Vec3b& ink, const cv::Vec3b& middle, const cv::Vec3b& paper) {
  cv::Mat table(1, 256, CV_8UC3);
  for (int v = 0; v < 256; ++v) {
    const auto& from = v < 128 ? ink : middle;
    const auto& to = v < 128 ? middle : paper;
    const int share = v < 128 ? v * 2 : (v - 128) * 2 + (v == 255 ? 1 : 0);
    for (int c = 0; c < 3; ++c) {
      table.at<cv::Vec3b>(0, v)[c] =
          static_cast<std::uint8_t>((from[c] * (255 - share) + to[c] * share) / 255);
    }
  }
  cv::Mat wide;
  cv::cvtColor(grey, wide, cv::COLOR_GRAY2BGR);
  cv::Mat out;
  cv::LUT(wide, table, out);
  return out;
}

void paintOver(cv::Mat& image, const cv::Mat& mask, const cv::Vec3b& colour, double share) {
  const int whole = static_cast<int>(std::lround(256 * std::clamp(share, 0.0, 1.0)));
  for (int y = 0; y < image.rows; ++y) {
    auto* row = image.ptr<cv::Vec3b>(y);
    const auto* cover = mask.ptr<std::uint8_t>(y);
    for (int x = 0; x < image.cols; ++x) {
      const int by = cover[x] * whole / 255;
      for (int c = 0; c < 3; ++c) {
        row[x][c] = static_cast<std::uint8_t>((row[x][c] * (256 - by) + colour[c] * by + 128) >> 8);
      }
    }
  }
}

cv::Mat mixed(const cv::Mat& a, const cv::Mat& b, double share) {
  cv::Mat out;
  cv::addWeighted(a, 1 - share, b, share, 0, out);
  return out;
}

cv::Mat mixedBy(const cv::Mat& a, const cv::Mat& b, const cv::Mat& mask) {
  cv::Mat out(a.size(), a.type());
  const int channels = a.channels();
  for (int y = 0; y < a.rows; ++y) {
    const auto* from = a.ptr<std::uint8_t>(y);
    const auto* to = b.ptr<std::uint8_t>(y);
    const auto* cover = mask.ptr<std::uint8_t>(y);
    auto* row = out.ptr<std::uint8_t>(y);
    for (int x = 0; x < a.cols; ++x) {
      for (int c = 0; c < channels; ++c, ++from, ++to, ++row) {
        *row = static_cast<std::uint8_t>((*from * (255 - cover[x]) + *to * cover[x] + 127) / 255);
      }
    }
  }
  return out;
}

cv::Mat dabs(const cv::Mat& bgr, int pixels) {
  const int side = std::clamp(pixels, 2, 24);
  const cv::Mat grey = greyOf(bgr);
  cv::Mat mean;
  cv::Mat squares;
  cv::boxFilter(grey, mean, CV_32F, {side, side}, {-1, -1}, true, cv::BORDER_REPLICATE);
  cv::sqrBoxFilter(grey, squares, CV_32F, {side, side}, {-1, -1}, true, cv::BORDER_REPLICATE);
  cv::Mat colours;
  cv::blur(bgr, colours, {side, side}, {-1, -1}, cv::BORDER_REPLICATE);
  cv::Mat unrest = squares - mean.mul(mean);
  cv::Mat out = colours.clone();
  cv::Mat least(bgr.size(), CV_32F, cv::Scalar(std::numeric_limits<float>::max()));
  const int away = side / 2;
  for (const auto& [x, y] : {std::pair{-1, -1}, std::pair{1, -1}, std::pair{-1, 1}, std::pair{1, 1}}) {
    const cv::Mat there = moved(unrest, x * away, y * away);
    const cv::Mat calmer = there < least;
    there.copyTo(least, calmer);
    moved(colours, x * away, y * away).copyTo(out, calmer);
  }
  return out;
}

cv::Mat weave(cv::Size size, double pixels) {
  cv::Mat out(size, CV_8U);
  const double turn = std::numbers::pi / std::max(pixels, 1.5);
  for (int y = 0; y < size.height; ++y) {
    auto* row = out.ptr<std::uint8_t>(y);
    for (int x = 0; x < size.width; ++x) {
      const double a = std::sin(x * turn);
      const double b = std::sin(y * turn);
      row[x] = static_cast<std::uint8_t>(std::lround(128 + 60 * a * a - 60 * b * b));
    }
  }
  return out;
}

Cells cellsOf(cv::Size size, int pixels, double rimPixels, unsigned seed) {
  // One point in each square of a grid, anywhere in it; a pixel looks at the points of the squares around it.
  const int columns = size.width / pixels + 3;
  const int rows = size.height / pixels + 3;
  std::vector<cv::Point2f> points;
  cv::RNG random(seed + 31);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      points.emplace_back(
          (static_cast<float>(column) - 1 + random.uniform(0.1F, 0.9F)) * static_cast<float>(pixels),
          (static_cast<float>(row) - 1 + random.uniform(0.1F, 0.9F)) * static_cast<float>(pixels));
    }
  }
  Cells cells{cv::Mat(size, CV_32S), cv::Mat(size, CV_8U), columns * rows};
  for (int y = 0; y < size.height; ++y) {
    auto* owner = cells.owner.ptr<std::int32_t>(y);
    auto* rim = cells.rim.ptr<std::uint8_t>(y);
    for (int x = 0; x < size.width; ++x) {
      float nearest = std::numeric_limits<float>::max();
      float second = nearest;
      int mine = 0;
      for (int row = y / pixels; row <= y / pixels + 2; ++row) {
        for (int column = x / pixels; column <= x / pixels + 2; ++column) {
          const int number = row * columns + column;
          const auto d = points[static_cast<std::size_t>(number)] -
                         cv::Point2f(static_cast<float>(x), static_cast<float>(y));
          const float far = d.dot(d);
          if (far < nearest) {
            second = nearest;
            nearest = far;
            mine = number;
          } else {
            second = std::min(second, far);
          }
        }
      }
      owner[x] = mine;
      const double gap = std::sqrt(second) - std::sqrt(nearest);
      rim[x] = static_cast<std::uint8_t>(std::lround(255 * std::clamp(rimPixels + 0.5 - gap / 2, 0.0, 1.0)));
    }
  }
  return cells;
}

cv::Mat inCells(const cv::Mat& bgr, const Cells& cells) {
  struct Sum {
    std::array<std::int64_t, 3> colours{};
    std::int64_t count = 0;
  };
  std::vector<Sum> sums(static_cast<std::size_t>(cells.count));
  for (int y = 0; y < bgr.rows; ++y) {
    const auto* from = bgr.ptr<cv::Vec3b>(y);
    const auto* owner = cells.owner.ptr<std::int32_t>(y);
    for (int x = 0; x < bgr.cols; ++x) {
      auto& sum = sums[static_cast<std::size_t>(owner[x])];
      for (int c = 0; c < 3; ++c) sum.colours[static_cast<std::size_t>(c)] += from[x][c];
      ++sum.count;
    }
  }
  cv::Mat out(bgr.size(), CV_8UC3);
  for (int y = 0; y < bgr.rows; ++y) {
    const auto* owner = cells.owner.ptr<std::int32_t>(y);
    auto* row = out.ptr<cv::Vec3b>(y);
    for (int x = 0; x < bgr.cols; ++x) {
      const auto& sum = sums[static_cast<std::size_t>(owner[x])];
      for (int c = 0; c < 3; ++c) {
        row[x][c] = static_cast<std::uint8_t>(sum.colours[static_cast<std::size_t>(c)] / sum.count);
      }
    }
  }
  return out;
}

cv::Mat displaced(const cv::Mat& bgr, const cv::Mat& across, const cv::Mat& down, double pixels) {
  cv::Mat mapX(bgr.size(), CV_32F);
  cv::Mat mapY(bgr.size(), CV_32F);
  const auto by = static_cast<float>(pixels / 128);
  for (int y = 0; y < bgr.rows; ++y) {
    for (int x = 0; x < bgr.cols; ++x) {
      mapX.ptr<float>(y)[x] =
          static_cast<float>(x) + by * static_cast<float>(across.ptr<std::uint8_t>(y)[x] - 128);
      mapY.ptr<float>(y)[x] =
          static_cast<float>(y) + by * static_cast<float>(down.ptr<std::uint8_t>(y)[x] - 128);
    }
  }
  cv::Mat out;
  cv::remap(bgr, out, mapX, mapY, cv::INTER_LINEAR, cv::BORDER_REPLICATE);
  return out;
}

}  // namespace kvo::engine
