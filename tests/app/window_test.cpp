// The program in a real window, driven by keys as a user drives it.
#include "adapters/posix/posix_files.h"
#include "app/driven_window.h"
#include "support/own_bus.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::eventually;
using test::Window;

TEST_F(Window, ANewUserStartsAddsSavesOpensAndLeaves) {
  start();
  ASSERT_TRUE(comes("KVO5"));
  const auto folder = home_ / ".local/share/KVO5";
  EXPECT_TRUE(std::filesystem::exists(folder + "/KVO5.INI"));
  EXPECT_TRUE(std::filesystem::exists(folder + "/silence.wav"));
  EXPECT_TRUE(std::filesystem::exists(folder + "/Skins/2/blue.bmp"));

  // A second copy hands its clip over and ends at once.
  EXPECT_EQ(test::runProgram({KVO_PROGRAMS "/kvo5", video_}).exitCode, 0);
  ASSERT_TRUE(comes("count.avi - Video"));
  // Another finds it minimised, and brings it back.
  test::runProgram({"xdotool", "getactivewindow", "windowminimize"});
  EXPECT_EQ(test::runProgram({KVO_PROGRAMS "/kvo5"}).exitCode, 0);
  ASSERT_TRUE(comes("count.avi - Video"));

  ASSERT_TRUE(brings("ctrl+s", "Save Collection"));
  ASSERT_TRUE(names("Save Collection", work_ / "mine"));
  ASSERT_TRUE(eventually([&] { return std::filesystem::exists(work_ / "mine.INI"); }));
  ASSERT_TRUE(comes("count.avi - Video"));

  ASSERT_TRUE(brings("ctrl+n", "New Collection"));
  ASSERT_TRUE(brings("ctrl+o", "Open existing Collection"));
  ASSERT_TRUE(names("Open existing Collection", work_ / "mine.INI"));
  ASSERT_TRUE(comes("count.avi - Video"));
  press("ctrl+q");
  ASSERT_TRUE(ends());
  EXPECT_EQ(PosixFiles().read(folder + "/KVOError.Log", 1U << 20U).ok(), false) << "nothing went wrong";
}

TEST_F(Window, ExitWithUnsavedChangesAsks) {
  start({video_});
  ASSERT_TRUE(comes("count.avi - Video"));
  ASSERT_TRUE(brings("ctrl+q", "Save changes"));
  press("Escape");
  ASSERT_TRUE(comes("count.avi - Video"));
  ASSERT_TRUE(brings("alt+F4", "Save changes"));
  press("Return");  // Yes is the default
  ASSERT_TRUE(comes("Save Collection"));
  press("Escape");
  ASSERT_TRUE(comes("count.avi - Video")) << "no name, no end";
  ASSERT_TRUE(brings("ctrl+q", "Save changes"));
  press("alt+n");
  ASSERT_TRUE(ends());
}

