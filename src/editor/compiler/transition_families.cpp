#include "editor/compiler/transition_families.h"

#include "base/text.h"
#include "editor/compiler/document_text.h"
#include "editor/compiler/transition_names.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kvo {
namespace {

struct Param {
  std::string_view name;
  std::string_view value;
};

void addAll(std::string& text, std::span<const Param> params) {
  for (const auto& p : params) text += tag::param(p.name, p.value);
}

// One parameter that moves: its value at the start, and a key for each value that follows.
struct Move {
  std::string_view name;
  std::string initial;
  std::vector<std::string> values;  // empty text: no key at this time
};

void addMoves(std::string& text, std::string_view keyKind, const std::vector<Single>& times,
              const std::vector<Move>& moves) {
  for (const auto& move : moves) {
    text += tag::openParam(move.name, move.initial);
    for (std::size_t i = 0; i < times.size(); ++i) {
      if (move.values[i].empty()) continue;
      text += tag::key(keyKind, shortNumber(times[i]), move.values[i]);
    }
    text += tag::kEndParam;
  }
}

std::string rounded(double value) { return shortNumber(RoundToWhole(value)); }

std::vector<Move> bounceMoves(std::string_view name, double w, double h) {
  const auto W = shortNumber(w);
  const auto H = shortNumber(h);
  const auto W2 = rounded(w / 2);
  const auto W4 = rounded(w / 4);
  const auto H2 = rounded(h / 2);
  const auto H4 = rounded(h / 4);
  const auto H8 = shortNumber(RoundToWhole(h / 1.25) / 4);
  const auto quarterH = shortNumber(h / 4);
  if (name == "Bounce1") {
    return {{"OffsetX", "0", {"0", W, "0", "0"}},
            {"OffsetY", "0", {"0", H, "0", "0"}},
            {"Width", "0", {W4, "0", W2, W}},
            {"Height", "0", {H4, "0", H2, H}}};
  }
  if (name == "Bounce2") {
    return {{"OffsetX", "0", {H, quarterH, H8, "0"}},
            {"OffsetY", "0", {"0", "0", H2, "0"}},
            {"Width", W2, {W2, W2, W2, W}},
            {"Height", H2, {H2, H2, H2, H}}};
  }
  if (name == "Bounce3") {
    return {{"OffsetX", "0", {"0", W, "0", "0"}},
            {"OffsetY", "0", {"0", H, H2, "0"}},
            {"Width", "0", {W4, "0", W2, W}},
            {"Height", "0", {H4, "0", H2, H}}};
  }
  if (name == "Bounce4") {
    return {{"OffsetX", "0", {"0", W2, W2, "0"}},
            {"OffsetY", H2, {H2, H2, "0", "0"}},
            {"Width", "0", {W2, W2, W2, W}},
            {"Height", "0", {H2, H2, H2, H}}};
  }
  return {};
}

std::vector<Move> quartileMoves(double w, double h) {
  const double w2 = RoundToWhole(w / 2);
  const double h2 = RoundToWhole(h / 2);
  const double a = w2 / 16;
  const double b = h2 / 16;
  const auto A = shortNumber(a);
  const auto B = shortNumber(b);
  const auto farX = shortNumber(w2 - a);
  const auto farY = shortNumber(h2 - b);
  return {{"OffsetX", A, {A, farX, farX, A, "0"}},
          {"OffsetY", B, {B, B, farY, farY, "0"}},
          {"Width", shortNumber(w2), {"", "", "", "", shortNumber(w)}},
          {"Height", shortNumber(h2), {"", "", "", "", shortNumber(h)}}};
}

struct FixedWipe {
  std::string_view name;
  std::vector<Param> params;
};

const std::vector<FixedWipe>& fixedWipes() {
  static const std::vector<FixedWipe> kWipes = {
      {"Circle2", {{"MaskNum", "119"}, {"ReplicateX", "2"}, {"ReplicateY", "1"}}},
      {"Circle4", {{"MaskNum", "119"}, {"ReplicateX", "2"}, {"ReplicateY", "2"}}},
      {"Circle8", {{"MaskNum", "119"}, {"ReplicateX", "4"}, {"ReplicateY", "2"}}},
      {"Circle16", {{"MaskNum", "119"}, {"ReplicateX", "4"}, {"ReplicateY", "4"}}},
      {"Circle32", {{"MaskNum", "119"}, {"ReplicateX", "8"}, {"ReplicateY", "8"}}},
      {"Wipe Hard", {{"MaskNum", "1"}, {"Borderwidth", "1"}, {"Bordersoftness", "10"}}},
      {"Wipe Soft", {{"MaskNum", "1"}, {"Borderwidth", "1"}, {"Bordersoftness", "210"}}},
      {"Columns",
       {{"MaskNum", "130"},
        {"ReplicateX", "4"},
        {"ReplicateY", "1"},
        {"ScaleX", "1"},
        {"ScaleY", "10"},
        {"OffsetX", "2"},
        {"OffsetY", "2"},
        {"Borderwidth", "0"},
        {"Bordersoftness", "1"}}},
  };
  return kWipes;
}

// `defaults` stand where the particle options of the settings would; `lastDefaults` come only with them.
struct Shape {
  std::string_view name;
  std::string_view internalName;
  std::vector<Param> before;
  std::vector<Param> defaults;
  std::vector<Param> after;
  std::vector<Param> lastDefaults;
};

const std::vector<Shape>& shapes() {
  constexpr std::string_view kParticles = "ParticleSystem";
  constexpr std::string_view k3D = "Simple3D";
  static const std::vector<Param> kShatter = {
      {"MaxParticles", "600"}, {"ParticleSpeed", "40"}, {"ParticleSpinSpeed", "0.5"}};
  static const std::vector<Param> kExponential = {{"ExponentialProgressDuration", "0.9"},
                                                  {"ExponentialProgressScale", "0.25"}};
  static const std::vector<Shape> kShapes = {
      {"Whirlwind",
       kParticles,
       {},
       {{"MaxParticles", "200"}},
       {{"SpinDirection", "right"}, {"BothDirections", "true"}},
       {}},
      {"Whirlwind Up",
       kParticles,
       {{"ScatterDirection", "up"}},
       {{"MaxParticles", "50"}, {"ParticleSpeed", "1.0"}},
       {{"SpinDirection", "left"}, {"BothDirections", "true"}},
       {}},
      {"Shatter Down",
       kParticles,
       {{"ScatterDirection", "down"}},
       {{"MaxParticles", "130"}, {"ParticleSpeed", "3.5"}},
       {{"BothDirections", "true"}},
       {}},
      {"Shatter In",
       kParticles,
       {{"ScatterDirection", "out"}},
       kShatter,
       {{"SpinDirection", "right"}},
       kExponential},
      {"Shatter Out",
       kParticles,
       {{"ScatterDirection", "in"}},
       kShatter,
       {{"SpinDirection", "right"}},
       kExponential},
      {"Shatter Right",
       kParticles,
       {{"ScatterDirection", "right"}, {"SpinDirection", "right"}},
       {{"MaxParticles", "64"}},
       {},
       {}},
      {"Shatter Left",
       kParticles,
       {{"ScatterDirection", "left"}, {"SpinDirection", "left"}},
       {{"MaxParticles", "64"}},
       {},
       {}},
      {"Spin Out", k3D, {{"ScaleA", "smaller"}, {"RotateA", "left"}, {"FadeStartA", "0.2"}}, {}, {}, {}},
      {"Roll Out", k3D, {{"RotateA", "right"}, {"RotateCenterA", "lowerright"}}, {}, {}, {}},
      {"Flip",
       k3D,
       {{"RevolveCamera", "true"},
        {"ShowAFront", "true"},
        {"ShowABack", "false"},
        {"ShowBFront", "false"},
        {"ShowBBack", "true"}},
       {},
       {},
       {}},
      {"Page Curl LowerLeft", k3D, {{"PageCurlA", "lowerleft"}, {"ShowABack", "true"}}, {}, {}, {}},
      {"Page Curl LowerRight", k3D, {{"PageCurlA", "lowerright"}, {"ShowABack", "true"}}, {}, {}, {}},
      {"Page Curl UpperLeft", k3D, {{"PageCurlA", "upperleft"}, {"ShowABack", "true"}}, {}, {}, {}},
      {"Page Curl UpperRight", k3D, {{"PageCurlA", "upperright"}, {"ShowABack", "true"}}, {}, {}, {}},
  };
  return kShapes;
}

}  // namespace

