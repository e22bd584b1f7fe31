// Widgets without a screen.
#include "ui/theme.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  kvo::applyTheme(application);
  return RUN_ALL_TESTS();
}
