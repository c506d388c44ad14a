#pragma once

#include <QAudioDevice>
#include <QList>
#include <string>
#include <vector>

#include "platform/SoundDevice.h"

namespace repvolta {

/// The same devices, the default one in front.
QList<QAudioDevice> DefaultFirst(const QList<QAudioDevice>& devices);

std::vector<std::string> DescriptionsOf(const QList<QAudioDevice>& devices);

/// What the user calls a kind of devices, and what its devices do when all is well.
struct DeviceKind {
  const char* name;   // "audio output"
  const char* works;  // "take sound"
};

/// The sentences for a device that has gone, and for one that does not work.
std::string DeviceIsGone(const DeviceKind& kind, const std::string& description);
std::string DeviceDoesNotWork(const DeviceKind& kind, const std::string& description);

/// The chosen device of a list that may have changed since the choice; where its description stands
/// twice, that of the chosen entry. Throws SoundError when it is not there.
QAudioDevice FindDevice(const QList<QAudioDevice>& devices, const ChosenDevice& chosen,
                        const DeviceKind& kind);

}  // namespace repvolta
