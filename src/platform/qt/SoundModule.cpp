#include "platform/qt/SoundModule.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <map>
#include <memory>
#include <string>

#include "platform/SoundPlayer.h"

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

/// Each sound is loaded once and kept.
class EffectPlayer final : public SoundPlayer {
 public:
  void playSound(std::string_view name) override {
    const QAudioDevice output = currentOutput();
    if (!output.isNull()) effect(std::string(name), output).play();
  }

 private:
  QSoundEffect& effect(const std::string& name, const QAudioDevice& output) {
    std::unique_ptr<QSoundEffect>& kept = effects_[name];
    // An effect stays with the output that it was made for.
    if (!kept || kept->audioDevice() != output) {
      kept = std::make_unique<QSoundEffect>(output);
      kept->setSource(QUrl(QStringLiteral("qrc:/sounds/%1.wav").arg(QString::fromStdString(name))));
    }
    return *kept;
  }

  std::map<std::string, std::unique_ptr<QSoundEffect>> effects_;
};

}  // namespace
}  // namespace tarvel

extern "C" Q_DECL_EXPORT tarvel::SoundPlayer* tarvelMakeSoundPlayer() {
  return new tarvel::EffectPlayer;
}
