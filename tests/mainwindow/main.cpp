#include <gtest/gtest.h>

#include <QApplication>

#include "ui/Icons.h"
#include "ui/SystemAppearance.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // Without a display, also while the build lists the tests, and on a screen that has room for every window.
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TARVEL_TEST_SCREEN);
  int nameAlone = 1;
  QApplication application(nameAlone, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tarvel::initAssets();
  // Whatever the desktop of the one who runs the tests looks like.
  tarvel::SystemAppearance appearance;
  appearance.setOverride(tarvel::Appearance::light);
  return RUN_ALL_TESTS();
}
