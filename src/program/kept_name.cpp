#include "program/kept_name.h"

#include "base/text.h"
#include "program/collection_store.h"

#include <string_view>

namespace kvo {
namespace {

constexpr std::string_view kHeading = "[Autosave]\r\n";
constexpr std::string_view kFileKey = "File= ";
constexpr std::string_view kPortableLine = "Portable= True";

}  // namespace

std::string keptText(const KeptName& kept) {
  std::string text(kHeading);
  if (kept.fullPath.find_first_of("\r\n") == std::string::npos)
    text.append(kFileKey).append(kept.fullPath).append(kCrLf);
  if (kept.isPortable) text.append(kPortableLine);
  return text;
}

KeptName keptName(const Files& files, const std::string& path) {
  KeptName kept;
  const auto bytes = files.read(path, kMaxCollectionBytes);
  const auto at = bytes ? bytes->rfind(kHeading) : std::string::npos;
  if (at == std::string::npos) return kept;
  std::string_view rest = std::string_view(*bytes).substr(at + kHeading.size());
  while (!rest.empty()) {
    const auto line = nextLine(rest);
    if (line.starts_with(kFileKey)) kept.fullPath = line.substr(kFileKey.size());
    if (line.starts_with(kPortableLine)) kept.isPortable = true;
  }
  return kept;
}

}  // namespace kvo
