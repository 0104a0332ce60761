#include <QAccessible>
#include <QWidget>

// Loaded before the toolkit, this takes its accessibility out of a program that isn't built for that: nothing
// is described, told or asked. What the program takes less is what accessibility costs while nobody listens:
//
//   build/release/bin/tarvel-bench --benchmark_filter=Readers
//   LD_PRELOAD=build/release/bin/tarvel-without-accessibility.so build/release/bin/tarvel-bench ... (the
//   same)

void QAccessible::installFactory(InterfaceFactory) {}
void QAccessible::updateAccessibility(QAccessibleEvent*) {}
bool QAccessible::isActive() {
  return false;
}
void QWidget::setAccessibleName(const QString&) {}
void QWidget::setAccessibleDescription(const QString&) {}
