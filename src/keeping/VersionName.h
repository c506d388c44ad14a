#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace repvolta {

/// What was about to happen to a workout when a version of it was kept.
enum class BeforeWhat { kChange, kUpdate, kReplacement, kDeletion, kRestore };

/// A kept version, as the name of its file says it.
struct VersionName {
  double time;  // as base/Days.h counts, in whole seconds
  BeforeWhat before;

  bool operator==(const VersionName&) const = default;
};

/// "2026-11-22 05.32.06 before update.RPV": sorted by name, versions are sorted by time.
std::string FileNameOf(const VersionName& version);

/// Nothing for a name that FileNameOf does not give.
std::optional<VersionName> ParseVersionName(std::string_view fileName);

}  // namespace repvolta
