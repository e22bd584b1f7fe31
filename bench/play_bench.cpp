// Playing beside mpv: bench_play FIRST SECOND, two films of ten seconds and more. Both draw into a window of
// 1280 x 720 by software, with a sound that nobody hears; mpv is told what to do through its socket. Then the
// sound of the next clip at a sink of a sound server that the bench starts.
#include "adapters/media/media_file_contents.h"
#include "adapters/mpv/mpv_control_engine.h"
#include "adapters/qt/qt_event_loop.h"
#include "windows/main/video_surface.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kScreenWidth = 1280;
constexpr int kScreenHeight = 720;
constexpr double kTooLate = 10;  // seconds
constexpr double kSeekPlaces[] = {9.48, 3.2, 8.04, 1.0, 6.6};

double milliseconds(Clock::time_point since) {
  return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// CPU seconds that a process has used.
double cpuOf(const std::string& process) {
  std::ifstream file("/proc/" + process + "/stat");
  std::string word;
  double ticks = 0;
  for (int i = 1; i <= 15 && file >> word; ++i) {
    if (i >= 14) ticks += std::stod(word);
  }
  return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

long residentMegabytes() {
  std::ifstream file("/proc/self/statm");
  long all = 0;
  long resident = 0;
  file >> all >> resident;
  return resident * ::sysconf(_SC_PAGESIZE) / (1 << 20);
}

long openFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                       std::filesystem::directory_iterator());
}

// Draws as the window does, and counts.
class CountedOutput : public kvo::VideoOutput {
 public:
  explicit CountedOutput(kvo::VideoOutput& output) : output_(output) {}
  int drawn = 0;
  bool useOpenGl(OpenGl gl) override { return output_.useOpenGl(std::move(gl)); }
  void useSoftware() override { output_.useSoftware(); }
  [[nodiscard]] bool hasPicture() const override { return output_.hasPicture(); }
  void draw(int buffer, int width, int height) override {
    output_.draw(buffer, width, height);
    ++drawn;
  }
  void draw(const Rows& rows) override {
    output_.draw(rows);
    ++drawn;
  }
  void whenPictureDue(std::function<bool()> heard) override { output_.whenPictureDue(std::move(heard)); }

 private:
  kvo::VideoOutput& output_;
};

// Ours, in a window.
class Ours {
 public:
  Ours() {
    window_.resize(kScreenWidth, kScreenHeight);
    surface_->widget().resize(kScreenWidth, kScreenHeight);
    window_.show();
    turn(0.3);
  }

  kvo::MpvControlEngine& engine() { return engine_; }
  void turn(double seconds) {
    QEventLoop events;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.callOnTimeout(&events, &QEventLoop::quit);
    timer.start(std::chrono::milliseconds(std::lround(seconds * 1000)));
    events.exec();
  }
  // How long it takes until a new picture has been drawn and nothing is on its way any more.
  double untilDrawn(
      const std::function<void()>& command, const std::function<bool()>& arrived = [] { return true; }) {
    const int before = output_.drawn;
    const auto begun = Clock::now();
    command();
    while ((output_.drawn == before || !arrived()) && milliseconds(begun) < kTooLate * 1000)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
    return milliseconds(begun);
  }

 private:
  kvo::QtEventLoop loop_{[] {}};
  kvo::MediaFileContents facts_;
  kvo::MpvStage stage_{loop_, facts_};
  kvo::MpvControlEngine engine_{stage_};
  CountedOutput output_{stage_.output()};
  QWidget window_;
  kvo::VideoFeed feed_{output_, kvo::VideoFeed::DrawnBy::Rows};
  std::unique_ptr<kvo::VideoSurface> surface_ = feed_.surface(&window_);
};

