#include "app/SingleInstance.h"

#include <fcntl.h>
#include <sys/file.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace tarvel {

namespace {

constexpr std::string_view kLockName = ".lock";
constexpr mode_t kLockMode = 0600;
constexpr int kPatience = 10'000;      ///< milliseconds for a copy that starts, quits or is busy
constexpr int kAnswerPatience = 2000;  ///< milliseconds for one answer
constexpr int kRetryPause = 50;        ///< milliseconds
constexpr char kAnswer = '!';

/// Named for the store as the disk knows it, so that two paths to one store lead to one socket.
QString socketNameFor(const Path& supportFolder) {
  const QString folder = QDir(QString::fromStdString(supportFolder)).canonicalPath();
  const QByteArray hash =
      QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/tarvel-" +
         QString::fromLatin1(hash);
}

enum class Lock { taken, held, impossible };

Lock tryLock(const Path& supportFolder, FileDescriptor& lock) {
  if (!lock.valid()) {
    const Path path = join(supportFolder, kLockName);
    lock = FileDescriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kLockMode));
    if (!lock.valid()) return Lock::impossible;
  }
  if (retryingInterrupted([&lock] { return ::flock(lock.number(), LOCK_EX | LOCK_NB); }) == 0)
    return Lock::taken;
  return errno == EWOULDBLOCK ? Lock::held : Lock::impossible;
}

/// True if the copy behind the socket has said that it shows itself.
bool askToShow(const QString& socketName) {
  QLocalSocket socket;
  socket.connectToServer(socketName);
  if (!socket.waitForConnected(kAnswerPatience)) return false;
  char answer = 0;
  return socket.waitForReadyRead(kAnswerPatience) && socket.read(&answer, 1) == 1 && answer == kAnswer;
}

}  // namespace

SingleInstance::Outcome SingleInstance::claim(FileSystem& files, const Path& supportFolder) {
  if (!files.createFolders(supportFolder)) return Outcome::first;
  const QString socketName = socketNameFor(supportFolder);
  for (QDeadlineTimer deadline(kPatience); !deadline.hasExpired(); QThread::msleep(kRetryPause)) {
    const Lock lock = tryLock(supportFolder, lock_);
    if (lock == Lock::taken) listen(socketName);
    if (lock != Lock::held) return Outcome::first;
    if (askToShow(socketName)) return Outcome::handedOver;
  }
  return Outcome::noAnswer;
}

void SingleInstance::listen(const QString& socketName) {
  // Whoever holds the lock owns the name: what stands there is left of a copy that crashed.
  QLocalServer::removeServer(socketName);
  server_ = std::make_unique<QLocalServer>();
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(), [this] { answer(); });
  server_->listen(socketName);
}

void SingleInstance::answer() {
  while (QLocalSocket* const socket = server_->nextPendingConnection()) {
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    socket->write(&kAnswer, 1);
    socket->disconnectFromServer();
    if (showYourself) showYourself();
  }
}

void SingleInstance::stopListening() {
  if (server_) server_->close();
}

}  // namespace tarvel
