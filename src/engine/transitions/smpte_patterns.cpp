#include "engine/transitions/smpte_patterns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>

namespace kvo::engine {
namespace {

constexpr double kPi = std::numbers::pi;

// 0 at the edges of a cell's side, 1 in its middle, and the other way round.
double fromEdge(double v) { return 1 - std::fabs(2 * v - 1); }
double fromMiddle(double v) { return std::fabs(2 * v - 1); }
// A zigzag between 0 and 1 with so many teeth.
double teeth(double v, int count) { return std::fabs(2 * (v * count - std::floor(v * count)) - 1); }

constexpr int kTeeth = 6;
constexpr double kToothLength = 0.12;  // of the way

// A five-pointed star and its like: how large it has to be to reach a point. One point is up.
double star(double x, double y, int points, double inner) {
  const double half = kPi / points;
  const double angle = std::atan2(x, -y) + 2 * kPi;
  const double fold = std::fabs(std::fmod(angle + half, 2 * half) - half);
  const double notchX = inner * std::cos(half);
  const double notchY = inner * std::sin(half);
  return std::hypot(x, y) * (notchY * std::cos(fold) + (1 - notchX) * std::sin(fold)) / notchY;
}

// The outline (x^2 + y^2 - 1)^3 = x^2 y^3, by its radius in each direction.
class Heart {
 public:
  Heart() {
    for (std::size_t i = 0; i < radii_.size(); ++i) {
      const double angle = 2 * kPi * static_cast<double>(i) / static_cast<double>(radii_.size());
      const double s = std::sin(angle);
      const double c = std::cos(angle);
      const double weight = s * s * c * c * c;  // the point is (sin, cos) times the radius
      double inside = 0.2;
      double outside = 2;
      for (int step = 0; step < 40; ++step) {
        const double r = (inside + outside) / 2;
        const double left = r * r - 1;
        (left * left * left - weight * std::pow(r, 5) < 0 ? inside : outside) = r;
      }
      radii_[i] = inside;
    }
  }

  [[nodiscard]] double sizeAt(double x, double y) const {
    const double angle = std::atan2(x, -y) / (2 * kPi) + 1;
    const double place = std::fmod(angle, 1.0) * static_cast<double>(radii_.size());
    const auto at = static_cast<std::size_t>(place);
    const double between = place - static_cast<double>(at);
    const double radius =
        radii_[at % radii_.size()] * (1 - between) + radii_[(at + 1) % radii_.size()] * between;
    return std::hypot(x, y) / radius;
  }

