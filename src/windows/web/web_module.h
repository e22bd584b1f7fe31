// The module that draws web pages, loaded when the first one is wanted: the program starts as fast as without
// it, and runs where it is not installed.
#pragma once

#include "ui/web_view.h"

#include <QLibrary>
#include <QOpenGLContext>
#include <functional>
#include <memory>
#include <string>

namespace kvo {

class WebModule {
 public:
  /// `file` is the full path of the module, which need not be there. `canShutIn` tells whether a process of
  /// this user can be kept from the rest of the system.
  WebModule(const std::string& file, std::function<bool()> canShutIn);
  WebModule(const WebModule&) = delete;
  WebModule& operator=(const WebModule&) = delete;
  ~WebModule();

  /// A view in `parent`; null where there is no module, and where pages could not be shut in. Their sandbox
  /// is never off, whatever the environment says.
  std::unique_ptr<WebView> makeView(QWidget* parent);

 private:
  void shareContexts();

  QLibrary library_;
  std::function<bool()> canShutIn_;
  std::unique_ptr<QOpenGLContext> shared_;
};

}  // namespace kvo
