// What the page of a render's options shows beside the kinds: a list of profiles or of purposes, or words.
#pragma once

#include "render/render_state.h"

#include <string>
#include <vector>

namespace kvo {

/// Texts are composed.
struct OptionsView {
  struct Row {
    std::string name;
    std::string size;  ///< of the picture; empty where the row has none of its own
    bool operator==(const Row&) const = default;
  };
  std::string caption;          ///< of the list, or of the words in its place
  std::vector<Row> profiles;    ///< Lst_WMVFormats
  std::vector<Row> purposes;    ///< Lst_MadeFor; at most one of the two lists has rows
  bool showsSizes = false;      ///< the rows are of movies with a picture
  std::string told;             ///< of the chosen row, lines joined by CR LF
  bool isTellingAlone = false;  ///< nothing to be set stands below it
  std::string hint;             ///< in the place of a list
  bool offersOwnSize = false;   ///< Chk_UseCodecOutputDimensions is there
  std::string ownSize;          ///< its words

  [[nodiscard]] bool isListed() const { return !profiles.empty() || !purposes.empty(); }
};

[[nodiscard]] OptionsView optionsView(const RenderState& state);

}  // namespace kvo
