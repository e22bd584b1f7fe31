#include "windows/main/skinned_face.h"

#include "base/numbers.h"
#include "playback/display/layout.h"
#include "program/face_parts.h"
#include "ui/compositing.h"
#include "ui/cool_list_view.h"
#include "ui/logo.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/main/create_movie_key.h"
#include "windows/main/details_part.h"
#include "windows/main/empty_pane_part.h"
#include "windows/main/glass_part.h"
#include "windows/main/hover_part.h"
#include "windows/main/list_part.h"
#include "windows/main/loading_part.h"
#include "windows/main/picture_part.h"
#include "windows/main/slider_part.h"
#include "windows/main/summary_part.h"
#include "windows/main/title_rail_part.h"
#include "windows/main/transport_acts.h"
#include "windows/main/volume_part.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPainter>
#include <utility>

namespace kvo {
namespace {

constexpr QRectF kSpine(0, 0, 22, 410);
constexpr QRectF kSideLine(22, 0, 1, 410);
constexpr QRectF kSideShade(23, 0, 1, 410);

// From a colour with red in the low byte, light enough to be read on a plate.
Rgb readableColour(ColorRef colour) { return readableOn(token("plate"), colourOf(colour).rgb() & 0xFFFFFFU); }

}  // namespace

SkinnedFace::SkinnedFace(MainWindowState& state, const Logic& logic, WindowActs& acts, SkinFace& skin,
                         ImageList1& images, const std::string& folder, std::function<void()> acted)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      state_(state),
      logic_(logic),
      skin_(skin),
      images_(images),
      acted_(std::move(acted)),
      shaped_(*this) {
  setAttribute(Qt::WA_TranslucentBackground);
  setFocusPolicy(Qt::ClickFocus);
  makeParts(acts, folder);
  setTabOrder();
  auto always = keys_->windowKeys();
  always.push_back(loading_);
  acts.serve(*this, always);
}

SkinnedFace::~SkinnedFace() {
  if (skin_.outline().region().Applied(shaped_)) skin_.outline().region().Applied(shaped_, false);
}

KeysPart::Acts SkinnedFace::keyActs(WindowActs& acts) {
  const auto speed = [this](std::string_view rate) {
    return [this, rate] {
      logic_.positions.remote.rate(rate);
      acted_();
    };
  };
  return {.play = [this] { press(logic_.transport, false); },
          .pause =
              [this] {
                logic_.transport.Lbl_PauseGraphic_Click();
                acted_();
              },
          .playRight = [this] { press(logic_.transport, true); },
          .speed025 = speed("0.25"),
          .speed05 = speed("0.50"),
          .speed02 = speed("2.0"),
          .size = [this, &acts] { acts.openZoomMenu(mapToGlobal(keys_->sizeFoot()), *this); },
          .playAll =
              [this] {
                logic_.transport.playAll();
                acted_();
              },
          .mini =
              [this] {
                logic_.display.Lbl_MiniMode_Click();
                acted_();
              },
          .minimise = [this] { showMinimized(); },
          .close = [this] { close(); },
          .steps = stepActs(logic_.positions.stepping, [this] { acted_(); })};
}

void SkinnedFace::makeParts(WindowActs& acts, const std::string& folder) {
  rail_ =
      made<TitleRailPart>(TitleRailPart::State{state_.face, state_.history, state_.queue},
                          TitleRailPart::Acts{[this, &acts](const QPoint& at) { acts.openMenu(at, *this); },
                                              act([this] { logic_.history.undo(); }),
                                              act([this] { logic_.history.redo(); }), act(logic_.showQueue)},
                          this);
  list_ = made<ListPart>(state_.list, state_.listKeys,
                         ListPart::Logic{logic_.list, logic_.rows, logic_.mailbox, logic_.addMedia,
                                         [this, &acts](const QPoint& at) { acts.openSortMenu(at, *this); },
                                         [this, &acts](const QPoint& at) { acts.openListMenu(at, *this); },
                                         [&acts](const QString& typed) { return acts.key(typed); },
                                         [this] { logic_.transport.Img_Play_Click(); }, acted_},
                         folder + "Buttons/", this);
  makePictures();
  collection_ = made<CollectionDetailsPart>(state_.collectionDetails, this);
  position_ = made<PositionPart>(state_.details, state_.positions.markers,
                                 act([this] { logic_.positions.markers.open(); }), this);
  createMovie_ = made<CreateMovieKey>(state_.menu, this);
  connect(createMovie_, &QAbstractButton::clicked, [&acts] { acts.choose(MenuCommand::CreateMovie); });
  details_ = made<DetailsPart>(state_.details, act(logic_.showCodec), this);
  makeSlider(folder);
  glass_ = made<GlassPart>(
      state_,
      GlassPart::Acts{act([this] { logic_.positions.positioner.Pic_DigNumbers_Click(); }),
                      act([this] { logic_.positions.rate.Lbl_Speedo_Click(); }),
                      act([this] { logic_.positions.levels.showLevel(); }), act(logic_.showStream)},
      this);
  keys_ = std::make_unique<KeysPart>(state_.buttons, images_, keyActs(acts), folder, this);
  volume_ = made<VolumePart>(
      state_.display,
      [this](int percent) {
        logic_.list.setVolume(percent);
        acted_();
      },
      this);
  makeEmptyPane(folder);
  loading_ = made<LoadingPart>(
      state_.progress, [this] { showParts(); }, this);
}

void SkinnedFace::makePictures() {
  picture_ = made<PicturePart>(state_, logic_.pictures, this);
  largePicture_ = made<LargePicturePart>(state_, logic_.pictures, this);
  for (auto* box : {&picture_->box(), &largePicture_->box()}) {
    box->offerResume(act([this] { logic_.resume.take(); }));
    box->whenClicked([this](Qt::MouseButton button) {
      logic_.transport.pictureClicked(pictureButton(button));
      acted_();
    });
  }
}

void SkinnedFace::makeSlider(const std::string& folder) {
  const auto look = [this](std::optional<double> seconds) {
    picture_->box().lookAt(seconds);
    largePicture_->box().lookAt(seconds);
  };
  const SliderPart::Acts slides{{logic_.positions.marks, [this] { acted_(); },
                                 [this](double part) {
                                   logic_.hover.over(part);
                                   drawHover();
                                 },
                                 [this] {
                                   logic_.hover.left();
                                   drawHover();
                                 }},
                                [look](double seconds) { look(seconds); },
                                [look] { look(std::nullopt); }};
  slider_ = made<SliderPart>(state_.slider, slides, folder + "Parts/", this);
  hover_ = made<HoverPart>(state_.hover, this);
}

void SkinnedFace::makeEmptyPane(const std::string& folder) {
  empty_ = made<EmptyPanePart>(state_.emptyPane, folder + "Parts/", this);
  empty_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(empty_, &QWidget::customContextMenuRequested, act(logic_.addMedia));
  connect(empty_, &QAbstractButton::clicked, act(logic_.addMedia));
}

void SkinnedFace::press(Transport& transport, bool right) {
  pressPlay(transport, right);
  acted_();
}

void SkinnedFace::showVideo(VideoFeed& feed) {
  picture_->box().showVideo(feed);
  largePicture_->box().showVideo(feed);
}

void SkinnedFace::setTabOrder() {
  std::vector<QWidget*> order = rail_->tabOrder();
  const auto add = [&](const std::vector<QWidget*>& more) {
    order.insert(order.end(), more.begin(), more.end());
  };
  add({empty_});
  add(list_->tabOrder());
  add({createMovie_, position_->indexKey()});
  add(details_->tabOrder());
  add(slider_->tabOrder());
  add(glass_->tabOrder());
  add({volume_});
  add(keys_->tabOrder());
  for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void SkinnedFace::layOut() {
  const FaceScale scale(state_.mode.interfaceSize, logicalDpiY());
  if (scale == scale_ && pixelRatio_ == devicePixelRatio()) return;
  scale_ = scale;
  pixelRatio_ = devicePixelRatio();
  const auto size = scale_.window(kFaceWidth / kTwipsPerPixel, kFaceHeight / kTwipsPerPixel);
  setFixedSize(size);
  skin_.resize({size, scale_.size(), pixelRatio_});
  rail_->layOut(scale_);
  list_->layOut(scale_);
  picture_->layOut(scale_);
  largePicture_->layOut(scale_);
  collection_->layOut(scale_);
  position_->layOut(scale_);
  createMovie_->layOut(scale_);
  details_->layOut(scale_);
  slider_->layOut(scale_);
  hover_->layOut(scale_);
  glass_->layOut(scale_);
  keys_->layOut(scale_);
  volume_->layOut(scale_, keys_->volumeCorner());
  empty_->layOut(scale_);
  loading_->layOut(scale_);
  ground_ = QPixmap();
  shape();
}

void SkinnedFace::draw() {
  layOut();
  drawParts();
  showParts();
  if (std::exchange(skinRevision_, state_.skin.revision) != state_.skin.revision) {
    ground_ = QPixmap();
    shape();
  }
  if (std::exchange(keysRevision_, state_.buttons.revision) != state_.buttons.revision) {
    keys_->draw();
    volume_->layOut(scale_, keys_->volumeCorner());
    ground_ = QPixmap();
  }
  if (ground_.isNull()) update();
  if (std::exchange(waits_, state_.skin.SkinBusy) != waits_)
    waits_ ? setCursor(Qt::WaitCursor) : unsetCursor();
}

void SkinnedFace::drawParts() {
  const auto colour = readableColour(state_.skin.DisplayColor);
  rail_->draw();
  list_->draw(colour);
  picture_->draw();
  largePicture_->draw();
  collection_->draw();
  position_->draw(colour, state_.mode.panels.Lbl_Pos.visible);
  createMovie_->draw();
  details_->draw(colour);
  slider_->draw();
  drawHover();
  glass_->draw(colour);
  volume_->draw();
  empty_->draw();
  empty_->setEnabled(state_.face.controlsEnabled);
  loading_->draw();
  keys_->setAnyClip(state_.menu.clipsEnabled);
  keys_->setRate(ToNumber(state_.display.rate));
  keys_->setStepTips(state_.transport.tips);
  keys_->setMiniTip(plainTip(told(state_.mode.toolbar[HitLabel::Lbl_MiniMode].toolTip)));
}

void SkinnedFace::drawHover() { hover_->drawOver(slider_->mapTo(this, slider_->over(state_.hover.part))); }

void SkinnedFace::showParts() {
  const bool loading = !loading_->isHidden();
  if (loading && focusBefore_ == nullptr) focusBefore_ = focusWidget();
  const auto parts = faceParts(state_, loading);
  showPart(*empty_, parts.empty);
  showPart(*list_, parts.list);
  showPart(*picture_, parts.picture);
  showPart(*largePicture_, parts.largePicture);
  for (auto* part : std::initializer_list<QWidget*>{collection_, position_, createMovie_})
    showPart(*part, parts.collection);
  showPart(*details_, parts.picture);
  if (loading) return loading_->setFocus();
  if (const auto before = std::exchange(focusBefore_, nullptr); before != nullptr) {
    before->isVisibleTo(this) && before->isEnabled() ? before->setFocus() : setFocus();
  }
  if (focusWidget() != nullptr && focusWidget() != this) return;
  if (!list_->isHidden()) list_->list().setFocus();
  if (!empty_->isHidden()) empty_->setFocus();
  // Else Qt takes the first key of all when the window becomes active, and the list never gets its keys.
  if (focusWidget() == nullptr) setFocus();
}

// The keyboard of a part that goes is the window's, and not that of whatever is next in the order of Tab.
void SkinnedFace::showPart(QWidget& part, bool shown) {
  if (!shown && focusWidget() != nullptr && (&part == focusWidget() || part.isAncestorOf(focusWidget())))
    setFocus();
  part.setVisible(shown);
}

void SkinnedFace::shape() { skin_.outline().region().Applied(shaped_, true); }

void SkinnedFace::paintSpine(QPainter& painter) const {
  cLogo logo;
  logo.Caption = shown(state_.skin.logoCaption);
  logo.DrawingObject = &painter;
  logo.box = scale_.place(kSpine);
  logo.StartColor = colourOf(state_.skin.logoStart);
  logo.EndColor = colourOf(state_.skin.LogoColor);
  logo.interfaceSize = scale_.size();
  logo.Draw();
  painter.fillRect(scale_.place(kSideLine), colourOf(state_.skin.LogoColor));
  painter.fillRect(scale_.place(kSideShade), QColor(0, 0, 0, 140));
}

void SkinnedFace::paintGround() {
  ground_ = QPixmap(size() * pixelRatio_);
  ground_.setDevicePixelRatio(pixelRatio_);
  ground_.fill(Qt::transparent);
  QPainter painter(&ground_);
  skin_.PaintPicture(painter, state_.skin.picture);
  if (state_.mode.panels.picLogo) paintSpine(painter);
  skin_.outline().paintRim(painter);
  keys_->paint(painter);
  if (hasCompositor()) skin_.outline().soften(painter);
}

void SkinnedFace::moveEvent(QMoveEvent* /*event*/) {
  logic_.display.Form_Move({x(), y(), width(), height()});
}

void SkinnedFace::paintEvent(QPaintEvent* event) {
  if (ground_.isNull()) paintGround();
  QPainter painter(this);
  painter.setClipRegion(event->region());
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawPixmap(0, 0, ground_);
}

bool SkinnedFace::event(QEvent* event) {
  if (event->type() == QEvent::ScreenChangeInternal) draw();
  return QWidget::event(event);
}

}  // namespace kvo
