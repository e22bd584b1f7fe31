#include "ui/dropped_files.h"

#include <QMimeData>
#include <QUrl>

namespace kvo {
namespace {

std::string pathOf(const QUrl& url) {
  const auto path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
  const auto host = url.host().toStdString();
  return host.empty() || host == "localhost" ? path : "\\\\" + host + path;
}

}  // namespace

std::vector<std::string> droppedFiles(const QMimeData& carried) {
  std::vector<std::string> files;
  for (const auto& url : carried.urls())
    files.push_back(url.isLocalFile() ? pathOf(url) : url.toString().toStdString());
  return files;
}

}  // namespace kvo
