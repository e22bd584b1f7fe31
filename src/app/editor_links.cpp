#include "app/editor_links.h"

#include "base/numbers.h"
#include "core/telling/translated.h"
#include "editor/compiler/durations.h"
#include "editor/desk/clip_stats.h"
#include "editor/desk/values_beside.h"
#include "editor/preview/position_texts.h"
#include "editor/tabs/operations.h"
#include "playback/positions/section.h"

#include <cstdlib>
#include <string_view>

namespace kvo {
namespace {

constexpr std::string_view kTimelineHeight = "EditorTimelineHeight";
constexpr int kEffectTab = 4;
constexpr int kStandingWidth = 640;  // pixels
constexpr int kStandingHeight = 480;

}  // namespace

EditorLinks::EditorLinks(const Parts& parts, std::unique_ptr<SoundOutput> sound)
    : parts_(parts),
      pictures_(parts.loop),
      player_(std::move(sound),
              [this](auto frame, auto picture) { pictures_.put(frame, std::move(picture)); }),
      desk_({states_.window, parts.window, parts.session.editing, parts.loop, parts.history, parts.list,
             parts.commands, *this, parts.session.editorStreams},
            mainWindow()),
      preview_(states_.preview, parts.session.editing, player_, pictures_, parts.loop, desk_),
      create_(parts.session.editing, states_.create, desk_),
      transition_(parts.session.editing, states_.transition, desk_, parts.store),
      effectNames_(states_.effect.names, parts.store, "Effect"),
      film_(parts.session.editing, states_.window.analysing, parts.loop, [this] { parts_.draw(); }),
      timelineActs_({desk_, parts.session.editing, parts.commands, parts.mailbox}, timelineDoors()),
      hand_(states_.timeline, timelineActs_),
      files_(
          parts.loop, parts.session.editing.files, [this] { return filesOfClips(); },
          [this](const auto& files) { missed(files); }),
      standing_(states_.preview, parts.session.streams, parts.session.files, parts.loop,
                [this] { parts_.draw(); }) {
  parts.commands.whenCopied([this] { showSlider(); });
  parts.play.positions().core.doors.UpdateKeyFramesIfWeHaveTo = [this] { UpdateKeyFramesIfWeHaveTo(); };
  for (auto& value : valuesBeside(parts.session.editing, states_.overlay))
    parts.history.alsoKeep(std::move(value));
  desk_.tabs(tabs(), {.stills = [this] { return stillControls(editing(), states_.stills); },
                      .Chk_AutoRewind = [this] { return states_.create.Chk_AutoRewind; }});
}

bool EditorLinks::isPlaying() const {
  return states_.preview.kind == PreviewKind::Movie && states_.preview.PreviewPlaying;
}

void EditorLinks::KillPreview() {
  preview_.KillPreview();
  standing_.forget();
}

MainWindowDoors EditorLinks::mainWindow() {
  return {.Displaymovieinfo = [this](int number) { parts_.face.Displaymovieinfo(number); },
          .PlayerPause = [this] { parts_.face.PlayerPause(); },
          .PlayerStop = [this] { parts_.face.PlayerStop(); },
          .PlayerGetFileName = [this] { return parts_.face.player().PlayerGetFileName(); },
          .pausePlaying =
              [this] {
                if (parts_.window.mode.player.IsPlaying) parts_.play.transport().Lbl_PauseGraphic_Click();
              },
          .place = [this] { return playerPlace(parts_.face.player()); },
          .pictureAt = [this](double seconds) -> std::optional<PlayerPlace> {
            const auto& player = parts_.face.player();
            if (player.PlayerIsEmpty()) return std::nullopt;
            const auto seen = player.pictureAt(seconds);
            return PlayerPlace{seen.seconds, seen.frame};
          },
          .standPlayer = [this](double seconds) { standPlayer(seconds); },
          .stepPlayer = [this](int pictures) { parts_.play.positions().stepping.goBy(pictures); },
          .SetMarkIn = [this] { parts_.play.positions().marks.SetMarkIn(); },
          .SetMarkOut = [this] { parts_.play.positions().marks.SetMarkOut(); },
          .resetMark =
              [this](bool in) {
                parts_.play.positions().marks.reset(in ? SliderHandleId::Img_MarkIn
                                                       : SliderHandleId::Img_MarkOut);
              },
          .ShowSliderStuff = [this] { showSlider(); },
          .Pic_DigNumbers_Click = [this] { parts_.play.positions().positioner.Pic_DigNumbers_Click(); },
          .mnu_SectionName_Click = [this] { nameClip(); },
          .AddMoviesm = [this](const std::string& path,
                               int before) { parts_.mailbox.takeForMovie({path}, before); },
          .mnu_SaveShow_Click = [this] { return parts_.collections.Save(); },
          .saveAgain = [this] { return parts_.collections.saveAgain(); },
          .empty = [this] { parts_.list.show(); },
          .haltPlayer = [this] { parts_.play.transport().halt(); },
          .parkPlayer =
              [this] {
                parts_.play.transport().halt();
                parts_.play.positions().positioner.close();
              },
          .FrmFileOpenToolsOnOff = [this](bool on) { parts_.window.face.controlsEnabled = on; },
          .draw = [this] { parts_.draw(); }};
}

TimelineDesk::Doors EditorLinks::timelineDoors() {
  return {.seek = [this](double seconds) { preview_.showAt(seconds); },
          .setRange = [this](const TimelineRange& range) { create_.typeRange(range.from, range.to); },
          .showFrame =
              [this](const std::string& file, double seconds) {
                preview_.haltSample();
                standing_.showMark(file, seconds);
              },
          .endFrame = [this] { standing_.endMark(); },
          .openMenu = [this](int /*clip*/, int x, int y) { parts_.openMenu(x, y); }};
}

DeskTabs EditorLinks::tabs() {
  const auto rules = [this](auto& tab) {
    return DeskTab{.enter = [this, &tab] { enterTab(editing(), tab, desk_); },
                   .follow = [this, &tab](bool rebuild) { followTab(editing(), tab, desk_, rebuild); }};
  };
  return {DeskTab{.restore = [this] { create_.restore(); },
                  .enter = [this] { create_.refresh(); },
                  .follow = [this](bool /*rebuild*/) { create_.refresh(); }},
          rules(states_.audio),
          DeskTab{.enter = [this] { transition_.enter(); },
                  .follow = [this](bool rebuild) { transition_.show(rebuild); }},
          DeskTab{.enter =
                      [this] {
                        enterTab(editing(), states_.effect, desk_);
                        effectNames_.offer(kvo::effectNames(states_.effect));
                      },
                  .follow =
                      [this](bool rebuild) {
                        followTab(editing(), states_.effect, desk_, rebuild);
                        if (states_.keyframes.visible) followKeyframes(editing(), states_.keyframes);
                      }},
          DeskTab{.restore = [this] { restoreStills(editing(), states_.stills); },
                  .enter = [this] { enterTab(editing(), states_.stills, desk_); },
                  .follow = [this](bool rebuild) { followTab(editing(), states_.stills, desk_, rebuild); }},
          rules(states_.color),
          rules(states_.overlay)};
}

void EditorLinks::settle() {
  if (!parts_.window.face.visible) desk_.leave();
  const bool hasEffects = desk_.isOpen() && states_.window.frame.CurrentTab == kEffectTab;
  if (!hasEffects && states_.keyframes.visible) SuspendKeyframeForm(editing(), states_.keyframes);
  files_.watch(desk_.isOpen());
  film_.settle();
  const bool wasOpen = std::exchange(wasOpen_, desk_.isOpen());
  if (!desk_.isOpen()) return;
  if (!wasOpen)
    states_.window.frame.timelineHeight = static_cast<int>(ToNumber(parts_.store.read(kTimelineHeight)));
  const auto& create = states_.create;
  states_.timeline.marks.range.reset();
  if (!create.Opt_RenderRangeWhole)
    states_.timeline.marks.range = TimelineRange{create.Txt_From, create.Txt_Too};
  const auto& history = parts_.window.history;
  const bool edited = std::exchange(historySeen_, history.revision) != history.revision;
  const bool isOther = !wasOpen || desk_.isOpening() || openedSeen_ != states_.window.opened;
  if (edited && isOther) preview_.showClip();
  if (edited) {
    isOther ? preview_.movieIsStale() : preview_.movieEdited();
    if (history.undone.size() != states_.history.undone.size()) preview_.sampleAnew();  // a step back, or on
    states_.history.done = history.done;
    states_.history.undone = history.undone;
    const auto open = tabs();  // the open tab shows what has been undone too
    if (const auto& follow = open[static_cast<std::size_t>(states_.window.frame.CurrentTab - 1)].follow)
      follow(false);
  }
  const auto& collection = parts_.session.collection;
  const bool timed = std::exchange(timedSeen_, states_.window.timed) != states_.window.timed;
  if ((timed || edited) && desk_.knowsFiles()) showBlocks();
  if (timed) preview_.takeTimes();
  if (std::exchange(openedSeen_, states_.window.opened) != states_.window.opened) hand_.open();
  if (states_.timeline.marks.clip != collection.icurMov) hand_.takeInHand(collection.icurMov);
  states_.timeline.settingKeyframes = parts_.session.settings.state.KeyframeMode != 0;
  if (std::exchange(compilesSeen_, states_.preview.compiles) != states_.preview.compiles)
    states_.window.totals = previewTotals(editing().editor);
  states_.window.frame.zoom = hand_.zoomPart();
  desk_.follow();
  const auto& playhead = desk_.playhead();
  standing_.settle(collection, states_.keyframes.visible, playhead.inClip(),
                   shapedLike(optionsOf(editing()).output, kStandingWidth, kStandingHeight));
  states_.timeline.isComing = desk_.isOpening();
  states_.timeline.onlyShows = isPlaying();
  create_.showPreview(isPlaying());
  hand_.stand(isPlaying() ? states_.preview.position : playhead.inMovie(), isPlaying());
}

void EditorLinks::keepTimelineHeight(int pixels) {
  states_.window.frame.timelineHeight = pixels;
  parts_.store.write(kTimelineHeight, std::to_string(pixels));
}

void EditorLinks::showBlocks() {
  const auto& collection = parts_.session.collection;
  auto blocks = blocksOf(TimelineClips(collection, editing().streams), collection, optionsOf(editing()));
  for (auto* row : {&blocks.clips, &blocks.music}) {
    for (auto& block : *row) block.isMissing = editing().editor.isMissing(block.file);
  }
  hand_.show(std::move(blocks));
}

FileWatch::Paths EditorLinks::filesOfClips() const {
  FileWatch::Paths files;
  const auto& clips = parts_.session.collection.MovieList;
  for (int i = 1; i <= clips.count(); ++i) {
    if (auto file = clipFile(clips[i]); !isAddress(file)) files.insert(std::move(file));
  }
  return files;
}

// What has come back is looked at anew, and so is the movie that failed for want of it.
void EditorLinks::missed(const FileWatch::Paths& files) {
  editing().editor.missingFiles.assign({files.begin(), files.end()});
  ++states_.window.timed;
  standing_.forget();
  preview_.filesCame();
  parts_.draw();
}

std::string EditorLinks::goInHistory(int steps) {
  const auto& history = parts_.window.history;
  auto why = whyNoStep(states_.window.frame, {history.done, history.undone}, steps);
  if (!why.empty()) return why;
  const auto count = static_cast<std::size_t>(std::abs(steps));
  steps < 0 ? parts_.history.undo(count) : parts_.history.redo(count);
  return {};
}

// The list, in which a name can be edited in its place, lies below the editor.
void EditorLinks::nameClip() {
  const auto& collection = parts_.session.collection;
  if (collection.icurMov < 1) return;
  const auto& clip = collection.MovieList[collection.icurMov];
  const auto name = parts_.questions.ask(translated("Change the Displayed name for the clip"),
                                         translated("Name of %1", {titleOf(clip)}), listedName(clip));
  if (name) parts_.commands.rename(*name);
}

void EditorLinks::standPlayer(double seconds) {
  if (parts_.window.mode.player.IsPlaying) parts_.play.transport().halt();
  auto& player = parts_.face.player();
  if (player.PlayerIsEmpty()) return;
  const InMode mode(player, DisplayMode::Seconds);
  player.PlayerSetCurrentPosition(seconds);
  parts_.play.positions().core.displays.showPosition();
}

void EditorLinks::showSlider() {
  parts_.window.mode.ticks.mnu_ShowSlider = true;
  parts_.play.ShowSliderStuff();
}

// The window of keyframes goes to where the player has stepped.
void EditorLinks::UpdateKeyFramesIfWeHaveTo() {
  const auto place = playerPlace(parts_.face.player());
  if (!states_.keyframes.visible || !place) return;
  moveToFrame(states_.keyframes, framesOf(place->seconds, editing().settings.preferences().OutPutFrameRate));
  showClipFrame(states_.keyframes.Sld_FramePosMaster.Value);
}

void EditorLinks::stop() {
  desk_.stopAnalysing();
  if (isPlaying()) preview_.PrepPreview();
}

void EditorLinks::showKeyframes() {
  ActivateKeyFrameForm(editing(), states_.keyframes, desk_);
  parts_.draw();
}

void EditorLinks::showClipFrame(Long frame) {
  const auto& collection = parts_.session.collection;
  if (collection.icurMov < 1) return;
  const auto& clip = collection.MovieList[collection.icurMov];
  preview_.haltSample();
  standing_.showKeyframe(clip, frame, parts_.session.settings.preferences().OutPutFrameRate);
}

}  // namespace kvo
