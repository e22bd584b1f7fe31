#include "editor/preview/preview_engine.h"

#include "base/holding.h"
#include "base/text.h"
#include "core/records/media_kinds.h"
#include "editor/compiler/document_check.h"
#include "editor/preview/position_texts.h"
#include "editor/tabs/clip_checks.h"
#include "editor/tabs/preview.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kvo {
namespace {

// Milliseconds.
constexpr int kPositionTick = 100;
constexpr int kEndTick = 100;
constexpr int kSampleTick = 250;  // a sample that stands so long is kept in its file
constexpr int kSamplePace = 60;   // between two samples of a slider that is dragged
constexpr int kSelectEach = 3;    // ticks
constexpr int kFullPower = 10;
constexpr double kWithinFrame = 1e-6;  // of a frame: what a product may lack
constexpr std::string_view kMovieDocument = "\\KVORender.xtl";
constexpr std::string_view kSampleDocument = "\\KVOSamp.xtl";
constexpr std::uint64_t kMaxDocument = 256ULL << 20U;

PreviewKind kindOf(Sample what) {
  switch (what) {
    case Sample::Transition:
      return PreviewKind::Transition;
    case Sample::Effect:
      return PreviewKind::Effect;
    case Sample::Colour:
      return PreviewKind::Colour;
    case Sample::Keyframe:
      return PreviewKind::Keyframe;
    case Sample::PictureInPicture:
      return PreviewKind::PictureInPicture;
  }
  return PreviewKind::None;
}

int powerOf(const KVO2& settings) {
  const int power = settings.preferences().PreviewCPU;
  return power == 0 ? kFullPower : power;
}

}  // namespace

PreviewEngine::PreviewEngine(PreviewState& state, const Editing& editing, TimelinePlayer& player,
                             NewestPicture& pictures, EventLoop& loop, PreviewHost& host)
    : state_(state),
      editing_(editing),
      player_(player),
      pictures_(pictures),
      host_(host),
      Timer1_(loop.timer([this] { GetCurrPos(); })),
      tmrTimer_(loop.timer([this] { watchEnd(); })),
      TimerPreview_(loop.timer([this] { writeSample(); })),
      pace_(loop.timer([this] {
        if (wish_) return beginWish();
        pace_->stop();
      })) {
  pictures_.whenArrived([this](auto frame, auto picture) { arrived(frame, std::move(picture)); });
}

PreviewEngine::~PreviewEngine() {
  pictures_.whenArrived({});
  player_.clear();
}

bool PreviewEngine::isSample() const {
  return state_.kind != PreviewKind::None && state_.kind != PreviewKind::Movie;
}

bool PreviewEngine::movieRuns() const { return state_.kind == PreviewKind::Movie && state_.PreviewPlaying; }

double PreviewEngine::secondsOf(std::int64_t frame) const {
  const double rate = player_.frameRate();
  return rate > 0 ? static_cast<double>(frame) / rate : 0;
}

// The one that is seen there.
std::int64_t PreviewEngine::frameOf(double seconds) const {
  const auto frame = static_cast<std::int64_t>(std::floor(seconds * player_.frameRate() + kWithinFrame));
  return std::clamp<std::int64_t>(frame, 0, std::max<std::int64_t>(player_.frames() - 1, 0));
}

std::int64_t PreviewEngine::GetPreviewPositionFrame() const { return sought_.value_or(player_.position()); }

// The movie.

void PreviewEngine::PrepPreview() {
  if (!movieRuns() && IsAudioBeforeVideo(editing_)) return;
  if (isSample()) release();
  editing_.editor.texts = {};
  editing_.editor.LastClipStop.clear();
  host_.buildClipSliders();
  host_.parkPlayer();
  if (movieRuns()) {
    const double at = state_.position;
    host_.ShowClipStats();
    release();
    TimeCodeOff();
    showAt(at);  // what was seen last stands
    return host_.previewChanged();
  }
  const double from = state_.FSB_RenderRange.Value;
  host_.watchChanges(false);
  if (!CreatePreview(true)) {
    host_.watchChanges(true);
    return host_.movieStands(from);
  }
  host_.FrmFileOpenToolsOnOff(false);
  host_.previewChanged();
}

