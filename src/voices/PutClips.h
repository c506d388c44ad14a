#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "app/ClipOrigins.h"
#include "base/Bytes.h"
#include "base/FileError.h"

namespace repvolta {

/// A clip on its way into the program directory.
struct NewClip {
  std::string file;  // below the clip folder: "300.wav", "exercise/Squat.WAV"
  Bytes content;     // a whole WAV file
  ClipOrigin origin = {};
};

/// Another file that belongs to the same change.
struct FileBesideClips {
  std::string path;  // below the program directory: "voices/Kim/300.wav"
  Bytes content;
};

/// What changes in the clips of a program directory, all at once.
struct ClipChange {
  std::vector<NewClip> clips = {};
  std::vector<FileBesideClips> files = {};
  std::vector<std::string> removed =
      {};  // paths below the program directory; missing ones are no fault
};

/// Is told how many of all clips and files are written. What it throws ends the change before it is
/// decided.
using ReportOfClips = std::function<void(std::size_t done, std::size_t all)>;

/// Puts the clips and files in place, notes the clips' origins and removes what is to go: all of it
/// or nothing, also when the program is killed at any moment; the next start, of the window or of
/// an update, then finishes what was decided. A clip replaces the one that is there without regard
/// to case. `programDirectory` ends with the separator; "" is the current one. Throws FileError
/// when nothing was changed, also because an update is running there; RestoreUnfinished
/// (update/RestoreAtStart.h) when it is decided and not yet in place.
///
/// Commands of the window call ChangeClips (editing/ChangeClips.h), which remembers the latter.
void PutClips(const std::string& programDirectory, const ClipChange& change,
              const ReportOfClips& report = {});

/// What is thrown when a change of clips cannot even be planned.
FileError NothingChanged(const std::string& programDirectory, const FileError& why);

}  // namespace repvolta
