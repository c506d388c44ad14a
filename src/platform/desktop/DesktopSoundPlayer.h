#pragma once

#include <QAudioDevice>
#include <QTimer>
#include <memory>

#include "platform/Mailbox.h"
#include "platform/SoundPlayer.h"

namespace repvolta {

/// Plays by the desktop's sound system. A thread feeds it, so that a sound system that hangs holds
/// up nobody, and a busy window does not interrupt the sound. Needs a QGuiApplication.
class DesktopSoundPlayer : public SoundPlayer {
 public:
  DesktopSoundPlayer();
  /// Waits a moment for the thread; one that hangs is abandoned.
  ~DesktopSoundPlayer() override;
  DesktopSoundPlayer(const DesktopSoundPlayer&) = delete;
  DesktopSoundPlayer& operator=(const DesktopSoundPlayer&) = delete;

  void Play(const std::string& file, const ChosenOutput& output, Ended ended) override;
  void Stop() override;

 private:
  struct Feed;

  void End(const std::shared_ptr<Feed>& feed, const std::string& failure);
  void EndIfUnplugged();

  QTimer watch_;  // runs while a sound is heard
  QAudioDevice device_;
  std::shared_ptr<Feed> feed_;  // of the sound that is heard
  Ended ended_;
  Mailbox mailbox_;
};

}  // namespace repvolta