// A program that ends with its owner.
class Child {
 public:
  // Its standard output goes to `out` where that is a descriptor.
  explicit Child(const std::vector<std::string>& words, int out = -1) : process_(::fork()) {
    if (process_ != 0) return;
    if (out >= 0) ::dup2(out, STDOUT_FILENO);
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (const auto& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    ::execvp(pointers[0], pointers.data());
    ::_exit(127);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    ::kill(process_, SIGTERM);
    ::waitpid(process_, nullptr, 0);
  }
  [[nodiscard]] int number() const { return process_; }

 private:
  int process_;
};

// A sound server of our own with a sink that nobody hears, reached through a socket in `folder`.
class SoundServer {
 public:
  explicit SoundServer(const std::string& folder) : socket_(folder + "/pulse") {
    std::filesystem::create_directories(folder);
    for (const char* place : {"PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"}) ::setenv(place, folder.c_str(), 1);
    ::setenv("PULSE_SERVER", ("unix:" + socket_).c_str(), 1);
    server_ = std::make_unique<Child>(std::vector<std::string>{
        "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--log-level=error",
        "-L", "module-native-protocol-unix auth-anonymous=1 socket=" + socket_, "-L",
        "module-null-sink sink_name=bench rate=48000"});
    for (int tries = 0; tries < 100 && !runs(); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  [[nodiscard]] bool runs() const { return std::filesystem::exists(socket_); }

 private:
  std::string socket_;
  std::unique_ptr<Child> server_;
};

// Hears what arrives at the sink, 5 ms late at most.
class Ear {
 public:
  Ear() {
    if (::pipe2(pipe_, O_CLOEXEC) != 0) return;
    recorder_ = std::make_unique<Child>(
        std::vector<std::string>{"parec", "--raw", "--format=s16le", "--rate=48000", "--channels=1",
                                 "--latency-msec=5", "--device=bench.monitor"},
        pipe_[1]);
    ::close(pipe_[1]);
    reader_ = std::thread([this] { read(); });
  }
  Ear(const Ear&) = delete;
  Ear& operator=(const Ear&) = delete;
  ~Ear() {
    recorder_.reset();  // the pipe ends with it
    reader_.join();
    ::close(pipe_[0]);
  }

  void listen() { heardAt_ = 0; }
  // Milliseconds from `begun` to the first sound since listen(); below 0 while there is none.
  [[nodiscard]] double heard(Clock::time_point begun) const {
    const auto at = heardAt_.load();
    if (at == 0) return -1;
    return std::chrono::duration<double, std::milli>(Clock::duration(at) - begun.time_since_epoch()).count();
  }

 private:
  void read() {
    constexpr int kLoud = 500;  // of 32768
    std::vector<std::int16_t> samples(240);
    for (;;) {
      const auto bytes = ::read(pipe_[0], samples.data(), samples.size() * sizeof(std::int16_t));
      if (bytes <= 0) return;
      const auto end = samples.begin() + bytes / static_cast<std::ptrdiff_t>(sizeof(std::int16_t));
      const bool loud =
          std::any_of(samples.begin(), end, [](int sample) { return std::abs(sample) > kLoud; });
      if (loud && heardAt_ == 0) heardAt_ = Clock::now().time_since_epoch().count();
    }
  }

  int pipe_[2] = {-1, -1};
  std::unique_ptr<Child> recorder_;
  std::atomic<Clock::rep> heardAt_{0};
  std::thread reader_;
};

// An mpv that waits in a window of the same size.
class Peer {
 public:
  explicit Peer(const std::string& socket) {
    const std::vector<std::string> words = {"mpv",
                                            "--no-config",
                                            "--idle=yes",
                                            "--force-window=yes",
                                            "--vo=x11",
                                            "--ao=null",
                                            "--pause",
                                            "--keep-open=yes",
                                            "--hr-seek=yes",
                                            "--really-quiet",
                                            "--prefetch-playlist=yes",
                                            "--osc=no",
                                            "--geometry=1280x720+0+0",
                                            "--load-scripts=no",
                                            "--hwdec=no",
                                            "--input-ipc-server=" + socket};
    process_ = std::make_unique<Child>(words);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socket.copy(address.sun_path, sizeof address.sun_path - 1);
    connection_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    for (int tries = 0; tries < 100; ++tries) {
      if (::connect(connection_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  ~Peer() { ::close(connection_); }

  void say(const std::string& command) const {
    const auto line = "{\"command\": [" + command + "]}\n";
    static_cast<void>(::write(connection_, line.data(), line.size()));
  }
  double untilRestarted(const std::string& command) const {
    drain();
    const auto begun = Clock::now();
    say(command);
    std::string heard;
    while (heard.find("playback-restart") == std::string::npos && milliseconds(begun) < kTooLate * 1000)
      heard += next(100);
    return milliseconds(begun);
  }
  [[nodiscard]] double cpu() const { return cpuOf(std::to_string(process_->number())); }

 private:
  [[nodiscard]] std::string next(int wait) const {
    pollfd ready{connection_, POLLIN, 0};
    if (::poll(&ready, 1, wait) <= 0) return {};
    std::string some(4096, '\0');
    some.resize(
        static_cast<std::size_t>(std::max<ssize_t>(::read(connection_, some.data(), some.size()), 0)));
    return some;
  }
  void drain() const {
    while (!next(0).empty()) {
    }
  }

  std::unique_ptr<Child> process_;
  int connection_ = -1;
};

void row(const char* what, double ours, double theirs, const char* unit) {
  std::printf("  %-44s %8.2f %s   mpv %8.2f %s   %.2f of it\n", what, ours, unit, theirs, unit,
              ours / theirs);
}

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

void compare(Ours& ours, const Peer& peer, const std::string& first, const std::string& second) {
  constexpr int kRuns = 5;
  auto& engine = ours.engine();
  std::vector<double> mine;
  std::vector<double> theirs;
  for (int run = 0; run < kRuns; ++run) {
    const auto& file = run % 2 == 0 ? first : second;
    mine.push_back(ours.untilDrawn([&] { engine.setFileName(file); }));
    ours.turn(0.3);
    theirs.push_back(peer.untilRestarted("\"loadfile\", " + quoted(file)));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  }
  row("first picture behind the command", median(mine), median(theirs), "ms");
  mine.clear();
  theirs.clear();
  for (const double seconds : kSeekPlaces) {
    mine.push_back(ours.untilDrawn([&] { engine.seek(seconds); },
                                   [&] { return std::fabs(engine.position() - seconds) < 0.05; }));
    ours.turn(0.2);
    theirs.push_back(peer.untilRestarted("\"seek\", " + std::to_string(seconds) + ", \"absolute+exact\""));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
  }
  row("exact seek, a key picture every 10 s", median(mine), median(theirs), "ms");

  constexpr double kPlays = 10;
  engine.seek(0);
  static_cast<void>(peer.untilRestarted("\"seek\", 0, \"absolute+exact\""));
  ours.turn(0.5);
  auto begun = cpuOf("self");
  engine.Run();
  ours.turn(kPlays);
  const double played = cpuOf("self") - begun;
  engine.Pause();
  ours.turn(0.3);
  begun = peer.cpu();
  peer.say("\"set_property\", \"pause\", false");
  std::this_thread::sleep_for(std::chrono::duration<double>(kPlays));
  const double theirsPlayed = peer.cpu() - begun;
  peer.say("\"set_property\", \"pause\", true");
  row("playing for 10 s", played, theirsPlayed, "s CPU");

  begun = cpuOf("self");
  ours.turn(3);
  std::printf("  %-44s %8.2f s CPU\n", "paused for 3 s", cpuOf("self") - begun);
}

void changes(Ours& ours, const Peer& peer, const std::string& first, const std::string& second) {
  auto& engine = ours.engine();
  std::vector<double> mine;
  std::vector<double> theirs;
  constexpr int kRuns = 7;
  for (int run = 0; run < kRuns; ++run) {
    const auto& next = run % 2 == 0 ? second : first;
    engine.openAhead(next, 0);
    ours.turn(0.5);
    mine.push_back(ours.untilDrawn([&] {
      engine.setFileName(next);
      engine.Run();
    }));
    ours.turn(0.5);
  }
  for (int run = 0; run < kRuns; ++run) {
    static_cast<void>(peer.untilRestarted("\"loadfile\", " + quoted(first)));
    peer.say("\"loadfile\", " + quoted(second) + ", \"append\"");
    peer.say("\"set_property\", \"pause\", false");
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    theirs.push_back(peer.untilRestarted("\"playlist-next\""));
  }
  row("the next clip, opened ahead", median(mine), median(theirs), "ms");

  constexpr int kChanges = 1000;
  constexpr int kTold = 225;
  for (int change = 0; change < kChanges; ++change) {
    if (change >= kChanges % kTold && (change - kChanges % kTold) % kTold == 0)
      std::printf("  behind %4d changes: %ld MB, %ld open files\n", change, residentMegabytes(), openFiles());
    const auto& next = change % 2 == 0 ? second : first;
    engine.openAhead(next, 0);
    ours.turn(0.05);
    engine.setFileName(next);
    engine.Run();
    ours.turn(0.02);
  }
  std::printf("  behind %4d changes: %ld MB, %ld open files\n", kChanges, residentMegabytes(), openFiles());
}

// From the command to the next clip's sound, out of silence.
void sounds(const std::string& folder, const std::string& first, const std::string& second) {
  const SoundServer server(folder);
  if (!server.runs()) {
    std::printf("  the next clip's sound: there is no pulseaudio to hear it by\n");
    return;
  }
  Ear ear;
  Ours ours;
  auto& engine = ours.engine();
  std::vector<double> heard;
  constexpr int kRuns = 7;
  for (int run = 0; run < kRuns; ++run) {
    const auto& next = run % 2 == 0 ? second : first;
    engine.Pause();
    engine.openAhead(next, 0);
    ours.turn(1);
    ear.listen();
    const auto begun = Clock::now();
    engine.setFileName(next);
    engine.Run();
    while (ear.heard(begun) < 0 && milliseconds(begun) < kTooLate * 1000)
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
    heard.push_back(ear.heard(begun));
  }
  std::printf("  %-44s %8.2f ms at a null sink\n", "the next clip's sound, opened ahead", median(heard));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  ::setenv("SDL_AUDIODRIVER", "dummy", 1);
  const QApplication application(argc, argv);
  const std::string first = argv[1];
  const std::string second = argv[2];
  {
    const Peer peer(first + ".socket");
    Ours ours;
    compare(ours, peer, first, second);
    changes(ours, peer, first, second);
  }
  ::unsetenv("SDL_AUDIODRIVER");
  sounds(first + ".sound", first, second);
  return 0;
}
