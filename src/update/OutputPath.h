#pragma once

#include "app/Records.h"

namespace repvolta {

/// True when no output path is set: blank, or a text that fills its whole field, as one that was
/// never assigned does (quirk 59).
bool IsOutputPathMissing(const SettingsRecord& settings);

}  // namespace repvolta
