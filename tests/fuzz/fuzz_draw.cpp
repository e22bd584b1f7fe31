// Documents with every kind of effect and transition and any parameters: what is drawn of them must neither
// crash nor hang nor ask for memory without bound.
#include "engine/document/document_reader.h"
#include "engine/effects/registry.h"
#include "engine/picture/compositor.h"
#include "engine/transitions/registry.h"
#include "fuzz/fuzz.h"
#include "media/media_facts.h"
#include "media/png.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Names of parameters, and words that they may be set to.
constexpr std::string_view kNames =
    "Progress MaskNum BorderWidth BorderColor BorderSoftness ReplicateX ReplicateY ScaleX ScaleY OffsetX "
    "OffsetY Width Height SrcWidth SrcHeight SrcOffsetX SrcOffsetY bands Direction spokes wipestyle "
    "slideStyle stretchStyle irisStyle InternalName MaxParticles ParticleSpeed ParticleSpinSpeed "
    "ScatterDirection SpinDirection ExponentialProgressDuration ExponentialProgressScale ScaleA "
    "InitialScaleA RotateA RotateCenterA MoveA MoveSpeedA FadeStartA RevolveCamera ShowABack PageCurlA "
    "mirror rotation invert PixelRadius Strength Add age EffectID Control1Value Control2Value "
    "Control3Value Control4Value Control7Value Control8Value Transparency RGBForeColor RGBBackColor "
    "TextureURL Style opacity FinishOpacity Color Tolerance OffX OffY MaxSquare Red Contrast Gamma "
    "Threshold Desaturate";
constexpr std::string_view kWords =
    "true ParticleSystem Simple3D Standard left right up down in out smaller lowerleft upperright RED "
    "push swap STAR 1e9 -1";

std::string pick(FuzzedDataProvider& data, std::string_view words) {
  const auto count = static_cast<std::size_t>(std::count(words.begin(), words.end(), ' '));
  for (auto skip = data.ConsumeIntegralInRange<std::size_t>(0, count); skip > 0; --skip)
    words.remove_prefix(words.find(' ') + 1);
  return std::string(words.substr(0, words.find(' ')));
}

std::string picture() {
  static const std::string kPath = [] {
    std::string path = "/tmp/kvo-fuzz-" + std::to_string(::getpid()) + ".png";
    std::vector<std::uint8_t> bgr(24U * 16U * 3U);
    for (std::size_t i = 0; i < bgr.size(); ++i) bgr[i] = static_cast<std::uint8_t>(i * 37);
    std::ofstream(path, std::ios::binary) << *kvo::media::encodePng(bgr.data(), 24U * 3U, 24, 16);
    static std::string toRemove;
    toRemove = path;
    std::atexit([] { std::remove(toRemove.c_str()); });
    kvo::media::silenceRemarks();
    return path;
  }();
  return kPath;
}

std::string value(FuzzedDataProvider& data) {
  switch (data.ConsumeIntegralInRange(0, 3)) {
    case 0:
      return pick(data, kWords);
    case 1:
      return std::to_string(data.ConsumeIntegralInRange(-5, 420));
    default:
      return std::to_string(data.ConsumeFloatingPointInRange(-300.0, 300.0));
  }
}

// Of any of the kinds that the engine draws.
template <class Kinds>
std::string element(FuzzedDataProvider& data, const std::string& tag, const Kinds& kinds) {
  const auto& kind = kinds[data.ConsumeIntegralInRange<std::size_t>(0, kinds.size() - 1)];
  auto text = "<" + tag + " clsid=\"" + std::string(kind.clsid) + "\" start=\"0\" stop=\"2\">";
  const int count = data.ConsumeIntegralInRange(0, 8);
  for (int i = 0; i < count; ++i) {
    text += "<param name=\"" + pick(data, kNames) + "\" value=\"" + value(data) + "\">";
    if (data.ConsumeBool()) text += "<linear time=\"1\" value=\"" + value(data) + "\"/>";
    text += "</param>";
  }
  return text + "</" + tag + ">";
}

}  // namespace

void kvo::fuzz(std::string_view bytes) {
  FuzzedDataProvider data(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  const auto side = [&] { return std::to_string(data.ConsumeIntegralInRange(2, 64)); };
  auto text =
      "<timeline><group type=\"video\" framerate=\"10\" width=\"" + side() + "\" height=\"" + side() + "\">";
  const bool composed = data.ConsumeBool();
  if (composed) text += "<composite>";
  for (int track = 0; track < 2; ++track) {
    text += "<track><clip src=\"" + picture() + "\" mstart=\"0\" mstop=\"2\" start=\"0\" stop=\"2\">";
    const int effects = data.ConsumeIntegralInRange(0, 2);
    for (int i = 0; i < effects; ++i) text += element(data, "effect", engine::effectKinds());
    text += "</clip>";
    if (track > 0 || composed) text += element(data, "transition", engine::transitionKinds());
    text += "</track>";
  }
  text += std::string(composed ? "</composite>" : "") + "</group></timeline>";
  const auto timeline = engine::readDocument(text);
  require(timeline.ok());
  engine::Compositor compositor(*timeline);
  for (const int frame : {0, 7, 13}) require(compositor.frame(frame).ok());
}
