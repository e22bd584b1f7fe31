// What is dropped on a window from other programs.
#pragma once

#include <string>
#include <vector>

class QMimeData;

namespace kvo {

/// Its files by their paths, and addresses as they are. A local name is taken by its bytes, which need not be
/// UTF-8; one of another machine begins with two backslashes.
std::vector<std::string> droppedFiles(const QMimeData& carried);

}  // namespace kvo
