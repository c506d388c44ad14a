#include "platform/desktop/DeviceList.h"

#include <algorithm>

namespace repvolta {
namespace {

std::string Named(const DeviceKind& kind, const std::string& description) {
  return std::string("The ") + kind.name + " \"" + description + "\"";
}

}  // namespace

QList<QAudioDevice> DefaultFirst(const QList<QAudioDevice>& devices) {
  QList<QAudioDevice> ordered;
  for (const QAudioDevice& device : devices) {
    ordered.insert(device.isDefault() ? 0 : ordered.size(), device);
  }
  return ordered;
}

std::vector<std::string> DescriptionsOf(const QList<QAudioDevice>& devices) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(devices.size()));
  for (const QAudioDevice& device : devices) names.push_back(device.description().toStdString());
  return names;
}

std::string DeviceIsGone(const DeviceKind& kind, const std::string& description) {
  return Named(kind, description) + " is not there any more.";
}

std::string DeviceDoesNotWork(const DeviceKind& kind, const std::string& description) {
  return Named(kind, description) + " does not " + kind.works + ".";
}

QAudioDevice FindDevice(const QList<QAudioDevice>& devices, const ChosenDevice& chosen,
                        const DeviceKind& kind) {
  if (devices.isEmpty()) {
    throw SoundError(std::string("This computer has no ") + kind.name + ".");
  }
  if (chosen.name.empty()) return devices.first();
  const QString name = QString::fromStdString(chosen.name);
  if (devices.value(chosen.entry).description() == name) return devices.at(chosen.entry);
  const auto found = std::find_if(devices.begin(), devices.end(), [&](const QAudioDevice& device) {
    return device.description() == name;
  });
  if (found == devices.end()) throw SoundError(DeviceIsGone(kind, chosen.name));
  return *found;
}

}  // namespace repvolta
