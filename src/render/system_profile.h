// The system profile file, which lies with the program's data. While a render by one of the program's own
// profiles runs, that profile stands in its place, and one render of the machine at a time may do that.
#pragma once

#include "base/paths.h"
#include "ports/message_boxes.h"
#include "ports/name_locks.h"
#include "render/output_profiles.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kvo {

class SystemProfile {
 public:
  struct Ports {
    Files& files;
    NameLocks& locks;
    const ProgramFolder& folder;
    MessageBoxes& boxes;
  };

  explicit SystemProfile(const Ports& ports) : ports_(ports) {}
  SystemProfile(const SystemProfile&) = delete;
  SystemProfile& operator=(const SystemProfile&) = delete;
  /// Restores what is out of its place.
  ~SystemProfile();

  /// "wmsyspr9.prx" where there is one, else "wmsysprx.prx"; nothing without either.
  [[nodiscard]] std::optional<std::string> GetSystemProfilePath() const;

  /// Puts the profile `number`, 26 to 41, in place of the system's, at `outputSize` where one is given; and
  /// holds that place until RestoreSysProfile. False, with the system's file in its place, when there is no
  /// such file, when it cannot be written, and while another render holds it; what the user can do
  /// something about is told.
  bool CreateWM8RenderProfile(int number, std::optional<OutputSize> outputSize,
                              std::string_view bitCount = {});

  /// Brings the system's file back and gives its place free. Nothing happens where it is in its place.
  void RestoreSysProfile();

  /// Brings back the file of a render that has been killed. To be called when the program starts; while
  /// another render holds the place nothing happens.
  void mend();

  /// The system's file is out of its place.
  [[nodiscard]] bool SysProfileRenamed() const { return lock_ != nullptr; }
  /// The file that is in force while it is so.
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  [[nodiscard]] Result<std::unique_ptr<FileLock>> hold() const;
  void bringAllBack();  // while the place is held
  // False when the old file could not be brought back.
  bool bringBack(const std::string& path);
  bool WriteWM8EncodeProfile(int number, std::optional<OutputSize> outputSize, std::string_view bitCount);
  bool RenameSysProfile();

  Ports ports_;
  std::unique_ptr<FileLock> lock_;  // from the renaming to the restoring
  std::string path_;
};

}  // namespace kvo
