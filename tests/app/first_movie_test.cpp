// The first movie of somebody who has never seen the program: three clips, a still and a song become a movie
// with a dissolve and music, by the mouse and by the keyboard.
#include "app/driven_window.h"

#include <array>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <optional>

#include <gtest/gtest.h>

namespace kvo {
namespace {

using test::eventually;

struct Spot {
  int x = 0, y = 0;  // pixels of the window in front
};

using Colour = std::array<int, 3>;
constexpr Colour kRed{255, 0, 0}, kGreen{0, 128, 0}, kBlue{0, 0, 255}, kYellow{255, 255, 0};
constexpr Colour kPaper{255, 255, 255}, kDropBar{243, 182, 74}, kChosen{44, 201, 196}, kNothing{10, 14, 20};

bool isLike(const Colour& seen, const Colour& wanted) {
  constexpr int kMostOff = 40;
  for (std::size_t i = 0; i < seen.size(); ++i)
    if (std::abs(seen[i] - wanted[i]) > kMostOff) return false;
  return true;
}

// Part of the one and part of the other.
bool isBetween(const Colour& seen, const Colour& a, const Colour& b) {
  constexpr int kLeastOff = 50;
  for (std::size_t i = 0; i < seen.size(); ++i)
    if (seen[i] < std::min(a[i], b[i]) + kLeastOff || seen[i] > std::max(a[i], b[i]) - kLeastOff)
      return false;
  return true;
}

constexpr Spot kEmptyPanel{281, 160}, kAboveSong{150, 125}, kLastRow{150, 162}, kCreateMovie{486, 244};
constexpr Spot kAboveSongChosen{80, 138};  // the mark of a chosen row
constexpr Spot kFirstFile{187, 89}, kFirstFileIcon{143, 84}, kLastFile{187, 161}, kOpen{813, 461};
constexpr Spot kPreview{130, 416}, kSaveProject{130, 473}, kPicture{730, 200};
constexpr Spot kStill{900, 620}, kStillOverClip{750, 620};  // pushed over its neighbour
constexpr Spot kBehindMovie{1200, 620};                     // once it is

class FirstMovie : public test::Window {
 protected:
  FirstMovie() {
    ::setenv("SDL_AUDIODRIVER", "disk", 1);
    ::setenv("SDL_DISKAUDIOFILE", (work_ / "heard").c_str(), 1);
    std::filesystem::create_directories(home_ / "Videos");
    const auto media = [&](const std::string& name, const std::string& source, const char* length) {
      test::makeMedia(home_, "Videos/" + name, {"-f", "lavfi", "-t", length, "-i", source});
    };
    media("beach.avi", "color=red:size=320x240:rate=25", "1");
    media("harbour.avi", "color=green:size=320x240:rate=25", "1");
    media("lake.avi", "color=blue:size=320x240:rate=25", "2.5");
    media("theme.wav", "sine=frequency=440", "20");
    media("view.png", "color=yellow:size=320x240:rate=1", "1");
  }
  ~FirstMovie() override { ::unsetenv("SDL_AUDIODRIVER"); }

  // What the user does, and how much of it.