TEST_F(Window, IsDrivenByTheKeyboardAlone) {
  const auto second = test::makeCountingVideo(work_, "second.avi", "25", 10);
  start();
  ASSERT_TRUE(comes("KVO5"));
  ASSERT_TRUE(brings("Insert", "Add Media to Collection"));
  type("\"" + video_ + "\" \"" + second + "\"");
  press("Return");
  ASSERT_TRUE(comes("second.avi - Video")) << "adds";
  // While the start goes on there is nothing that keys do.
  ASSERT_TRUE(eventually([] {
    press("Home");
    return comesNow("count.avi - Video");
  })) << "selects";
  press("F2");
  type("First");
  press("Return");
  ASSERT_TRUE(comes("First - Video")) << "renames";
  press("ctrl+Down");
  ASSERT_TRUE(brings("Home", "second.avi - Video")) << "moves";
  ASSERT_TRUE(brings("Delete", "First - Video")) << "removes";
  ASSERT_TRUE(brings("ctrl+z", "second.avi - Video")) << "undoes";
  ASSERT_TRUE(brings("End", "First - Video"));

  const auto alone = windows();
  ASSERT_TRUE(opens("F10 k"));
  press("Down Down Return");
  ASSERT_TRUE(eventually([&] { return windows() == alone; }));
  ASSERT_TRUE(opens("F10"));
  press("f");
  ASSERT_TRUE(comes("Free Zoom Mode"));
  ASSERT_TRUE(eventually([&] { return windows() > alone; })) << "the hint, which has the window's caption";
  ASSERT_TRUE(eventually([&] {
    press("Return");
    return windows() == alone;
  }));
  ASSERT_TRUE(comes("KVO5 - Free Zoom Mode"));
  const auto before = place();
  press("F11");
  ASSERT_TRUE(comes("First - Video")) << "it covers the screen";
  ASSERT_TRUE(eventually([&] { return place() != before; }));
  press("Escape");
  ASSERT_TRUE(comes("KVO5 - Free Zoom Mode"));
  EXPECT_TRUE(eventually([&] { return place() == before; })) << "where it was";
  press("Escape");
  ASSERT_TRUE(comes("First - Video")) << "and back";
  const auto home = place();
  press("F11");
  ASSERT_TRUE(eventually([&] { return place() != home; }));
  press("Escape");
  ASSERT_TRUE(comes("KVO5 - Free Zoom Mode"));
  press("Escape");
  ASSERT_TRUE(comes("First - Video"));
  EXPECT_TRUE(eventually([&] { return place() == home; })) << "and does not creep by its frame";
  press("F10 f");
  ASSERT_TRUE(comes("KVO5 - Free Zoom Mode"));
  press("F10 f");
  ASSERT_TRUE(comes("First - Video")) << "by the menu, too";

  ASSERT_TRUE(brings("ctrl+s", "Save Collection"));
  ASSERT_TRUE(names("Save Collection", work_ / "driven"));
  std::string saved;
  ASSERT_TRUE(eventually([&] {
    const auto file = PosixFiles().read(work_ / "driven.INI", 1U << 20U);
    saved = file ? *file : "";
    return !saved.empty();
  }));
  EXPECT_LT(saved.find("second.avi"), saved.find("count.avi"));
  EXPECT_NE(saved.find("First"), std::string::npos);
  EXPECT_NE(saved.find("snakesk.jpg"), std::string::npos) << "changes the skin";
}

// Over the bus that media keys and applets use.
TEST_F(Window, TheDesktopSteersWhatPlays) {
  const test::OwnBus bus;
  const auto second = test::makeCountingVideo(work_, "second.avi", "25", 1500);
  const auto third = test::makeCountingVideo(work_, "third.avi", "25", 10);
  start({second, third});
  ASSERT_TRUE(comes("third.avi - Video"));
  const auto ask = [](std::vector<std::string> words) {
    words.insert(words.begin(), {"playerctl", "--player=kvo5"});
    return test::runProgram(words).out;
  };
  const auto says = [&](const std::vector<std::string>& words, const std::string& answer,
                        std::chrono::seconds limit = std::chrono::minutes(2)) {
    return eventually([&] { return ask(words).starts_with(answer); }, limit);
  };
  EXPECT_TRUE(says({"metadata", "xesam:title"}, "third.avi"));
  EXPECT_TRUE(eventually([&] {  // a busy machine still adds the clips, and takes no request meanwhile
    ask({"previous"});
    return says({"metadata", "xesam:title"}, "second.avi", std::chrono::seconds(5));
  }));
  ask({"play"});
  EXPECT_TRUE(says({"status"}, "Playing"));
  ask({"pause"});
  EXPECT_TRUE(says({"status"}, "Paused"));
  ask({"position", "30"});
  EXPECT_TRUE(says({"position"}, "30.")) << "it stands where it was put";
  ask({"next"});
  EXPECT_TRUE(comes("third.avi - Video"));
}

TEST_F(Window, ACollectionThatCannotBeReadIsTold) {
  std::filesystem::create_directories(home_ / ".local/share/KVO5");
  PosixFiles files;
  ASSERT_TRUE(writeDurably(files, home_ / ".local/share/KVO5/KVO5.INI", "junk"));
  start();
  ASSERT_TRUE(comes("Kavio V5"));
  press("Return");
  ASSERT_TRUE(ends(1));
  EXPECT_EQ(files.read(home_ / ".local/share/KVO5/KVO5.INI", 100).value(), "junk");
}

TEST(WithoutADisplay, TheWindowIsRefusedInALine) {
  ::unsetenv("DISPLAY");
  ::unsetenv("WAYLAND_DISPLAY");
  ::unsetenv("QT_QPA_PLATFORM");
  const auto end = test::runProgram({KVO_PROGRAMS "/kvo5"});
  EXPECT_EQ(end.exitCode, 1);
  EXPECT_NE(end.err.find("no display"), std::string::npos) << end.err;
}

}  // namespace
}  // namespace kvo
