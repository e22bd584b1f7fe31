#include "windows/main/dropped_files.h"

#include <QMimeData>
#include <QUrl>

namespace kvo {

std::vector<std::string> droppedFiles(const QMimeData& carried) {
  std::vector<std::string> files;
  for (const auto& url : carried.urls()) {
    files.push_back(
        url.isLocalFile()
            ? QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString()
            : url.toString().toStdString());
  }
  return files;
}

}  // namespace kvo
