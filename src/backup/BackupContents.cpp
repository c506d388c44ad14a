#include "backup/BackupContents.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "app/RecordFormat.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "keeping/VersionName.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;

/// Sound begins near the start of a clip; the rest need not be looked at.
constexpr std::size_t kClipStart = kMegabyte;

constexpr std::array<std::pair<std::string_view, BackupKind>, 6> kSingleFiles = {{
    {kBackupManifest, BackupKind::kManifest},
    {kSettingsFile, BackupKind::kSettings},
    {kOptionsFile, BackupKind::kOptions},
    {kMusicList, BackupKind::kMusicList},
    {kClipOrigins, BackupKind::kClipOrigins},
    {kClipLevels, BackupKind::kClipLevels},
}};

struct FolderOfKind {
  std::string_view folder;
  std::string_view extension;
  BackupKind kind;
};

constexpr std::array<FolderOfKind, 4> kFolders = {{
    {kWorkoutFolder, kWorkoutExtension, BackupKind::kWorkout},
    {kClipFolder, kClipExtension, BackupKind::kClip},
    {kNameClipFolder, kNameClipExtension, BackupKind::kNameClip},
    {kExerciseFolder, kExerciseListExtension, BackupKind::kExerciseList},
}};

bool IsSafeName(std::string_view name) {
  return IsFileName(name) && name.find('\\') == std::string_view::npos;
}

/// The program finds its files without regard to case.
bool HasExtension(const std::string& name, std::string_view extension) {
  return name.size() > extension.size() && FoldCase(name).ends_with(FoldCase(extension));
}

/// The folder of a whole voice. Hidden ones are none, except for the originals of the clips in use.
bool IsVoiceFolder(std::string_view folder) {
  if (!folder.starts_with(kVoicesFolder) || !folder.ends_with('/')) return false;
  std::string_view name = folder.substr(std::string_view(kVoicesFolder).size());
  if (name.empty()) return false;
  name.remove_suffix(1);
  return folder == kOriginalClips || (IsSafeName(name) && !name.starts_with('.'));
}

bool IsVoiceNameFolder(std::string_view folder) {
  return folder.ends_with(std::string("/") + kNameClipSubfolder) &&
         IsVoiceFolder(
             folder.substr(0, folder.size() - std::string_view(kNameClipSubfolder).size()));
}

/// `folder` ends with the separator.
std::optional<BackupKind> KindInFolder(const std::string& folder, const std::string& name) {
  for (const FolderOfKind& place : kFolders) {
    if (folder == place.folder && HasExtension(name, place.extension)) return place.kind;
  }
  const bool isVoiceClip = (IsVoiceFolder(folder) && HasExtension(name, kClipExtension)) ||
                           (IsVoiceNameFolder(folder) && HasExtension(name, kNameClipExtension));
  if (isVoiceClip) {
    const bool isOriginal = folder.starts_with(kOriginalClips);
    return isOriginal ? BackupKind::kOriginalClip : BackupKind::kVoiceClip;
  }
  const bool isVersion = IsBackupFolder(folder) && folder.starts_with(kVersionFolder) &&
                         folder != kVersionFolder && ParseVersionName(name);
  return isVersion ? std::optional(BackupKind::kVersion) : std::nullopt;
}

std::string WhyNoClip(std::span<const Byte> content) {
  try {
    static_cast<void>(ReadWav(content.first(std::min(content.size(), kClipStart))));
    return "";
  } catch (const WavError& error) {
    return error.what();
  }
}

std::string WhyNoText(std::span<const Byte> content) {
  return std::ranges::find(content, Byte{0}) == content.end() ? "" : "It is no text";
}

}  // namespace

std::optional<BackupKind> BackupKindOf(std::string_view path) {
  if (!IsUtf8(path)) return std::nullopt;
  for (const auto& [name, kind] : kSingleFiles) {
    if (path == name) return kind;
  }
  const std::string name = FileName(path);
  return IsSafeName(name) ? KindInFolder(FolderOf(path), name) : std::nullopt;
}

bool IsBackupFolder(std::string_view path) {
  if (!IsUtf8(path)) return false;
  const std::string folder(path.ends_with('/') ? path : std::string(path) + "/");
  const bool isPlain = folder == kVersionFolder || folder == kVoicesFolder ||
                       IsVoiceFolder(folder) || IsVoiceNameFolder(folder) ||
                       std::ranges::any_of(kFolders, [&](const FolderOfKind& place) {
                         return folder == place.folder;
                       });
  if (isPlain || !folder.starts_with(kVersionFolder)) return isPlain;
  const std::size_t begin = std::string_view(kVersionFolder).size();
  return IsSafeName(std::string_view(folder).substr(begin, folder.size() - begin - 1));
}

std::uint64_t LargestInBackup(BackupKind kind) {
  switch (kind) {
    case BackupKind::kManifest:
      return kMegabyte / 16;
    case BackupKind::kSettings:
      return kLongestSettingsFile;
    case BackupKind::kWorkout:
    case BackupKind::kVersion:
    case BackupKind::kOptions:
      return kMegabyte;
    case BackupKind::kExerciseList:
    case BackupKind::kClipOrigins:
    case BackupKind::kClipLevels:
      return 4 * kMegabyte;
    case BackupKind::kMusicList:
    case BackupKind::kClip:
    case BackupKind::kNameClip:
    case BackupKind::kVoiceClip:
    case BackupKind::kOriginalClip:
      break;
  }
  return 32 * kMegabyte;
}

std::string WhyNotOfKind(BackupKind kind, std::span<const Byte> content) {
  if (content.size() > LargestInBackup(kind)) return "It is too large";
  switch (kind) {
    case BackupKind::kClip:
    case BackupKind::kNameClip:
    case BackupKind::kVoiceClip:
    case BackupKind::kOriginalClip:
      return WhyNoClip(content);
    case BackupKind::kManifest:
    case BackupKind::kOptions:
    case BackupKind::kMusicList:
    case BackupKind::kExerciseList:
    case BackupKind::kClipOrigins:
    case BackupKind::kClipLevels:
      return WhyNoText(content);
    case BackupKind::kSettings:
    case BackupKind::kWorkout:
    case BackupKind::kVersion:
      break;
  }
  return "";
}

bool IsClip(BackupKind kind) {
  return kind == BackupKind::kClip || kind == BackupKind::kNameClip ||
         kind == BackupKind::kVoiceClip || kind == BackupKind::kOriginalClip;
}

int FormatWith(BackupKind kind) {
  const bool isOfVoices = kind == BackupKind::kClipOrigins || kind == BackupKind::kClipLevels ||
                          kind == BackupKind::kVoiceClip || kind == BackupKind::kOriginalClip;
  return isOfVoices ? 2 : 1;
}

bool CanBeBrought(BackupKind kind) {
  return kind == BackupKind::kClip || kind == BackupKind::kNameClip ||
         kind == BackupKind::kExerciseList;
}

bool IsDamaged(BackupKind kind, std::span<const Byte> content) {
  switch (kind) {
    case BackupKind::kSettings:
      return content.size() < kSettingsFileSize;
    case BackupKind::kWorkout:
    case BackupKind::kVersion:
      return content.size() < kExerciseRecordSize;
    default:
      return false;
  }
}

std::u32string FoldedBackupPath(std::string_view path) { return FoldCaseFully(path); }

}  // namespace repvolta
