#include "windows/render/fact_rows.h"

#include "ui/made.h"
#include "ui/texts.h"
#include "ui/theme.h"

#include <QLabel>

namespace kvo {
namespace {

constexpr int kFactHeight = 18;
constexpr int kFactNameWidth = 100;
constexpr Share kFactGrows{0, 0, 100, 0};
constexpr double kLeastFacts = 0.85;  // times its own width

}  // namespace

FactRows::FactRows(const Form& form, QWidget* parent)
    : EditorPage(parent, {form.width, form.pitch * static_cast<int>(kMost)}, "plain") {
  mayBe(1, 1, kLeastFacts);
  const int valueLeft = form.valueLeft > 0 ? form.valueLeft : kFactNameWidth;
  for (std::size_t i = 0; i < kMost; ++i) {
    const int top = form.pitch * static_cast<int>(i);
    names_[i] = write({}, "hint", {0, top, valueLeft - 4, kFactHeight});
    values_[i] = write({}, "detail", {valueLeft, top, form.width - valueLeft, kFactHeight}, kFactGrows);
    if (form.valueLeft == 0) values_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lines_[i] = put(made<QFrame>(this), {0, top + (form.pitch + kFactHeight) / 2, form.width, 1}, kFactGrows);
    lines_[i]->setProperty("role", "line");
  }
}

void FactRows::resizeEvent(QResizeEvent* event) {
  EditorPage::resizeEvent(event);
  elide();
}

void FactRows::elide() {
  for (auto* value : values_)
    setTextOf(*value, value->fontMetrics().elidedText(value->accessibleDescription(), Qt::ElideMiddle,
                                                      value->width()));
}

void FactRows::draw(const std::vector<RenderFact>& facts) {
  for (std::size_t i = 0; i < kMost; ++i) {
    const bool isThere = i < facts.size();
    names_[i]->setVisible(isThere);
    values_[i]->setVisible(isThere);
    lines_[i]->setVisible(isThere);
    if (!isThere) continue;
    setTextOf(*names_[i], told(facts[i].name));
    const auto value = shown(facts[i].value);
    values_[i]->setAccessibleName(names_[i]->text());
    if (values_[i]->accessibleDescription() != value) {
      values_[i]->setAccessibleDescription(value);
      setTipOf(*values_[i], value);
    }
  }
  elide();
}

}  // namespace kvo
