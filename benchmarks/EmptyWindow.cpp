// The least that a program with a window costs on this desktop: what the application's start and memory are
// measured against.
#include <QApplication>
#include <QPalette>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(1240, 740);
  window.setPalette(QPalette(Qt::darkCyan));
  window.show();
  return QApplication::exec();
}
