// Qt's file dialogs.
#pragma once

#include "ports/file_dialogs.h"

namespace kvo {

class QtFileDialogs : public FileDialogs {
 public:
  std::optional<std::string> open(const FileQuestion& question) override;
  FileChoice openSeveral(const FileQuestion& question) override;
  std::optional<std::string> openFolder(const FileQuestion& question) override;
  std::optional<std::string> save(const FileQuestion& question) override;
};

}  // namespace kvo
