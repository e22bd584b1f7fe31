#include "app/editor_window.h"

#include "ui/made.h"
#include "ui/pictures.h"
#include "windows/analysing/frm_analysing.h"
#include "windows/editor/audio_page.h"
#include "windows/editor/color_page.h"
#include "windows/editor/create_page.h"
#include "windows/editor/effect_page.h"
#include "windows/editor/frm_rush.h"
#include "windows/editor/hand_watch.h"
#include "windows/editor/overlay_page.h"
#include "windows/editor/position_row_part.h"
#include "windows/editor/preview_part.h"
#include "windows/editor/stills_page.h"
#include "windows/editor/timeline_view.h"
#include "windows/editor/transition_page.h"
#include "windows/keyframe/frm_keyframe.h"
#include "windows/render/render_card.h"

#include <atomic>
#include <memory>
#include <utility>

namespace kvo {
namespace {

constexpr int kTransitionTab = 3;
constexpr std::size_t kMostPictures = 64;  // of clips, as widgets draw them

// Has all that comes until it is the loop's turn drawn at once.
std::function<void()> drawSoon(EventLoop& loop, std::function<void()> draw) {
  auto isWaiting = std::make_shared<std::atomic<bool>>(false);
  return [&loop, draw = std::move(draw), isWaiting] {
    if (isWaiting->exchange(true)) return;
    loop.post([draw, isWaiting] {
      *isWaiting = false;
      draw();
    });
  };
}

}  // namespace

EditorWindow::EditorWindow(const Parts& parts)
    : parts_(parts),
      transitions_(transitionArt(parts.session.collection, parts.session.settings), parts.session.streams,
                   drawSoon(parts.loop, parts.draw), [&motion = parts.motion] { return motion.isReduced(); }),
      effects_(effectArt(parts.session.collection, parts.session.settings, parts.session.editor.effects),
               parts.session.streams, drawSoon(parts.loop, parts.draw),
               [&motion = parts.motion] { return motion.isReduced(); }),
      colours_(parts.links.editing(), parts.loop, [this] { parts_.draw(); }) {}

EditorWindow::~EditorWindow() = default;

void EditorWindow::draw() {
  parts_.links.settle();
  parts_.render.settle();
  if (!frm_ && !parts_.links.desk().isOpen()) return;
  if (!frm_) make();
  makePage(parts_.links.states().window.frame.CurrentTab);
  frm_->draw();
  const auto& desk = parts_.links.desk();
  auto* owner = desk.isOpen() ? frm_.get() : nullptr;
  keyframes_->draw(parts_.links.isPlaying() ? nullptr : owner);  // it would lie over the movie
  analysing_->draw(owner);
}

void EditorWindow::sketchCame(const std::string& file) {
  if (timeline_ != nullptr) timeline_->sketchesCame(file);
}

void EditorWindow::make() {
  auto& links = parts_.links;
  auto& states = links.states();
  auto& desk = links.desk();
  auto& render = parts_.render;
  const auto act = [this](auto work) {
    return [this, work](auto... given) {
      work(given...);
      parts_.draw();
    };
  };
  const auto telling = [this](auto work) {
    return [this, work] {
      auto said = work();
      parts_.draw();
      return said;
    };
  };
  frm_ = std::make_unique<FrmRush>(
      RushState{states.window.frame, states.window.stats, states.window.sliders, states.window.totals,
                states.window.keys, states.history, parts_.queue.state().glance},
      RushActs{.Buildtabs = act([&desk](int tab) { desk.Buildtabs(tab); }),
               .clipKey = act([&desk](ClipKey key) { desk.press(key); }),
               .transition = act([&links, &desk] {
                 desk.Buildtabs(kTransitionTab);
                 links.transition().chooseCut(false);
               }),
               .moveRate = act([&desk](int hundredths) { desk.moveRate(hundredths); }),
               .rateLetGo = act([&desk] { desk.letGoRate(); }),
               .moveLevel = act([&desk](int tenths) { desk.moveLevel(tenths); }),
               .jog = act([&desk](int pictures) { desk.jog(pictures); }),
               .goInHistory = act([&links](int steps) { links.goInHistory(steps); }),
               .zoom = act([&links](double part) { links.hand().setZoomPart(part); }),
               .wholeMovie = act([&links] { links.hand().whole(); }),
               .keepTimelineHeight = [&links](int pixels) { links.keepTimelineHeight(pixels); },
               .preview = act([&links] { links.preview().playOrPauseMovie(); }),
               .renderToFile = act([&render] { render.Rendertofile(); }),
               .save = telling([&desk] { return desk.saveAgain(); }),
               .saveAs = telling([&desk] { return desk.saveProject(); }),
               .stop = act([&links] { links.stop(); }),
               .close = act([&desk, &render] {
                 if (render.mayEnd()) desk.Form_QueryUnload();
               }),
               .showQueue = act([&queue = parts_.queue] { queue.show(); })},
      WindowPlace(parts_.store, parts_.desktop, "EditorWindowPlace"), parts_.pictures);
  keyframes_ = std::make_unique<FrmKeyframe>(
      states.keyframes, pageLogic(),
      FrmKeyframe::Doors{.showFrame = [&links](Long frame) { links.showClipFrame(frame); },
                         .goInHistory = [&links](int steps) { return links.goInHistory(steps); },
                         .picture = [this](int clipNo) { return pictureOf(clipNo); },
                         .picturePlace = [this] { return preview_->picturePlace(); }});
  analysing_ =
      std::make_unique<FrmAnalysing>(states.window.analysing, act([&desk] { desk.stopAnalysing(); }));
  for (QWidget* window : std::initializer_list<QWidget*>{frm_.get(), keyframes_.get()})
    hands_.push_back(std::make_unique<HandWatch>(*window, [&desk](bool held) { desk.hold(held); }));
  makePreview();
  makeTimeline();
  makeRender();
}

PageLogic EditorWindow::pageLogic() {
  return {parts_.links.editing(), parts_.links.desk(), [this] { parts_.draw(); }};
}

// A page is made when its tab is opened for the first time: all of them at once would take too long.
void EditorWindow::makePage(int tab) {
  if (std::exchange(hasPage_[static_cast<std::size_t>(tab - 1)], true)) return;
  auto& links = parts_.links;
  auto& states = links.states();
  const auto set = [&](auto* page) { frm_->setPage(tab, page, [page] { page->draw(); }); };
  const auto picture = [this](int clipNo) { return pictureOf(clipNo); };
  const auto drawn = [this](auto work) {
    return [this, work] {
      work();
      parts_.draw();
    };
  };
  switch (tab) {
    case 1:
      return set(
          made<CreatePage>(states.create, states.window.frame, links.create(),
                           CreatePage::Acts{.preview = drawn([&links] { links.preview().PrepPreview(); }),
                                            .renderToFile = drawn([this] { parts_.render.Rendertofile(); }),
                                            .save = drawn([&links] { links.desk().saveProject(); }),
                                            .help = [&links] { links.desk().Cmd_Help(); },
                                            .quit = drawn([&links] { links.desk().Form_QueryUnload(); }),
                                            .acted = [this] { parts_.draw(); }},
                           frm_.get()));
    case 2:
      return set(made<AudioPage>(states.audio, pageLogic(), frm_.get()));
    case 3:
      return set(made<TransitionPage>(
          TransitionPage::Logic{
              states.transition, links.transition(), parts_.session.collection, transitions_,
              [this] {
                return parts_.dialogs.open({"Mask", {{"Pictures (*.jpg)", "*.jpg *.jpeg"}}, {}, {}})
                    .value_or("");
              },
              [this] { parts_.draw(); }},
          frm_.get()));
    case 4:
      return set(made<EffectPage>(
          states.effect, pageLogic(), EffectPage::Choice{links.effectNames(), effects_},
          [&links] { links.showKeyframes(); }, frm_.get()));
    case 5:
      return set(made<StillsPage>(states.stills, pageLogic(), picture, frm_.get()));
    case 6:
      return set(made<ColorPage>(
          states.color, pageLogic(),
          ColorPage::Pictures{.before = picture, .after = [this](int clipNo) { return withColours(clipNo); }},
          frm_.get()));
    default: {
      auto* page = made<OverlayPage>(states.overlay, pageLogic(), frm_.get());
      page->render = drawn([this] { parts_.render.RenderPinP(); });
      return set(page);
    }
  }
}

void EditorWindow::makePreview() {
  auto& links = parts_.links;
  auto& preview = links.preview();
  auto& state = links.states().preview;
  const auto key = [this, &preview](PreviewEngine::Key which) {
    return [this, &preview, which] {
      preview.PreviewtransPort(which);
      parts_.draw();
    };
  };
  using Key = PreviewEngine::Key;
  auto* picture = preview_ = made<PreviewPart>(state, frm_.get());
  auto* row =
      made<PositionRowPart>(state,
                            PositionActs{.toStart = key(Key::ToStart),
                                         .stepBack = key(Key::StepBack),
                                         .playOrPause = key(Key::PlayOrPause),
                                         .stepForward = key(Key::StepForward),
                                         .toEnd = key(Key::ToEnd),
                                         .holdRange = [&preview](bool held) { preview.holdRange(held); },
                                         .moveRange =
                                             [this, &preview](double seconds) {
                                               preview.moveRange(seconds);
                                               parts_.draw();
                                             }},
                            frm_.get());
  frm_->setPreview(picture, row, [picture, row] {
    picture->draw();
    row->draw();
  });
}

void EditorWindow::makeTimeline() {
  auto& links = parts_.links;
  timeline_ = made<TimelineView>(
      TimelineView::Logic{links.states().timeline, links.hand(), parts_.sketches, [this] { parts_.draw(); }},
      frm_.get());
  frm_->setTimeline(timeline_, [this] { timeline_->draw(); });
}

void EditorWindow::makeRender() {
  auto& links = parts_.render;
  auto& render = links.render();
  auto& queue = parts_.queue;
  const auto act = [this](auto work) {
    return [this, work](auto... given) {
      work(given...);
      parts_.draw();
    };
  };
  const auto& collection = parts_.session.collection;
  auto* card = made<RenderCard>(
      links.state(), queue.state(),
      RenderActs{.chooseKind = act([&render](OutputKind kind) { render.chooseKind(kind); }),
                 .chooseProfile = act([&render](int row) { render.chooseProfile(row); }),
                 .tickCodecDimensions = act([&render](bool on) { render.tickCodecDimensions(on); }),
                 .chooseMadeFor = act([&render](int row) { render.chooseMadeFor(row); }),
                 .wishMegabytes = act([&render](int megabytes) { render.wishMegabytes(megabytes); }),
                 .tickHardware = act([&render](bool on) { render.tickHardware(on); }),
                 .write = act([&links] { links.write(); }),
                 .addToQueue = act([&links] { links.addToQueue(); }),
                 .queue = {.choose = act([&queue](int row) { queue.choose(row); }),
                           .act = act([&queue] { queue.act(); }),
                           .remove = act([&queue] { queue.remove(); }),
                           .move = act([&queue](int place) { queue.move(place); }),
                           .openFolder = act([&queue] { queue.openFolder(); })},
                 .writePair = act([&links] { links.writePair(); }),
                 .abort = act([&links] { links.abort(); }),
                 .view = act([&links] { links.view(); }),
                 .leave = act([&render] { render.leave(); })},
      [this, &collection](int clipNo) { return pictureOf(clipNo == 0 ? collection.icurMov : clipNo); },
      frm_.get());
  frm_->setRender(card, [card, &links] {
    card->draw();
    return links.state().frame != RenderFrame::None;
  });
}

std::shared_ptr<const FramePicture> EditorWindow::sketchOf(int clipNo) const {
  const auto& clips = parts_.session.collection.MovieList;
  if (clipNo < 1 || clipNo > clips.count()) return nullptr;
  const auto& clip = clips[clipNo];
  return parts_.sketches.picture(clipFile(clip), clip.IsStill() ? 0 : clip.LoopStart().number())
      .value_or(nullptr);
}

const QImage& EditorWindow::kept(ShownPicture& shown, const std::shared_ptr<const FramePicture>& picture) {
  if (shown.picture == picture) return shown.image;
  shown = {picture, {}};
  if (picture != nullptr) {
    shown.image = imageOver(*picture).copy();
  }
  return shown.image;
}

QImage EditorWindow::pictureOf(int clipNo) {
  if (pictures_.size() > kMostPictures) pictures_.clear();
  return kept(pictures_[clipNo], sketchOf(clipNo));
}

// As large as the picture that it stands beside.
QImage EditorWindow::withColours(int clipNo) {
  const auto beside = sketchOf(clipNo);
  if (beside == nullptr) return {};
  constexpr int kEven = 2;
  return kept(coloured_, colours_.of(clipNo, beside->width / kEven * kEven, beside->height / kEven * kEven));
}

}  // namespace kvo
