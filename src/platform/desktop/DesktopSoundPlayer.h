#pragma once

#include "platform/SoundPlayer.h"
#include "platform/desktop/SoundThread.h"

namespace repvolta {

/// Plays by the desktop's sound system, fed by a SoundThread. Needs a QGuiApplication.
class DesktopSoundPlayer : public SoundPlayer {
 public:
  void Play(const std::string& file, const ChosenOutput& output, Ended ended) override;
  void Stop() override { thread_.Stop(); }

 private:
  SoundThread thread_;
};

}  // namespace repvolta
