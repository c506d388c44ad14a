#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "platform/Volumes.h"

namespace repvolta {

/// One entry of DriveListBox.
struct DriveEntry {
  QString text;  // for a removable disk what people call it: "WALKMAN (3.2 GB free)"
  QString path;
  bool canBeChosen = true;

  bool operator==(const DriveEntry&) const = default;
};

/// The entries of the volumes, in their order; no two have the same text.
std::vector<DriveEntry> DriveEntries(const std::vector<Volume>& volumes);

/// "3.2 GB free", the same in every locale.
QString FreeRoomText(std::uint64_t bytes);

/// The entry of that path; -1 when there is none.
int EntryAt(const std::vector<DriveEntry>& entries, const QString& path);

/// The entry of the innermost drive that holds the folder; -1 when there is none.
int EntryHolding(const std::vector<DriveEntry>& entries, const QString& folder);

}  // namespace repvolta
