#include "backup/RestorePlan.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "keeping/VersionName.h"

namespace repvolta {
namespace {

constexpr double kSecond = 1.0 / 86400;
constexpr std::size_t kMostNames = 12;

/// The folder of the voice that the path of its clip begins with.
std::string VoiceIn(const std::string& path) {
  return path.substr(0, path.find('/', std::string_view(kVoicesFolder).size()));
}

/// How files of a kind are called. There is only one file where `several` is empty.
struct KindTexts {
  BackupKind kind;
  std::string_view one;
  std::string_view several;
  bool areNamed;
};

constexpr std::array<KindTexts, 11> kKinds = {{
    {BackupKind::kSettings, "the settings", "", false},
    {BackupKind::kOptions, "the options", "", false},
    {BackupKind::kMusicList, "the list of random music", "", false},
    {BackupKind::kWorkout, "workout", "workouts", true},
    {BackupKind::kVersion, "earlier version", "earlier versions", false},
    {BackupKind::kClip, "clip", "clips", true},
    {BackupKind::kExerciseList, "exercise list", "exercise lists", true},
    {BackupKind::kClipOrigins, "the notes on the clips", "", false},
    {BackupKind::kClipLevels, "the level of the voice", "", false},
    {BackupKind::kVoiceClip, "clip of another voice", "clips of other voices", false},
    {BackupKind::kOriginalClip, "clip as it was made", "clips as they were made", false},
}};

/// Words and names are both clips to a person.
BackupKind KindToName(BackupKind kind) {
  return kind == BackupKind::kNameClip ? BackupKind::kClip : kind;
}

std::string NamesOf(std::vector<std::string> paths) {
  std::ranges::sort(paths);
  std::string names;
  const std::size_t shown = std::min(paths.size(), kMostNames);
  for (std::size_t i = 0; i < shown; ++i) names += (i == 0 ? "" : ", ") + BaseName(paths[i]);
  if (paths.size() > shown) names += " and " + std::to_string(paths.size() - shown) + " more";
  return names;
}

/// "the settings", "1 workout", "3 workouts"
std::string CountOf(const KindTexts& texts, std::size_t count) {
  if (texts.several.empty()) return std::string(texts.one);
  return std::to_string(count) + " " + std::string(count == 1 ? texts.one : texts.several);
}

/// The paths by kind.
using Paths = std::map<BackupKind, std::vector<std::string>>;

/// A line for each kind: "Adds 2 workouts: Legs, Push."
void AddLines(const std::string& verb, const Paths& paths, const std::string& remark,
              std::vector<std::string>& lines) {
  for (const KindTexts& texts : kKinds) {
    const auto found = paths.find(texts.kind);
    if (found == paths.end()) continue;
    std::string line = verb;
    line.append(" ").append(CountOf(texts, found->second.size())).append(remark);
    if (texts.areNamed) line.append(": ").append(NamesOf(found->second));
    lines.push_back(line + ".");
  }
}

Paths PathsOf(const RestorePlan& plan, RestoreEffect effect) {
  Paths paths;
  for (const RestoredFile& file : plan.files) {
    if (file.effect == effect) paths[KindToName(file.kind)].push_back(file.target);
  }
  return paths;
}

Paths LeftPathsOf(const RestorePlan& plan) {
  Paths paths;
  for (const FileToBackUp& file : plan.left) paths[KindToName(file.kind)].push_back(file.path);
  return paths;
}

std::string EqualText(const RestorePlan& plan) {
  const auto equal = std::ranges::count(plan.files, RestoreEffect::kIsThere, &RestoredFile::effect);
  if (equal == 0) return "";
  return equal == 1 ? "1 file is here already, just the same."
                    : std::to_string(equal) + " files are here already, just the same.";
}

std::string TooLongText(const std::string& path) {
  return "Stays as it is, because the new path would have more than 256 characters: " + path;
}

}  // namespace

RestoreTargets::RestoreTargets(const std::vector<FileToBackUp>& present) {
  for (const FileToBackUp& file : present) {
    present_.emplace(FoldedBackupPath(file.archived), file.path);
    if (file.kind != BackupKind::kVoiceClip) continue;
    voices_.emplace(FoldedBackupPath(VoiceIn(file.archived)), VoiceIn(file.path));
  }
}

std::string RestoreTargets::PresentName(const std::string& path) const {
  const auto found = present_.find(FoldedBackupPath(path));
  return found == present_.end() ? path : found->second;
}

std::string RestoreTargets::InPresentVoice(const std::string& path) const {
  const std::string voice = VoiceIn(path);
  const auto found = voices_.find(FoldedBackupPath(voice));
  return found == voices_.end() ? path : found->second + path.substr(voice.size());
}

std::string RestoreTargets::TargetOf(const std::string& path, BackupKind kind) const {
  if (kind == BackupKind::kVoiceClip) return PresentName(InPresentVoice(path));
  if (kind != BackupKind::kVersion) return PresentName(path);
  const std::string folder = WithoutSeparator(FolderOf(path));
  const std::string workout = PresentName(kWorkoutFolder + FileName(folder) + kWorkoutExtension);
  return kVersionFolder + BaseName(workout) + "/" + FileName(path);
}

std::string NextVersionPath(const std::string& path) {
  const auto name = ParseVersionName(FileName(path));
  if (!name) return path;
  return FolderOf(path) + FileNameOf({name->time + kSecond, name->before});
}

std::vector<FileToBackUp> LeftByPlan(const std::vector<FileToBackUp>& present,
                                     const std::vector<RestoredFile>& files) {
  std::set<std::string> targets;
  for (const RestoredFile& file : files) targets.insert(file.target);
  std::vector<FileToBackUp> left;
  std::ranges::copy_if(present, std::back_inserter(left),
                       [&](const FileToBackUp& file) { return !targets.contains(file.path); });
  return left;
}

bool ChangesNothing(const RestorePlan& plan) {
  return std::ranges::all_of(
      plan.files, [](const RestoredFile& file) { return file.effect == RestoreEffect::kIsThere; });
}

std::vector<std::string> TextOf(const RestorePlan& plan) {
  std::vector<std::string> lines;
  if (ChangesNothing(plan)) {
    lines.emplace_back(plan.damaged.empty() ? "Changes nothing: all of the backup is here."
                                            : "Changes nothing.");
  }
  AddLines("Replaces", PathsOf(plan, RestoreEffect::kReplaces), "", lines);
  AddLines("Adds", PathsOf(plan, RestoreEffect::kAdds), "", lines);
  AddLines("Leaves", LeftPathsOf(plan), " that the backup does not have", lines);
  const std::string equal = EqualText(plan);
  if (!equal.empty() && !ChangesNothing(plan)) lines.push_back(equal);
  for (const std::string& path : plan.damaged) {
    lines.push_back("Leaves out a file that is damaged in the backup: " + path);
  }
  for (const std::string& path : plan.tooLong) lines.push_back(TooLongText(path));
  return lines;
}

}  // namespace repvolta
