#include "adapters/qt/qt_translations.h"

#include <QCoreApplication>

namespace kvo {

std::string QtTranslations::of(const char* text) const {
  return QCoreApplication::translate(kTextContext, text).toStdString();
}

}  // namespace kvo
