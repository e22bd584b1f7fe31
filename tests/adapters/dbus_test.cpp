// Media controls and the screen saver on a bus of the test's own, steered by playerctl as by any applet.
#include "adapters/dbus/bus_motion.h"
#include "adapters/dbus/bus_screen_saver.h"
#include "adapters/dbus/long_work_bus.h"
#include "adapters/dbus/mpris.h"
#include "support/own_bus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <fcntl.h>
#include <future>
#include <memory>
#include <thread>

namespace kvo {
namespace {

using namespace std::chrono_literals;
using test::countOf;
using test::lineOf;

// Writes down what is asked, and obeys.
struct NotedRequests : MediaRequests {
  std::string asked;
  double at = 4.5;
  void note(const auto&... words) { asked += lineOf(words...) + " "; }
  void play() override { note("play"); }
  void pause() override { note("pause"); }
  void playPause() override { note("play-pause"); }
  void stop() override { note("stop"); }
  void next() override { note("next"); }
  void previous() override { note("previous"); }
  void seek(double seconds) override { note("seek", seconds); }
  void setPosition(int track, double seconds) override { note("place", track, seconds); }
  void setVolume(double volume) override { note("volume", volume); }
  void setRate(double rate) override { note("rate", rate); }
  void setRepeating(Repeating repeating) override { note("repeat", static_cast<int>(repeating)); }
  void raise() override { note("raise"); }
  void quit() override { note("quit"); }
  void open(const std::string& file) override { note("open", file); }
  [[nodiscard]] double position() const override { return at; }
};

bool until(const std::function<bool()>& holds) {
  for (int i = 0; i < 1000 && !holds(); ++i) {
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(5ms);
  }
  return holds();
}

// What it says while it talks to this program.
std::string playerctl(std::vector<std::string> words) {
  // It lists the players of both buses, and they are one here.
  words.insert(words.begin(), {"env", "DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nowhere", "playerctl"});
  auto end = std::async(std::launch::async, [&] { return test::runProgram(words); });
  EXPECT_TRUE(until([&] { return end.wait_for(0s) == std::future_status::ready; }));
  const auto told = end.get();
  return told.out + told.err;
}

// A process has one session bus, and so have all of these tests.
class Bus : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int words = 1;
    static std::string name = "test";
    static char* arguments[] = {name.data(), nullptr};
    bus = std::make_unique<test::OwnBus>();
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", bus->address().c_str(), 1);  // it stands for that one too
    application = std::make_unique<QCoreApplication>(words, arguments);
  }
  static void TearDownTestSuite() {
    application.reset();
    bus.reset();
  }

  inline static std::unique_ptr<test::OwnBus> bus;
  inline static std::unique_ptr<QCoreApplication> application;
  NotedRequests requests;
  Mpris controls;
};

MediaTold clipThatPlays() {
  MediaTold told;
  told.state = PlayingState::Playing;
  told.canPlay = told.canSeek = told.canGoNext = told.canGoPrevious = true;
  told.volume = 0.5;
  told.clip = {.track = 7,
               .title = "lake at dusk",
               .artist = "A",
               .album = "B",
               .length = 12.5,
               .file = "/v/lake at dusk.mpg",
               .cover = "/v/cover #1.jpg"};
  return told;
}

constexpr const char* kPlayer = "org.mpris.MediaPlayer2.Player";

