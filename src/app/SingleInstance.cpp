#include "app/SingleInstance.h"

#include <fcntl.h>
#include <sys/file.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#include "platform/AtomicFile.h"

namespace tarvel {

namespace {

constexpr std::string_view kLockName = ".lock";
constexpr mode_t kLockMode = 0600;
constexpr int kPatience = 10'000;      ///< milliseconds for a copy that starts, quits or is busy
constexpr int kAnswerPatience = 2000;  ///< milliseconds for one answer
constexpr int kRetryPause = 50;        ///< milliseconds
constexpr char kAnswer = '!';
constexpr qint64 kLongestLine = 4096;  ///< bytes

/// Named for the store as the disk knows it, so that two paths to one store lead to one socket.
QString socketNameFor(const Path& supportFolder) {
  const QString folder = QDir(QString::fromStdString(supportFolder)).canonicalPath();
  const QByteArray hash =
      QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/tarvel-" +
         QString::fromLatin1(hash);
}

enum class Lock { taken, held, impossible };

Lock tryLock(const FileDescriptor& opened) {
  if (!opened.valid()) return Lock::impossible;
  if (retryingInterrupted([&opened] { return ::flock(opened.number(), LOCK_EX | LOCK_NB); }) == 0)
    return Lock::taken;
  return errno == EWOULDBLOCK ? Lock::held : Lock::impossible;
}

/// The folder itself can be locked on a disk that is full or read-only too, and whatever lies in it. Only
/// some disks on the network can't lock a folder.
Lock tryLock(const Path& supportFolder, FileDescriptor& lock) {
  lock = FileDescriptor(::open(supportFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const Lock outcome = tryLock(lock);
  if (outcome != Lock::impossible) return outcome;
  const Path path = join(supportFolder, kLockName);
  lock = FileDescriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kLockMode));
  return tryLock(lock);
}

/// True if the copy behind the socket has said that it shows itself.
bool askToShow(const QString& socketName, const StartupNotice& notice) {
  QLocalSocket socket;
  socket.connectToServer(socketName);
  if (!socket.waitForConnected(kAnswerPatience)) return false;
  socket.write(notice.line());
  socket.waitForBytesWritten(kAnswerPatience);
  // The answer doesn't wait for the line: it may have been taken in while that was sent.
  if (socket.bytesAvailable() == 0) socket.waitForReadyRead(kAnswerPatience);
  char answer = 0;
  return socket.read(&answer, 1) == 1 && answer == kAnswer;
}

}  // namespace

SingleInstance::Outcome SingleInstance::claim(FileSystem& files, const Path& supportFolder,
                                              const StartupNotice& notice) {
  if (!createFoldersSafely(files, supportFolder)) return Outcome::first;
  const QString socketName = socketNameFor(supportFolder);
  for (QDeadlineTimer deadline(kPatience); !deadline.hasExpired(); QThread::msleep(kRetryPause)) {
    const Lock lock = tryLock(supportFolder, lock_);
    if (lock == Lock::taken) listen(socketName);
    if (lock != Lock::held) return Outcome::first;
    if (askToShow(socketName, notice)) return Outcome::handedOver;
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
    socket->setReadBufferSize(kLongestLine);
    socket->write(&kAnswer, 1);
    // A start that gives nothing along just ends the connection.
    QObject::connect(socket, &QLocalSocket::disconnected, server_.get(), [this, socket] { serve(*socket); });
    QObject::connect(socket, &QLocalSocket::readyRead, server_.get(), [this, socket] {
      if (socket->canReadLine()) serve(*socket);
    });
  }
}

void SingleInstance::serve(QLocalSocket& socket) {
  socket.disconnect(server_.get());
  const StartupNotice notice = StartupNotice::ofLine(socket.readLine());
  socket.deleteLater();
  if (showYourself) showYourself(notice);
}

void SingleInstance::stopListening() {
  if (server_) server_->close();
}

}  // namespace tarvel
