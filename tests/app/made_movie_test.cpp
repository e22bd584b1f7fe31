// A movie made from the window: begun, aborted in the middle, begun again, and watched.
#include "app/driven_window.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::eventually;

class MadeMovie : public test::Window {
 protected:
  MadeMovie() {
    ::setenv("SDL_AUDIODRIVER", "dummy", 1);
    std::filesystem::create_directories(std::filesystem::path(work_ / "out"));
    const auto clip = test::makeMedia(work_, "beach.avi",
                                      {"-f", "lavfi", "-t", "60", "-i", "testsrc2=size=320x240:rate=25"});
    const auto song = test::makeMedia(work_, "song.wav", {"-f", "lavfi", "-t", "3", "-i", "sine"});
    const auto added = test::runProgram({KVO_PROGRAMS "/kvo5", "--add", work_ / "Holiday.INI", clip, song});
    EXPECT_EQ(added.exitCode, 0);
  }
  ~MadeMovie() override { ::unsetenv("SDL_AUDIODRIVER"); }

  // The dialog's name is how the editor's begins.
  static bool asksForName() {
    return test::runProgram({"xdotool", "getactivewindow", "getwindowname"}).out == "Create New Movie\n";
  }
  // What is left in the movie's folder, hidden files too.
  [[nodiscard]] std::string made() const {
    std::string names;
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(work_ / "out")))
      names += file.path().filename().string() + " ";
    return names;
  }
  // From the options to the render.
  void begins() {
    ASSERT_TRUE(eventually([] {
      if (asksForName()) return true;
      press("Return");
      return soon([] { return asksForName(); });
    }));
    ASSERT_TRUE(eventually([&] {
      if (!asksForName()) return true;
      press("ctrl+a");
      type(work_ / "out/movie.mp4");
      press("Return");
      return soon([] { return !asksForName(); });
    }));
    ASSERT_TRUE(comes("Creating movie.mp4 from Holiday Collection"));
  }
  void opensEditor() {
    start({work_ / "Holiday.INI"});
    ASSERT_TRUE(comes(".avi"));
    ASSERT_TRUE(eventually([] {
      press("ctrl+m");
      return soon([] { return comesNow("Create New Movie"); });
    }));
  }
  // For what is asked for again, where it was not heard.
  static bool soon(const std::function<bool()>& holds) { return eventually(holds, std::chrono::seconds(4)); }
};

TEST_F(MadeMovie, IsAbortedAndMadeFromTheEditor) {
  opensEditor();
  press("ctrl+Return");
  begins();
  press("space");
  press("Return");  // neither is for Abort, which is the first key of the card
  press("Tab");
  press("Return");
  ASSERT_TRUE(comes("KVO - Create Movie"));
  press("y");
  ASSERT_TRUE(comes("KVO - Movie Render aborted"));
  EXPECT_EQ(made(), "") << "nothing half-made is left";
  press("Return");
  ASSERT_TRUE(comes("Create New Movie from Holiday Collection")) << "and the options are there again";
  begins();
  ASSERT_TRUE(comes("KVO - Movie Successfully Created"));
  press("Return");
  EXPECT_TRUE(comes("movie.mp4")) << "it plays in the main window";
  EXPECT_EQ(made(), "movie.mp4 ");
  const auto pictures =
      test::runProgram({"ffprobe", "-v", "error", "-select_streams", "v", "-count_packets", "-show_entries",
                        "stream=nb_read_packets", "-of", "csv=p=0", work_ / "out/movie.mp4"});
  EXPECT_EQ(pictures.out, "1500\n");
  press("ctrl+s");
  const auto placeOf = [&](const char* name) { return test::bytesOf(work_ / "Holiday.INI").find(name); };
  ASSERT_TRUE(eventually([&] { return placeOf("movie.mp4") != std::string::npos; })) << "it is saved";
  EXPECT_LT(placeOf("movie.mp4"), placeOf("song.wav")) << "ahead of the music";
}

TEST_F(MadeMovie, ToldFailedWhenTheEngineIsKilled) {
  opensEditor();
  press("ctrl+Return");
  begins();
  // The child of the shell that is this program's child.
  const auto childOf = [](const std::string& process) {
    const auto all = test::runProgram({"pgrep", "-P", process, "-f", "KVORender"}).out;
    return all.substr(0, all.find('\n'));
  };
  std::string engine;
  ASSERT_TRUE(eventually([&] {
    engine = childOf(childOf(std::to_string(program_->number())));
    return !engine.empty();
  }));
  ::kill(std::stoi(engine), SIGKILL);
  ASSERT_TRUE(comes("KVO - Failed to Render Movie"));
  EXPECT_EQ(made(), "");
  press("Return");
  ASSERT_TRUE(comes("Create New Movie from Holiday Collection"));
  begins();  // the window lives
}

}  // namespace
}  // namespace kvo
