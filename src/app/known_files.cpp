#include "app/known_files.h"

#include "base/paths.h"

namespace kvo {
namespace {

constexpr std::uint64_t kMostKeptBytes = 64ULL << 20U;
constexpr std::string_view kFoundOutBy = "KVO5 " KVO_VERSION;  // another version may tell more

std::string keptIn(const std::string& cacheFolder) { return withSeparator(cacheFolder) + "known-files"; }

}  // namespace

void rememberFiles(MediaFileContents& streams, const Files& files, const std::string& cacheFolder) {
  if (cacheFolder.empty()) return;
  if (const auto text = files.read(keptIn(cacheFolder), kMostKeptBytes)) streams.remember(*text, kFoundOutBy);
}

bool keepFiles(MediaFileContents& streams, Files& files, const std::string& cacheFolder) {
  return !cacheFolder.empty() && files.makeFolder(cacheFolder) &&
         writeDurably(files, keptIn(cacheFolder), streams.known(kFoundOutBy));
}

}  // namespace kvo
