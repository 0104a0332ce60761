#include "platform/qt/QtHttpClient.h"

#include <QNetworkCookieJar>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QUrl>
#include <utility>

namespace tarvel {

namespace {

constexpr int kFirstRedirectStatus = 300;
constexpr int kFirstErrorStatus = 400;
constexpr int kFirstReplyError = QNetworkReply::ContentAccessDenied;  // below it, the transport's own errors
constexpr int kReadChunk = 64 << 10;

HttpResult transportFailure(std::string description) {
  if (description.empty()) description = "The request failed";
  return HttpFailure{HttpFailure::Kind::transport, std::move(description)};
}

bool isFetchable(const QUrl& url) {
  return url.isValid() && (url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty();
}

QNetworkRequest requestFor(const QUrl& url, const HttpLimits& limits) {
  QNetworkRequest request(url);
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
  request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
  request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(limits.redirects);
  request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Tarvel"));
  return request;
}

/// Qt counts a status such as 404 as an error of the request; here it is a reply like any other. What broke
/// on the way is none, although a status may have come before it broke.
bool isReply(const QNetworkReply& reply, int status) {
  const QNetworkReply::NetworkError error = reply.error();
  if (error == QNetworkReply::NoError) return status > 0;
  if (status < kFirstErrorStatus) {
    // A redirect to nowhere is followed by Qt all the same, and found to have no protocol.
    return status >= kFirstRedirectStatus && error == QNetworkReply::ProtocolUnknownError &&
           !reply.hasRawHeader("Location");
  }
  return error == QNetworkReply::ProxyAuthenticationRequiredError ||
         (error >= kFirstReplyError && error != QNetworkReply::ProtocolFailure &&
          error != QNetworkReply::ProtocolUnknownError);
}

/// Qt may learn of a refusal's status before it learns that its page was cut, and then keeps the cut to
/// itself. Where the page was compressed on the way Qt has taken the announced length away.
bool isWhole(const QNetworkReply& reply, int status, std::size_t length) {
  if (status < kFirstErrorStatus || !reply.hasRawHeader("Content-Length")) return true;
  return reply.rawHeader("Content-Length").toULongLong() == length;
}

}  // namespace

/// One request under way.
class QtHttpClient::Transfer {
 public:
  using Finish = std::function<void(const Transfer*, HttpResult)>;

  Transfer(Completion completion, const HttpLimits& limits, Finish finish)
      : completion_(std::move(completion)), limits_(limits), finish_(std::move(finish)) {}
  ~Transfer() { drop(); }
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  void start(QNetworkAccessManager& network, RunLoop& loop, const QUrl& url) {
    reply_ = network.get(requestFor(url, limits_));
    QObject::connect(reply_, &QNetworkReply::metaDataChanged, reply_, [this] { checkAnnouncedLength(); });
    QObject::connect(reply_, &QNetworkReply::redirected, reply_, [this] { noteLife(); });
    QObject::connect(reply_, &QNetworkReply::readyRead, reply_, [this] { takeBytes(); });
    QObject::connect(reply_, &QNetworkReply::finished, reply_, [this] { takeEnd(); });
    silence_ = loop.after(limits_.silence, [this] { end(transportFailure("The request timed out")); });
    total_ = loop.after(limits_.total, [this] { end(transportFailure("The transfer took too long")); });
  }

  void end(HttpResult result) {
    drop();
    finish_(this, std::move(result));
  }

  Completion takeCompletion() { return std::move(completion_); }

 private:
  void noteLife() {
    if (silence_) silence_->fireAfter(limits_.silence);
  }

  void endTooLarge() { end(transportFailure("The reply is too large")); }

  void checkAnnouncedLength() {
    noteLife();
    const auto length = reply_->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    if (length > 0 && static_cast<std::size_t>(length) > limits_.bodyBytes) endTooLarge();
  }

  void takeBytes() {
    noteLife();
    while (reply_->bytesAvailable() > 0) {
      const QByteArray chunk = reply_->read(kReadChunk);
      if (chunk.isEmpty()) return;
      if (body_.size() + static_cast<std::size_t>(chunk.size()) > limits_.bodyBytes) return endTooLarge();
      body_.insert(body_.end(), chunk.begin(), chunk.end());
    }
  }

  void takeEnd() {
    takeBytes();
    if (!reply_) return;  // the last bytes were too many
    const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (isReply(*reply_, status)) {
      if (!isWhole(*reply_, status, body_.size())) return end(transportFailure("Connection closed"));
      return end(HttpResponse{status, std::move(body_)});
    }
    HttpFailure failure{HttpFailure::Kind::transport, reply_->errorString().toStdString()};
    const bool notHttp =
        reply_->error() == QNetworkReply::NoError || reply_->error() == QNetworkReply::ProtocolFailure;
    if (notHttp) failure = {HttpFailure::Kind::notHttp, "The reply is not HTTP"};
    if (failure.description.empty()) failure.description = "The request failed";
    end(std::move(failure));
  }

  void drop() {
    silence_.reset();
    total_.reset();
    if (!reply_) return;
    QNetworkReply* reply = std::exchange(reply_, nullptr);
    reply->disconnect();
    reply->abort();
    reply->deleteLater();  // it may be the one whose signal brought us here
  }

  Completion completion_;
  const HttpLimits& limits_;
  Finish finish_;
  QNetworkReply* reply_ = nullptr;  ///< owned; deleted through the event loop
  std::unique_ptr<Timer> silence_;
  std::unique_ptr<Timer> total_;
  Bytes body_;
};

QtHttpClient::QtHttpClient(RunLoop& mainLoop, HttpLimits limits) : mainLoop_(mainLoop), limits_(limits) {}

QtHttpClient::~QtHttpClient() {
  alive_.reset();
  transfers_.clear();
}

void QtHttpClient::get(const std::string& url, Completion completion) {
  const QUrl parsed(QString::fromStdString(url), QUrl::StrictMode);
  auto transfer = std::make_shared<Transfer>(
      std::move(completion), limits_,
      [this](const Transfer* ended, HttpResult result) { finish(ended, std::move(result)); });
  transfers_.emplace(transfer.get(), transfer);
  if (isFetchable(parsed)) {
    transfer->start(network_, mainLoop_, parsed);
  } else {
    transfer->end(transportFailure("Not an http or https address: " + url));
  }
}

void QtHttpClient::finish(const Transfer* transfer, HttpResult result) {
  // The transfer ends in the loop as well, since it is still on the stack here.
  mainLoop_.post([this, alive = std::weak_ptr<int>(alive_), transfer, result = std::move(result)]() mutable {
    if (alive.expired()) return;
    const auto found = transfers_.find(transfer);
    const Completion completion = found->second->takeCompletion();
    transfers_.erase(found);
    completion(std::move(result));
  });
}

}  // namespace tarvel
