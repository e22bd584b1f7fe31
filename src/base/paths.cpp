#include "base/paths.h"

#include <filesystem>
#include <system_error>

namespace kvo {

ProgramFolder::ProgramFolder(std::string path) : path_(std::move(path)) {
  while (path_.size() > 1 && path_.back() == kSeparator) path_.pop_back();
}

std::string ProgramFolder::beside(std::string_view name) const {
  while (!name.empty() && (name.front() == '\\' || name.front() == kSeparator)) name.remove_prefix(1);
  return withSeparator(path_).append(name);
}

ProgramFolder findProgramFolder(const std::function<std::string(const char*)>& environment,
                                const std::string& executableFolder) {
  if (auto home = environment("KVO5_HOME"); !home.empty()) return ProgramFolder(std::move(home));
  std::error_code ignored;
  if (!executableFolder.empty() &&
      std::filesystem::exists(withSeparator(executableFolder) + "KVO5.INI", ignored)) {
    return ProgramFolder(executableFolder);
  }
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

std::string absoluteName(std::string_view name, std::string_view folder) {
  if (name.starts_with(kSeparator) || isAddress(name)) return std::string(name);
  while (name.starts_with("./")) name.remove_prefix(2);
  return withSeparator(folder).append(name);
}

bool isAddress(std::string_view text) { return text.find("://") != std::string_view::npos; }

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

std::string_view folderPart(std::string_view path) {
  if (isAddress(path)) return {};
  const auto at = path.rfind(kSeparator);
  return at == std::string_view::npos ? std::string_view() : path.substr(0, at + 1);
}

}  // namespace kvo