 private:
  std::array<double, 720> radii_{};
};

// A round head on a foot that widens downwards.
double keyhole(double x, double y) {
  const double head = std::hypot(x, y + 0.28) / 0.42;
  // The foot is a trapezium about (0, 0.32); how much larger it has to be to reach the point.
  const double down = y - 0.32;
  const double sideways = (std::fabs(x) - 0.2 * down) / 0.24;
  const double foot = std::max(sideways, std::fabs(down) / 0.62);
  return std::min(head, foot);
}

// Cells that change one after the other.
constexpr int kColumns = 16;
constexpr int kRows = 12;

struct Cell {
  int column;
  int row;
};

Cell cellAt(double x, double y) {
  return {std::clamp(static_cast<int>(x * kColumns), 0, kColumns - 1),
          std::clamp(static_cast<int>(y * kRows), 0, kRows - 1)};
}

// A snake through `columns` columns of cells from the top down, to and fro.
double snake(int column, int row, int columns) {
  return row * columns + (row % 2 == 0 ? column : columns - 1 - column);
}

double diagonalSnake(double x, double y) {
  const auto cell = cellAt(x, y);
  const int diagonal = cell.column + cell.row;
  // Cells of the diagonals ahead of this one, and of this one.
  double before = 0;
  for (int d = 0; d < diagonal; ++d)
    before += std::min({d, kColumns - 1, kRows - 1, kColumns + kRows - 2 - d}) + 1;
  const int first = std::max(0, diagonal - (kColumns - 1));
  const int last = std::min(diagonal, kRows - 1);
  return before + (diagonal % 2 == 0 ? cell.row - first : last - cell.row);
}

double twoSnakes(double x, double y) {
  const auto cell = cellAt(x, y);
  const int column = cell.column < kColumns / 2 ? cell.column : kColumns - 1 - cell.column;
  return snake(column, cell.row, kColumns / 2);
}

double fourSnakes(double x, double y) {
  const auto cell = cellAt(x, y);
  const int column = cell.column < kColumns / 2 ? cell.column : kColumns - 1 - cell.column;
  const int row = cell.row < kRows / 2 ? cell.row : kRows - 1 - cell.row;
  return snake(column, row, kColumns / 2);
}

// Columns of cells fill from the top, each a little later than the one beside it.
double waterfall(double x, double y) {
  const auto cell = cellAt(x, y);
  return cell.column * 3 + cell.row;
}

double random(double x, double y) {
  const auto cell = cellAt(x, y);
  // A fixed shuffle of the cells (a splitmix step), the same in every render.
  std::uint64_t z = static_cast<std::uint64_t>(cell.row * kColumns + cell.column + 1) * 0x9E3779B97F4A7C15ULL;
  z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
  return static_cast<double>((z ^ (z >> 31U)) % 10007);
}

double heart(double x, double y) {
  static const Heart kHeart;
  return kHeart.sizeAt(x, y);
}

template <class At>
struct Coded {
  int code;
  At* at;
};

using AtPoint = double(double x, double y);

// From 0 to 1 across the cell.
constexpr Coded<AtPoint> kPatterns[] = {
    // boxes out of the corners
    {3, [](double x, double y) { return std::max(x, y); }},
    {4, [](double x, double y) { return std::max(1 - x, y); }},
    {5, [](double x, double y) { return std::max(1 - x, 1 - y); }},
    {6, [](double x, double y) { return std::max(x, 1 - y); }},
    {7, [](double x, double y) { return std::max(fromEdge(x), fromEdge(y)); }},
    // barn doors up and down, a box from the middle of the upper edge
    {22, [](double /*x*/, double y) { return fromMiddle(y); }},
    {23, [](double x, double y) { return std::max(fromMiddle(x), y); }},
    // bow ties, a diamond
    {43, [](double x, double y) { return fromEdge(y) + fromMiddle(x); }},
    {44, [](double x, double y) { return fromEdge(x) + fromMiddle(y); }},
    {48, [](double x, double y) { return fromMiddle(x) + fromMiddle(y); }},
    // edges like a saw
    {71, [](double x, double y) { return x + kToothLength * teeth(y, kTeeth); }},
    {72, [](double x, double y) { return y + kToothLength * teeth(x, kTeeth); }},
    {73, [](double x, double y) { return fromMiddle(x) + kToothLength * teeth(y, kTeeth); }},
    {74, [](double x, double y) { return fromMiddle(y) + kToothLength * teeth(x, kTeeth); }},
    // filled V, its point up, right, down, left
    {103, [](double x, double y) { return 1 - y + fromMiddle(x); }},
    {104, [](double x, double y) { return x + fromMiddle(y); }},
    {105, [](double x, double y) { return y + fromMiddle(x); }},
    {106, [](double x, double y) { return 1 - x + fromMiddle(y); }},
    // cells one after the other
    {303, diagonalSnake},
    {341, twoSnakes},
    {344, fourSnakes},
    {350, waterfall},
    {351, [](double x, double y) { return waterfall(1 - x, y); }},
    {409, random},
};

// From the middle in half heights: they are as wide as high.
constexpr Coded<AtPoint> kFigures[] = {
    {119, [](double x, double y) { return std::hypot(x, y); }},
    {127, [](double x, double y) { return star(x, y, 4, 0.38); }},
    {128, [](double x, double y) { return star(x, y, 5, 0.382); }},
    {129, [](double x, double y) { return star(x, y, 6, 0.577); }},
    {130, heart},
    {131, keyhole},
};

// Hands that sweep a cell of a shape, from 0 to 1 across it.
using AtPointOfShape = double(double x, double y, double shape);
constexpr Coded<AtPointOfShape> kHands[] = {
    // about the upper left corner, from the upper edge down
    {225, [](double x, double y, double shape) { return std::atan2(y, x * shape); }},
    // about the upper right corner, from the right edge to the upper
    {228, [](double x, double y, double shape) { return std::atan2((1 - x) * shape, y); }},
    // in each half about the middle of the outer edge
    {263,
     [](double x, double y, double shape) {
       const double out = std::min(x, 1 - x) * shape;
       return -std::atan2(x < 0.5 ? 0.5 - y : y - 0.5, out);
     }},
};

template <class At>
At* coded(std::span<const Coded<At>> patterns, int code) {
  const auto found = std::ranges::find(patterns, code, &Coded<At>::code);
  return found == patterns.end() ? nullptr : found->at;
}

}  // namespace

PatternAt smptePattern(int code, double shape) {
  if (auto* const at = coded<AtPoint>(kPatterns, code)) return at;
  if (auto* const at = coded<AtPoint>(kFigures, code))
    return [=](double x, double y) { return at((2 * x - 1) * shape, 2 * y - 1); };
  if (auto* const at = coded<AtPointOfShape>(kHands, code))
    return [=](double x, double y) { return at(x, y, shape); };
  return [](double x, double /*y*/) { return x; };
}

}  // namespace kvo::engine
