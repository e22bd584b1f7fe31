#include "program/intro.h"

#include "base/paths.h"
#include "core/records/media_kinds.h"
#include "intake/folders.h"

namespace kvo {
Intro::Intro(const ProgramParts& parts) : parts_(parts) {
  parts_.timers.IntroEnder.ticks([this] { tick(); });
  parts_.commands.beforeEach([this] { leave(); });
}

void Intro::begin(const std::vector<std::string>& named) {
  isNamed_ = !named.empty();
  if (isNamed_ || !parts_.settings.preferences().DefaultStartupVid.empty()) return ShowStartupVid(named);
  showFirstClip();
}

void Intro::passOver() {
  startingUp_ = false;
  parts_.list.show();
  parts_.list.PreviewMovie(1);
}

// The normal window with the clip that comes first.
void Intro::showFirstClip() {
  parts_.settings.state.ShowFillist = true;
  parts_.settings.state.AllDetOff = false;
  startingUp_ = false;
  parts_.window.face.controlsEnabled = true;
  parts_.list.show();
  const int count = parts_.collection.MovieList.count();
  if (count == 0) return;
  // It is shown and does not play by itself, but for a sound that was asked for by name.
  const int number = isNamed_ ? count : 1;
  const bool plays = isNamed_ && isSoundByName(parts_.collection.MovieList[number].MovieName());
  parts_.window.mode.player.IsPaused = !plays;
  parts_.list.PreviewMovie(number);
  if (plays && transport_ != nullptr) transport_->Img_Play_Click();
}

// The clip named on the command line, or the intro of the collection, comes ahead of everything.
void Intro::ShowStartupVid(const std::vector<std::string>& named) {
  parts_.window.details.visible = parts_.window.list.visible = false;
  parts_.settings.state.AllDetOff = true;
  bool added = false;
  if (isNamed_) {
    const auto clips = withClipsOfFolders(named, parts_.files, [] { return true; });
    added = parts_.history.add(CommandPass(parts_.window),
                               [&] { parts_.refusals.together([&] { parts_.intake.add(clips, {}); }); });
    parts_.settings.state.AllDetOff = true;  // the first clip of a list turns them on
  } else {
    parts_.window.face.controlsEnabled = false;
    added = addIntro();
    if (parts_.settings.preferences().NoofUses == 1) {
      parts_.settings.state.AllDetOff = false;
      parts_.window.details.visible = true;
    }
  }
  const auto& clips = parts_.collection.MovieList;
  if (!added || clips.empty() || (isNamed_ && isSoundByName(clips[clips.count()].MovieName())))
    return showFirstClip();
  parts_.window.emptyPane.visible = false;
  parts_.window.mode.player.IsPaused = false;
  parts_.list.PreviewMovie(clips.count());
  // A still has no end to wait for, and neither has what does not play.
  const bool empty = transport_ != nullptr && parts_.window.mode.player.path.empty();
  introRunning_ = !clips[clips.count()].IsStill() && !empty;
  parts_.timers.IntroEnder.start();
}

// It changes nothing of what the user has.
bool Intro::addIntro() {
  const auto name = parts_.settings.preferences().DefaultStartupVid;
  const auto lastFolder = parts_.settings.preferences().LoadFrom;
  const auto before = parts_.settings.state;
  const bool added =
      parts_.intake.AddMoviesm(isAddress(name) ? name : parts_.folder.beside(name), {.quiet = true});
  parts_.settings.change().LoadFrom = lastFolder;
  parts_.settings.state = before;
  if (added) intro_ = &parts_.collection.MovieList[parts_.collection.MovieList.count()];
  return added;
}

void Intro::tick() {
  if (!introRunning_ && !parts_.window.busy()) leave();
}

void Intro::leave() {
  introRunning_ = false;
  if (!parts_.timers.IntroEnder.enabled()) return;
  parts_.timers.IntroEnder.stop();
  if (intro_ != nullptr) {
    const bool wasDirty = parts_.settings.state.IsDirty;
    parts_.collection.MovieList.removeIf([this](const Movie& clip) { return &clip == intro_; });
    intro_ = nullptr;
    parts_.settings.change().DefaultStartupVid = "";
    parts_.settings.state.IsDirty = wasDirty;
  }
  parts_.list.fill();
  showFirstClip();
}

}  // namespace kvo