  void key(const std::string& keys) {
    press(keys);
    ++acts_;
  }
  void click(const Spot& at, const std::string& held = {}) {
    auto command = pointAt(at);
    if (!held.empty()) command.insert(command.end(), {"keydown", held});
    command.insert(command.end(), {"click", "1"});
    if (!held.empty()) command.insert(command.end(), {"keyup", held});
    test::runProgram(command);
    ++acts_;
  }
  // Lets go when the place below the pointer is marked, where there is one to be marked.
  void drag(const Spot& from, const Spot& to, const std::optional<Colour>& mark = {}) {
    auto command = pointAt(from);
    command.insert(command.end(), {"mousedown", "1"});
    constexpr int kSteps = 4;
    for (int i = 1; i <= kSteps; ++i) {
      const auto step =
          pointAt({from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
      command.insert(command.end(), step.begin() + 1, step.end());
    }
    test::runProgram(command);
    if (mark) showsSoon(to, *mark, "2x2");
    test::runProgram({"xdotool", "mouseup", "1"});
    ++acts_;
  }
  // The name is the user's own; the key behind it counts.
  void saves() {
    ASSERT_TRUE(comes("Save Collection"));
    ASSERT_TRUE(names("Save Collection", work_ / "Holiday"));
    ++acts_;
    ASSERT_TRUE(comes("Create New Movie"));
  }

  // What the user sees.

  static std::vector<std::string> pointAt(const Spot& at) {
    return {"xdotool", "mousemove", "--window", front(), std::to_string(at.x), std::to_string(at.y)};
  }
  static std::string front() {
    const auto id = test::runProgram({"xdotool", "getactivewindow"}).out;
    return id.substr(0, id.find('\n'));
  }
  // The screen at a spot, told by the pointer, as the frame of the window is the desktop's.
  static std::vector<std::string> grab(const Spot& at, const char* size) {
    test::runProgram(pointAt(at));
    std::istringstream told(test::runProgram({"xdotool", "getmouselocation", "--shell"}).out);
    std::string x, y;
    std::getline(told, x);
    std::getline(told, y);
    return {"ffmpeg",      "-v",
            "error",       "-nostdin",
            "-f",          "x11grab",
            "-draw_mouse", "0",
            "-framerate",  "25",
            "-video_size", size,
            "-i",          std::string(::getenv("DISPLAY")) + "+" + x.substr(2) + "," + y.substr(2),
            "-vf",         "format=rgb24,scale=1:1:flags=area",
            "-pix_fmt",    "rgb24",
            "-f",          "rawvideo"};
  }
  static Colour colourIn(const std::string& bytes, std::size_t at) {
    Colour colour{};
    for (std::size_t i = 0; i < colour.size() && at + i < bytes.size(); ++i)
      colour[i] = static_cast<unsigned char>(bytes[at + i]);
    return colour;
  }
  static bool showsNow(const Spot& at, const Colour& colour, const char* size) {
    auto command = grab(at, size);
    command.insert(command.end(), {"-frames:v", "1", "-"});
    return isLike(colourIn(test::runProgram(command).out, 0), colour);
  }
  static bool shows(const Spot& at, const Colour& colour, const char* size,
                    std::chrono::seconds limit = std::chrono::minutes(2)) {
    return eventually([&] { return showsNow(at, colour, size); }, limit);
  }
  // Soon, for what may have to be done again.
  static bool comesSoon(const std::string& title) {
    return eventually([&] { return comesNow(title); }, std::chrono::seconds(4));
  }
  static bool showsSoon(const Spot& at, const Colour& colour, const char* size) {
    return shows(at, colour, size, std::chrono::seconds(5));
  }

  // From here on each picture that is seen in the preview is noted.
  void watchPreview() {
    heardBefore_ = read("heard").size();
    auto command = grab(kPicture, "32x32");
    command.insert(command.end(), {"-flush_packets", "1", work_ / "seen"});
    watcher_.emplace(command);
    ASSERT_TRUE(eventually([&] { return !read("seen").empty(); }));
  }
  std::string read(const char* name) const { return test::bytesOf(work_ / name); }
  // The pictures that were seen hold these in this order; the one without a colour is any between its two
  // neighbours.
  bool sees(const std::vector<std::optional<Colour>>& wanted) const {
    const auto seen = read("seen");
    std::size_t next = 0;
    for (std::size_t i = 0; i + 2 < seen.size() && next < wanted.size(); i += 3) {
      const auto colour = colourIn(seen, i);
      const auto& want = wanted[next];
      next += want ? isLike(colour, *want) : isBetween(colour, *wanted[next - 1], *wanted[next + 1]);
    }
    return next == wanted.size();
  }
  // Whether anything has gone to the loudspeakers since.
  bool hears() const {
    const auto bytes = read("heard");
    for (auto i = heardBefore_ / sizeof(float) * sizeof(float); i + sizeof(float) <= bytes.size();
         i += sizeof(float)) {
      float sample = 0;
      std::memcpy(&sample, bytes.data() + i, sizeof(float));
      if (std::abs(sample) > 0.01F) return true;
    }
    return false;
  }
  // A busy machine leaves pictures out: what has not been seen is played again.
  bool previewHas(const std::vector<std::optional<Colour>>& wanted) const {
    constexpr auto kLasts = std::chrono::seconds(15);  // some more than it plays for
    return eventually([&] {
      if (eventually([&] { return sees(wanted) && hears(); }, kLasts)) return true;
      press("space");
      return false;
    });
  }

  // Both ways end in this.
  void expectTheMovie() {
    EXPECT_TRUE(previewHas({kRed, kGreen, kBlue, std::nullopt, kYellow}))
        << "the clips, the dissolve, the still and the song";
    EXPECT_LE(acts_, kMostActs);
    const auto movie = work_ / "movie.avi";
    const auto end = test::runProgram({KVO_PROGRAMS "/kvo5", "--render", work_ / "Holiday.INI", "--output",
                                       movie, "--size", "64x48", "--rate", "10"});
    ASSERT_EQ(end.exitCode, 0) << end.err;
    const auto pictures = test::picturesOf(movie, 64, 48);
    const auto at = [&](std::size_t i) {
      const auto mean = [&](int colour) { return static_cast<int>(pictures[i].mean(colour)); };
      return Colour{mean(0), mean(1), mean(2)};
    };
    ASSERT_GT(pictures.size(), 50U);
    std::size_t mixed = 0;
    for (std::size_t i = 0; i < pictures.size(); ++i) mixed += isBetween(at(i), kBlue, kYellow);
    EXPECT_GE(mixed, 2U);
    EXPECT_TRUE(isLike(at(2), kRed) && isLike(at(15), kGreen) && isLike(at(pictures.size() - 2), kYellow));
    EXPECT_GT(test::levelOf(test::samplesOf(movie), 1, 5), -40);
  }

  static constexpr int kMostActs = 14;
  int acts_ = 0;
  std::optional<test::Companion> watcher_;
  std::size_t heardBefore_ = 0;  // bytes
};

TEST_F(FirstMovie, ByTheMouse) {
  start();
  ASSERT_TRUE(comes("KVO5"));
  ASSERT_TRUE(eventually([&] {
    acts_ = 0;
    click(kEmptyPanel);  // while the start goes on there is nothing to click
    return comesNow("Add Media");
  }));
  ASSERT_TRUE(shows(kFirstFileIcon, kPaper, "8x8"));
  click(kFirstFile);
  click(kLastFile, "shift");
  click(kOpen);
  ASSERT_TRUE(comes("view.png"));
  // A drop ahead of the desktop's word that it will be taken is none, and nobody sees that word.
  ASSERT_TRUE(eventually([&, before = acts_] {
    acts_ = before;
    drag(kLastRow, kAboveSong, kDropBar);  // the still, ahead of the song
    return showsSoon(kAboveSongChosen, kChosen, "2x2");
  })) << "and there it stands";
  click(kCreateMovie);
  ASSERT_TRUE(comes("Create New Movie"));
  ASSERT_TRUE(shows(kStill, kYellow, "8x8")) << "its picture lies on the timeline";
  ASSERT_TRUE(eventually([&, before = acts_] {
    acts_ = before;
    drag(kStill, kStillOverClip);
    return showsSoon(kBehindMovie, kNothing, "8x8");
  })) << "and the movie is shorter";
  ASSERT_TRUE(eventually([&, before = acts_] {
    acts_ = before;
    click(kSaveProject);  // a busy machine may still be at the drag
    return comesSoon("Save Collection");
  }));
  saves();
  watchPreview();
  click(kPreview);
  expectTheMovie();
}

TEST_F(FirstMovie, ByTheKeyboard) {
  start();
  ASSERT_TRUE(comes("KVO5"));
  ASSERT_TRUE(eventually([&] {
    acts_ = 0;
    key("Insert");
    return comesNow("Add Media");
  }));
  ASSERT_TRUE(shows(kFirstFileIcon, kPaper, "8x8"));
  key("shift+Tab");
  key("ctrl+a");
  key("Return");
  ASSERT_TRUE(comes("view.png"));
  key("ctrl+Up");
  key("ctrl+m");
  ASSERT_TRUE(comes("Create New Movie"));
  key("d");
  key("ctrl+s");
  saves();
  watchPreview();
  key("space");
  expectTheMovie();
}

}  // namespace
}  // namespace kvo
