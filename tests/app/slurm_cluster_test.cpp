// A real cluster of one machine, on loopback and with everything of its own, makes a movie.
#include "support/held_engine.h"
#include "support/loopback_server.h"

#include <list>

namespace kvo {
namespace {

namespace fs = std::filesystem;
using test::bytesOf;
using test::eventually;

// munged, slurmctld and slurmd of the user who runs the test. They end with it.
class Cluster {
 public:
  Cluster() {
    const auto munge = folder_ / "munge";
    for (const auto& path : {munge, folder_ / "state", folder_ / "spool"}) fs::create_directory(path);
    std::ofstream(munge + "/key") << test::runProgram({"head", "-c", "1024", "/dev/urandom"}).out;
    fs::permissions(munge + "/key", fs::perms::owner_read);
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
    auto host = test::runProgram({"uname", "-n"}).out;
    host = host.substr(0, host.find_first_of(".\n"));
    const auto user = test::runProgram({"id", "-un"}).out;
    const auto path = folder_.path();
    const test::LoopbackPort controller, machine;
    std::ofstream(path + "/slurm.conf")
        << "ClusterName=test\nSlurmctldHost=" << host << "(127.0.0.1)\nSlurmUser=" << user
        << "SlurmdUser=" << user << "AuthType=auth/munge\nAuthInfo=socket=" << socket
        << "\nSlurmctldPort=" << controller.number() << "\nSlurmdPort=" << machine.number()
        << "\nStateSaveLocation=" << path << "/state\nSlurmdSpoolDir=" << path
        << "/spool\nSlurmctldPidFile=" << path << "/controller.pid\nSlurmdPidFile=" << path
        << "/machine.pid\nSlurmctldLogFile=" << path << "/controller.log\nSlurmdLogFile=" << path
        << "/machine.log\nProctrackType=proctrack/pgid\nTaskPlugin=task/none\nSelectType=select/cons_tres\n"
           "SelectTypeParameters=CR_Core\nJobAcctGatherType=jobacct_gather/none\nMpiDefault=none\n"
           "SchedulerParameters=batch_sched_delay=0,sched_interval=1\nKillWait=1\nReturnToService="
           "2\nNodeName="
        << host << " NodeAddr=127.0.0.1 CPUs=" << std::thread::hardware_concurrency()
        << " State=UNKNOWN\nPartitionName=main Nodes=" << host << " Default=YES State=UP\n";
  }

  test::ScratchFolder folder_;
  std::list<test::Companion> daemons_;
};

class SlurmCluster : public testing::Test {
 protected:
  SlurmCluster() {
    ::setenv("KVO5_HOME", home_.path().c_str(), 1);
    std::vector<std::string> words = {KVO_PROGRAMS "/kvo5", "--add", collection_};
    for (const auto* clip : {"0.avi", "1.avi", "2.avi", "3.avi", "4.avi", "5.avi"})
      words.push_back(test::makeCountingVideo(work_, clip, "25", 100));
    EXPECT_EQ(test::runProgram(words).exitCode, 0);
  }
  ~SlurmCluster() override { ::unsetenv("KVO5_HOME"); }

  [[nodiscard]] std::vector<std::string> order(const std::string& name, bool onCluster) const {
    std::vector<std::string> words = {engine_.kvo5(), "--render", collection_, "--output", work_ / name,
                                      "--size",       "640x360",  "--codec",   "mpeg4"};
    if (onCluster) words.insert(words.end(), {"--slurm", "2"});
    return words;
  }

  test::ScratchFolder home_;
  test::ScratchFolder work_;
  std::string collection_ = work_ / "c.INI";
  test::HeldEngine engine_{KVO_PROGRAMS};
};

TEST_F(SlurmCluster, MakesTheMovieOfOneMachineToTheByte) {
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
