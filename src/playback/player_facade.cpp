// A clip's way into its engine and out of it, and what it looks like meanwhile.
#include "playback/player_facade.h"

#include "base/paths.h"
#include "base/text.h"
#include "core/telling/failures.h"
#include "intake/codec_words.h"
#include "playback/display/layout.h"

#include <algorithm>
#include <utility>

namespace kvo {
namespace {

constexpr int kDvdSourceWidth = 720;  // pixels
constexpr int kDvdSourceHeight = 576;
constexpr double kDvdRate = 25;     // pictures a second
constexpr double kRateUntold = 15;  // of a picture whose file does not tell its rate
constexpr Place kDvdBox{1200, 700, 6800, 4450};

double rateByFacts(const Result<StreamFacts>& facts) {
  if (!facts) return kRateUntold;
  if (facts->steadyRate > 0) return facts->steadyRate;
  return facts->frameRate > 0 ? facts->frameRate : kRateUntold;
}

double rateByRecord(const Movie& clip) {
  if (clip.FrameRate() > 0) return static_cast<double>(clip.FrameRate());
  const auto frames = clip.DurationFrames().wholeNumber();
  const auto length = clip.DurationTime().wholeNumber();
  return frames && length && *length > 0 ? *frames / *length : 0;
}

}  // namespace

PlayerFacade::PlayerFacade(const Parts& parts) : parts_(parts) {
  parts_.counts.whenCounted(
      [this](const std::string& path, std::vector<double> begins) { takeBegins(path, std::move(begins)); });
}

EngineRoute PlayerFacade::PlayerSetFilename(const std::string& path, int index) {
  const auto load = ++loads_;
  usingCorona_ = false;
  const auto* clip = clipAt(index);
  const auto routing =
      routeOf({kSystemWord, path, clip != nullptr && clip->IsCorona(), parts_.settings.user.MPEGRoutingVMR},
              [&] { return GetWMVVer(parts_.collection, index, path, parts_.probe).videoCodec; });
  // While a file is probed, and while it opens, the list may get another order, and the player another clip.
  if (load != loads_) return routing.route;
  if (auto* now = clipAt(parts_.collection.MovieList.numberOf(clip));
      now != nullptr && routing.route != EngineRoute::NotForced) {
    now->IsCorona(true);
    now->IsVFWCompat(false);
  }
  if (!routing.corona || !openGraph(path, clip)) openControl(path, clip);
  if (load == loads_) showOpened(parts_.collection.MovieList.numberOf(clip));
  return routing.route;
}

// False when the other engine is to try. Something else may be in the player behind this.
bool PlayerFacade::openGraph(const std::string& path, const Movie* of) {
  const auto load = loads_;
  CoronaClear();
  parts_.control.setFileName({});
  usingCorona_ = true;
  CurrentClipPath_ = path;
  auto graph = parts_.graphs.RenderFile(path);
  if (load != loads_) return true;
  if (!graph) {
    usingCorona_ = false;
    CurrentClipPath_.clear();
    return false;
  }
  graph_ = std::move(*graph);
  graph_->whenAtStopTime([this] {
    if (graphStops_) graphStops_();
  });
  mannerOfGraph();
  state().visible = false;
  PlayerCoronaSetFrameRate(parts_.collection.MovieList.numberOf(of));
  if (load != loads_) return true;
  if (auto* clip = clipAt(parts_.collection.MovieList.numberOf(of))) {
    clip->IsCorona(true);
    if (const auto length = clip->DurationTime().wholeNumber())
      clip->DurationFrames(Value(frames().framesIn(*length)));
  }
  return true;
}

void PlayerFacade::openControl(const std::string& path, const Movie* of) {
  const auto load = loads_;
  CoronaClear();
  parts_.control.setFileName(path);
  auto* clip = clipAt(parts_.collection.MovieList.numberOf(of));
  if (load != loads_ || clip == nullptr) return;
  learn(*clip, path);
}

// What the record does not know of the clip in the control engine.
void PlayerFacade::learn(Movie& clip, const std::string& path) {
  auto rate = rateByRecord(clip);
  if (rate <= 0 && hasPicture())
    rate = isAddress(path) ? kRateUntold : rateByFacts(parts_.streams.facts(path));
  counted_ = FrameCount::ofPictures(rate);
  if (clip.MovieHeight() != 0) return;
  clip.MovieHeight(toInteger(PlayerGetSourceHeight()).value_or(0));
  clip.MovieWidth(toInteger(PlayerGetSourceWidth()).value_or(0));
}

void PlayerFacade::streamOpened() {
  if (PlayerIsEmpty() || usingCorona_) return;
  if (auto* clip = clipAt(state().clip)) learn(*clip, PlayerGetFileName());
  showSize();
}

// The player as it stands with another clip in it.
void PlayerFacade::showOpened(int index) {
  auto& player = state();
  player.path = PlayerIsEmpty() ? std::string() : PlayerGetFileName();
  player.clip = player.path.empty() ? 0 : index;
  player.fullScreen = false;
  showSize();
  if (hasPicture() && !isDvd() && !isAddress(player.path)) parts_.counts.want(player.path);
}

void PlayerFacade::showSize() {
  auto& player = state();
  player.sourceWidth = PlayerGetSourceWidth();
  player.sourceHeight = PlayerGetSourceHeight();
  if (!hasPicture()) return;
  player.place.width = player.sourceWidth * parts_.mode.twipsPerPixel();
  player.place.height = player.sourceHeight * parts_.mode.twipsPerPixel();
}

// A rate alone tells the numbers of such pictures on the average only.
void PlayerFacade::takeBegins(const std::string& path, std::vector<double> begins) {
  if (PlayerIsEmpty() || path != PlayerGetFileName() || !hasPicture() || begins.empty()) return;
  counted_ = FrameCount::ofBegins(std::move(begins), engine().duration());
  if (auto* clip = clipAt(state().clip); clip != nullptr && clipFile(*clip) == path) countMarks(*clip);
}

// Marks that were set by the rate stand at the right seconds. Their frames are found again at each load: the
// file need not be saved for it.
void PlayerFacade::countMarks(Movie& clip) const {
  const bool dirty = clip.IsDirty();
  const double start = clip.LoopStart().number();
  const double end = clip.LoopEnd().number();
  if (const auto frame = pictureAt(start).frame; start > 0 && frame != clip.LoopStartFrames())
    clip.LoopStartFrames(frame);
  if (const auto frame = pictureAt(end).frame;
      end > 0 && end < clip.DurationTime().number() && frame != clip.LoopEndFrames())
    clip.LoopEndFrames(frame);
  clip.IsDirty(dirty);
}

void PlayerFacade::PlayerClear() {
  ++loads_;
  if (!usingCorona_) parts_.control.setFileName({});
  CoronaClear();
  usingCorona_ = false;
  auto& player = state();
  player.path.clear();
  player.clip = player.sourceWidth = player.sourceHeight = 0;
}

void PlayerFacade::Med_previewClear() {
  parts_.control.setAutoStart(false);
  PlayerClear();
  SendPlayerFarLeft();
}

void PlayerFacade::CoronaClear() {
  if (graph_) {
    graph_->Stop();
    if (hasPicture()) state().visible = false;
  }
  graph_.reset();
  counted_ = {};
  CoronaSelectionStart_.reset();
  CoronaSelectionEnd_.reset();
  state().fullScreen = false;
}

bool PlayerFacade::PlayerIsEmpty() const {
  if (usingCorona_) return !graph_ && !isDvd();
  return parts_.control.fileName().empty();
}

std::string PlayerFacade::PlayerGetFileName() const {
  return usingCorona_ ? CurrentClipPath_ : parts_.control.fileName();
}

void PlayerFacade::openAhead(int index) {
  const auto* clip = clipAt(index);
  if (clip == nullptr || !isFileThatPlays(*clip) || extensionOf(clip->MovieName()) == "CDA") {
    parts_.control.openAhead({}, 0);
    return parts_.graphs.openAhead({}, 0);
  }
  const auto path = clipFile(*clip);
  const auto routing = routeOf({kSystemWord, path, clip->IsCorona(), parts_.settings.user.MPEGRoutingVMR},
                               [&] { return clip->VideoCodec(); });
  const double start = clip->LoopStart().number();
  routing.corona ? parts_.graphs.openAhead(path, start) : parts_.control.openAhead(path, start);
}

void PlayerFacade::PlayerCoronaSetFrameRate(int index) {
  if (isDvd()) {
    counted_ = FrameCount::ofPictures(kDvdRate);
    return;
  }
  const auto* of = clipAt(index);
  const auto facts = parts_.streams.facts(CurrentClipPath_);
  if (facts && !facts->hasVideo && !facts->hasAudio) {
    parts_.boxes.show({std::string(kProductName),
                       "This WMV stream contains no video - Error - Malformed Stream", BoxButtons::Ok,
                       BoxIcon::Warning});
  }
  if (facts && !facts->hasVideo && facts->hasAudio) {
    counted_ = FrameCount::ofSound();
  } else {
    counted_ = FrameCount::ofPictures(rateByFacts(facts));
  }
  // Behind the box the list may be another one.
  auto* clip = clipAt(parts_.collection.MovieList.numberOf(of));
  if (clip != nullptr) clip->FrameRate(static_cast<Single>(counted_.rate()));
}

double PlayerFacade::PlayerCoronaGetFrameRate(int index) {
  const auto* clip = clipAt(index);
  if (clip == nullptr) return counted_.rate();
  if (clip->FrameRate() == 0 && graph_) PlayerCoronaSetFrameRate(index);
  return static_cast<double>(clip->FrameRate());
}

void PlayerFacade::PlayerShow() {
  if (!windowless()) state().visible = true;
}

void PlayerFacade::PlayerHide() { state().visible = false; }

void PlayerFacade::SendPlayerFarLeft() {
  if (graph_ && (windowless() || state().fullScreen)) return;
  state().place.left = kParked;
}

int PlayerFacade::PlayerGetSourceWidth() const {
  if (isDvd()) return kDvdSourceWidth;
  return graph_ && isSoundOfGraph(CurrentClipPath_) ? 0 : engine().sourceWidth();
}

int PlayerFacade::PlayerGetSourceHeight() const {
  if (isDvd()) return kDvdSourceHeight;
  return graph_ && isSoundOfGraph(CurrentClipPath_) ? 0 : engine().sourceHeight();
}

void PlayerFacade::PlayerSetLeft(Twips left) {
  if (!windowless()) state().place.left = left;
}

void PlayerFacade::PlayerSetTop(Twips top) {
  if (!windowless()) state().place.top = top;
}

void PlayerFacade::PlayerSetWidth(Twips width) {
  if (!windowless() && !state().fullScreen) state().place.width = width;
}

void PlayerFacade::PlayerSetHeight(Twips height) {
  if (!windowless() && !state().fullScreen) state().place.height = height;
}

void PlayerFacade::PlayerSetDisplaySize(int size) {
  auto& to = state().place;
  const auto& mode = parts_.mode;
  if (!graph_) {
    const double factor = size == 0 ? 1 : size == 1 ? 0.5 : size == 2 ? 2 : 0;
    if (factor == 0 || !hasPicture()) return;
    to.width = PlayerGetSourceWidth() * mode.twipsPerPixel() * factor;
    to.height = PlayerGetSourceHeight() * mode.twipsPerPixel() * factor;
    return;
  }
  const auto& run = parts_.settings.state;
  if (isDvd() && !run.AllDetOff && !run.KVOIsInEditMode) {
    to = kDvdBox;
  } else if (size == 4 && mode.IsMiniMode) {
    PlayerSetHeight(std::min(to.height, std::max(mode.window.place.height - kToolbarHeight - to.top, 0.0)));
  }
}

void PlayerFacade::PlayerSetFullScreenMode(bool on) {
  state().fullScreen = on && hasPicture();
  parts_.mode.ticks.lockAndZoomEnabled = !state().fullScreen;
}

Movie* PlayerFacade::clipAt(int index) const {
  auto& clips = parts_.collection.MovieList;
  return index < 1 || index > clips.count() ? nullptr : &clips[index];
}

const MediaEngine& PlayerFacade::engine() const {
  if (graph_) return *graph_;
  return parts_.control;
}

MediaEngine& PlayerFacade::engine() {
  if (graph_) return *graph_;
  return parts_.control;
}

}  // namespace kvo
