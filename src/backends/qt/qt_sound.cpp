// One sound at a time, as a wave output plays it.
#include "backends/qt/qt_sound.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

#include "backends/qt/qt_text.h"

namespace chartproject {

namespace {

/// No sound of the program is longer; a device that hangs must not hold the program.
constexpr int kLongestSoundMs = 3000;

}  // namespace

QtSound::QtSound() = default;

QtSound::~QtSound() {
  if (QCoreApplication::instance() != nullptr) LetItEnd();
}

unsigned QtSound::OutputDeviceCount() {
  return static_cast<unsigned>(QMediaDevices::audioOutputs().size());
}

void QtSound::Play(const std::string& fileName, std::uint32_t flags) {
  const QFileInfo file(FileNameToQt(fileName));
  if (!file.isFile()) return;
  effect_ = std::make_unique<QSoundEffect>();
  effect_->setSource(QUrl::fromLocalFile(file.absoluteFilePath()));
  effect_->play();
  if ((flags & sound_flag::kAsynchronous) == 0) LetItEnd();
}

void QtSound::LetItEnd() {
  const QDeadlineTimer deadline(kLongestSoundMs);
  while (effect_ && !deadline.hasExpired() && (effect_->isPlaying() || effect_->status() == QSoundEffect::Loading)) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 20);
  }
  effect_.reset();
}

}  // namespace chartproject
