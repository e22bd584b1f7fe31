#include "app/web_module.h"

#include <QByteArrayList>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kvo {
namespace {

// Asks a child of our own to shut itself in: the engine would end the whole program if it could not.
bool canShutIn() {
  if (::geteuid() == 0) return false;
  const pid_t child = ::fork();
  if (child == 0) ::_exit(::unshare(CLONE_NEWUSER) == 0 ? 0 : 1);
  int status = 1;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

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

WebModule::WebModule(const std::string& file) : library_(QString::fromStdString(file)) {}

std::unique_ptr<WebView> WebModule::makeView(QWidget* parent) {
  if (!library_.isLoaded()) {
    if (!canShutIn()) return nullptr;
    forgetSandboxSwitches();
  }
  const auto make = reinterpret_cast<MakeWebView>(library_.resolve(kWebViewMaker));
  return std::unique_ptr<WebView>(make == nullptr ? nullptr : make(parent));
}

}  // namespace kvo
