// The timeline of the editor with 1,000 and 9,999 clips: CPU time of a frame while it is scrolled and zoomed,
// everything drawn with pictures and peaks at hand, and of laying the blocks out anew behind a change. 60
// frames a second leave 16.7 ms for each.
#include "ui/theme.h"
#include "windows/editor/timeline_view.h"

#include <QApplication>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>

namespace {

using namespace kvo;

struct SoundAndFilms : MediaContents {
  Result<StreamFacts> facts(const std::string& path) override {
    const bool isMusic = path.ends_with(".mp3");
    return StreamFacts{.hasVideo = !isMusic, .hasAudio = true, .width = 640, .height = 360, .frameRate = 25};
  }
  Result<FramePicture> frame(const std::string&, double, int, int) override { return Error{"none"}; }
};

struct SameSketches : Sketches {
  std::optional<Picture> picture(const std::string&, double) override { return grey; }
  std::optional<Peaks> peaks(const std::string&, int) override { return loud; }
  void preparePicture(const std::string&, double) override {}
  void preparePeaks(const std::string&) override {}
  void whenCome(std::function<void(const std::string&)>) override {}

  Picture grey = std::make_shared<FramePicture>(
      FramePicture{kSketchWidth, kSketchHeight,
                   std::vector<std::uint8_t>(std::size_t{kSketchWidth} * kSketchHeight * 3, 90)});
  Peaks loud = std::make_shared<std::vector<std::uint8_t>>(100000, std::uint8_t{120});
};

struct NoDesk : TimelineActs {
  void select(int) override {}
  void moveTo(int, int) override {}
  void setMark(const MarkGesture&) override {}
  void setTransIn(const TransInGesture&) override {}
  void setFade(const FadeGesture&) override {}
  void seek(double) override {}
  void setRange(const TimelineRange&) override {}
  void showFrame(int, double) override {}
  void endFrame() override {}
  void insertFiles(const std::vector<std::string>&, int) override {}
  void remove(int) override {}
  std::string copy(int) override { return {}; }
  std::string split(int) override { return {}; }
  void openTab(int, int) override {}
  void openTrimmer(int) override {}
  void openMenu(int, int, int) override {}
};

void fill(Collection& collection, int clips) {
  for (int i = 1; i <= clips + 1; ++i) {
    Movie& clip = collection.MovieList.add({});
    clip.MovieName(i > clips ? "music.mp3" : i % 2 == 0 ? "beach.avi" : "lake.mp4");
    clip.Path("/v/");
    clip.Resolution(i > clips ? "44.1 Khz" : "640 x 360");
    clip.DurationTime(Value(60));
    clip.DurationFrames(Value(1500));
    clip.LoopEnd(Value(i > clips ? 60 : 5));
    clip.AudioOutputLevel(1);
    clip.RenderAudio(true);
    clip.TransType(i % 3 == 0 ? "CUT" : "Dissolve");
    clip.TransIn(10);
    clip.EffectWord("11");
  }
}

double cpuMilliseconds(int times, const std::function<void(int)>& work) {
  const auto begun = std::clock();
  for (int i = 0; i < times; ++i) work(i);
  return 1000.0 * static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC / times;
}

void measure(int clips) {
  Collection collection;
  fill(collection, clips);
  SoundAndFilms streams;
  SameSketches sketches;
  NoDesk desk;
  TimelineState state;
  TimelineHand hand(state, desk);
  const CompileOptions options;
  const auto layOut = [&] { hand.show(blocksOf(TimelineClips(collection, streams), collection, options)); };
  layOut();
  TimelineView view({state, hand, sketches, {}});
  view.resize(1366, 202);
  view.show();
  QImage screen(view.size(), QImage::Format_RGB32);
  std::printf("%d clips\n", clips);
  for (const double scale : {kLeastScale, 20.0, kLargestScale}) {
    hand.zoom(scale, kLanesLeft);
    const double each = cpuMilliseconds(200, [&](int i) {
      hand.scroll(100 + i * 10 / scale);
      view.render(&screen);
    });
    std::printf("  scrolled at %3.0f pixels a second  %5.2f ms a frame\n", scale, each);
  }
  hand.whole();
  std::printf("  the whole movie                  %5.2f ms a frame\n",
              cpuMilliseconds(50, [&](int) { view.render(&screen); }));
  const double zoomed = cpuMilliseconds(100, [&](int i) {
    hand.zoom(kLeastScale * std::pow(kLargestScale / kLeastScale, i / 100.0), 600);
    view.render(&screen);
  });
  std::printf("  zoomed about the pointer         %5.2f ms a frame\n", zoomed);
  std::printf("  laid out anew                    %5.2f ms\n", cpuMilliseconds(10, [&](int) { layOut(); }));
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  applyTheme(application);
  measure(1000);
  measure(9999);
}
