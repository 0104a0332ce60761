#include "mainwindow/NoticeTexts.h"

namespace tarvel {

std::string noticeDateText(const Notice& notice) {
  return "Posted " + shortDateText(notice.date);
}

QString spokenNotice(const Notice& notice) {
  std::string text;
  for (const std::string& part : {notice.summary, notice.detail}) {
    if (!part.empty()) text += part + "\n";
  }
  return QString::fromStdString(text + noticeDateText(notice));
}

}  // namespace tarvel
