#include "render/options_view.h"

#include "core/telling/translated.h"
#include "render/output_kinds.h"
#include "render/output_profiles.h"
#include "render/render_texts.h"

namespace kvo {
namespace {

// A profile of the list without its blanks and its number.
OptionsView::Row listedProfile(const std::string& listed) {
  const int number = GetWMVRenderProfileInt(listed);
  const auto facts = GetProfileXYDimensions(number);
  return {profileText(number), facts ? sidesText(facts->size.width, facts->size.height) : std::string()};
}

}  // namespace

OptionsView optionsView(const RenderState& state) {
  OptionsView view;
  for (const auto& listed : state.Lst_WMVFormats) view.profiles.push_back(listedProfile(listed));
  for (const auto& row : state.Lst_MadeFor)
    view.purposes.push_back({translated(row.title.c_str()), row.size});
  const bool hasProfiles = !view.profiles.empty();
  const bool hasPicture = movieFileOf(state.kind).hasPicture;
  const auto& kind = kindRow(state.kind);
  view.caption = translated(hasProfiles ? "Profile" : view.purposes.empty() ? kind.title : "Made for");
  view.showsSizes = view.isListed() && hasPicture;
  view.told = hasProfiles ? state.profileDescription : state.madeForText;
  view.isTellingAlone = !view.purposes.empty() && !state.hasWishedSize && !state.offersHardware;
  if (!view.isListed()) view.hint = translated(kind.hint);
  view.offersOwnSize = hasProfiles && hasPicture;
  view.ownSize = state.codecSize.empty() ? translated("Use the size of the profile")
                                         : translated("Use the size of the profile, %1", {state.codecSize});
  return view;
}

}  // namespace kvo
