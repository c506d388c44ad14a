#include "platform/desktop/DesktopAudioOutputs.h"

#include <QMediaDevices>

#include "platform/desktop/DeviceList.h"

namespace repvolta {

QList<QAudioDevice> OutputsInOrder() { return DefaultFirst(QMediaDevices::audioOutputs()); }

std::vector<std::string> DesktopAudioOutputs::Names() { return DescriptionsOf(OutputsInOrder()); }

}  // namespace repvolta
