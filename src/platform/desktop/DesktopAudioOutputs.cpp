#include "platform/desktop/DesktopAudioOutputs.h"

#include <QAudioDevice>
#include <QMediaDevices>

namespace repvolta {

std::vector<std::string> DesktopAudioOutputs::Names() {
  std::vector<std::string> names;
  for (const QAudioDevice& device : QMediaDevices::audioOutputs()) {
    const auto place = device.isDefault() ? names.begin() : names.end();
    names.insert(place, device.description().toStdString());
  }
  return names;
}

}  // namespace repvolta
