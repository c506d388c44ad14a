#include "voices/ReadVoice.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "backup/BackupError.h"
#include "backup/ZipReader.h"
#include "base/FileError.h"
#include "base/Folder.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "voices/VoiceFiles.h"

namespace repvolta {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;
constexpr int kDeepest = 4;  // folders below the one that was chosen

constexpr const char* kTooMany = "It holds too many files";
constexpr const char* kTooMuch = "Its clips are too large";

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw FileError(path, "is no voice that can be taken in", reason);
}

[[noreturn]] void RefuseEntry(const std::string& path, const std::string& entry,
                              const char* reason) {
  Refuse(path, "It holds \"" + ShownOnOneLine(entry) + "\", " + reason);
}

/// Counts what is taken, which may be more than what was said of it.
class Taken {
 public:
  Taken(const std::string& path, const VoiceReading& reading, std::size_t clips)
      : path_(path), reading_(reading), clips_(clips) {}

  void Count(std::size_t bytes) {
    bytes_ += bytes;
    if (bytes_ > reading_.limits.bytes) Refuse(path_, kTooMuch);
  }

  void Take(const std::string& clip, std::span<const Byte> content) {
    reading_.take(clip, content);
    if (reading_.watch) reading_.watch(++done_, clips_);
  }

 private:
  const std::string& path_;
  const VoiceReading& reading_;
  std::size_t clips_;
  std::size_t done_ = 0;
  std::uint64_t bytes_ = 0;
};

/// The relative paths of all files below a folder.
class FolderSearch {
 public:
  FolderSearch(std::string folder, std::size_t most) : folder_(std::move(folder)), most_(most) {}

  std::vector<std::string> Run() {
    Search("", 0);
    std::ranges::sort(files_);
    return std::move(files_);
  }

 private:
  void Search(const std::string& below, int depth) {
    std::vector<std::string> folders;
    const std::string place = folder_ + "/" + below;
    const int error = ForEachEntry(place, [&](std::string_view name, EntryType type) {
      if (++seen_ > most_) Refuse(folder_, kTooMany);
      const std::string path = below + std::string(name);
      // Links and devices are named like every other file that is no clip, and never opened.
      if (type == EntryType::kFolder) {
        if (!name.starts_with('.')) folders.push_back(path + "/");
      } else {
        files_.push_back(type == EntryType::kFile ? path : path + kNoFile);
      }
    });
    if (error != 0) throw FileError(place, "could not be read", error);
    if (depth == kDeepest) return;
    for (const std::string& folder : folders) Search(folder, depth + 1);
  }

  static constexpr const char* kNoFile = " (a link or a device)";

  const std::string folder_;
  const std::size_t most_;
  std::size_t seen_ = 0;
  std::vector<std::string> files_;
};

VoiceFiles CheckedFiles(const std::string& path, const std::vector<std::string>& paths) {
  VoiceFiles files = FindVoiceFiles(paths);
  if (!files.fault.empty()) Refuse(path, files.fault);
  return files;
}

/// True for a path that leads out of the place where it is unpacked.
bool LeadsElsewhere(const std::string& path) {
  const std::string framed = "/" + path + "/";
  return path.empty() || path.starts_with('/') || framed.find("/../") != std::string::npos ||
         path.find('\0') != std::string::npos;
}

/// The paths of the files of a ZIP file, all of whose entries are judged by what it says of them.
std::vector<std::string> PathsIn(const File& file, const VoiceLimits& limits) {
  std::vector<std::string> paths;
  std::set<std::u32string> folded;
  std::size_t count = 0;
  ZipReader zip(file);
  while (const std::optional<ZipEntry> entry = zip.Next()) {
    if (++count > limits.files) Refuse(file.Path(), kTooMany);
    const auto refuse = [&](const char* why) { RefuseEntry(file.Path(), entry->path, why); };
    if (LeadsElsewhere(entry->path)) refuse("which would lie outside of it");
    if (entry->type == ZipEntryType::kOther) refuse("which is a link or a device");
    if (entry->type == ZipEntryType::kFolder) continue;
    if (!folded.insert(FoldCaseFully(entry->path)).second) refuse("and more than once");
    paths.push_back(entry->path);
  }
  return paths;
}

/// The content of the current entry of the ZIP file.
class EntryReader {
 public:
  EntryReader(ZipReader& zip, const File& file, const VoiceLimits& limits)
      : zip_(zip), file_(file), limits_(limits) {}

  Bytes Read(const ZipEntry& entry, Taken& taken) {
    const auto refuse = [&](const char* why) { RefuseEntry(file_.Path(), entry.path, why); };
    if (entry.isEncrypted) refuse("which is encrypted");
    if (!entry.isOrdinary) refuse("which is compressed in a way that Repvolta does not know");
    if (entry.size.value_or(0) > limits_.clip) refuse("which is too large");
    Bytes content;
    while (const std::size_t count = zip_.Read(piece_)) {
      taken.Count(count);
      if (content.size() + count > limits_.clip) refuse("which is too large");
      content.insert(content.end(), piece_.begin(), piece_.begin() + static_cast<long>(count));
    }
    return content;
  }

 private:
  ZipReader& zip_;
  const File& file_;
  const VoiceLimits& limits_;
  Bytes piece_ = Bytes(kPiece);
};

std::vector<std::string> ReadArchive(const File& file, const VoiceReading& reading) {
  const VoiceFiles files = CheckedFiles(file.Path(), PathsIn(file, reading.limits));
  std::map<std::string, std::string> clips;  // by the path
  for (const auto& [clip, path] : files.clips) clips[path] = clip;
  Taken taken(file.Path(), reading, clips.size());
  ZipReader zip(file);
  EntryReader reader(zip, file, reading.limits);
  while (const std::optional<ZipEntry> entry = zip.Next()) {
    const auto clip = clips.find(entry->path);
    if (clip == clips.end()) continue;
    taken.Take(clip->second, reader.Read(*entry, taken));
    clips.erase(clip);
  }
  if (!clips.empty()) Refuse(file.Path(), "Another program has changed it");
  return files.leftOut;
}

}  // namespace

std::vector<std::string> ReadVoiceFolder(const std::string& folder, const VoiceReading& reading) {
  VoiceFiles files = CheckedFiles(folder, FolderSearch(folder, reading.limits.files).Run());
  Taken taken(folder, reading, files.clips.size());
  const auto most = static_cast<std::size_t>(reading.limits.clip);
  const std::string inFolder = folder + "/";
  for (const auto& [clip, path] : files.clips) {
    const Bytes content = ReadWholeFile(inFolder + path, most + 1);
    if (content.size() > most) RefuseEntry(folder, path, "which is too large");
    taken.Count(content.size());
    taken.Take(clip, content);
  }
  return files.leftOut;
}

std::vector<std::string> ReadVoiceArchive(const std::string& path, const VoiceReading& reading) {
  const File file = File::Open(path, File::Access::kRead);
  try {
    return ReadArchive(file, reading);
  } catch (const BackupError& error) {
    Refuse(path, error.Reason());
  }
}

}  // namespace repvolta
