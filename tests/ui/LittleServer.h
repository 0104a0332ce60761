#pragma once
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <string>
#include <vector>

namespace tarvel::test {

/// A server on the loopback that answers each request with the bytes it is told to, right or wrong HTTP.
class LittleServer {
 public:
  enum class After { keepOpen, close };
  struct Answer {
    std::string bytes;
    After after = After::keepOpen;
  };
  /// Given the path and the whole head of the request.
  using Handler = std::function<Answer(const std::string& path, const std::string& head)>;

  /// The same answer for all.
  explicit LittleServer(Answer answer)
      : LittleServer([answer](const std::string&, const std::string&) { return answer; }) {}
  explicit LittleServer(Handler handler) : handler_(std::move(handler)) {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, [this] {
      while (QTcpSocket* socket = server_.nextPendingConnection()) serve(socket);
    });
  }

  std::string url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + path;
  }
  const std::vector<std::string>& requests() const { return requests_; }
  /// More bytes for the request that came last.
  void send(const std::string& bytes) {
    last_->write(bytes.data(), static_cast<qint64>(bytes.size()));
    last_->flush();
  }

  static std::string reply(const std::string& status, const std::string& body,
                           const std::string& headers = {}) {
    return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
           "\r\n\r\n" + body;
  }
  static std::string redirect(const std::string& target) {
    return reply("302 Found", "", "Location: " + target + "\r\n");
  }

 private:
  void serve(QTcpSocket* socket) {
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
      const std::string head = socket->readAll().toStdString();
      const auto begin = head.find(' ') + 1;
      const std::string path = head.substr(begin, head.find(' ', begin) - begin);
      requests_.push_back(head);
      last_ = socket;
      const Answer answer = handler_(path, head);
      socket->write(answer.bytes.data(), static_cast<qint64>(answer.bytes.size()));
      socket->flush();
      if (answer.after == After::close) socket->disconnectFromHost();
    });
  }

  Handler handler_;
  QTcpServer server_;
  QTcpSocket* last_ = nullptr;
  std::vector<std::string> requests_;
};

}  // namespace tarvel::test
