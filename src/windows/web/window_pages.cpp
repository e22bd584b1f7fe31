#include "windows/web/window_pages.h"

#include <QFile>

namespace kvo {

bool WindowPages::show(const std::string& address, bool ahead) {
  const auto url = pageAddress(QFile::decodeName(address.c_str()));
  if (!url.isValid()) return false;
  if (!window_) {
    window_ = std::make_unique<WebWindow>(make_, place_, [this] {
      if (heard_) heard_();
    });
  }
  if (!window_->open(url)) {
    window_.reset();
    return false;
  }
  const auto modality = ahead ? Qt::ApplicationModal : Qt::NonModal;
  if (window_->windowModality() != modality) {
    window_->hide();  // it counts from the next time that it is shown
    window_->setWindowModality(modality);
  }
  window_->show();
  window_->raise();
  window_->activateWindow();
  return true;
}

}  // namespace kvo
