#pragma once

#include <QString>

#include "editing/FolderQuestion.h"

namespace repvolta {

/// Asks for a folder, from this one on.
inline FolderQuestion From(const QString& start) {
  return {.purpose = "Choose a folder.",
          .start = start.toStdString(),
          .figure = FolderQuestion::Figure::kSongs};
}

}  // namespace repvolta
