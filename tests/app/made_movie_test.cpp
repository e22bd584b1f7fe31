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
                                      {"-f", "lavfi", "-t", "30", "-i", "testsrc2=size=320x240:rate=25"});
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
  void begins() const {
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
  static testing::AssertionResult isBeingMade() {
    return comes("Creating movie.mp4 from Holiday Collection");
  }

  // The engine at work stands still, as if the movie were a long one: the child of the shell that is the
  // program's child.
  class HeldEngine {
   public:
    explicit HeldEngine(int program) {
      EXPECT_TRUE(eventually([&] {
        process_ = childOf(childOf(program));
        return process_ > 0;
      }));
      signal(SIGSTOP);
    }
    HeldEngine(const HeldEngine&) = delete;
    HeldEngine& operator=(const HeldEngine&) = delete;
    ~HeldEngine() { signal(SIGCONT); }
    void signal(int number) const {
      if (process_ > 0) ::kill(process_, number);
    }

   private:
    static int childOf(int process) {
      const auto all = test::runProgram({"pgrep", "-P", std::to_string(process), "-f", "KVORender"}).out;
      return std::atoi(all.c_str());  // of the first line; none is 0
    }
    int process_ = 0;
  };
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
  ASSERT_TRUE(isBeingMade());
  const HeldEngine engine(program_->number());
  press("space");
  press("Return");  // neither is for Abort, which is the first key of the card
  press("Tab");
  press("Return");
  ASSERT_TRUE(comes("KVO - Create Movie"));
  engine.signal(SIGCONT);
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
  EXPECT_EQ(pictures.out, "750\n");
  press("ctrl+s");
  const auto placeOf = [&](const char* name) { return test::bytesOf(work_ / "Holiday.INI").find(name); };
  ASSERT_TRUE(eventually([&] { return placeOf("movie.mp4") != std::string::npos; })) << "it is saved";
  EXPECT_LT(placeOf("movie.mp4"), placeOf("song.wav")) << "ahead of the music";
}

TEST_F(MadeMovie, ToldFailedWhenTheEngineIsKilled) {
  opensEditor();
  press("ctrl+Return");
  begins();
  ASSERT_TRUE(isBeingMade());
  HeldEngine(program_->number()).signal(SIGKILL);
  ASSERT_TRUE(comes("KVO - Failed to Render Movie"));
  EXPECT_EQ(made(), "");
  press("Return");
  ASSERT_TRUE(comes("Create New Movie from Holiday Collection"));
  begins();
  EXPECT_TRUE(isBeingMade()) << "the window lives";
}

}  // namespace
}  // namespace kvo
