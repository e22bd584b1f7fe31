#include "app/look_command.h"

#include "adapters/posix/starter_watch.h"
#include "base/exit_codes.h"
#include "base/guarded.h"
#include "intake/look_words.h"
#include "media/media_facts.h"
#include "media/media_look.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace kvo {
namespace {

Outcome answer(const std::string& path) {
  return guarded([&]() -> Outcome {
    const auto lines = lookLines(media::lookInto(path));
    if (std::fwrite(lines.data(), 1, lines.size(), stdout) != lines.size() || std::fflush(stdout) != 0)
      return Error{"nobody reads the answers"};
    return {};
  });
}

}  // namespace

ProcessOrder lookingProcess(const std::string& executableFolder) {
  return {.program = executableFolder + "kvo5", .arguments = {"--look"}, .hasInput = true};
}

int runLook() {
  media::silenceRemarks();
  const StarterWatch watch(::getppid());
  std::string pending;
  std::array<char, 1U << 14U> buffer{};
  for (;;) {
    const auto got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return kExitDone;
    pending.append(buffer.data(), static_cast<std::size_t>(got));
    for (auto end = pending.find('\0'); end != std::string::npos; end = pending.find('\0')) {
      if (!answer(pending.substr(0, end))) return kExitFailed;
      pending.erase(0, end + 1);
    }
  }
}

}  // namespace kvo
