#include "platform/qt/QtSoundPlayer.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>

#include "platform/FatalError.h"
#include "platform/qt/SoundModule.h"

namespace tarvel {
namespace {

/// From the program's folder; the same where it is built and where it is installed.
constexpr char kModule[] = "/" TARVEL_MODULE_FOLDER "/tarvel-sound.so";

}  // namespace

bool QtSoundPlayer::hasModule() {
  if (!lookedFor_) {
    lookedFor_ = true;
    QLibrary module(QCoreApplication::applicationDirPath() + kModule);
    if (const auto make = reinterpret_cast<MakeSoundPlayer>(module.resolve(kMakeSoundPlayer))) {
      player_.reset(make());
    }
  }
  return player_ != nullptr;
}

void QtSoundPlayer::playSound(std::string_view name) {
  const std::string text(name);
  if (!QFile::exists(QStringLiteral(":/sounds/%1.wav").arg(QString::fromStdString(text)))) {
    fatalError("no sound " + text);
  }
  if (hasModule()) player_->playSound(name);
}

}  // namespace tarvel