bool PreviewEngine::CreatePreview(bool Play) {
  if (!host_.mayEdit()) return false;
  if (!editing_.clips().empty()) host_.selectRow(1);
  if (const auto made = kvo::CreatePreview(editing_, host_.stillControls()); !made) {
    if (!editing_.clips().empty()) failed(made.error().text);
    return false;
  }
  const auto document = editing_.files.read(editing_.folder.beside(kMovieDocument), kMaxDocument);
  if (!document) {
    failed(document.error().text);
    return false;
  }
  if (Play || state_.PreviewPlaying) release();
  ++state_.compiles;
  fillBar();
  saveGraph(*document);
  state_.kind = PreviewKind::Movie;
  state_.clipNo = 0;
  stale_ = false;
  PreviewIt(*document, state_.FSB_RenderRange.Value, !Play);
  return state_.failure.empty();
}

// As the last compile has the movie.
void PreviewEngine::fillBar() {
  const auto& editor = editing_.editor;
  state_.FSB_RenderRange.Max = labelsOf(editor).FSB_RenderRangeMax;
  state_.cuts.assign(editor.ClipStopList.begin(), editor.ClipStopList.end());
}

double PreviewEngine::movieLength() const {
  const auto& editor = editing_.editor;
  const double video = ToNumber(editor.VideoTotalTime);
  return video > 0 ? video : ToNumber(editor.AudioTotalTime);
}

void PreviewEngine::takeTimes() {
  if (movieRuns()) return;
  (isSample() ? movieBar_ : state_.FSB_RenderRange).Max = labelsOf(editing_.editor).FSB_RenderRangeMax;
  auto& cuts = isSample() ? movieCuts_ : state_.cuts;
  cuts.clear();
  for (int i = 1; i <= editing_.clips().count(); ++i) {
    const auto& clip = editing_.clips()[i];
    const double stop = clip.TimeLineStop().number();
    if (stop > 0 && !isSoundByName(clip.MovieName())) cuts.push_back(stop);
  }
}

void PreviewEngine::standAt(double seconds) {
  if (movieRuns() || seeking_) return;
  if (state_.kind == PreviewKind::Movie && (stale_ || seconds != standsAt_)) showClip();
  auto& bar = isSample() ? movieBar_ : state_.FSB_RenderRange;
  if (!bar.held) bar.Value = seconds;
  if (state_.kind == PreviewKind::None) tellPlace(seconds);
}

void PreviewEngine::showClip() {
  if (state_.kind != PreviewKind::None && !movieRuns()) release();
}

// Where nothing is shown.
void PreviewEngine::tellPlace(double seconds) {
  state_.total = movieLength();
  if (state_.total <= 0) return TimeCodeOff();
  UpdateRenderPosDisplay(positionText(seconds));
  state_.Lbl_Remain = positionText(state_.total - seconds);
  state_.Lbl_TotDur = positionText(state_.total);
}

void PreviewEngine::saveGraph(const std::string& document) {
  const auto& preferences = editing_.settings.preferences();
  if (preferences.GrfFileName.empty() || !preferences.OutputGRF) return;
  const auto done = writeDurably(editing_.files, preferences.GrfFileName, document);
  if (!done) editing_.log.LogError(done.error().text);
}

void PreviewEngine::PreviewIt(std::string Document, double StartSeconds, bool NoPlay) {
  tmrTimer_->stop();
  sought_.reset();
  if (const auto loaded = player_.load(std::move(Document)); !loaded) return failed(loaded.error().text);
  state_.failure.clear();
  state_.total = secondsOf(player_.frames());
  const double from = std::max(StartSeconds, 0.0);
  if (!NoPlay) return DirXPlay(from);
  seekTo(frameOf(from));
  host_.previewChanged();
}

void PreviewEngine::DirXPlay(double StartSeconds) {
  const auto wanted = frameOf(StartSeconds);
  const bool atEnd = wanted >= player_.frames() - 1;
  const auto from = host_.Chk_AutoRewind() && atEnd ? 0 : wanted;
  if (from != GetPreviewPositionFrame()) seekTo(from);
  host_.haltPlayer();
  player_.play();
  TimeCodeOn();
  tmrTimer_->start(kEndTick);
  state_.PreviewPlaying = true;
  state_.paused = began_ = false;
  editing_.settings.state.IsPreviewRunning = true;
  host_.previewChanged();
}

