#include <gtest/gtest.h>

#include <QApplication>

#include "ui/Icons.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  // The list of tests is asked for without a display, and so may the tests be run.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  int nameAlone = 1;
  QApplication application(nameAlone, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tarvel::initAssets();
  return RUN_ALL_TESTS();
}