bool AddBounce(std::string_view name, std::string& text, Single duration, int width, int height) {
  if (name == "QuartileMove") {
    addMoves(text, "at", {duration / 3, duration / 2, duration / 1.5F, duration / 1.25F, duration},
             quartileMoves(width, height));
    return true;
  }
  const auto moves = bounceMoves(name, width, height);
  addMoves(text, "linear", {duration / 4, duration / 2, duration / 1.25F, duration}, moves);
  return !moves.empty();
}

void AddParticleSystemOptions(std::string& text, const ParticleOptions& particles) {
  text += tag::param("MaxParticles", fieldText(particles.maxParticles));
  text += tag::param("ParticleSpeed", fieldText(particles.motionSpeed));
  text += tag::param("ParticleSpinSpeed", fieldText(particles.spinSpeed));
  text += tag::param("ExponentialProgressDuration", fieldText(particles.progressDuration));
  text += tag::param("ExponentialProgressScale", fieldText(particles.progressScale));
}

bool addWipe(std::string& text, const TransitionOptions& o) {
  if (const auto mask = maskNumber(o.Name)) {
    text += tag::param("MaskNum", std::to_string(*mask));
    if (!trimmed(o.MaskName).empty()) text += tag::param("MaskName", o.MaskName);
    text += tag::param("BorderWidth", std::to_string(o.BorderWidth));
    text += tag::param("BorderColor", o.BorderColor);
    text += tag::param("BorderSoftness", shortNumber(o.BorderSoftness));
    text += tag::param("ReplicateX", std::to_string(o.ReplicateX));
    text += tag::param("ReplicateY", std::to_string(o.ReplicateY));
    return true;
  }
  for (const auto& wipe : fixedWipes()) {
    if (wipe.name != o.Name) continue;
    addAll(text, wipe.params);
    return true;
  }
  return false;
}

bool addParticlesOr3D(std::string& text, const TransitionOptions& o) {
  for (const auto& shape : shapes()) {
    if (shape.name != o.Name) continue;
    text += tag::param("InternalName", shape.internalName);
    addAll(text, shape.before);
    if (!o.Particles.useDefaults && !shape.defaults.empty()) {
      AddParticleSystemOptions(text, o.Particles);
    } else {
      addAll(text, shape.defaults);
    }
    addAll(text, shape.after);
    if (o.Particles.useDefaults) addAll(text, shape.lastDefaults);
    return true;
  }
  return false;
}

}  // namespace kvo
