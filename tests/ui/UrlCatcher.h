#pragma once
#include <QObject>
#include <QUrl>
#include <vector>

namespace tarvel::test {

/// Stands in for the user's browser.
class UrlCatcher : public QObject {
  Q_OBJECT
 public:
  std::vector<QUrl> urls;

 public slots:
  void catchUrl(const QUrl& url) { urls.push_back(url); }
};

}  // namespace tarvel::test
