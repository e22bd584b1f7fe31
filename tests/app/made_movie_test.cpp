// A movie made from the window: begun, aborted in the middle, begun again, and watched.
#include "app/driven_window.h"

#include <filesystem>
#include <fstream>
#include <iterator>

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
    EXPECT_EQ(test::runProgram({KVO_PROGRAMS "/kvo5", "--add", work_ / "Holiday.INI", clip}).exitCode, 0);
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
    namesMovie();
    ASSERT_TRUE(comes("Creating movie.mp4 from Holiday Collection"));
  }
  void namesMovie() {
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
  }
  void opensEditor() {
    start({work_ / "Holiday.INI"});
    ASSERT_TRUE(comes(".avi"));
    ASSERT_TRUE(eventually([] {
      press("ctrl+m");
      return soon([] { return comesNow("Create New Movie"); });
    }));
  }
  static bool soon(const std::function<bool()>& holds) {
    constexpr int kLooks = 40;
    for (int i = 0; i < kLooks; ++i) {
      if (holds()) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return holds();
  }
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
}

// Ahead of the music, where a movie's clips stand, and not behind it.
TEST_F(MadeMovie, JoinsThePicturesWhenItIsViewed) {
  const auto collection = work_ / "Holiday.INI";
  std::filesystem::remove(std::filesystem::path(collection));
  const auto clip =
      test::makeMedia(work_, "short.avi", {"-f", "lavfi", "-t", "2", "-i", "testsrc2=size=160x120"});
  const auto song = test::makeMedia(work_, "song.wav", {"-f", "lavfi", "-t", "3", "-i", "sine"});
  ASSERT_EQ(test::runProgram({KVO_PROGRAMS "/kvo5", "--add", collection, clip, song}).exitCode, 0);
  opensEditor();
  press("ctrl+Return");
  namesMovie();
  ASSERT_TRUE(comes("KVO - Movie Successfully Created"));
  press("Return");
  ASSERT_TRUE(comes("movie.mp4"));
  press("ctrl+s");
  const auto order = [&] {
    std::ifstream file(collection);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return std::pair{text.find("movie.mp4"), text.find("song.wav")};
  };
  ASSERT_TRUE(eventually([&] { return order().first != std::string::npos; })) << "it is saved";
  EXPECT_LT(order().first, order().second);
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
    engine = childOf(childOf(std::to_string(program_)));
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
