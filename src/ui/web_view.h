// A page as a widget, whoever draws it. The library that does is large and not everywhere, so it stands
// behind this face in a module that is loaded when the first page is wanted.
#pragma once

#include <QString>
#include <QUrl>
#include <functional>
#include <memory>

class QWidget;

namespace kvo {

struct WebPageState {
  QUrl address;
  QString title;
  int loaded = 100;  ///< per cent; 100 while nothing is on its way
  bool failed = false;
  bool canGoBack = false;
  bool canGoForward = false;
};

class WebView {
 public:
  WebView() = default;
  WebView(const WebView&) = delete;
  WebView& operator=(const WebView&) = delete;
  virtual ~WebView() = default;

  /// Owned by the view; lay it out, but give it to no other parent.
  virtual QWidget& widget() = 0;
  virtual void load(const QUrl& address) = 0;
  virtual void back() = 0;
  virtual void forward() = 0;
  virtual void reload() = 0;
  virtual void stop() = 0;
  [[nodiscard]] virtual WebPageState state() const = 0;
  /// Heard when the state is another.
  virtual void whenChanged(std::function<void()> heard) = 0;
};

/// What the module exports, with C linkage, by the name of kWebViewMaker.
using MakeWebView = WebView* (*)(QWidget* parent);
inline constexpr const char* kWebViewMaker = "kvoMakeWebView";

}  // namespace kvo
