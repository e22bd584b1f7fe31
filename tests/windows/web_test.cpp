// The window for web pages: about a view that a test moves, and about the real one where there is a user to
// run it.
#include "adapters/posix/posix_machine.h"
#include "support/real_world.h"
#include "ui/widget_bench.h"
#include "windows/web/web_module.h"
#include "windows/web/window_pages.h"

#include <QToolButton>
#include <filesystem>
#include <fstream>
#include <unistd.h>

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

struct ShownWebPages : testing::Test {
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
  ShownWebPages() {
    pages.whenClosed([this] { ++closed; });
  }
  [[nodiscard]] QWidget& window() const { return *view->page.window(); }
  [[nodiscard]] QToolButton& key(const char* name) const { return *test::named<QToolButton>(window(), name); }
};

TEST_F(ShownWebPages, AreShownSteeredAndClosed) {
  ASSERT_TRUE(pages.show("http://127.0.0.1:9/a", true));
  EXPECT_EQ(window().windowModality(), Qt::ApplicationModal);
  EXPECT_FALSE(key("Back").isEnabled());
  view->now = {QUrl("http://127.0.0.1:9/a"), "A page", 40, false, true, true};
  view->heard();
  EXPECT_EQ(window().windowTitle(), "A page");
  key("Stop").click();
  view->now.loaded = 100;
  view->heard();
  for (const auto* name : {"Back", "Forward", "Reload"}) key(name).click();
  auto& address = *window().findChild<QLineEdit*>();
  EXPECT_EQ(address.text(), "http://127.0.0.1:9/a");
  for (const auto* typed : {"javascript:alert(1)", "example.org"}) {
    address.setText(typed);
    QTest::keyClick(&address, Qt::Key_Return);
  }
  EXPECT_EQ(view->calls, "load http://127.0.0.1:9/a stop back forward reload load http://example.org ");
  ASSERT_TRUE(pages.show("/v/page one.htm", false));
  EXPECT_EQ(window().windowModality(), Qt::NonModal);
  EXPECT_TRUE(view->calls.ends_with("load file:///v/page one.htm ")) << "in the same window";
  key("Close").click();
  EXPECT_EQ(closed, 1);
  pages.close();
  EXPECT_EQ(closed, 1) << "who closes it himself is not told";
  ASSERT_TRUE(pages.show("http://127.0.0.1:9/a", false));
  window().setGeometry(300, 200, 640, 400);
  pages.close();
  ASSERT_TRUE(pages.show("http://127.0.0.1:9/a", false));
  EXPECT_EQ(window().geometry(), QRect(300, 200, 640, 400)) << "a new one stands where the last one did";
}

TEST_F(ShownWebPages, AreRefusedWhereNothingCanShowThem) {
  WindowPages none([](QWidget*) { return std::unique_ptr<WebView>(); }, {store, desktop, ""});
  EXPECT_FALSE(none.show("http://127.0.0.1:9/a", false));
  WebModule missing("/nowhere/KVOWeb.so", [] { return true; });
  EXPECT_EQ(missing.makeView(nullptr), nullptr);
  EXPECT_FALSE(pages.show("javascript:alert(1)", false));
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
