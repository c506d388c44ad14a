#pragma once

#include <cstdint>
#include <string>

#include "app/ProgressLog.h"

namespace repvolta {

/// Appends the samples of the WAV file `source` to the WAV file `target` and sets the sizes in its
/// header. Both should have the 46-byte header and the same sample format; neither is checked
/// (quirk 26). Failures are logged and never thrown: a missing file leaves `target` unchanged, and
/// after any other failing step the next step runs.
void MergeWAVfiles(const std::string& target, const std::string& source, ProgressLog& log);

/// What it logs of a file that is missing.
std::string MissingClipLine(const std::string& file);

/// What it logs of a source that is not joined as it should be.
std::string NotJoinedLine(const std::string& target, const std::string& source,
                          const std::string& reason);

/// The reasons when the source or the target has no whole header.
inline constexpr const char* kSourceTooShort = "It is too short for a WAV file";
std::string TargetTooShortText(const std::string& target);

/// The size that a target of `target` bytes has after a source of `source` bytes was joined to it.
std::uint64_t JoinedSize(std::uint64_t target, std::uint64_t source);

}  // namespace repvolta
