#include "mainwindow/ToolTips.h"

namespace tarvel {

QString plainToolTip(const QString& text) {
  if (text.isEmpty()) return {};
  return QStringLiteral("<span style='white-space:pre-wrap'>%1</span>").arg(text.toHtmlEscaped());
}

}  // namespace tarvel
