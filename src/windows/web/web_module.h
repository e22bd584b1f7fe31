// The module that draws web pages, loaded when the first one is wanted: the program starts as fast as without
// it, and runs where it is not installed.
#pragma once

#include "ui/web_view.h"

#include <QLibrary>
#include <QOpenGLContext>
#include <memory>
#include <string>

namespace kvo {

class WebModule {
 public:
  /// `file` is the full path of the module, which need not be there.
  explicit WebModule(const std::string& file);
  WebModule(const WebModule&) = delete;
  WebModule& operator=(const WebModule&) = delete;
  ~WebModule();

  /// A view in `parent`; null where there is no module, and where pages could not be shut in: as root, and
  /// on a system that gives users no name spaces. Their sandbox is never off, whatever the environment says.
  std::unique_ptr<WebView> makeView(QWidget* parent);

 private:
  void shareContexts();

  QLibrary library_;
  std::unique_ptr<QOpenGLContext> shared_;
};

}  // namespace kvo
