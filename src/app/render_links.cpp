#include "app/render_links.h"

#include "app/engine_job.h"
#include "base/paths.h"
#include "core/telling/translated.h"
#include "editor/tabs/clip_checks.h"
#include "media/hardware.h"
#include "media/strip_wav.h"
#include "render/render_texts.h"

#include <filesystem>
#include <limits>

namespace kvo {
namespace {

constexpr double kBytesOfMegabyte = 1024.0 * 1024;
constexpr int kCreateTab = 1;

// What cannot be asked counts as room enough: a folder that is gone is told by who writes into it.
double freeMegabytes(const std::string& file) {
  std::error_code failed;
  const auto space = std::filesystem::space(std::filesystem::path(folderPart(file)), failed);
  return failed ? std::numeric_limits<double>::max()
                : static_cast<double>(space.available) / kBytesOfMegabyte;
}

}  // namespace

RenderLinks::RenderLinks(const Parts& parts)
    : parts_(parts),
      hardware_({parts.session.processes,
                 parts.loop,
                 parts.engine,
                 {media::hardwareNames().begin(), media::hardwareNames().end()}},
                [this] {
                  render_.hearHardware(!hardware_.found()->encoder.empty());
                  parts_.draw();
                }),
      render_({parts.session.editing,
               parts.editor.states().create,
               parts.dialogs,
               parts.session.nameLocks,
               {parts.session.files, parts.session.temporaryFolders, parts.session.processes, parts.loop,
                parts.engine},
               freeMegabytes,
               *this,
               parts.store,
               parts.work,
               [&desktop = parts.desktop] { return desktop.videosFolder(); },
               [&store = parts.queueStore, &session = parts.session](
                   const std::string& title, const RenderOrder& order,
                   const std::string& profile) -> Result<int> {
                 const auto inSegments =
                     makesSegments(session.files, session.temporaryFolders, order, profile);
                 if (!inSegments) return inSegments.error();
                 return store.add(title, order, profile, !*inSegments);
               },
               [this] { hardware_.begin(); }},
              state_),
      pictures_(state_, parts.loop, [this] { parts_.draw(); }) {}

void RenderLinks::play(const std::string& movie) {
  if (state_.isRunning) {
    parts_.session.boxes.show({"KVO - Render Queue", "A movie is being made. View this one when it is done.",
                               BoxButtons::Ok, BoxIcon::Warning});
    return;
  }
  begin([this, movie] {
    render_.leave();  // under the card the player stands still
    const auto& clips = parts_.session.collection.MovieList;
    int number = 1;
    while (number <= clips.count() && !parts_.session.files.sameFile(clipFile(clips[number]), movie))
      ++number;
    if (number > clips.count()) return AddMoviesm(movie);
    parts_.play.transport().PreviewMovie(number);
    letPlay();
  });
}

// Behind the click that asks for it: a movie takes long, and the loop runs meanwhile.
void RenderLinks::begin(std::function<void()> work) {
  if (state_.isRunning || parts_.window.busy()) return;
  parts_.loop.post([this, work = std::move(work)] {
    work();
    addMovie();
    parts_.draw();
  });
}

void RenderLinks::write() {
  begin([this] { render_.WriteRenderMovie(); });
}

void RenderLinks::addToQueue() {
  begin([this] { render_.AddToQueue(); });
}

void RenderLinks::writePair() {
  begin([this] {
    isPair_ = true;
    render_.RenderNewPicInPic();
    isPair_ = false;
  });
}

void RenderLinks::view() {
  begin([this] { render_.view(); });
}

void RenderLinks::Rendertofile() {
  if (!parts_.editor.desk().isOpen() || parts_.editor.desk().isOpening() || parts_.window.busy()) return;
  render_.Rendertofile();
}

void RenderLinks::RenderPinP() {
  auto& overlay = parts_.editor.states().overlay;
  if (parts_.window.busy() || overlay.look.overlayClip == 0) return;
  KillPreview();
  render_.RenderPinP(chosenClip(overlay.Lst_PicinPicBackdrop),
                     {.preview = false,
                      .backdropAudio = overlay.backdropSound.isHeard(),
                      .overlayAudio = overlay.overlaySound.isHeard()});
}

// The key, and each road out of the program, ask the same; a second of them waits for the first.
void RenderLinks::abort() {
  if (!render_.canAbort() || isAsking_) return;
  isAsking_ = true;
  auto question = abortQuestion();
  question.stands = [this] { return render_.canAbort(); };
  const auto answer = parts_.session.boxes.show(question);
  isAsking_ = false;
  if (answer == Answer::Yes) render_.AbortRender();
}

bool RenderLinks::mayEnd() {
  if (!state_.isRunning) return true;
  abort();
  return false;
}

void RenderLinks::settle() {
  auto& desk = parts_.editor.desk();
  if (!desk.isOpen() && state_.frame != RenderFrame::None) render_.leave();
  const bool isShown = state_.frame != RenderFrame::None;
  desk.toolsOffFor(!isShown           ? std::string()
                   : state_.isRunning ? translated("Abort the render first")
                                      : translated("Go back to editing first"));
  pictures_.settle();
  if (!isShown) return;
  auto& timeline = parts_.editor.states().timeline;
  timeline.onlyShows = true;
  if (state_.frame == RenderFrame::Rendering && !isPair_)
    parts_.editor.hand().stand(state_.movieSeconds, true);
}

void RenderLinks::PlayerStop() {
  KillPreview();
  parts_.face.PlayerStop();
}

void RenderLinks::ImagesOff() {
  parts_.play.transport().halt();
  parts_.play.positions().positioner.close();
  parts_.face.display().EndAnim();
}

// The folder is a preference of the collection, which has been written already.
void RenderLinks::UpdLastRead() {}

void RenderLinks::AddMoviesm(const std::string& path) { joins_ = path; }

// Once the render has given the collection back.
void RenderLinks::addMovie() {
  if (joins_.empty()) return;
  parts_.mailbox.takeForMovie({std::exchange(joins_, {})}, firstSound(parts_.session.collection));
  letPlay();
}

void RenderLinks::letPlay() {
  parts_.editor.desk().letPlay();
  parts_.window.face.raise = true;
  if (!parts_.window.mode.player.IsPlaying) parts_.play.transport().Img_Play_Click();
}

void RenderLinks::DisabEditControls(bool disabled) {
  if (disabled) {
    pass_.emplace(parts_.window);
  } else {
    pass_.reset();
  }
  parts_.window.face.controlsEnabled = !disabled;
}

void RenderLinks::ApplyStillSettings() {
  const auto& editing = parts_.session.editing;
  kvo::ApplyStillSettings(editing, stillControls(editing, parts_.editor.states().stills));
}

void RenderLinks::Buildtabs() { parts_.editor.desk().Buildtabs(kCreateTab); }

Outcome RenderLinks::StripWavFromCurrentVideo(const std::string& source, const std::string& wav) {
  return media::stripWav(parts_.session.files, source, wav, [this] {
    parts_.loop.yield();
    return !state_.RenderAborted;
  });
}

void RenderLinks::renderChanged() {
  // Once: behind the render the caption is the editor's own again.
  if (auto caption = std::exchange(state_.caption, {}); !caption.empty())
    parts_.editor.states().window.frame.caption = std::move(caption);
}

}  // namespace kvo
