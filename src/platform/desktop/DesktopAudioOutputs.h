#pragma once

#include <QAudioDevice>
#include <QList>

#include "platform/AudioOutputs.h"

namespace repvolta {

/// The outputs of the desktop's sound system, the default one first. Needs a QGuiApplication.
QList<QAudioDevice> OutputsInOrder();

/// Their descriptions, in the same order. Needs a QGuiApplication.
class DesktopAudioOutputs : public AudioOutputs {
 public:
  std::vector<std::string> Names() override;
};

}  // namespace repvolta