void PreviewEngine::KillPreview() {
  release();
  TimeCodeOff();
  host_.previewChanged();
}

// Ends what is shown; its last picture stands until there is another.
void PreviewEngine::release() {
  for (auto* timer : {&tmrTimer_, &TimerPreview_, &Timer1_, &pace_}) (*timer)->stop();
  wish_.reset();
  unwritten_.reset();
  sought_.reset();
  player_.clear();
  const bool ran = movieRuns();
  const double at = state_.position;
  if (isSample()) {
    state_.FSB_RenderRange = movieBar_;
    state_.cuts = movieCuts_;
  }
  state_.kind = PreviewKind::None;
  state_.clipNo = 0;
  state_.title.clear();
  state_.overlayPosition = 0;
  state_.position = state_.total = 0;
  state_.PreviewPlaying = state_.paused = false;
  editing_.settings.state.IsPreviewRunning = editing_.settings.state.KeyframePreview = false;
  if (ran) {
    host_.FrmFileOpenToolsOnOff(true);
    host_.watchChanges(true);
    host_.movieStands(at);
  }
  host_.Displaymovieinfo();
}

void PreviewEngine::failed(const std::string& text) {
  editing_.log.LogError(text);
  KillPreview();
  state_.picture.reset();
  state_.failure = reasonOf(text);
  stale_ = true;
  host_.previewChanged();
}

// A clip whose file is gone is the reason, whatever the engine made of it.
std::string PreviewEngine::reasonOf(const std::string& text) {
  waitsFor_.clear();
  for (int i = 1; i <= editing_.clips().count(); ++i) {
    const auto& clip = editing_.clips()[i];
    const auto file = clipFile(clip);
    if (text.find(file) == std::string::npos || editing_.files.exists(file)) continue;
    waitsFor_ = file;
    return missingText(titleOf(clip));
  }
  return text;
}

void PreviewEngine::filesCame() {
  if (waitsFor_.empty() || editing_.editor.missingFiles.contains(waitsFor_)) return;
  waitsFor_.clear();
  state_.failure.clear();
  host_.previewChanged();
}

// The keys, and places of the movie.

void PreviewEngine::PausePreview() {
  if (!state_.PreviewPlaying) return;
  state_.paused = !state_.paused;
  if (state_.paused) {
    player_.pause();
    Timer1_->stop();  // places that are sought meanwhile tell of themselves
  } else {
    sought_.reset();
    player_.play();
    Timer1_->start(kPositionTick);
  }
  host_.previewChanged();
}

void PreviewEngine::playOrPauseMovie() { movieRuns() ? PausePreview() : PrepPreview(); }

void PreviewEngine::haltSample() {
  if (isSample() && !state_.paused) PausePreview();
}

void PreviewEngine::PreviewtransPort(Key key) {
  if (key == Key::PlayOrPause) {
    if (state_.PreviewPlaying) return PausePreview();
    return isSample() ? DirXPlay(0) : PrepPreview();
  }
  const Holding inside(seeking_);
  if (state_.kind == PreviewKind::None && !standOnMovie()) return;
  const bool stays = key != Key::ToStart;  // the end, too, is there to be seen: a rewind would follow
  if (stays && state_.PreviewPlaying && !state_.paused) PausePreview();
  const auto last = player_.frames() - 1;
  const auto now = GetPreviewPositionFrame();
  const auto to = key == Key::ToStart ? 0 : key == Key::ToEnd ? last : now + (key == Key::StepBack ? -1 : 1);
  standOn(std::clamp<std::int64_t>(to, 0, std::max<std::int64_t>(last, 0)));
}

// By the user's choice.
void PreviewEngine::standOn(std::int64_t frame) {
  seekTo(frame);
  if (state_.kind != PreviewKind::Movie || state_.PreviewPlaying) return;
  standsAt_ = state_.position;
  host_.movieStands(standsAt_);
}

void PreviewEngine::seekTo(std::int64_t frame) {
  sought_ = frame;
  player_.seek(frame);
  if (!tmrTimer_->running()) tmrTimer_->start(kEndTick);  // it may fail
  GetCurrPos();
}

