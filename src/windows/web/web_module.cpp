#include "windows/web/web_module.h"

#include <QByteArrayList>
#include <QCoreApplication>
#include <QFile>
#include <QOpenGLContext>
#include <utility>

// Qt's own word for the context that all others share with. Its public door is a switch ahead of the
// application, at which every start of the program would load the graphics driver for pages that nobody
// opens.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace kvo {
namespace {

// What would have the engine do without its sandbox.
void forgetSandboxSwitches() {
  qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
  QByteArrayList kept;
  for (const auto& flag : qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").split(' ')) {
    if (!flag.contains("sandbox")) kept << flag;
  }
  qputenv("QTWEBENGINE_CHROMIUM_FLAGS", kept.join(' '));
}

}  // namespace

WebModule::WebModule(const std::string& file, std::function<bool()> canShutIn)
    : library_(QString::fromStdString(file)), canShutIn_(std::move(canShutIn)) {}

WebModule::~WebModule() {
  if (shared_) qt_gl_set_global_share_context(nullptr);
}

// The engine looks at what is shared, which has to be there; where it could not be made, as on a screen
// without a graphics driver, the engine draws without one.
void WebModule::shareContexts() {
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  if (QOpenGLContext::globalShareContext() != nullptr) return;
  shared_ = std::make_unique<QOpenGLContext>();
  static_cast<void>(shared_->create());
  qt_gl_set_global_share_context(shared_.get());
}

std::unique_ptr<WebView> WebModule::makeView(QWidget* parent) {
  if (!library_.isLoaded()) {
    // The engine would end the whole program where it cannot shut itself in.
    if (!QFile::exists(library_.fileName()) || !canShutIn_()) return nullptr;
    shareContexts();
    forgetSandboxSwitches();
  }
  const auto make = reinterpret_cast<MakeWebView>(library_.resolve(kWebViewMaker));
  return std::unique_ptr<WebView>(make == nullptr ? nullptr : make(parent));
}

}  // namespace kvo
