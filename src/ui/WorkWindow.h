#pragma once

#include <QWidget>
#include <string_view>

#include "editing/LongWork.h"

namespace repvolta {

/// Runs `work`. When it takes longer than a moment, a window above `owner` shows `text` and how
/// much is done, and can stop it. Throws what `work` throws.
void RunInSight(QWidget* owner, std::string_view text, const LongWork& work);

}  // namespace repvolta
