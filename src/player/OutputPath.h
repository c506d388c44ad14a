#pragma once

#include "app/Records.h"

namespace repvolta {

/// True when no output path is set: it is blank, or fills its whole field as an unassigned text
/// does (quirk 59).
bool IsOutputPathMissing(const SettingsRecord& settings);

}  // namespace repvolta
