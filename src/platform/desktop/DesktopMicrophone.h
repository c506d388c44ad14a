#pragma once

#include <memory>

#include "platform/Mailbox.h"
#include "platform/Microphone.h"
#include "platform/desktop/SoundThread.h"

namespace repvolta {

/// Listens by the desktop's sound system, in a SoundThread. What the computer itself plays is no
/// input. Needs a QGuiApplication.
class DesktopMicrophone : public Microphone {
 public:
  std::vector<std::string> Inputs() override;
  void Open(const ChosenInput& input, Heard heard, Lost lost) override;
  void Close() override;

 private:
  using Listener = std::shared_ptr<const Heard>;

  void Tell(const Listener& listener, std::span<const float> samples) const;

  Listener listener_;  // of the input that is open
  SoundThread thread_;
  Mailbox mailbox_;
};

}  // namespace repvolta