TEST_F(Bus, PlayerctlSteersAndReads) {
  ASSERT_TRUE(controls.listen(requests));
  controls.tell(clipThatPlays());
  const auto mine = [](std::vector<std::string> words) {
    words.insert(words.begin(), "--player=kvo5");
    return playerctl(std::move(words));
  };
  EXPECT_EQ(playerctl({"--list-all"}) + mine({"status"}) + mine({"volume"}), "kvo5\nPlaying\n0.500000\n");
  EXPECT_EQ(mine({"position"}).substr(0, 3), "4.5");
  EXPECT_EQ(mine({"metadata", "--format",
                  "{{title}}|{{artist}}|{{album}}|{{mpris:length}}|{{mpris:artUrl}}|{{xesam:url}}|{{mpris:"
                  "trackid}}"}),
            "lake at "
            "dusk|A|B|12500000|file:///v/cover%20%231.jpg|file:///v/lake%20at%20dusk.mpg|'/kvo5/track/7'\n");
  // clang-format off
  const struct {
    std::vector<std::string> words;
    const char* asked;
  } rows[] = {
      {{"play"}, "play "}, {{"pause"}, "pause "}, {{"play-pause"}, "play-pause "}, {{"stop"}, "stop "},
      {{"next"}, "next "}, {{"previous"}, "previous "}, {{"position", "3"}, "place 7 3 "},
      {{"position", "2+"}, "seek 2 "}, {{"position", "2-"}, "seek -2 "}, {{"volume", "0.25"}, "volume 0.25 "},
      {{"loop", "Playlist"}, "repeat 2 "}, {{"loop", "Track"}, "repeat 1 "},
      {{"open", "/v/a b.avi"}, "open /v/a b.avi "}};
  // clang-format on
  for (const auto& row : rows) {
    requests.asked.clear();
    const auto told = mine(row.words);
    EXPECT_EQ(requests.asked, row.asked) << row.words.front() << ": " << told;
  }
}

// An applet on a connection of its own.
class Applet {
 public:
  explicit Applet(const std::string& address)
      : bus_(QDBusConnection::connectToBus(QString::fromStdString(address), "applet")) {}
  Applet(const Applet&) = delete;
  Applet& operator=(const Applet&) = delete;
  ~Applet() { QDBusConnection::disconnectFromBus("applet"); }

  // The answer: its one value, or the name of the error.
  std::string call(const char* interface, const char* method, const QVariantList& words = {}) {
    auto message = QDBusMessage::createMethodCall(kName, "/org/mpris/MediaPlayer2", interface, method);
    message.setArguments(words);
    auto answer = bus_.asyncCall(message);
    EXPECT_TRUE(until([&] { return answer.isFinished(); }));
    const auto reply = answer.reply();
    if (reply.type() == QDBusMessage::ErrorMessage) return reply.errorName().section('.', -1).toStdString();
    if (reply.arguments().isEmpty()) return "done";
    return reply.arguments().front().value<QDBusVariant>().variant().toString().toStdString();
  }
  std::string get(const char* name) {
    return call("org.freedesktop.DBus.Properties", "Get", {kPlayer, name});
  }
  std::string set(const char* name, const QVariant& value) {
    return call("org.freedesktop.DBus.Properties", "Set",
                {kPlayer, name, QVariant::fromValue(QDBusVariant(value))});
  }
  bool takeName() { return bus_.registerService(kName); }

 private:
  static constexpr const char* kName = "org.mpris.MediaPlayer2.kvo5";
  QDBusConnection bus_;
};

TEST_F(Bus, TheInterfaceIsAsPublished) {
  ASSERT_TRUE(controls.listen(requests));
  Applet applet(bus->address());
  EXPECT_EQ(lineOf(applet.get("PlaybackStatus"), applet.get("CanPlay"), applet.get("Nonsense")),
            "Stopped false UnknownProperty");
  const auto elsewhere = QVariant::fromValue(QDBusObjectPath("/other/3"));
  std::string answers;
  for (const auto& answer :
       {applet.set("Rate", 0.0), applet.set("Rate", 64.0), applet.set("Volume", -1.0),
        applet.call("org.mpris.MediaPlayer2", "Raise"), applet.call("org.mpris.MediaPlayer2", "Quit"),
        applet.call(kPlayer, "SetPosition", {elsewhere, 5LL}), applet.set("LoopStatus", "Sometimes"),
        applet.set("Volume", QStringList{"a"}), applet.call(kPlayer, "Seek", {"word"}),
        applet.set("Position", 3LL), applet.call(kPlayer, "Dance")})
    answers += answer + " ";
  EXPECT_EQ(answers,
            "done done done done done done InvalidArgs InvalidArgs InvalidArgs PropertyReadOnly "
            "UnknownMethod ");
  EXPECT_EQ(requests.asked, "pause volume 0 raise quit place 0 5e-06 ")
      << "a rate of 0 is a pause, one that we have not is none";
}

