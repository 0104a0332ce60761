#include <gtest/gtest.h>

#include <QApplication>

#include "ui/Icons.h"
#include "ui/SystemAppearance.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // Also while the build lists the tests, which may be on a machine without a display.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int nameAlone = 1;
  QApplication application(nameAlone, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tarvel::initAssets();
  // Whatever the desktop of the one who runs the tests looks like.
  tarvel::SystemAppearance appearance;
  appearance.setOverride(tarvel::Appearance::light);
  return RUN_ALL_TESTS();
}
