#include "windows/main/details_part.h"

#include "windows/main/widgets.h"

namespace kvo {
namespace {

constexpr int kGap = 8;  // pixels

}  // namespace

DetailsPart::DetailsPart(const DetailsState& state, QWidget* parent) : QLabel(parent), state_(state) {
  setContentsMargins(kGap, 0, 0, 0);
  setAlignment(Qt::AlignTop | Qt::AlignLeft);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void DetailsPart::draw() {
  setVisible(state_.visible);
  QString lines;
  for (const auto& [name, value] : state_.pairs) {
    if (!name.empty())
      lines += "<p><b>" + shown(name).toHtmlEscaped() + "</b><br>" + shown(value).toHtmlEscaped() + "</p>";
  }
  if (text() != lines) setText(lines);
}

}  // namespace kvo
