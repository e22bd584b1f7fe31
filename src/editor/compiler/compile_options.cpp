#include "editor/compiler/compile_options.h"

#include "base/numbers.h"

namespace kvo {
namespace {

constexpr int kLargest = 3000;  // pixels

int held(int size, int otherwise) { return size > kLargest || size < 0 ? otherwise : size; }

}  // namespace

int heldHeight(int height) { return held(height, 320); }

int heldWidth(int width) { return held(width, 240); }

CompileOptions renderOptions(const KVO2& settings, std::string silence) {
  const auto& p = settings.preferences();
  return {.output = {.depth = p.OutputColorDepth,
                     .width = heldWidth(p.RenderWidth),
                     .height = heldHeight(p.RenderHeight),
                     .rate = p.OutPutFrameRate,
                     .buffering = p.DirectXPrebuffer},
          .movieRate = p.OutPutFrameRate,
          .sourceFiles = true,
          .clipAudio = p.RenderVideoAudio,
          .overlays = p.DubInPlaylistAudioTrks,
          .trimOverlays = p.AutoTrimAudio,
          .overlayOrder = p.ExternalAudioStack ? OverlayOrder::InSequence : OverlayOrder::Stacked,
          .trackFade = p.VideoTrackFadeAmt,
          .stillDuration = settings.state.DefaultStillDuration,
          .particles = {p.UseParticleDefaults, p.MaxParticles, p.ParticleMotionSpeed, p.ParticleSpinSpeed,
                        p.PartExponentialProgressDuration, p.PartExponentialProgressScale},
          .silence = std::move(silence)};
}

CompileOptions previewOptions(CompileOptions render, const PreviewParams& params, int power) {
  if (power < kRenderMode) render.output = reducedOutput(std::move(render.output), params);
  render.effects = params.Effects;
  render.transitions = params.Transitions;
  render.sourceFiles = false;
  render.alwaysHasAudio = true;
  return render;
}

OutputForm reducedOutput(OutputForm output, const PreviewParams& params) {
  output.depth = params.Depth;
  output.rate = params.Rate;
  output.width = toLongClamped(output.width / params.Scale);
  output.height = toLongClamped(output.height / params.Scale);
  output.previewMode = true;
  return output;
}

}  // namespace kvo
