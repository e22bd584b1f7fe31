// The render engine as a process of its own. On standard output it tells how far it is, one line at a time:
//   progress DONE TOTAL           seconds of the movie, a few times a second
//   done FRAMES SECONDS BYTES     the file is in place
// A failure is one line on standard error. Exit codes: 0 done, 1 failed, 2 wrong usage.
#include "app/engine_arguments.h"
#include "base/numbers.h"
#include "engine/document_reader.h"
#include "engine/renderer.h"
#include "media/media_facts.h"
#include "platform/posix/posix_files.h"

#include <chrono>
#include <cstdio>

namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

int fail(const kvo::Error& error, int code) {
  std::fprintf(stderr, "KVORender: %s\n", error.text.c_str());
  return code;
}

void print(const std::string& line) {
  std::fputs(line.c_str(), stdout);
  std::fflush(stdout);
}

kvo::engine::RenderWatch progressPrinter() {
  using Clock = std::chrono::steady_clock;
  return [next = Clock::now()](double done, double total) mutable {
    const auto now = Clock::now();
    if (now < next && done < total) return;
    next = now + std::chrono::milliseconds(200);
    print("progress " + kvo::FormatMask(done, "0.000") + " " + kvo::FormatMask(total, "0.000") + "\n");
  };
}

}  // namespace

int main(int argc, char** argv) {
  const auto arguments = kvo::readEngineArguments({argv + 1, argv + argc});
  if (!arguments) {
    std::fputs("usage: KVORender [/[FROM-TO]] [/P PROFILE] [/C CODEC] /W OUTPUT DOCUMENT\n", stderr);
    return fail(arguments.error(), kWrongUsage);
  }
  kvo::media::silenceRemarks();
  kvo::PosixFiles files;
  auto text = files.read(arguments->document, kvo::engine::kMaxDocumentBytes);
  if (!text) return fail(text.error(), kFailed);
  const auto timeline = kvo::engine::readDocument(std::move(*text));
  if (!timeline) return fail({arguments->document + ": " + timeline.error().text}, kFailed);
  const auto report = kvo::engine::render(*timeline, arguments->job, files, progressPrinter());
  if (!report) return fail(report.error(), kFailed);
  print("done " + std::to_string(report->frames) + " " + kvo::FormatMask(report->seconds, "0.000") + " " +
        std::to_string(report->bytes) + "\n");
  return kDone;
}
