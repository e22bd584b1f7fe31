#include "editor/preview/preview_engine.h"

#include "editor/preview/position_texts.h"
#include "editor/tabs/clip_checks.h"
#include "editor/tabs/preview.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

// Milliseconds.
constexpr int kPositionTick = 100;
constexpr int kEndTick = 100;
constexpr int kSelectEach = 3;  // ticks
constexpr std::string_view kMovieDocument = "\\KVORender.xtl";
constexpr std::uint64_t kMaxDocument = 256ULL << 20U;

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
      })),
      rest_(loop.timer([this] { showAnew(); })) {
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
  state_.cuts.assign({editor.ClipStopList.begin(), editor.ClipStopList.end()});
}

double PreviewEngine::movieLength() const {
  const auto& editor = editing_.editor;
  const double video = ToNumber(editor.VideoTotalTime);
  return video > 0 ? video : ToNumber(editor.AudioTotalTime);
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
  standsOn_.reset();
  if (const auto loaded = player_.load(std::move(Document)); !loaded) return failed(loaded.error().text);
  state_.failure.clear();
  state_.total = state_.kind == PreviewKind::Movie ? movieLength() : secondsOf(player_.frames());
  const double from = std::max(StartSeconds, 0.0);
  if (!NoPlay) return DirXPlay(from);
  seekTo(frameInClip(from));
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
  if (waitsFor_.empty() || editing_.editor.isMissing(waitsFor_)) return;
  waitsFor_.clear();
  state_.failure.clear();
  host_.previewChanged();
}

// What the timers do, and pictures that come.

void PreviewEngine::arrived(std::int64_t frame, std::shared_ptr<const Bitmap> picture) {
  if (state_.kind == PreviewKind::None || GetPreviewPlayState() == PlayState::Empty) return;
  if (state_.PreviewPlaying && !state_.paused) sought_.reset();
  state_.picture = picture->bgr.empty() ? nullptr : std::move(picture);
  state_.position = placeOf(frame);
  if (!Timer1_->running()) GetCurrPos();
  host_.previewChanged();
}

void PreviewEngine::GetCurrPos() {
  const double position = placeOf(GetPreviewPositionFrame());
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
