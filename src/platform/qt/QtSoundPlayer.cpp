#include "platform/qt/QtSoundPlayer.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include "platform/FatalError.h"

namespace tarvel {

namespace {

void ignoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

/// Where sound goes now; null on a machine that has none. Qt prints warnings when it finds no sound system,
/// which is no fault here.
QAudioDevice currentOutput() {
  const QtMessageHandler handler = qInstallMessageHandler(ignoreMessage);
  QAudioDevice output = QMediaDevices::defaultAudioOutput();
  qInstallMessageHandler(handler);
  return output;
}

}  // namespace

QtSoundPlayer::QtSoundPlayer() = default;
QtSoundPlayer::~QtSoundPlayer() = default;

void QtSoundPlayer::playSound(std::string_view name) {
  const std::string text(name);
  const QString file = QStringLiteral(":/sounds/%1.wav").arg(QString::fromStdString(text));
  if (!QFile::exists(file)) fatalError("no sound " + text);
  const QAudioDevice output = currentOutput();
  if (!output.isNull()) effect(text, file, output).play();
}

QSoundEffect& QtSoundPlayer::effect(const std::string& name, const QString& file,
                                    const QAudioDevice& output) {
  std::unique_ptr<QSoundEffect>& kept = effects_[name];
  // An effect stays with the output that it was made for.
  if (!kept || kept->audioDevice() != output) {
    kept = std::make_unique<QSoundEffect>(output);
    kept->setSource(QUrl(QStringLiteral("qrc") + file));
  }
  return *kept;
}

}  // namespace tarvel
