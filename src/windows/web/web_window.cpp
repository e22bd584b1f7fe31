#include "windows/web/web_window.h"

#include "ui/made.h"
#include "ui/progress_bar.h"
#include "ui/theme.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QToolButton>
#include <utility>

namespace kvo {
namespace {

constexpr QSize kFirstSize(1024, 720);  // pixels
constexpr int kRoom = 8;
constexpr int kKeyGap = 3;

}  // namespace

QUrl pageAddress(const QString& typed) {
  auto url = QUrl::fromUserInput(typed.trimmed());
  for (const auto* scheme : {"http", "https", "file"}) {
    if (url.scheme() == scheme) return url;
  }
  return {};
}

WebWindow::WebWindow(const Make& make, WindowPlace place, std::function<void()> closed)
    : QWidget(nullptr, Qt::Window),
      place_(std::move(place)),
      closed_(std::move(closed)),
      back_(key("back", tr("Back"), QKeySequence::Back, [this] { view_->back(); })),
      forward_(key("forward", tr("Forward"), QKeySequence::Forward, [this] { view_->forward(); })),
      reload_(key("repeat", tr("Reload"), QKeySequence::Refresh,
                  [this] { view_->state().loaded < 100 ? view_->stop() : view_->reload(); })),
      close_(key("close", tr("Close"), QKeySequence::Close, [this] { close(); })),
      address_(made<QLineEdit>(this)),
      progress_(made<ProgressBar>(this)),
      view_(make(this)) {
  address_->setAccessibleName(tr("Address"));
  connect(address_, &QLineEdit::returnPressed, this, [this] {
    if (const auto url = pageAddress(address_->text()); url.isValid() && view_) view_->load(url);
  });
  progress_->setTextVisible(false);
  auto* bar = made<QHBoxLayout>();
  bar->setContentsMargins(kRoom, kRoom, kRoom, kRoom);
  bar->setSpacing(kKeyGap);
  for (auto* part : {back_, forward_, reload_}) bar->addWidget(part);
  bar->addWidget(address_, 1);
  bar->addWidget(close_);
  auto* rows = made<QVBoxLayout>(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addLayout(bar);
  rows->addWidget(progress_);
  if (view_) {
    rows->addWidget(&view_->widget(), 1);
    view_->whenChanged([this] { draw(); });
  }
  resize(kFirstSize);
  if (place_.isKept()) place_.restoreWithSize(*this);
}

WebWindow::~WebWindow() {
  if (view_) view_->whenChanged({});
}

QToolButton* WebWindow::key(const QString& icon, const QString& name, const QKeySequence& shortcut,
                            std::function<void()> act) {
  auto* key = made<QToolButton>(this);
  key->setProperty("kind", "quiet");
  key->setIcon(themeIcon(icon));
  key->setAccessibleName(name);
  key->setToolTip(name);
  key->setShortcut(shortcut);
  connect(key, &QToolButton::clicked, this, std::move(act));
  return key;
}

bool WebWindow::open(const QUrl& address) {
  if (!view_) return false;
  view_->load(address);
  view_->widget().setFocus();
  draw();
  return true;
}

void WebWindow::draw() {
  const auto page = view_->state();
  back_->setEnabled(page.canGoBack);
  forward_->setEnabled(page.canGoForward);
  const bool loading = page.loaded < 100;
  reload_->setIcon(themeIcon(loading ? "stop" : "repeat"));
  reload_->setToolTip(loading ? tr("Stop") : tr("Reload"));
  reload_->setAccessibleName(reload_->toolTip());
  progress_->setVisible(loading);
  progress_->setValue(page.loaded);
  if (!address_->hasFocus() || !address_->isModified()) address_->setText(page.address.toDisplayString());
  const auto title = page.title.isEmpty() ? page.address.toDisplayString() : page.title;
  setWindowTitle(page.failed ? tr("Page not found - %1").arg(title) : title);
}

void WebWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  if (closed_) closed_();
}

void WebWindow::hideEvent(QHideEvent* event) {
  place_.keep(*this, pos());
  QWidget::hideEvent(event);
}

}  // namespace kvo
