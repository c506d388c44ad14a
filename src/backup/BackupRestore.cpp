#include "backup/BackupRestore.h"

#include <algorithm>
#include <set>
#include <utility>

#include "app/BroughtFiles.h"
#include "app/ClipOrigins.h"
#include "backup/FilesToBackUp.h"
#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

RestoreEffect EffectOn(const std::string& target, std::span<const Byte> content) {
  if (!IsTaken(target)) return RestoreEffect::kAdds;
  const Bytes present = ReadWholeFile(target, content.size() + 1);
  return std::ranges::equal(present, content) ? RestoreEffect::kIsThere : RestoreEffect::kReplaces;
}

/// Files that are there under the very name are taken, also when there are several that differ only
/// in case. A version is never replaced: another one of the same second comes behind it.
RestoredFile PlanFile(const BackupEntry& entry, std::span<const Byte> content,
                      const RestoreTargets& targets, const std::set<std::string>& taken) {
  RestoredFile file{.path = entry.path, .target = entry.path, .kind = entry.kind, .effect = {}};
  const bool isVersion = entry.kind == BackupKind::kVersion;
  if (isVersion || !IsTaken(file.target)) file.target = targets.TargetOf(entry.path, entry.kind);
  file.effect = EffectOn(file.target, content);
  while (isVersion && (file.effect == RestoreEffect::kReplaces || taken.contains(file.target))) {
    file.target = NextVersionPath(file.target);
    file.effect = EffectOn(file.target, content);
  }
  return file;
}

/// A file that cannot be backed up before must not be lost.
void ExpectBackedUp(const RestoredFile& file, const std::set<std::string>& present) {
  if (file.effect != RestoreEffect::kReplaces || present.contains(file.target)) return;
  throw FileError(file.target, "would be replaced", "There cannot be a backup of it");
}

std::set<std::string> PathsOf(const std::vector<FileToBackUp>& files) {
  std::set<std::string> paths;
  for (const FileToBackUp& file : files) paths.insert(file.path);
  return paths;
}

/// What the program brought is nobody's loss or gain.
void ForgetBrought(std::vector<FileToBackUp>& files) {
  const BroughtFiles brought;
  std::erase_if(files, [&](const FileToBackUp& file) {
    return CanBeBrought(file.kind) &&
           brought.Has(file.path, ReadWholeFile(file.path, LargestInBackup(file.kind)));
  });
}

/// Clips that stay keep their notes.
Bytes WithNotesHere(std::span<const Byte> notes) {
  ClipOrigins origins("");
  origins.AddNotesOf(AsText(notes));
  const std::string text = origins.Encode();
  return {text.begin(), text.end()};
}

/// The clip that a line of voices/level.txt is about, its fourth field; "" for other lines.
std::u32string ClipOfLevelLine(std::string_view line) {
  constexpr int kFieldsBefore = 3;
  for (int i = 0; i < kFieldsBefore; ++i) {
    const std::size_t end = line.find('\t');
    if (end == std::string_view::npos) return {};
    line.remove_prefix(end + 1);
  }
  return FoldCase(line);
}

std::set<std::u32string> ClipsOfLevelLines(std::string_view text) {
  std::set<std::u32string> clips;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    clips.insert(ClipOfLevelLine(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
  }
  return clips;
}

/// The level is that of the backup; clips that stay keep their originals.
Bytes WithLevelsHere(std::span<const Byte> levels) {
  std::string text(AsText(levels));
  std::set<std::u32string> clips = ClipsOfLevelLines(text);
  clips.insert(std::u32string());
  if (FileExists(kClipLevels)) {
    ForEachLine(kClipLevels, [&](std::string_view line) {
      if (clips.contains(ClipOfLevelLine(line))) return true;
      if (!text.empty() && !text.ends_with('\n')) text += '\n';
      text.append(line).append("\n");
      return true;
    });
  }
  return {text.begin(), text.end()};
}

/// What is to be in the program directory of the content of an entry.
ExchangedFile ContentHere(const BackupEntry& entry, std::span<const Byte> content,
                          const std::vector<PathExchange>& exchanges) {
  switch (entry.kind) {
    case BackupKind::kClipOrigins:
      return {.content = WithNotesHere(content), .tooLong = {}};
    case BackupKind::kClipLevels:
      return {.content = WithLevelsHere(content), .tooLong = {}};
    default:
      return ExchangePaths(entry.kind, content, exchanges);
  }
}

bool IsFolderHere(const std::string& folder) {
  try {
    return FolderExists(folder);
  } catch (const FileError&) {
    return true;  // a disk that fails is here
  }
}

}  // namespace

BackupRestore::BackupRestore(const std::string& backup, BackupWatch watch)
    : watch_(std::move(watch)), reader_(backup, [this](std::uint64_t done, std::uint64_t all) {
        if (watch_) watch_(done, all);
      }) {}

std::vector<PathExchange> BackupRestore::Proposals(const std::string& home) const {
  std::set<std::string> folders;
  reader_.ForEachFile([&](const BackupEntry& entry, std::span<const Byte> content) {
    if (entry.kind == BackupKind::kVersion) return;
    for (std::string& folder : FoldersNamedIn(entry.kind, content)) {
      folders.insert(std::move(folder));
    }
  });
  const Homes homes{.there = WithoutSeparator(Origin().home), .here = WithoutSeparator(home)};
  return ProposedExchanges({folders.begin(), folders.end()}, homes, IsFolderHere);
}

RestorePlan BackupRestore::ForEachPlanned(const std::vector<PathExchange>& exchanges,
                                          const TakePlanned& take) const {
  const std::vector<FileToBackUp> present = FindFilesToBackUp().files;
  const RestoreTargets targets(present);
  const std::set<std::string> paths = PathsOf(present);
  std::set<std::string> taken;
  RestorePlan plan;
  reader_.ForEachFile([&](const BackupEntry& entry, std::span<const Byte> content) {
    if (IsDamaged(entry.kind, content)) {
      plan.damaged.push_back(entry.path);
      return;
    }
    const ExchangedFile exchanged = ContentHere(entry, content, exchanges);
    plan.files.push_back(PlanFile(entry, exchanged.content, targets, taken));
    ExpectBackedUp(plan.files.back(), paths);
    taken.insert(plan.files.back().target);
    plan.tooLong.insert(plan.tooLong.end(), exchanged.tooLong.begin(), exchanged.tooLong.end());
    take(plan.files.back(), exchanged.content);
  });
  plan.left = LeftByPlan(present, plan.files);
  std::erase_if(plan.left, [&](const FileToBackUp& file) {
    return std::ranges::find(plan.damaged, file.archived) != plan.damaged.end();
  });
  ForgetBrought(plan.left);
  std::ranges::sort(plan.tooLong);
  plan.tooLong.erase(std::unique(plan.tooLong.begin(), plan.tooLong.end()), plan.tooLong.end());
  return plan;
}

RestorePlan BackupRestore::Plan(const std::vector<PathExchange>& exchanges) const {
  return ForEachPlanned(exchanges, [](const RestoredFile&, std::span<const Byte>) {});
}

RestorePlan BackupRestore::Stage(const std::vector<PathExchange>& exchanges,
                                 RestoreStage& stage) const {
  return ForEachPlanned(exchanges, [&](const RestoredFile& file, std::span<const Byte> content) {
    if (file.effect != RestoreEffect::kIsThere) stage.Add(file.target, content);
  });
}

}  // namespace repvolta
