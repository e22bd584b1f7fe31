#include "windows/render/work_page.h"

#include "render/work_view.h"
#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"
#include "windows/render/fact_rows.h"
#include "windows/render/film_strip.h"
#include "windows/render/picture_pane.h"
#include "windows/render/render_pie.h"

#include <QLabel>
#include <QPushButton>

namespace kvo {
namespace {

constexpr int kWorkLeft = 386;
constexpr QRect kWorkPie(70, 80, RenderPieBar::kSide, RenderPieBar::kSide);
constexpr FactRows::Form kWorkFacts{372, 24, 110};
// Who gets the room of a larger card: the words, and the picture beside them.
constexpr Share kWordsGrow{0, 0, 35, 0};
constexpr Share kPictureGrows{35, 0, 65, 100};
constexpr Share kFilmGrows{0, 100, 100, 0};
constexpr Share kBelowFilm{0, 100, 0, 0};

}  // namespace

WorkPage::WorkPage(const RenderState& state, const RenderActs& acts, const PictureOfClip& picture,
                   QWidget* parent)
    : EditorPage(parent, kPlace, "plain"),
      state_(state),
      Picture2_(put(made<RenderPieBar>(this), kWorkPie, {0, 50, 0, 0})),
      headline_(write({}, "title", {kWorkLeft, 40, 372, 26}, kWordsGrow)),
      below_(write({}, "field", {kWorkLeft, 68, 372, 34}, kWordsGrow)),
      facts_(put(made<FactRows>(kWorkFacts, this), {kWorkLeft, 108, 372, 192}, kWordsGrow)),
      pane_(put(made<PicturePane>(tr("The picture being made"), this), {774, 44, 184, 138}, kPictureGrows)),
      film_(put(made<FilmStrip>(picture, this), {kWorkLeft, 282, 572, 40}, kFilmGrows)),
      KVOBut_AbortRender_(makeKey(tr("Abort"), "danger", {kWorkLeft, 334, 150, 34})),
      view_(makeKey(tr("View Movie"), "primary", {kWorkLeft, 334, 150, 34})),
      back_(makeKey(tr("Back to editing"), "quiet", {kWorkLeft + 160, 334, 150, 34})),
      live_(write(tr("The window stays live while the engine works."), "hint",
                  {kWorkLeft + 168, 342, 400, 18}, kBelowFilm)),
      notes_(write({}, "hint", {kWorkLeft, 216, 572, 66}, {0, 0, 100, 100})) {
  setFocusPolicy(Qt::ClickFocus);
  setAccessibleName(tr("The movie being made"));
  Picture2_->setAccessibleName(tr("How much is done"));
  notes_->setWordWrap(true);
  notes_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  below_->setWordWrap(true);
  below_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  KVOBut_AbortRender_->setToolTip(tr("End it; no movie is made"));
  view_->setToolTip(tr("Add the movie to the collection and play it"));
  connect(KVOBut_AbortRender_, &QPushButton::clicked, [&acts] { acts.abort(); });
  connect(view_, &QPushButton::clicked, [&acts] { acts.view(); });
  connect(back_, &QPushButton::clicked, [&acts] { acts.leave(); });
}

QPushButton* WorkPage::makeKey(const QString& text, const char* kind, const QRect& place) {
  auto* key = put(made<QPushButton>(text, this), place, kBelowFilm);
  key->setProperty("kind", kind);
  return key;
}

QWidget* WorkPage::first() {
  const auto view = workView(state_);
  if (!view.isDone) return this;
  return view.canView ? view_ : back_;
}

void WorkPage::setIcons() {
  if (std::exchange(iconSide_, themed(16)) == themed(16)) return;
  const auto set = [this](QPushButton* key, const char* icon, Rgb colour) {
    key->setIconSize({iconSide_, iconSide_});
    key->setIcon(QIcon(iconPicture(icon, colour, iconSide_, devicePixelRatio())));
  };
  set(KVOBut_AbortRender_, "abort", token("dangerText"));
  set(view_, "play", token("onTeal"));
}

void WorkPage::draw() {
  setIcons();
  const auto view = workView(state_);
  Picture2_->draw(view.pie, shown(view.pieOf), view.isDone);
  setTextOf(*headline_, shown(view.headline));
  setTextOf(*below_, shown(view.below));
  facts_->draw(state_.facts);
  pane_->draw(state_.picture);
  pane_->setVisible(view.showsFilm);
  film_->draw(state_, state_.frame == RenderFrame::Rendering);
  film_->setVisible(view.showsFilm);
  KVOBut_AbortRender_->setVisible(!view.isDone);
  KVOBut_AbortRender_->setEnabled(view.canAbort);
  live_->setVisible(!view.isDone);
  view_->setVisible(view.canView);
  back_->setVisible(view.isDone);
  QStringList notes;
  for (const auto& note : state_.notes) notes << shown(note);
  setTextOf(*notes_, notes.join("\n"));
  setTipOf(*notes_, notes.join("\n"));
  notes_->setVisible(view.isDone);
}

}  // namespace kvo
