#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Bytes.h"

// The bare work, programmed as plainly as possible. The program's times are compared with these.
// Every failure throws std::runtime_error.

namespace repvolta::limits {

/// Opens each file and reads 10 bytes at its start, 4 KiB after its tag and 128 bytes at its end.
/// Returns a sum of the bytes, which keeps the compiler from leaving out the reading.
std::uint64_t ReadPlaces(const std::vector<std::string>& files);

/// Reads the whole file once, a block at a time.
std::uint64_t ReadOnce(const std::string& file);

/// Lists the ".mp3" files below a folder, one path a line, with readdir and no stat.
void ListPlainly(const std::string& folder, const std::string& list);

/// Reads the file once and counts its line ends.
std::uint64_t PassOver(const std::string& file);

/// Writes `head` and then the bytes of `source` from `offset` on, in one pass.
void CopyBehind(const Bytes& head, const std::string& source, std::uint64_t offset,
                const std::string& target);

/// Appends each clip's samples to the target and patches its three sizes: open, append, patch,
/// close, clip by clip.
void Join(const std::string& target, const std::vector<std::string>& clips);

/// Starts the program, found on the PATH, and waits for its end; its input is empty and its output
/// is dropped, or goes to `output`.
void RunProgram(const std::vector<std::string>& command, const std::string& output = "/dev/null");

/// Waits until the files and the folder are on the device.
void Flush(const std::vector<std::string>& files, const std::string& folder);

}  // namespace repvolta::limits
