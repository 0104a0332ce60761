#include "schedule/SchedulePrintDialog.h"

#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <memory>
#include <utility>

namespace tarvel {
namespace {

void tellFailure(QWidget& view, const std::string& reason) {
  auto* message =
      new QMessageBox(QMessageBox::Warning, QStringLiteral("Tarvel"),
                      QStringLiteral("The schedule could not be printed."), QMessageBox::Ok, view.window());
  message->setInformativeText(QString::fromStdString(reason));
  message->setAttribute(Qt::WA_DeleteOnClose);
  message->open();
}

}  // namespace

void openPrintDialog(QWidget& view, std::function<Status(QPagedPaintDevice&)> print) {
  auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setPageOrientation(QPageLayout::Portrait);
  printer->setDocName(QStringLiteral("Tarvel"));
  auto* dialog = new QPrintDialog(printer.get(), view.window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
  QObject::connect(dialog, &QDialog::accepted, &view, [&view, printer, print = std::move(print)] {
    const Status printed = print(*printer);
    if (!printed.ok()) tellFailure(view, printed.error().description);
  });
  // The dialog refers to the printer to its own end.
  QObject::connect(dialog, &QObject::destroyed, dialog, [printer] {});
  dialog->open();
}

void openPrintDialog(QWidget& view, DataModel& dataModel, const ScheduleToPrint& schedule) {
  openPrintDialog(view, [&dataModel, schedule](QPagedPaintDevice& device) {
    return printSchedule(device, dataModel, schedule);
  });
}

}  // namespace tarvel