// The movie as it is now stands in the player; false when there is none to show.
bool PreviewEngine::standOnMovie() {
  const bool isAsItIs = !stale_ || state_.PreviewPlaying;
  if (state_.kind == PreviewKind::Movie && isAsItIs && GetPreviewPlayState() != PlayState::Empty) return true;
  if (!host_.mayEdit() || editing_.clips().empty()) return false;
  if (state_.kind != PreviewKind::None) release();
  auto& change = editing_.settings.state.ObjectChange;
  const auto code = change;  // the change watch has still to hear of it
  auto document = compilePreviewText(editing_, powerOf(editing_.settings));
  change = code;
  takeStops(editing_.editor, document);
  fillBar();
  state_.kind = PreviewKind::Movie;
  stale_ = false;
  PreviewIt(std::move(document), state_.FSB_RenderRange.Value, true);
  return state_.failure.empty();
}

void PreviewEngine::showAt(double seconds) {
  const Holding inside(seeking_);
  if (isSample()) release();
  if (!standOnMovie()) return;
  standOn(frameOf(seconds));
  host_.previewChanged();
}

void PreviewEngine::holdRange(bool held) { state_.FSB_RenderRange.held = held; }

void PreviewEngine::moveRange(double seconds) {
  auto& bar = state_.FSB_RenderRange;
  bar.Value = std::max(seconds, 0.0);
  if (isSample()) return seekTo(frameOf(seconds));
  showAt(seconds);
}

// Samples.

void PreviewEngine::sample(Sample what, int clipNo) {
  if (!host_.mayEdit() || clipNo < 1 || clipNo > editing_.clips().count()) return;
  wish_ = Wish{what, clipNo};
  if (!pace_->running()) beginWish();
}

std::string PreviewEngine::documentOf(const Wish& wish, SampleSize size) const {
  switch (wish.what) {
    case Sample::Transition:
      return Previewtransition(editing_, wish.clipNo, size);
    case Sample::Effect:
    case Sample::Keyframe:
      return PreviewEffect(editing_, wish.clipNo, size);
    case Sample::Colour:
      return PreviewColourAdjust(editing_, wish.clipNo, size);
    case Sample::PictureInPicture:
      return CreatePinPPreview(editing_, wish.clipNo,
                               {.preview = true, .inShape = size == SampleSize::Shown});
  }
  return {};
}

void PreviewEngine::beginWish() {
  const auto wish = *std::exchange(wish_, std::nullopt);
  pace_->start(kSamplePace);
  if (wish.clipNo > editing_.clips().count()) return;
  auto document = documentOf(wish, SampleSize::Shown);
  if (document.empty()) return;
  const bool goesOn = state_.kind == kindOf(wish.what) && state_.clipNo == wish.clipNo &&
                      state_.PreviewPlaying && GetPreviewPlayState() != PlayState::Ended;
  const double from = goesOn ? secondsOf(GetPreviewPositionFrame()) : 0;
  if (!isSample()) {
    if (state_.kind == PreviewKind::Movie) release();
    movieBar_ = state_.FSB_RenderRange;
    movieCuts_ = std::exchange(state_.cuts, {});
    pace_->start(kSamplePace);
  }
  state_.kind = kindOf(wish.what);
  state_.clipNo = wish.clipNo;
  editing_.settings.state.KeyframePreview = wish.what == Sample::Keyframe;
  state_.title = wish.what == Sample::Transition ? transitionClipsText(editing_.collection, wish.clipNo)
                                                 : titleOf(editing_.clips()[wish.clipNo]);
  state_.overlayPosition = overlayPositionOf(wish);
  state_.PreviewPlaying = false;
  unwritten_ = wish;
  TimerPreview_->start(kSampleTick);
  PreviewIt(std::move(document), from, false);
}

int PreviewEngine::overlayPositionOf(const Wish& wish) const {
  if (wish.what != Sample::PictureInPicture) return 0;
  const auto look = readPicInPic(editing_.clips()[wish.clipNo].HasPicInPic());
  const bool isThere = look && look->overlayClip >= 1 && look->overlayClip <= editing_.clips().count();
  return isThere ? look->position : 0;
}

