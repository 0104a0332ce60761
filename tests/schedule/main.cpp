#include <gtest/gtest.h>

#include <QApplication>

#include "ui/Icons.h"
#include "ui/SystemAppearance.h"

// Of all rooms from the auxiliary windows on. Without a display, also while the build lists the tests.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
#ifdef TARVEL_TEST_SCREEN  // a room that needs screens of a certain size
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" TARVEL_TEST_SCREEN);
#else
  qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  int nameAlone = 1;
  QApplication application(nameAlone, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tarvel::initAssets();
  // Whatever the desktop of the one who runs the tests looks like.
  tarvel::SystemAppearance appearance;
  appearance.setOverride(tarvel::Appearance::light);
  return RUN_ALL_TESTS();
}
