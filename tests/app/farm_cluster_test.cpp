// A real cluster of one machine, on loopback and with everything of its own, makes a movie.
#include "support/held_engine.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <list>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

namespace kvo {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::eventually;

// Ports that nobody has.
std::pair<int, int> freePorts() {
  std::array<int, 2> sockets{};
  std::array<int, 2> ports{};
  for (std::size_t i = 0; i < 2; ++i) {
    sockets.at(i) = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    EXPECT_EQ(::bind(sockets.at(i), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ::getsockname(sockets.at(i), reinterpret_cast<sockaddr*>(&address), &length);
    ports.at(i) = ntohs(address.sin_port);
  }
  for (const int socket : sockets) ::close(socket);
  return {ports[0], ports[1]};
}

// munged, slurmctld and slurmd of the user who runs the test. They end with it.
class Cluster {
 public:
  Cluster() {
    const auto munge = folder_ / "munge";
    for (const auto& path : {munge, folder_ / "state", folder_ / "spool"}) fs::create_directory(path);
    {
      std::ifstream random("/dev/urandom", std::ios::binary);
      std::string key(1024, '\0');
      random.read(key.data(), static_cast<std::streamsize>(key.size()));
      std::ofstream(munge + "/key", std::ios::binary) << key;
      fs::permissions(munge + "/key", fs::perms::owner_read);
    }
    daemons_.emplace_back(std::vector<std::string>{
        "/usr/sbin/munged", "--foreground", "--force", "--key-file=" + munge + "/key",
        "--socket=" + munge + "/socket", "--pid-file=" + munge + "/pid", "--log-file=" + munge + "/log",
        "--seed-file=" + munge + "/seed"});
    EXPECT_TRUE(eventually([&] { return fs::exists(munge + "/socket"); }));
    writeConfiguration(munge + "/socket");
    ::setenv("SLURM_CONF", (folder_ / "slurm.conf").c_str(), 1);
    for (const auto* daemon : {"/usr/sbin/slurmctld", "/usr/sbin/slurmd"})
      daemons_.emplace_back(std::vector<std::string>{daemon, "-D", "-c"});
    EXPECT_TRUE(eventually([] {
      return test::runProgram({"sinfo", "--noheader", "--format=%T"}).out.starts_with("idle");
    })) << bytesOf(folder_ / "controller.log")
        << bytesOf(folder_ / "machine.log");
  }
  Cluster(const Cluster&) = delete;
  Cluster& operator=(const Cluster&) = delete;
  ~Cluster() {
    while (!daemons_.empty()) daemons_.pop_back();  // the last one first
    ::unsetenv("SLURM_CONF");
  }

 private:
  void writeConfiguration(const std::string& socket) const {
    std::array<char, 256> name{};
    ::gethostname(name.data(), name.size() - 1);
    const auto host = std::string(name.data()).substr(0, std::string(name.data()).find('.'));
    const auto user = test::runProgram({"id", "-un"}).out;
    const auto [controller, machine] = freePorts();
    std::ofstream(folder_ / "slurm.conf")
        << "ClusterName=test\nSlurmctldHost=" << host << "(127.0.0.1)\nSlurmUser=" << user
        << "SlurmdUser=" << user << "AuthType=auth/munge\nAuthInfo=socket=" << socket
        << "\nSlurmctldPort=" << controller << "\nSlurmdPort=" << machine
        << "\nStateSaveLocation=" << folder_ / "state"
        << "\nSlurmdSpoolDir=" << folder_ / "spool"
        << "\nSlurmctldPidFile=" << folder_ / "controller.pid"
        << "\nSlurmdPidFile=" << folder_ / "machine.pid"
        << "\nSlurmctldLogFile=" << folder_ / "controller.log"
        << "\nSlurmdLogFile=" << folder_ / "machine.log"
        << "\nProctrackType=proctrack/pgid\nTaskPlugin=task/none\nSelectType=select/cons_tres\n"
           "SelectTypeParameters=CR_Core\nJobAcctGatherType=jobacct_gather/none\nMpiDefault=none\n"
           "SchedulerParameters=batch_sched_delay=0,sched_interval=1\nKillWait=1\nReturnToService=2\n"
        << "NodeName=" << host << " NodeAddr=127.0.0.1 CPUs=" << std::thread::hardware_concurrency()
        << " State=UNKNOWN\nPartitionName=main Nodes=" << host << " Default=YES State=UP\n";
  }

  test::ScratchFolder folder_;
  std::list<test::Companion> daemons_;
};

class FarmCluster : public testing::Test {
 protected:
  FarmCluster() {
    ::setenv("KVO5_HOME", home_.path().c_str(), 1);
    const auto video = test::makeCountingVideo(work_, "0.avi", "25", 100);
    std::vector<std::string> words = {KVO_PROGRAMS "/kvo5", "--add", collection_, video};
    for (const auto* copy : {"1.avi", "2.avi", "3.avi", "4.avi", "5.avi"}) {
      fs::copy(video, work_ / copy);
      words.push_back(work_ / copy);
    }
    EXPECT_EQ(test::runProgram(words).exitCode, 0);
  }
  ~FarmCluster() override { ::unsetenv("KVO5_HOME"); }

  [[nodiscard]] std::vector<std::string> order(const std::string& name, bool onFarm) const {
    std::vector<std::string> words = {engine_.kvo5(), "--render", collection_, "--output", work_ / name,
                                      "--size",       "640x360",  "--codec",   "mpeg4"};
    if (onFarm) words.insert(words.end(), {"--slurm", "2"});
    return words;
  }

  test::ScratchFolder home_;
  test::ScratchFolder work_;
  std::string collection_ = work_ / "c.INI";
  test::HeldEngine engine_{KVO_PROGRAMS};
};

TEST_F(FarmCluster, MakesTheMovieOfOneMachineToTheByte) {
  const Cluster cluster;
  ASSERT_EQ(test::runProgram(order("a.avi", false)).exitCode, 0);
  // One of the engines is killed: its share is handed in again.
  engine_.haltNext("1/1");
  test::Companion made(order("b.avi", true));
  ::kill(engine_.halted(), SIGKILL);
  EXPECT_EQ(made.end(), 0) << made.said();
  EXPECT_NE(made.said().find("attempt 2"), std::string::npos) << made.said();
  EXPECT_TRUE(bytesOf(work_ / "a.avi") == bytesOf(work_ / "b.avi"));
  EXPECT_FALSE(fs::exists(work_ / ".rendering-b.avi"));

  // A stop takes the jobs back, and the next start goes on.
  engine_.haltNext("1/1");
  const auto nobodyRuns = [] { return test::runProgram({"squeue", "--noheader"}).out.empty(); };
  test::Companion stopped(order("c.avi", true));
  const int halted = engine_.halted();
  stopped.signal(SIGINT);
  EXPECT_EQ(stopped.end(), 130);
  EXPECT_TRUE(eventually(nobodyRuns));
  EXPECT_TRUE(test::comesToItsEnd(halted));
  EXPECT_FALSE(fs::exists(work_ / "c.avi"));
  const auto again = test::runProgram(order("c.avi", true));
  EXPECT_EQ(again.exitCode, 0) << again.out << again.err;
  EXPECT_TRUE(bytesOf(work_ / "a.avi") == bytesOf(work_ / "c.avi"));
}

}  // namespace
}  // namespace kvo
