// Pages by Qt WebEngine: the module's one file. Cookies and caches go with the program; what a page wants to
// open in another window opens in this one.
#include "ui/web_view.h"

#include <QWebEngineHistory>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <utility>

namespace kvo {
namespace {

class OneWindowView : public QWebEngineView {
 public:
  using QWebEngineView::QWebEngineView;

 protected:
  QWebEngineView* createWindow(QWebEnginePage::WebWindowType /*type*/) override { return this; }
};

class EngineView : public WebView {
 public:
  explicit EngineView(QWidget* parent) : view_(parent) {
    view_.settings()->setAttribute(QWebEngineSettings::FullScreenSupportEnabled, false);
    QObject::connect(&view_, &QWebEngineView::loadStarted, [this] { progress(0, false); });
    QObject::connect(&view_, &QWebEngineView::loadProgress, [this](int per) { progress(per, false); });
    QObject::connect(&view_, &QWebEngineView::loadFinished, [this](bool well) { progress(100, !well); });
    QObject::connect(&view_, &QWebEngineView::urlChanged, [this] { tell(); });
    QObject::connect(&view_, &QWebEngineView::titleChanged, [this] { tell(); });
  }

  QWidget& widget() override { return view_; }
  void load(const QUrl& address) override { view_.load(address); }
  void back() override { view_.back(); }
  void forward() override { view_.forward(); }
  void reload() override { view_.reload(); }
  void stop() override { view_.stop(); }
  [[nodiscard]] WebPageState state() const override {
    return {view_.url(),
            view_.title(),
            loaded_,
            failed_,
            view_.history()->canGoBack(),
            view_.history()->canGoForward()};
  }
  void whenChanged(std::function<void()> heard) override { heard_ = std::move(heard); }

 private:
  void progress(int per, bool failed) {
    loaded_ = per;
    failed_ = failed;
    tell();
  }
  void tell() const {
    if (heard_) heard_();
  }

  int loaded_ = 100;
  bool failed_ = false;
  std::function<void()> heard_;
  OneWindowView view_;  // ends first, and may tell of its end
};

}  // namespace
}  // namespace kvo

extern "C" Q_DECL_EXPORT kvo::WebView* kvoMakeWebView(QWidget* parent) {
  return new kvo::EngineView(parent);  // NOLINT(cppcoreguidelines-owning-memory): the caller owns it
}
