#include "editing/BackUp.h"

#include <algorithm>
#include <stdexcept>

#include "base/Text.h"
#include "editing/ChooseTarget.h"

namespace repvolta {
namespace {

constexpr const char* kTitle = "Back Up";
constexpr std::size_t kMostLines = 10;

int CountOf(const std::map<BackupKind, int>& counts, BackupKind kind) {
  const auto found = counts.find(kind);
  return found == counts.end() ? 0 : found->second;
}

/// What was backed up, one part for each kind: "2 workouts", "1 own clip".
std::vector<std::string> PartsOf(const std::map<BackupKind, int>& counts) {
  const auto count = [&](BackupKind kind) { return CountOf(counts, kind); };
  const int clips = count(BackupKind::kClip) + count(BackupKind::kNameClip);
  const int workouts = count(BackupKind::kWorkout);
  const int versions = count(BackupKind::kVersion);
  const int voices = count(BackupKind::kVoiceClip);
  const int originals = count(BackupKind::kOriginalClip);
  const int lists = count(BackupKind::kExerciseList);
  std::vector<std::string> parts;
  if (workouts > 0) parts.push_back(Counted(workouts, "workout", "workouts"));
  if (versions > 0) parts.push_back(Counted(versions, "earlier version", "earlier versions"));
  if (clips > 0) parts.push_back(Counted(clips, "own clip", "own clips"));
  if (voices > 0) parts.push_back(Counted(voices, "clip", "clips") + " of other voices");
  if (originals > 0) {
    parts.push_back(Counted(originals, "clip as it was made", "clips as they were made"));
  }
  if (lists > 0) parts.push_back(Counted(lists, "own exercise list", "own exercise lists"));
  const bool hasSettings = count(BackupKind::kSettings) + count(BackupKind::kOptions) > 0;
  if (hasSettings) parts.emplace_back("the settings");
  if (count(BackupKind::kMusicList) > 0) parts.emplace_back("the list of random music");
  return parts;
}

std::string LeftOutText(const std::vector<std::string>& lines) {
  if (lines.empty()) return "";
  std::string text = "\r\rThese files are not in it:";
  for (std::size_t i = 0; i < std::min(lines.size(), kMostLines); ++i) text += "\r" + lines[i];
  if (lines.size() > kMostLines) {
    text += "\rand " + std::to_string(lines.size() - kMostLines) + " more";
  }
  return text;
}

BackupResult WriteInSight(const Editor& editor, const std::string& target,
                          const BackupOrigin& origin) {
  BackupResult result;
  editor.dialogs.ShowLongWork("Backing up ...", [&](const ReportWork& report) {
    result = WriteBackup(target, origin, [&](std::size_t done, std::size_t all) {
      report(all == 0 ? 0 : static_cast<int>(done * 100 / all));
    });
  });
  return result;
}

}  // namespace

FileQuestion BackupQuestion(const std::string& title, const std::string& file) {
  return {.name = "BackupFileDialog",
          .title = title,
          .file = file,
          .filter = "Backups (*.zip)",
          .suffix = kBackupExtension};
}

std::string TextOfBackup(const std::map<BackupKind, int>& counts) {
  const std::vector<std::string> parts = PartsOf(counts);
  if (parts.empty()) return "nothing";
  std::string text = parts.front();
  for (std::size_t i = 1; i < parts.size(); ++i) {
    text += (i + 1 == parts.size() ? " and " : ", ") + parts[i];
  }
  return text;
}

void BackUp(Editor& editor) {
  MakeProgramDirectoryCurrent(editor.State());
  const BackupOrigin origin =
      OriginHere(editor.State().ProgramDirectory, editor.program.clock.Now());
  const std::string day = origin.made.substr(0, origin.made.find(' '));
  const std::string target =
      ChooseTarget(editor, BackupQuestion(kTitle, "Repvolta backup " + day + kBackupExtension));
  if (target.empty()) return;
  try {
    const BackupResult result = WriteInSight(editor, target, origin);
    editor.dialogs.ShowMessage(ShownOnOneLine(target) + " holds " + TextOfBackup(result.counts) +
                                   ". It was read again and compared." +
                                   LeftOutText(result.leftOut) + WeaknessText(result.weakness),
                               kTitle);
  } catch (const FileError& error) {
    // The window says before it that there is no new backup.
    throw std::runtime_error(error.what());
  } catch (const WorkStopped&) {
    editor.dialogs.ShowMessage("There is no new backup; an older one of this name is as it was.",
                               kTitle);
  }
}

}  // namespace repvolta
