#include <gtest/gtest.h>

#include <QApplication>

#include "ui/Icons.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int nameAlone = 1;
  QApplication application(nameAlone, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tarvel::initAssets();
  return RUN_ALL_TESTS();
}
