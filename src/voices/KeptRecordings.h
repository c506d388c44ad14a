#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "voices/PutClips.h"

namespace repvolta {

/// The whole voice in which recordings are kept whose places other clips take: the folder below
/// "voices/". When it has another recording of the same word, the next number is behind its name.
inline constexpr const char* kKeptRecordings = "My recordings";

/// Adds to the change a copy of each clip that it would replace or remove and that nobody could
/// make again: a person's own, or one of unknown origin, as they were before the level of the voice
/// was changed. Returns how many those are.
/// `programDirectory` as for PutClips. Throws FileError.
std::size_t KeepRecordings(const std::string& programDirectory, ClipChange& change);

/// The voice in which the first of its files is put: "My recordings 2". It must have files.
std::string VoiceOfKept(const ClipChange& change);

/// The path below the program directory where a recording is kept that takes the place of no other,
/// nor of those that are planned; "" when it is kept already. Throws FileError.
std::string PlaceOfRecording(const std::string& programDirectory, const std::string& file,
                             const Bytes& content,
                             const std::vector<FileBesideClips>& planned = {});

}  // namespace repvolta
