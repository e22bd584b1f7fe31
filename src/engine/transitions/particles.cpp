// Particles: the first picture breaks into pieces that tumble away in space, from the second.
#include "engine/picture/camera.h"
#include "engine/transitions/registry.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <random>
#include <vector>

namespace kvo::engine {
namespace {

constexpr double kMostParticles = 4000;
constexpr double kLatestStart = 0.45;  // of the way

// In: to the front, at the viewer; Out: away into the depth.
enum class Scatter { Whirl, Up, Down, Left, Right, In, Out };

Scatter scatterOf(std::string_view word) {
  if (word == "up") return Scatter::Up;
  if (word == "down") return Scatter::Down;
  if (word == "left") return Scatter::Left;
  if (word == "right") return Scatter::Right;
  if (word == "in") return Scatter::In;
  if (word == "out") return Scatter::Out;
  return Scatter::Whirl;
}

struct Particle {
  Area part{};       // of the first picture
  double start = 0;  // the progress at which it breaks away
  Point flight{};    // where it is at the end, from where it was
  Point spin{};      // degrees at the end
  double whirl = 0;  // degrees about the middle of the picture at the end
};

struct System {
  int width;
  int height;
  Params params;
  std::vector<Particle> particles;
};

// How early a piece goes, 0 to 1: those nearest to where the pieces fly go first.
double turnOf(Scatter scatter, double x, double y) {
  const double fromMiddle = std::min(1.0, std::hypot(2 * x - 1, 2 * y - 1) / std::numbers::sqrt2);
  switch (scatter) {
    case Scatter::Up:
      return y;
    case Scatter::Down:
      return 1 - y;
    case Scatter::Left:
      return x;
    case Scatter::Right:
      return 1 - x;
    case Scatter::Out:
      return fromMiddle;
    case Scatter::In:
    case Scatter::Whirl:
      return 1 - fromMiddle;
  }
  return 0;
}

class Shuffle {
 public:
  // Between -1 and 1; the same row of numbers in every render.
  double next() {
    return static_cast<double>(random_()) / (static_cast<double>(std::mt19937::max()) / 2) - 1;
  }

