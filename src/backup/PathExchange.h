#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

enum class BackupKind;

/// A folder of the computer where a backup was made, and the same folder here. Paths have no
/// separator at their ends.
struct PathExchange {
  std::string from;
  std::string to;  // "": the paths stay as they are

  bool operator==(const PathExchange&) const = default;
};

/// `path` with the folder that it lies in, or is, exchanged; of several folders the innermost one
/// counts. Only whole names are compared: "/home/me2" does not lie in "/home/me".
std::string ExchangedPath(const std::string& path, const std::vector<PathExchange>& exchanges);

/// A file with exchanged paths; every other byte is as it was.
struct ExchangedFile {
  Bytes content;
  std::vector<std::string> tooLong;  // paths that stayed, because the new ones do not fit
};

/// Files of kinds that hold no paths come back as they are. In a workout, the songs are exchanged,
/// and slots that are not in use stay.
ExchangedFile ExchangePaths(BackupKind kind, std::span<const Byte> file,
                            const std::vector<PathExchange>& exchanges);

/// The folders that the file names: those of the settings and options, and those of the songs.
std::vector<std::string> FoldersNamedIn(BackupKind kind, std::span<const Byte> file);

/// The home folder of a person on both computers, without separators at the ends; "" is unknown.
struct Homes {
  std::string there;
  std::string here;
};

/// What could be meant by those of the folders that are not here. Those below the other home are
/// proposed below this one, disks mounted for the other user below the place for this one; for the
/// others the folder that they have in common, with an empty `to`. Where both homes are the same,
/// disks that are not connected need no exchange.
std::vector<PathExchange> ProposedExchanges(
    const std::vector<std::string>& folders, const Homes& homes,
    const std::function<bool(const std::string& folder)>& isHere);

}  // namespace repvolta
