#include "base/paths.h"

#include "base/text.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kvo {
namespace {

namespace fs = std::filesystem;

// The entry of `folder` that is `name` in another case.
fs::path entryLike(const fs::path& folder, const fs::path& name) {
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end; entry.increment(failed)) {
    if (sameText(entry->path().filename().native(), name.native())) return entry->path();
  }
  return {};
}

}  // namespace

ProgramFolder::ProgramFolder(std::string path) : path_(std::move(path)) {
  while (path_.size() > 1 && path_.back() == kSeparator) path_.pop_back();
}

std::string ProgramFolder::beside(std::string_view name) const {
  while (!name.empty() && (name.front() == '\\' || name.front() == kSeparator)) name.remove_prefix(1);
  return nameInAnyCase(withSeparator(path_).append(name));
}

ProgramFolder findProgramFolder(const std::function<std::string(const char*)>& environment,
                                const std::string& executableFolder) {
  if (auto home = environment("KVO5_HOME"); !home.empty()) return ProgramFolder(std::move(home));
  std::error_code ignored;
  ProgramFolder portable(executableFolder);
  if (!executableFolder.empty() && fs::exists(portable.beside("KVO5.INI"), ignored)) return portable;
  const auto isAbsolute = [](const std::string& path) { return path.starts_with(kSeparator); };
  if (const auto data = environment("XDG_DATA_HOME"); isAbsolute(data))
    return ProgramFolder(withSeparator(data) + "KVO5");
  if (const auto home = environment("HOME"); isAbsolute(home))
    return ProgramFolder(withSeparator(home) + ".local/share/KVO5");
  return ProgramFolder(executableFolder.empty() ? "/" : executableFolder);
}

std::string executableFolder() {
  std::error_code failed;
  const auto file = std::filesystem::read_symlink("/proc/self/exe", failed);
  return failed ? std::string() : file.parent_path().string();
}

std::string nameInAnyCase(const std::string& path) {
  std::error_code ignored;
  if (fs::exists(path, ignored)) return path;
  auto slashed = path;
  std::replace(slashed.begin(), slashed.end(), '\\', kSeparator);
  fs::path found;
  for (const auto& part : fs::path(slashed)) {
    auto next = found / part;
    if (!fs::exists(next, ignored)) next = entryLike(found.empty() ? "." : found, part);
    if (next.empty()) return path;
    found = next;
  }
  return found.string();
}

std::string absoluteName(std::string_view name, std::string_view folder) {
  if (name.starts_with(kSeparator) || isAddress(name)) return std::string(name);
  return fs::path(withSeparator(folder).append(name)).lexically_normal().string();
}

std::string DvdSource(const std::string& file) {
  const auto kind = extensionOf(file);
  if (kind != "IFO" && kind != "BUP") return file;
  std::string first;
  std::error_code failed;
  const auto folder = folderPart(file);
  for (fs::directory_iterator at(folder.empty() ? "." : folder, failed), end; !failed && at != end;
       at.increment(failed)) {
    auto other = at->path().string();
    if (extensionOf(other) == "VOB" && (first.empty() || other < first)) first = std::move(other);
  }
  return first.empty() ? file : first;
}

bool isAddress(std::string_view text) {
  const auto scheme = text.find("://");
  return scheme != std::string_view::npos && scheme > 1 && text.find(kSeparator) > scheme;
}

std::string withSeparator(std::string_view folder) {
  std::string out(folder);
  if (!out.empty() && out.back() != kSeparator) out += kSeparator;
  return out;
}

std::string_view fileNamePart(std::string_view path) {
  if (isAddress(path)) return path;
  const auto at = path.rfind(kSeparator);
  return at == std::string_view::npos ? path : path.substr(at + 1);
}

std::string wholeExtension(std::string_view path) {
  const auto file = fileNamePart(path);
  const auto stop = file.rfind('.');
  return stop == std::string_view::npos ? std::string() : upper(file.substr(stop + 1));
}

std::string_view folderPart(std::string_view path) {
  if (isAddress(path)) return {};
  const auto at = path.rfind(kSeparator);
  return at == std::string_view::npos ? std::string_view() : path.substr(0, at + 1);
}

}  // namespace kvo
