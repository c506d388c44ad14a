#include "keeping/Versions.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/RenameToNew.h"
#include "base/WholeFile.h"
#include "keeping/Thinning.h"

namespace repvolta {
namespace {

/// A larger file is no workout; it is not copied again and again.
constexpr std::size_t kLargestVersion = 1'000'000;

constexpr double kSecond = 1.0 / 86400;

std::string FolderOfVersions(const std::string& workoutFileName) {
  return kVersionFolder + BaseName(workoutFileName) + "/";
}

/// Written under a name that is always the same, so that the next version removes what a crash or a
/// kill has left.
void WriteVersion(const std::string& folder, const std::string& name, const Bytes& content) {
  const std::string written = folder + "next";
  WriteWholeFile(written, content);
  if (std::rename(written.c_str(), (folder + name).c_str()) != 0) {
    throw FileError(folder + name, "could not be written", errno);
  }
  FlushFolder(folder);
}

/// The newest version has the largest name, also where two were kept in the same second.
double TimeAfter(const std::vector<Version>& versions, double now) {
  if (versions.empty()) return now;
  const double newest = versions.back().name.time;
  return FileNameOf({now, BeforeWhat::kChange}) > FileNameOf({newest, BeforeWhat::kChange})
             ? now
             : newest + kSecond;
}

bool IsEqual(const std::vector<Version>& versions, const Bytes& content) {
  return !versions.empty() && versions.back().bytes == content.size() &&
         ReadWholeFile(versions.back().path, kLargestVersion) == content;
}

void DropOld(const std::string& workoutFileName, double now) {
  const std::vector<Version> versions = VersionsOf(workoutFileName);
  std::vector<AgedVersion> ages;
  ages.reserve(versions.size());
  for (const Version& version : versions) ages.push_back({version.name.time, version.bytes});
  for (const std::size_t i : VersionsToDrop(ages, now)) RemoveFile(versions[i].path);
}

}  // namespace

std::vector<Version> VersionsOf(const std::string& workoutFileName) {
  const std::string folder = FolderOfVersions(workoutFileName);
  std::vector<Version> versions;
  const int error = ForEachEntry(folder, [&](std::string_view entry, EntryType type) {
    const auto name = ParseVersionName(entry);
    if (type == EntryType::kFile && name)
      versions.push_back({folder + std::string(entry), *name, 0});
  });
  if (error != 0 && error != ENOENT) throw FileError(folder, "could not be read", error);
  for (Version& version : versions) {
    const auto stamp = StampOf(version.path);
    if (stamp) version.bytes = stamp->size;
  }
  std::ranges::sort(versions, {}, &Version::path);
  return versions;
}

bool KeepVersion(const std::string& path, BeforeWhat before, double now) {
  const std::string workoutFileName = FileName(path);
  const auto stamp = StampOf(path);
  if (!stamp || stamp->size > kLargestVersion) return false;
  const Bytes content = ReadWholeFile(path, kLargestVersion);
  const std::vector<Version> versions = VersionsOf(workoutFileName);
  if (IsEqual(versions, content)) return true;
  const std::string folder = FolderOfVersions(workoutFileName);
  MakeFolders(WithoutSeparator(folder));
  WriteVersion(folder, FileNameOf({TimeAfter(versions, now), before}), content);
  DropOld(workoutFileName, now);
  return true;
}

void MoveVersions(const std::string& from, const std::string& to) {
  const std::vector<Version> versions = VersionsOf(from);
  if (versions.empty()) return;
  const std::string folder = FolderOfVersions(to);
  MakeFolders(WithoutSeparator(folder));
  for (const Version& version : versions) {
    RenameToNew(version.path, folder + FileName(version.path));
  }
  // It stays if it has files of the person's own.
  static_cast<void>(rmdir(FolderOfVersions(from).c_str()));
}

}  // namespace repvolta
