// A render of the movie or of a part of it, from the script to the end of the engine.
#include "base/numbers.h"
#include "render/movie_render.h"
#include "render/render_texts.h"
#include "vocabulary/encode_profiles.h"

#include <algorithm>
#include <cmath>

namespace kvo {
namespace {

constexpr int kEventInterval = 5000;  // milliseconds
constexpr int kLastInterval = 2000;   // milliseconds, near the end
constexpr double kShort = 10;         // seconds that a render is to take at the most, with its margin
constexpr double kNearEnd = 30;       // seconds
constexpr int kMostForEnding = 2500;  // milliseconds that an engine has for it; it is killed after 1000
constexpr int kEndingNap = 50;        // milliseconds
constexpr std::chrono::minutes kFirstPatience{1};  // with an engine that says nothing

}  // namespace

bool MovieRender::DoRender(const Job& job, const Part& part) {
  if (state_.RenderAborted) return false;
  const bool isWhole = part.RangeStart + part.RangeStop == 0;
  auto order = orderOf(job, part.OutFile,
                       isWhole ? std::nullopt : std::optional(std::pair(part.RangeStart, part.RangeStop)));
  if (!order) return false;
  if (part.OutFile == job.working) order->shownAs = job.file;
  order->folder = ports_.editing.folder.path();
  if (!takeProfile(job, *order)) {
    ports_.editing.boxes.show(profileFailedBox());
    return false;
  }
  keepFolder();
  const bool started = Shell32Bit(*order, part.MaxSeconds);
  profile_.RestoreSysProfile();
  return started;
}

// Nothing, with boxes, for a range that is none.
std::optional<RenderOrder> MovieRender::orderOf(const Job& job, const std::string& output,
                                                const std::optional<std::pair<double, double>>& range) const {
  if (range && range->second <= range->first) {
    ports_.editing.boxes.show(rangeErrorBox());
    ports_.editing.boxes.show(rangeFailedBox());
    return std::nullopt;
  }
  RenderOrder order{.document = job.document, .output = output, .range = range};
  takePreset(job, order);
  return order;
}

std::optional<OutputSize> MovieRender::profileSize() const {
  return state_.Chk_UseCodecOutputDimensions ? std::optional<OutputSize>() : std::optional(outputSize());
}

bool MovieRender::takeProfile(const Job& job, RenderOrder& order) {
  if (job.profile == kNoProfile) return true;
  if (job.profile < kSystemProfiles) {
    order.profile = job.profile;
    return true;
  }
  if (!profile_.CreateWM8RenderProfile(job.profile, profileSize())) return false;
  order.profileFile = profile_.path();
  return true;
}

// A part that is made for the estimate may have its share of the size.
void MovieRender::takePreset(const Job& job, RenderOrder& order) {
  if (job.inHardware) order.encoder = encoderWord(EncoderWish::Auto);
  if (job.preset == nullptr) return;
  order.preset = job.preset->name;
  const double seconds = order.range ? order.range->second - order.range->first : job.length;
  order.megabytes = job.length > 0 ? job.megabytes * std::min(seconds / job.length, 1.0) : job.megabytes;
}

// That a movie is made is no change of the collection.
void MovieRender::keepFolder() {
  auto& settings = ports_.editing.settings;
  const bool wasDirty = settings.state.IsDirty;
  settings.change().LoadFrom = withSeparator(ports_.editing.folder.path());
  settings.state.IsDirty = wasDirty;
  ports_.host.UpdLastRead();
}

bool MovieRender::Shell32Bit(const RenderOrder& order, int MaxSeconds) {
  auto& boxes = ports_.editing.boxes;
  if (MaxSeconds <= 0) {
    boxes.show(noCountdownBox());
    return false;
  }
  timeLeft_ = {};
  state_.pie = {};
  state_.RemainingSeconds = MaxSeconds;
  partStart_ = order.range ? order.range->first : 0;
  begun_ = heard_ = ports_.engine.loop.now();
  patience_ = kFirstPatience;
  if (auto begun = driver_.start(order); !begun) {
    boxes.show(renderFailedBox(begun.error().text));
    return false;
  }
  (void)mobjSlumber_.SlumberInterval(kEventInterval).ok();
  (void)mobjSlumber_
      .Slumber(MaxSeconds * 1000, {.Slumber = [&] { mobjSlumber_Slumber(MaxSeconds); },
                                   .hasEnded = [&] { return driver_.state().ended(); },
                                   .seesSentinel = [&] { return driver_.takeSentinel(); },
                                   .overran =
                                       [&](int time) {
                                         state_.pie.colour = time == 1 ? kPieGreen : kPieYellow;
                                         changed();
                                       }})
      .ok();
  endEngine();
  state_.pie = {100, kPieGreen};
  if (const auto& engine = driver_.state(); engine.phase != EnginePhase::Done) {
    state_.reached = std::floor(shareDone(engine.progress) * 100);  // as the facts have it
    state_.progress = madeText(engine.progress, std::nullopt);
    tellWork();
  }
  changed();
  return true;
}

// What the engine needs to end, or all that it gets: behind this nothing of it runs.
void MovieRender::endEngine() {
  auto& loop = ports_.engine.loop;
  const auto until = loop.now() + std::chrono::milliseconds(kMostForEnding);
  while (!driver_.state().ended() && loop.now() < until) loop.wait(kEndingNap);
  if (driver_.state().ended()) return;
  if (state_.RenderAborted) ports_.editing.boxes.show(abortFailedBox());
  driver_.abandon();
}

void MovieRender::mobjSlumber_Slumber(int MaxSeconds) {
  const double elapsed = mobjSlumber_.ElapsedMilliseconds();
  state_.pie.percent = std::min(elapsed / (MaxSeconds * 1000.0) * 100, 100.0);
  state_.RemainingSeconds = MaxSeconds - elapsed / 1000;
  const auto left = static_cast<int>(std::lround(std::max(state_.RemainingSeconds, 0.0)));
  state_.RenderHours = left / 3600;
  state_.RenderMinutes = left / 60 % 60;
  state_.RenderSecs = left % 60;
  if (state_.RemainingSeconds < kNearEnd) (void)mobjSlumber_.SlumberInterval(kLastInterval).ok();
  state_.countdown = countdownText(state_.RenderHours, state_.RenderMinutes, state_.RenderSecs);
  tellWork();
  changed();
  askAboutSilence();
}

void MovieRender::hearEngine() {
  const auto& progress = driver_.state().progress;
  heard_ = ports_.engine.loop.now();
  state_.movieSeconds = partStart_ + progress.movie.done;
  // The countdown is first told after five seconds, and then begins; by that time a short movie is done.
  // Where there is one it alone tells the time left: the two are reckoned from different things.
  const auto left = timeLeft_.after(progress);
  const bool isCounted = !state_.countdown.empty() || state_.RenderSeconds >= kShort;
  state_.progress = madeText(progress, isCounted ? std::nullopt : left);
  if (state_.frame == RenderFrame::Rendering && !isCounted) state_.pie.percent = shareDone(progress) * 100;
  tellWork();
  changed();
}

// An engine that hangs is not ended unasked: one frame may take long.
void MovieRender::askAboutSilence() {
  if (state_.RenderAborted || ports_.engine.loop.now() - heard_ < patience_) return;
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(patience_).count();
  auto question = silenceQuestion(static_cast<int>(minutes));
  question.stands = [this, since = heard_] { return canAbort() && heard_ == since; };
  const auto answer = ports_.editing.boxes.show(question);
  if (answer == Answer::Yes && !driver_.state().ended()) AbortRender();
  heard_ = ports_.engine.loop.now();
  patience_ *= 2;
}

bool MovieRender::canAbort() const {
  if (!state_.isRunning || state_.RenderAborted) return false;
  const auto& engine = driver_.state();
  if (!engine.ended()) return true;
  if (engine.phase != EnginePhase::Done) return false;
  return state_.frame == RenderFrame::Estimate || (state_.frame == RenderFrame::Rendering && wavIsToCome_);
}

void MovieRender::changed() {
  state_.canAbort = canAbort();
  ports_.host.renderChanged();
}

void MovieRender::AbortRender() {
  if (!state_.isRunning || state_.RenderAborted) return;
  state_.RenderAborted = true;
  driver_.stop();
  state_.pie.colour = kPieGreen;
  mobjSlumber_.WakeUp();
  changed();
}

// True, with a box, when the engine has not made what it was started for.
bool MovieRender::tellFailure() {
  const auto& engine = driver_.state();
  if (engine.phase == EnginePhase::Done) return false;
  ports_.editing.boxes.show(renderFailedBox(whyFailed(engine)));
  return true;
}

}  // namespace kvo
