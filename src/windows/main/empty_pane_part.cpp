#include "windows/main/empty_pane_part.h"

#include "windows/main/widgets.h"

namespace kvo {

EmptyPanePart::EmptyPanePart(const EmptyPaneState& state, MediaCommands& media, std::function<void()> acted,
                             QWidget* parent)
    : QPushButton(parent), state_(state) {
  setFlat(true);
  setObjectName("emptyPane");
  setStyleSheet(
      "QPushButton#emptyPane { background: #1e2430; color: #d8dee9; font-size: 18px; border: none; }"
      "QPushButton#emptyPane:focus { border: 1px solid #88a0c8; }");
  setContextMenuPolicy(Qt::CustomContextMenu);
  const auto add = [&media, acted = std::move(acted)] {
    media.AddMedia();
    acted();
  };
  connect(this, &QWidget::customContextMenuRequested, add);
  connect(this, &QPushButton::clicked, add);
}

void EmptyPanePart::draw() { setText(state_.visible ? shown(state_.NoMediaPrompt) : QString()); }

}  // namespace kvo
