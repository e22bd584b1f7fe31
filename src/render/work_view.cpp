#include "render/work_view.h"

#include "core/telling/translated.h"

namespace kvo {

int renderStep(RenderFrame frame) {
  switch (frame) {
    case RenderFrame::Estimate:
      return 2;
    case RenderFrame::Rendering:
      return 3;
    case RenderFrame::Report:
      return 5;
    default:
      return 1;
  }
}

WorkView workView(const RenderState& state) {
  WorkView view;
  view.isDone = state.frame == RenderFrame::Report;
  view.showsFilm = !view.isDone && !state.film.empty();
  view.canAbort = state.canAbort;
  view.canView = view.isDone && state.canView;
  view.pie = state.reached ? RenderPie{*state.reached, kPieRed} : state.pie;
  const bool ofTheMovie = state.reached || (state.countdown.empty() && state.pie.percent > 0);
  view.pieOf = translated(state.frame == RenderFrame::Estimate ? "of the sample"
                          : ofTheMovie                         ? "of the movie"
                                                               : "of the countdown");
  switch (state.frame) {
    case RenderFrame::Report:
      view.headline = state.completed;
      view.below = state.sizeLabel;
      return view;
    case RenderFrame::Estimate:
      view.headline = translated("Trying a short piece of your movie");
      view.below = translated(
          "It is rendered first, and tells how long the whole will take and how much disk it needs.");
      return view;
    default:
      view.headline = state.reached              ? translated("The engine has ended")
                      : !state.countdown.empty() ? state.countdown
                      : ofTheMovie               ? translated("The movie is being made")
                                                 : translated("The engine begins");
      view.below = state.summary;
      return view;
  }
}

}  // namespace kvo