TEST_F(Bus, ASecondCopyHasANameOfItsOwn) {
  Applet first(bus->address());
  ASSERT_TRUE(first.takeName());
  ASSERT_TRUE(controls.listen(requests));
  const auto own = "kvo5.instance" + std::to_string(::getpid());
  EXPECT_NE(playerctl({"--list-all"}).find(own), std::string::npos);
  controls.tell(clipThatPlays());
  EXPECT_EQ(playerctl({"--player=" + own, "status"}), "Playing\n");
}

TEST_F(Bus, OnlyWhatDiffersGoesOut) {
  ASSERT_TRUE(controls.listen(requests));
  const test::Companion monitor(
      {"stdbuf", "-oL", "dbus-monitor", "--session", "path=/org/mpris/MediaPlayer2"});
  const auto hears = [&](const char* part) {
    return until([&] { return test::holds(monitor.said(), part); });
  };
  ASSERT_TRUE(hears("NameAcquired")) << monitor.said();
  auto told = clipThatPlays();
  controls.tell(told);
  controls.tell(told);
  ASSERT_TRUE(hears("PropertiesChanged")) << monitor.said();
  told.state = PlayingState::Paused;
  controls.tell(told);
  controls.tellJump(2);
  ASSERT_TRUE(hears("int64 2000000")) << monitor.said();
  const auto text = monitor.said();
  EXPECT_EQ(
      lineOf(countOf(text, "PropertiesChanged"), countOf(text, "\"PlaybackStatus\""),
             countOf(text, "\"Metadata\""), countOf(text, "\"Position\""), countOf(text, "member=Seeked")),
      "2 2 1 0 1")
      << "what is as it was stays unsaid: " << text;
}

// What stands on the bus for the desktop, under these names.
class OnTheBus : public QDBusVirtualObject {
 public:
  using Answer = std::function<QDBusMessage(const QDBusMessage&)>;
  OnTheBus(const std::string& address, const char* path, std::initializer_list<const char*> names,
           Answer answer)
      : bus_(QDBusConnection::connectToBus(QString::fromStdString(address), "desktop")),
        answer_(std::move(answer)) {
    EXPECT_TRUE(bus_.registerVirtualObject(path, this, QDBusConnection::SubPath));
    for (const auto* name : names) EXPECT_TRUE(bus_.registerService(name));
  }
  OnTheBus(const OnTheBus&) = delete;
  OnTheBus& operator=(const OnTheBus&) = delete;
  ~OnTheBus() override { QDBusConnection::disconnectFromBus("desktop"); }

  std::string calls;  ///< "Inhibit [sleep] [7] ": what was asked of it, with its texts and numbers
  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    calls += message.member().toStdString() + " ";
    for (const auto& argument : message.arguments())
      if (argument.canConvert<QString>()) calls += "[" + argument.toString().toStdString() + "] ";
    connection.send(answer_(message));
    return true;
  }

 private:
  QDBusConnection bus_;
  Answer answer_;
};

// Time for an answer to come.
void turnAWhile() {
  for (int i = 0; i < 20; ++i) {
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(5ms);
  }
}