// A sample that is not followed by another at once is kept as its document.
void PreviewEngine::writeSample() {
  TimerPreview_->stop();
  const auto wish = std::exchange(unwritten_, std::nullopt);
  if (!wish || wish->clipNo > editing_.clips().count()) return;
  const auto path = editing_.folder.beside(kSampleDocument);
  const auto done = writeDocument(editing_.files, path, documentOf(*wish, SampleSize::Kept));
  if (!done) editing_.log.LogError(done.error().text);
}

// What the timers do, and pictures that come.

void PreviewEngine::arrived(std::int64_t frame, std::shared_ptr<const Bitmap> picture) {
  if (state_.kind == PreviewKind::None || GetPreviewPlayState() == PlayState::Empty) return;
  if (state_.PreviewPlaying && !state_.paused) sought_.reset();
  state_.picture = picture->bgr.empty() ? nullptr : std::move(picture);
  state_.position = secondsOf(frame);
  if (!Timer1_->running()) GetCurrPos();
  host_.previewChanged();
}

void PreviewEngine::sampleAnew() {
  if (!isSample() || state_.clipNo < 1) return;
  sample(static_cast<Sample>(static_cast<int>(state_.kind) - static_cast<int>(PreviewKind::Transition)),
         state_.clipNo);
}

void PreviewEngine::GetCurrPos() {
  const double position = secondsOf(GetPreviewPositionFrame());
  state_.position = position;
  if (Timer1_->running()) {
    host_.ShowClipStats();
    tick_ = (tick_ + 1) % kSelectEach;
  }
  const bool looks = !Timer1_->running() || tick_ == 0;
  if (state_.kind == PreviewKind::Movie && looks) UpdateFrmFileOpenFillist();
  UpdateRenderPosDisplay(positionText(position));
  state_.Lbl_Remain = positionText(state_.total - position);
  state_.Lbl_TotDur = positionText(state_.total);
  auto& bar = state_.FSB_RenderRange;
  if (!bar.held) bar.Value = position;
  host_.previewChanged();
}

void PreviewEngine::UpdateFrmFileOpenFillist() {
  const auto& collection = editing_.collection;
  const int clipNo = (state_.PreviewPlaying ? clipAt : clipToTake)(collection, state_.position);
  if (clipNo == 0) return;
  state_.title = titleOf(editing_.clips()[clipNo]);
  if (clipNo == state_.clipNo || !state_.PreviewPlaying) return;
  state_.clipNo = clipNo;
  host_.selectRow(clipNo);
  host_.buildClipSliders();
}

void PreviewEngine::watchEnd() {
  const auto now = GetPreviewPlayState();
  if (now == PlayState::Failed) return failed(player_.failure());
  if (!state_.PreviewPlaying) {
    if (sought_ && player_.position() != *sought_) return;
    sought_.reset();
    tmrTimer_->stop();
    return GetCurrPos();
  }
  // The first look may come before the player has taken up what it was told.
  if (!std::exchange(began_, true) || now != PlayState::Ended) return;
  tmrTimer_->stop();
  GetCurrPos();
  Timer1_->stop();
  const bool movie = state_.kind == PreviewKind::Movie;
  state_.PreviewPlaying = state_.paused = false;
  editing_.settings.state.IsPreviewRunning = false;
  host_.previewChanged();
  if (!movie) return;
  player_.stop();
  sought_ = 0;
  TimeCodeOff();
  state_.FSB_RenderRange.Value = 0;
  host_.restoreCaption();
  host_.Displaymovieinfo();
  host_.deleteWorkFiles();
  host_.FrmFileOpenToolsOnOff(true);
  host_.watchChanges(true);
  standsAt_ = 0;
  host_.movieStands(0);
  host_.previewChanged();
}

void PreviewEngine::TimeCodeOn() {
  tick_ = 0;
  Timer1_->start(kPositionTick);
}

void PreviewEngine::TimeCodeOff() {
  Timer1_->stop();
  UpdateRenderPosDisplay(kNoPosition);
  state_.Lbl_Remain = state_.Lbl_TotDur = kNoPosition;
}

void PreviewEngine::UpdateRenderPosDisplay(const std::string& text) { state_.Lbl_TimePos = text; }

}  // namespace kvo
