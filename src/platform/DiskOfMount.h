#pragma once

#include <string>

#include "platform/MountTable.h"

namespace repvolta {

/// True when the mounted disk can be pulled out while the computer runs: a USB stick, a player, a
/// memory card, also when the disk is encrypted. No disk is asked.
bool IsOnRemovableDisk(const Mount& mount, const SystemFiles& files = {});

/// The name that the file system was given when it was formatted, else that of the folder where it
/// is mounted. No disk is asked.
std::string LabelOf(const Mount& mount, const SystemFiles& files = {});

}  // namespace repvolta
