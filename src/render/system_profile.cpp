#include "render/system_profile.h"

#include "render/wm8_profile.h"

#include <array>

namespace kvo {
namespace {

constexpr std::array<std::string_view, 2> kProfileFiles = {"\\wmsyspr9.prx", "\\wmsysprx.prx"};
constexpr std::string_view kProfileLock = "\\wmsysprx.lock";

std::string oldNameOf(const std::string& path) { return path + ".old"; }

Box profileBox(std::string_view caption, std::string_view text) {
  return {std::string(caption), std::string(text), BoxButtons::Ok, BoxIcon::Warning};
}

constexpr std::string_view kWriteCaption = "KVO - Write WM8 Movie";
constexpr std::string_view kRestoreCaption = "KVO - WM8 Restore";

}  // namespace

SystemProfile::~SystemProfile() { RestoreSysProfile(); }

std::optional<std::string> SystemProfile::GetSystemProfilePath() const {
  for (const auto name : kProfileFiles) {
    auto path = ports_.folder.beside(name);
    if (ports_.files.exists(path)) return path;
  }
  return std::nullopt;
}

Result<std::unique_ptr<FileLock>> SystemProfile::hold() const {
  return ports_.locks.tryLock(ports_.folder.beside(kProfileLock));
}

bool SystemProfile::bringBack(const std::string& path) {
  const auto old = oldNameOf(path);
  return !ports_.files.exists(old) || ports_.files.rename(old, path).ok();
}

void SystemProfile::mend() {
  if (SysProfileRenamed()) return;
  if (const auto held = hold(); held && *held) bringAllBack();
}

void SystemProfile::bringAllBack() {
  for (const auto name : kProfileFiles) bringBack(ports_.folder.beside(name));
}

bool SystemProfile::CreateWM8RenderProfile(int number, std::optional<OutputSize> outputSize,
                                           std::string_view bitCount) {
  if (SysProfileRenamed()) return false;
  auto held = hold();
  if (!held) return false;
  if (!*held) {
    ports_.boxes.show(profileBox(kWriteCaption, "Another render is using the WM8 System Encoding profiles"));
    return false;
  }
  lock_ = std::move(*held);
  bringAllBack();
  if (WriteWM8EncodeProfile(number, outputSize, bitCount)) return true;
  if (!path_.empty()) bringBack(path_);
  lock_.reset();
  return false;
}

bool SystemProfile::WriteWM8EncodeProfile(int number, std::optional<OutputSize> outputSize,
                                          std::string_view bitCount) {
  const auto bytes = wm8ProfileBytes(number, outputSize, bitCount);
  return !bytes.empty() && RenameSysProfile() && writeDurably(ports_.files, path_, bytes).ok();
}

bool SystemProfile::RenameSysProfile() {
  const auto path = GetSystemProfilePath();
  path_ = path.value_or(std::string());
  if (!path) {
    ports_.boxes.show(profileBox(kWriteCaption, "Failed to find WM8 System Encoding profiles"));
    return false;
  }
  return ports_.files.rename(*path, oldNameOf(*path)).ok();
}

void SystemProfile::RestoreSysProfile() {
  if (!SysProfileRenamed()) return;
  if (!ports_.files.exists(oldNameOf(path_)) || !bringBack(path_)) {
    ports_.boxes.show(
        profileBox(kRestoreCaption, GetSystemProfilePath()
                                        ? "Failed to restore the original WM8 System Encoding profiles"
                                        : "Failed to restore the WM8 System Encoding profiles"));
  }
  lock_.reset();
}

}  // namespace kvo
