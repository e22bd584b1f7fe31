// The window for web pages: about a view that a test moves, and about the real one where there is a user to
// run it.
#include "adapters/posix/posix_machine.h"
#include "support/memory_store.h"
#include "support/plain_desktop.h"
#include "support/real_world.h"
#include "windows/named_parts.h"
#include "windows/web/web_module.h"
#include "windows/web/window_pages.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include <gtest/gtest.h>

#ifdef KVO_WEB_MODULE
// The web engine of Debian 12 frees some of its own objects as their base class, and keeps some until the
// process ends: no faults of ours.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "new_delete_type_mismatch=0"; }
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libQt6WebEngineCore"; }
#endif

namespace kvo {
namespace {

struct HeldView : WebView {
  explicit HeldView(QWidget* parent) : page(parent) {}
  QWidget page;
  WebPageState now;
  std::string calls;
  std::function<void()> heard;
  QWidget& widget() override { return page; }
  void load(const QUrl& address) override {
    calls += "load " + address.toString().toStdString() + " ";
    now.address = address;
  }
  void back() override { calls += "back "; }
  void forward() override { calls += "forward "; }
  void reload() override { calls += "reload "; }
  void stop() override { calls += "stop "; }
  [[nodiscard]] WebPageState state() const override { return now; }
  void whenChanged(std::function<void()> tell) override { heard = std::move(tell); }
};

struct PagesBench {
  HeldView* view = nullptr;
  int closed = 0;
  test::MemoryStore store;
  test::PlainDesktop desktop;
  WindowPages pages{[this](QWidget* parent) {
                      auto made = std::make_unique<HeldView>(parent);
                      view = made.get();
                      return made;
                    },
                    {store, desktop, "WebWindowPlace"}};
  PagesBench() {
    pages.whenClosed([this] { ++closed; });
  }
  [[nodiscard]] QWidget& window() const { return *view->page.window(); }
  [[nodiscard]] QToolButton& key(const char* name) const { return *test::named<QToolButton>(window(), name); }
};

TEST(WebPages, AreShownSteeredAndClosed) {
  PagesBench b;
  ASSERT_TRUE(b.pages.show("http://127.0.0.1:9/a", true));
  EXPECT_EQ(b.window().windowModality(), Qt::ApplicationModal);
  EXPECT_FALSE(b.key("Back").isEnabled());
  b.view->now = {QUrl("http://127.0.0.1:9/a"), "A page", 40, false, true, true};
  b.view->heard();
  EXPECT_EQ(b.window().windowTitle(), "A page");
  b.key("Stop").click();
  b.view->now.loaded = 100;
  b.view->heard();
  for (const auto* name : {"Back", "Forward", "Reload"}) b.key(name).click();
  auto& address = *b.window().findChild<QLineEdit*>();
  EXPECT_EQ(address.text(), "http://127.0.0.1:9/a");
  for (const auto* typed : {"javascript:alert(1)", "example.org"}) {
    address.setText(typed);
    QTest::keyClick(&address, Qt::Key_Return);
  }
  EXPECT_EQ(b.view->calls, "load http://127.0.0.1:9/a stop back forward reload load http://example.org ");
  ASSERT_TRUE(b.pages.show("/v/page one.htm", false));
  EXPECT_EQ(b.window().windowModality(), Qt::NonModal);
  EXPECT_TRUE(b.view->calls.ends_with("load file:///v/page one.htm ")) << "in the same window";
  b.key("Close").click();
  EXPECT_EQ(b.closed, 1);
  b.pages.close();
  EXPECT_EQ(b.closed, 1) << "who closes it himself is not told";
  ASSERT_TRUE(b.pages.show("http://127.0.0.1:9/a", false));
  b.window().setGeometry(300, 200, 640, 400);
  b.pages.close();
  ASSERT_TRUE(b.pages.show("http://127.0.0.1:9/a", false));
  EXPECT_EQ(b.window().geometry(), QRect(300, 200, 640, 400)) << "a new one stands where the last one did";
}

TEST(WebPages, AreRefusedWhereNothingCanShowThem) {
  PagesBench b;
  WindowPages none([](QWidget*) { return std::unique_ptr<WebView>(); }, {b.store, b.desktop, ""});
  EXPECT_FALSE(none.show("http://127.0.0.1:9/a", false));
  WebModule missing("/nowhere/KVOWeb.so", [] { return true; });
  EXPECT_EQ(missing.makeView(nullptr), nullptr);
  EXPECT_FALSE(b.pages.show("javascript:alert(1)", false));
}

#ifdef KVO_WEB_MODULE
// As a user: as root the module is refused, and this program starts itself once more without its rights.
TEST(WebModule, ShowsARealPage) {
  if (::geteuid() == 0) {
    WebModule asRoot(KVO_WEB_MODULE, canShutIn);
    EXPECT_EQ(asRoot.makeView(nullptr), nullptr) << "its sandbox cannot hold root";
    test::ScratchFolder home;
    std::filesystem::permissions(home.path(), std::filesystem::perms::all);
    const auto end = test::runProgram(
        {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "env", "HOME=" + home.path(),
         "XDG_RUNTIME_DIR=" + home.path(), "QT_QPA_PLATFORM=offscreen",
         std::filesystem::read_symlink("/proc/self/exe"), "--gtest_filter=WebModule.ShowsARealPage"});
    if (end.out.find("[  SKIPPED ]") != std::string::npos) GTEST_SKIP() << end.out;
    EXPECT_EQ(end.exitCode, 0) << end.out << end.err;
    return;
  }
  test::ScratchFolder folder;
  std::ofstream(folder / "page.htm") << "<title>Lake</title><p>at dusk";
  WebModule module(KVO_WEB_MODULE, canShutIn);
  auto view = module.makeView(nullptr);
  if (view == nullptr) GTEST_SKIP() << "this machine gives users no name spaces: no page can be shut in";
  view->load(QUrl::fromLocalFile(QString::fromStdString(folder / "page.htm")));
  EXPECT_TRUE(QTest::qWaitFor([&] { return view->state().title == "Lake"; }, 60'000));
  EXPECT_FALSE(view->state().failed);
}
#endif

}  // namespace
}  // namespace kvo
