#pragma once

#include <string>
#include <string_view>

namespace repvolta {

inline constexpr int kBackupFormat = 2;  // the highest that is known

/// Where and when a backup was made. Texts that it does not give are "".
struct BackupOrigin {
  int format = kBackupFormat;
  std::string version;           // of the program
  std::string made;              // "2026-11-22 10.30.05", local time
  std::string programDirectory;  // ends with the separator
  std::string home;              // folder, without the separator

  bool operator==(const BackupOrigin&) const = default;
};

/// The manifest's content. A text with a line break is left out.
std::string ManifestText(const BackupOrigin& origin);

/// Format 0 for a text that is no manifest. Lines that it does not know are ignored.
BackupOrigin ParseManifest(std::string_view text);

}  // namespace repvolta
