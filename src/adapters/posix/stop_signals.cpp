#include "adapters/posix/stop_signals.h"

#include <csignal>
#include <initializer_list>
#include <sys/signalfd.h>
#include <unistd.h>

namespace kvo {
namespace {

sigset_t stopSet() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, signal);
  return set;
}

}  // namespace

StopSignals::StopSignals() {
  const auto set = stopSet();
  ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
  descriptor_ = Descriptor(::signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC));
}

StopSignals::~StopSignals() {
  const auto set = stopSet();
  ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

bool StopSignals::came() {
  signalfd_siginfo info{};
  if (::read(descriptor_.get(), &info, sizeof info) == sizeof info) came_ = true;
  return came_;
}

}  // namespace kvo
