#include "ui/DriveEntries.h"

#include <QFile>
#include <QLocale>
#include <algorithm>

#include "base/Text.h"
#include "platform/MountTable.h"

namespace repvolta {
namespace {

constexpr int kDecimals = 1;

QString PathOf(const Volume& volume) { return QFile::decodeName(volume.root.c_str()); }

/// Without the path, the same for two disks of the same name and room.
QString NameOf(const Volume& volume) {
  const bool hasLabel = volume.kind == Volume::Kind::kRemovable && !volume.label.empty();
  QString name = hasLabel ? QString::fromStdString(ShownOnOneLine(volume.label)) : PathOf(volume);
  if (volume.state == Volume::State::kSilent) return name + " (does not answer)";
  if (volume.kind == Volume::Kind::kFixed || !volume.freeBytes) return name;
  return name + " (" + FreeRoomText(*volume.freeBytes) + ")";
}

template <class Matches>
int IndexOf(const std::vector<DriveEntry>& entries, Matches matches) {
  const auto found = std::find_if(entries.begin(), entries.end(), matches);
  return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

}  // namespace

QString FreeRoomText(std::uint64_t bytes) {
  return QLocale::c().formattedDataSize(static_cast<qint64>(bytes), kDecimals,
                                        QLocale::DataSizeSIFormat) +
         " free";
}

std::vector<DriveEntry> DriveEntries(const std::vector<Volume>& volumes) {
  std::vector<DriveEntry> entries;
  entries.reserve(volumes.size());
  for (const Volume& volume : volumes) {
    entries.push_back({.text = NameOf(volume),
                       .path = PathOf(volume),
                       .canBeChosen = volume.state == Volume::State::kReady});
  }
  const std::vector<DriveEntry> plain = entries;
  for (DriveEntry& entry : entries) {
    const auto isAlike = [&](const DriveEntry& other) { return other.text == entry.text; };
    const bool isClear = std::count_if(plain.begin(), plain.end(), isAlike) == 1;
    if (!isClear) entry.text += ", " + entry.path;
  }
  return entries;
}

int EntryAt(const std::vector<DriveEntry>& entries, const QString& path) {
  return IndexOf(entries, [&](const DriveEntry& entry) { return entry.path == path; });
}

int EntryHolding(const std::vector<DriveEntry>& entries, const QString& folder) {
  int best = -1;
  for (const DriveEntry& entry : entries) {
    if (!LiesIn(folder.toStdString(), entry.path.toStdString())) continue;
    const int index = static_cast<int>(&entry - entries.data());
    if (best < 0 || entry.path.size() > entries[static_cast<std::size_t>(best)].path.size()) {
      best = index;
    }
  }
  return best;
}

}  // namespace repvolta
