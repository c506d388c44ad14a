#pragma once

#include "platform/AudioOutputs.h"

namespace repvolta {

/// The outputs of the desktop's sound system. Needs a QGuiApplication.
class DesktopAudioOutputs : public AudioOutputs {
 public:
  std::vector<std::string> Names() override;
};

}  // namespace repvolta
