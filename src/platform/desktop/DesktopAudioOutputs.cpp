#include "platform/desktop/DesktopAudioOutputs.h"

#include <QMediaDevices>

namespace repvolta {

QList<QAudioDevice> OutputsInOrder() {
  QList<QAudioDevice> outputs;
  for (const QAudioDevice& device : QMediaDevices::audioOutputs()) {
    outputs.insert(device.isDefault() ? 0 : outputs.size(), device);
  }
  return outputs;
}

std::vector<std::string> DesktopAudioOutputs::Names() {
  std::vector<std::string> names;
  for (const QAudioDevice& device : OutputsInOrder()) {
    names.push_back(device.description().toStdString());
  }
  return names;
}

}  // namespace repvolta
