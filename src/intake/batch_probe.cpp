#include "intake/batch_probe.h"

#include "base/paths.h"
#include "base/text.h"

namespace kvo {
namespace {

constexpr std::string_view kDoneFile = "Done.txt";
constexpr std::string_view kBatch = "KVOProps.bat";
constexpr std::string_view kReport = "wmprops.txt";

constexpr int kFirstWait = 250;  // milliseconds
constexpr int kNextWait = 150;
constexpr std::uint64_t kMostOfReport = 1U << 20U;  // bytes

}  // namespace

// Within single quotes the shell takes every byte as it is but the quote itself.
std::string shellWord(std::string_view name) { return "'" + replaced(name, "'", "'\\''") + "'"; }

Outcome BuildBat(Files& files, std::string_view command, std::string_view sentinel, std::string_view batch,
                 const std::string& folder) {
  const auto in = withSeparator(folder);
  const auto done = in + std::string(sentinel);
  const auto file = in + std::string(batch);
  for (const auto& old : {done, file}) {
    if (files.exists(old) && !files.remove(old)) return Error{"cannot remove " + old};
  }
  return files.append(file, std::string(command).append("\necho > ").append(shellWord(done)).append("\n"));
}

std::optional<std::string> BatchProbe::report(const std::string& path, int tries) {
  const auto folder = parts_.folders.make();
  if (!folder) return std::nullopt;
  const auto in = withSeparator((*folder)->path());
  const auto answer = in + std::string(kReport);
  const auto command = shellWord(parts_.program) + " -- " + shellWord(path) + " > " + shellWord(answer);
  if (!BuildBat(parts_.files, command, kDoneFile, kBatch, (*folder)->path())) return std::nullopt;
  ProcessHearing hearing;
  hearing.errorLine = [](std::string_view) {};  // why it fails is nobody's affair here
  const auto process = parts_.processes.start(
      parts_.loop, {.program = "/bin/sh", .arguments = {in + std::string(kBatch)}}, std::move(hearing));
  if (!process) return std::nullopt;
  const auto done = in + std::string(kDoneFile);
  pass(kFirstWait);
  for (int i = 0; i < tries; ++i) {
    pass(kNextWait);
    if (parts_.files.exists(done)) break;
  }
  return take(answer);
}

void BatchProbe::pass(int milliseconds) {
  const auto end = parts_.loop.now() + std::chrono::milliseconds(milliseconds);
  while (parts_.loop.now() < end) parts_.loop.wait(static_cast<int>((end - parts_.loop.now()).count()));
}

std::optional<std::string> BatchProbe::take(const std::string& file) {
  const auto bytes = parts_.files.read(file, kMostOfReport);
  if (!bytes) return std::nullopt;
  std::string text;
  std::string_view rest = *bytes;
  while (!rest.empty()) text.append(nextLine(rest)).append(kCrLf);
  return text;
}

}  // namespace kvo
