// Documents with every kind of effect and transition and any parameters: what is drawn of them must neither
// crash nor hang nor ask for memory without bound.
#include "engine/document/document_reader.h"
#include "engine/picture/compositor.h"
#include "media/media_facts.h"
#include "media/png.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <fuzzer/FuzzedDataProvider.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::array kEffects = {
    "{16B280C8-EE70-11D1-9066-00C04FD9189D}", "{7312498D-E87A-11d1-81E0-0000F87557DB}",
    "{421516C1-3CF8-11D2-952A-00C04FA34F05}", "{ADC6CB86-424C-11D2-952A-00C04FA34F05}",
    "{F515306D-0156-11d2-81EA-0000F87557DB}", "{4CCEA634-FBE0-11d1-906A-00C04FD9189D}",
    "{ADC6CB82-424C-11D2-952A-00C04FA34F05}", "{DD13DE77-D3BA-42D4-B5C6-7745FA4E2D4B}",
    "{ADEADEB8-E54B-11d1-9A72-0000F875EADE}", "{EC85D8F1-1C4E-46e4-A748-7AA04E7C0496}",
    "{B4DC8DD9-2CC1-4081-9B2B-20D7030234EF}", "{E673DCF2-C316-4c6f-AA96-4E4DC6DC291E}"};
constexpr std::array kTransitions = {
    "{16B280C5-EE70-11D1-9066-00C04FD9189D}", "{F7F4A1B6-8E87-452f-A2D7-3077F508DBC0}",
    "{dE75D012-7A65-11D2-8CEA-00A0C9441E20}", "{C63344D8-70D3-4032-9B32-7A3CAD5091A5}",
    "{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}", "{9A4A4A51-FB3A-4F4B-9B57-A2912A289769}",
    "{3F69F351-0379-11D2-A484-00C04F8EFB69}", "{810E402F-056B-11D2-A484-00C04F8EFB69}",
    "{7658F2A2-0A83-11d2-A484-00C04F8EFB69}", "{4CCEA634-FBE0-11d1-906A-00C04FD9189D}",
    "{5AE1DAE0-1461-11d2-A484-00C04F8EFB69}", "{2A54C915-07AA-11D2-8D6D-00C04F8EF8E0}"};
constexpr std::array kNames = {"Progress",
                               "MaskNum",
                               "BorderWidth",
                               "BorderColor",
                               "BorderSoftness",
                               "ReplicateX",
                               "ReplicateY",
                               "ScaleX",
                               "ScaleY",
                               "OffsetX",
                               "OffsetY",
                               "Width",
                               "Height",
                               "SrcWidth",
                               "SrcHeight",
                               "SrcOffsetX",
                               "SrcOffsetY",
                               "bands",
                               "Direction",
                               "spokes",
                               "wipestyle",
                               "slideStyle",
                               "stretchStyle",
                               "irisStyle",
                               "InternalName",
                               "MaxParticles",
                               "ParticleSpeed",
                               "ParticleSpinSpeed",
                               "ScatterDirection",
                               "SpinDirection",
                               "ExponentialProgressDuration",
                               "ExponentialProgressScale",
                               "ScaleA",
                               "InitialScaleA",
                               "RotateA",
                               "RotateCenterA",
                               "MoveA",
                               "MoveSpeedA",
                               "FadeStartA",
                               "RevolveCamera",
                               "ShowABack",
                               "PageCurlA",
                               "mirror",
                               "rotation",
                               "invert",
                               "PixelRadius",
                               "Strength",
                               "Add",
                               "age",
                               "EffectID",
                               "Control1Value",
                               "Control2Value",
                               "Control3Value",
                               "Control4Value",
                               "Control7Value",
                               "Control8Value",
                               "Transparency",
                               "RGBForeColor",
                               "RGBBackColor",
                               "TextureURL",
                               "Style",
                               "opacity",
                               "FinishOpacity",
                               "Color",
                               "Tolerance",
                               "OffX",
                               "OffY",
                               "MaxSquare",
                               "Red",
                               "Contrast",
                               "Gamma",
                               "Threshold",
                               "Desaturate"};
constexpr std::array kWords = {
    "true",    "ParticleSystem", "Simple3D",   "Standard", "left", "right", "up",   "down", "in", "out",
    "smaller", "lowerleft",      "upperright", "RED",      "push", "swap",  "STAR", "1e9",  "-1"};

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
      return data.PickValueInArray(kWords);
    case 1:
      return std::to_string(data.ConsumeIntegralInRange(-5, 420));
    default:
      return std::to_string(data.ConsumeFloatingPointInRange(-300.0, 300.0));
  }
}

std::string element(FuzzedDataProvider& data, const std::string& kind, const std::string& clsid) {
  auto text = "<" + kind + " clsid=\"" + clsid + "\" start=\"0\" stop=\"2\">";
  const int count = data.ConsumeIntegralInRange(0, 8);
  for (int i = 0; i < count; ++i) {
    text +=
        std::string("<param name=\"") + data.PickValueInArray(kNames) + "\" value=\"" + value(data) + "\">";
    if (data.ConsumeBool()) text += "<linear time=\"1\" value=\"" + value(data) + "\"/>";
    text += "</param>";
  }
  return text + "</" + kind + ">";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  FuzzedDataProvider data(bytes, size);
  const auto side = [&] { return std::to_string(data.ConsumeIntegralInRange(2, 64)); };
  auto text =
      "<timeline><group type=\"video\" framerate=\"10\" width=\"" + side() + "\" height=\"" + side() + "\">";
  const bool composed = data.ConsumeBool();
  if (composed) text += "<composite>";
  for (int track = 0; track < 2; ++track) {
    text += "<track><clip src=\"" + picture() + "\" mstart=\"0\" mstop=\"2\" start=\"0\" stop=\"2\">";
    const int effects = data.ConsumeIntegralInRange(0, 2);
    for (int i = 0; i < effects; ++i) text += element(data, "effect", data.PickValueInArray(kEffects));
    text += "</clip>";
    if (track > 0 || composed) text += element(data, "transition", data.PickValueInArray(kTransitions));
    text += "</track>";
  }
  text += std::string(composed ? "</composite>" : "") + "</group></timeline>";
  const auto timeline = kvo::engine::readDocument(text);
  if (!timeline) std::abort();
  kvo::engine::Compositor compositor(*timeline);
  for (const int frame : {0, 7, 13}) {
    if (!compositor.frame(frame)) std::abort();
  }
  return 0;
}
