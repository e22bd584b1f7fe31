// The window that shows web pages: an address, the way back and forward, and the page.
#pragma once

#include "ui/web_view.h"
#include "windows/place/window_place.h"

#include <QCoreApplication>
#include <QWidget>
#include <functional>
#include <memory>

class QLineEdit;
class QToolButton;

namespace kvo {

class ProgressBar;

/// What the user types for an address: a web address, a file by its full path, or a host with no scheme.
/// Empty for what is none of these: nothing else is opened.
QUrl pageAddress(const QString& typed);

class WebWindow : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(kvo::WebWindow)

 public:
  using Make = std::function<std::unique_ptr<WebView>(QWidget* parent)>;

  /// `make` makes the page's view. `closed` is called when the user has closed the window.
  WebWindow(const Make& make, WindowPlace place, std::function<void()> closed);
  ~WebWindow() override;

  /// False when there is no view to show it in.
  bool open(const QUrl& address);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QToolButton* key(const QString& icon, const QString& name, const QKeySequence& shortcut,
                   std::function<void()> act);
  void draw();

  WindowPlace place_;
  std::function<void()> closed_;
  QToolButton* back_;
  QToolButton* forward_;
  QToolButton* reload_;
  QToolButton* close_;
  QLineEdit* address_;
  ProgressBar* progress_;
  std::unique_ptr<WebView> view_;
};

}  // namespace kvo