 private:
  std::mt19937 random_{20011};
};

Particle particleOf(const System& system, Scatter scatter, const Area& part, bool other, Shuffle& shuffle) {
  const auto& params = system.params;
  const double speed = params.number("particlespeed", 0, 1, 0, 1000);
  const double spinSpeed = params.number("particlespinspeed", 0, 1, 0, 100);
  const double x = (part.x + part.width / 2) / system.width;
  const double y = (part.y + part.height / 2) / system.height;
  Particle p{.part = part};
  p.start = kLatestStart * std::clamp(turnOf(scatter, x, y) + 0.08 * shuffle.next(), 0.0, 1.0);
  // Far faster pieces do not go farther in a picture than it is wide by much.
  const double reach = system.width * (0.5 + 0.35 * std::log1p(speed));
  const double jitter = 0.25 * reach;
  p.flight = {jitter * shuffle.next(), jitter * shuffle.next(), -0.3 * reach * std::fabs(shuffle.next())};
  switch (scatter) {
    case Scatter::Up:
      p.flight.y -= reach;
      break;
    case Scatter::Down:
      p.flight.y += reach;
      break;
    case Scatter::Left:
      p.flight.x -= reach;
      break;
    case Scatter::Right:
      p.flight.x += reach;
      break;
    case Scatter::In:
      p.flight += Point{(2 * x - 1) * reach, (2 * y - 1) * reach, -0.3 * reach};
      break;
    case Scatter::Out:
      p.flight = {(0.5 - x) * system.width, (0.5 - y) * system.height, reach};
      break;
    case Scatter::Whirl:
      p.flight = {(2 * x - 1) * reach * 0.5, (2 * y - 1) * reach * 0.5, -0.2 * reach};
      break;
  }
  const double way =
      (params.word("spindirection") == "left" ? -1 : 1) * (params.flag("bothdirections") && other ? -1 : 1);
  const double turns = 180 * std::log2(1 + spinSpeed) * way;
  p.spin = {turns * shuffle.next(), turns * shuffle.next(), turns * (0.75 + 0.25 * shuffle.next())};
  if (scatter == Scatter::Whirl || scatter == Scatter::Up) {
    p.whirl = way * (scatter == Scatter::Whirl ? 200 : 60) * (1 + 0.2 * shuffle.next());
  }
  return p;
}

void drawParticle(const System& system, const Camera& camera, const Particle& p, const media::Picture& below,
                  double progress, media::Canvas& out) {
  const double way = std::clamp((progress - p.start) / (1 - p.start), 0.0, 1.0);
  if (way >= 1) return;
  const double fast = way * way;  // they gather speed
  const double size = 1 - fast;
  const Point middle{system.width / 2.0, system.height / 2.0, 0};
  const Point home{p.part.x + p.part.width / 2, p.part.y + p.part.height / 2, 0};
  const Point at = middle + turned(home - middle, {0, 0, p.whirl * fast}) + p.flight * fast;
  const Point spin = p.spin * fast;
  Corners corners;
  const double halfWidth = p.part.width / 2 * size;
  const double halfHeight = p.part.height / 2 * size;
  const std::array<Point, 4> flat = {Point{-halfWidth, -halfHeight, 0},
                                     {halfWidth, -halfHeight, 0},
                                     {halfWidth, halfHeight, 0},
                                     {-halfWidth, halfHeight, 0}};
  for (std::size_t i = 0; i < flat.size(); ++i) corners[i] = camera.seen(at + turned(flat[i], spin));
  drawTurned(below, p.part, corners, {std::min(1.0, 2.5 * (1 - way)), 1 - 0.35 * fast}, out);
}

void paint(const System& system, const media::Picture& below, const media::Picture& above, double progress,
           media::Canvas& out) {
  const double way = unevenProgress(system.params, progress);
  if (progress >= 1 || way <= 0) return drawAll(progress >= 1 ? above : below, out);
  drawAll(above, out);
  const Camera camera(system.width, system.height);
  // What still lies in its place is copied; what flies is in front of it.
  for (const auto& p : system.particles) {
    if (way <= p.start) drawMoved(below, p.part, p.part.x, p.part.y, out);
  }
  for (const auto& p : system.particles) {
    if (way > p.start) drawParticle(system, camera, p, below, way, out);
  }
}

}  // namespace

// The parameters "MaxParticles" (pieces), "ParticleSpeed" (how far they fly; 1 is about a picture's width),
// "ParticleSpinSpeed" (turns on the way), "ScatterDirection" (up, down, left, right; in, to the front, at
// the viewer; out, away into the depth; a whirl about the middle without it), "SpinDirection" (left or
// right), "BothDirections" (every other piece turns the other way), "ExponentialProgressDuration" and
// "ExponentialProgressScale".
Result<PaintTransition> makeParticles(const Params& params, int width, int height) {
  auto system = std::make_shared<System>(System{width, height, params, {}});
  const double wanted = params.number("maxparticles", 0, 100, 1, kMostParticles);
  // Pieces as near to squares as may be, their edges on even pixels.
  const int columns = std::clamp(static_cast<int>(std::lround(std::sqrt(wanted * width / height))), 1,
                                 std::max(1, width / 4));
  const int rows = std::clamp(static_cast<int>(std::lround(wanted / columns)), 1, std::max(1, height / 4));
  const auto scatter = scatterOf(params.word("scatterdirection"));
  Shuffle shuffle;
  const auto edge = [](int side, int part, int parts) { return 2 * (side / 2 * part / parts); };
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const int x = edge(width, column, columns);
      const int y = edge(height, row, rows);
      const Area part{static_cast<double>(x), static_cast<double>(y),
                      static_cast<double>(edge(width, column + 1, columns) - x),
                      static_cast<double>(edge(height, row + 1, rows) - y)};
      system->particles.push_back(particleOf(*system, scatter, part, (row + column) % 2 == 1, shuffle));
    }
  }
  return PaintTransition([system = std::shared_ptr<const System>(system)](
                             const media::Picture& below, const media::Picture& above, const Moment& moment,
                             media::Canvas& out) { paint(*system, below, above, moment.progress, out); });
}

}  // namespace kvo::engine