TEST_F(Bus, TheScreenSaverIsAskedAndThePortalWhereThereIsNone) {
  for (const bool portal : {false, true}) {
    OnTheBus desktop(bus->address(),
                     portal ? "/org/freedesktop/portal/desktop" : "/org/freedesktop/ScreenSaver",
                     {portal ? "org.freedesktop.portal.Desktop" : "org.freedesktop.ScreenSaver"},
                     [&](const QDBusMessage& message) {
                       if (message.member() != "Inhibit") return message.createReply();
                       const QDBusObjectPath request("/org/freedesktop/portal/desktop/request/1");
                       return message.createReply(portal ? QVariant::fromValue(request) : QVariant(42U));
                     });
    const std::string begin = portal ? "Inhibit [] [8] " : "Inhibit [KVO5] [A clip plays] ";
    const auto end = begin + (portal ? "Close " : "UnInhibit [42] ");
    BusScreenSaver awake;
    awake.inhibit(true);
    awake.inhibit(true);
    ASSERT_TRUE(until([&] { return desktop.calls == begin; })) << desktop.calls;
    turnAWhile();
    awake.inhibit(false);
    EXPECT_TRUE(until([&] { return desktop.calls == end; })) << desktop.calls;
    // An end that comes ahead of the answer is not forgotten; no portal is asked for what is over.
    desktop.calls.clear();
    awake.inhibit(true);
    awake.inhibit(false);
    EXPECT_TRUE(portal || until([&] { return desktop.calls == end; })) << desktop.calls;
  }
}

TEST_F(Bus, ThePortalTellsWhetherLittleShouldMove) {
  const std::tuple<const char*, QVariant, bool> rows[] = {{"reduced-motion", 1U, true},
                                                          {"reduced-motion", 0U, false},
                                                          {"enable-animations", false, true},
                                                          {"enable-animations", true, false},
                                                          {"AnimationDurationFactor", "0", true},
                                                          {"AnimationDurationFactor", "0.5", false},
                                                          {"AnimationDurationFactor", "slow", false}};
  for (const auto& [key, value, isReduced] : rows) {
    const auto answer = [&, key = key, value = value](const QDBusMessage& message) {
      const auto inside = QVariant::fromValue(QDBusVariant(value));
      return message.arguments().value(1).toString() == key
                 ? message.createReply(QVariant::fromValue(QDBusVariant(inside)))
                 : message.createErrorReply("org.freedesktop.portal.Error.NotFound", "no such setting");
    };
    const OnTheBus desktop(bus->address(), "/org/freedesktop/portal/desktop",
                           {"org.freedesktop.portal.Desktop"}, answer);
    BusMotion motion;
    EXPECT_FALSE(motion.isReduced()) << "it is not waited for";
    ASSERT_TRUE(until([&] { return countOf(desktop.calls, "[") == 6U; })) << "of three keys in three places";
    if (!isReduced) turnAWhile();
    EXPECT_TRUE(until([&, isReduced = isReduced] { return motion.isReduced() == isReduced; })) << key;
  }
}

// The login manager gives out the end of a pipe, and somebody shows notifications.
TEST_F(Bus, LongWorkHoldsSleepOffAndTellsOfItsEnd) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK), 0);
  QDBusUnixFileDescriptor given(pipe[1]);
  ::close(pipe[1]);
  OnTheBus desktop(bus->address(), "/org/freedesktop",
                   {"org.freedesktop.login1", "org.freedesktop.Notifications"},
                   [&](const QDBusMessage& message) {
                     return message.member() == "Inhibit"
                                ? message.createReply(QVariant::fromValue(std::exchange(given, {})))
                                : message.createReply();
                   });
  const auto isReleased = [&] {  // whoever has the other end has closed it
    char byte = 0;
    return ::read(pipe[0], &byte, 1) == 0;
  };
  LongWorkBus work;
  work.keepAwake("A movie is made");
  ASSERT_TRUE(until([&] { return !desktop.calls.empty(); }));
  EXPECT_EQ(std::exchange(desktop.calls, ""), "Inhibit [sleep:idle] [KVO5] [A movie is made] [block] ");
  turnAWhile();
  EXPECT_FALSE(isReleased());
  work.letSleep();
  EXPECT_TRUE(until(isReleased));
  work.tell("KVO5", "a<b.wmv has been created !");
  EXPECT_TRUE(until([&] { return !desktop.calls.empty(); }));
  EXPECT_EQ(desktop.calls, "Notify [KVO5] [0] [kvo5] [KVO5] [a&lt;b.wmv has been created !] [] [-1] ");
  ::close(pipe[0]);
}

}  // namespace
}  // namespace kvo
