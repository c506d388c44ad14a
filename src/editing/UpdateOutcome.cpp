#include "editing/UpdateOutcome.h"

#include <algorithm>
#include <exception>

#include "app/Options.h"
#include "base/FileNames.h"

namespace repvolta {
namespace {

UpdateResult SumOf(const std::vector<UpdateResult>& results) {
  UpdateResult sum;
  for (const UpdateResult& result : results) {
    if (result.end == UpdateResult::End::kStopped) sum.end = result.end;
    sum.files += result.files;
    sum.planned += result.planned;
    sum.seconds += result.seconds;
    sum.unknownSeconds += result.unknownSeconds;
  }
  return sum;
}

/// "23 files", "7 of 23 files", "no files".
std::string FilesText(const UpdateResult& sum) {
  const bool isStopped = sum.end == UpdateResult::End::kStopped;
  if (sum.files == 0) return "no files";
  if (isStopped && sum.files < sum.planned) {
    return std::to_string(sum.files) + " of " + std::to_string(sum.planned) + " files";
  }
  return std::to_string(sum.files) + (sum.files == 1 ? " file" : " files");
}

/// "41 min", "45 s"; "" when no play time is known.
std::string TimeText(const UpdateResult& sum) {
  constexpr std::int64_t kMinute = 60;
  if (sum.seconds == 0) return {};
  const std::string time = sum.seconds < kMinute
                               ? std::to_string(sum.seconds) + " s"
                               : std::to_string((sum.seconds + kMinute / 2) / kMinute) + " min";
  return (sum.unknownSeconds > 0 ? ", more than " : ", ") + time;
}

}  // namespace

std::string UpdateOutcome::Subject() const {
  return results_.size() == 1 ? results_.front().workout
                              : std::to_string(results_.size()) + " workouts";
}

std::string UpdateOutcome::Text() const {
  const UpdateResult sum = SumOf(results_);
  const std::string problems = problems_.Text();
  return Subject() + (sum.end == UpdateResult::End::kStopped ? ", stopped: " : ": ") +
         FilesText(sum) + TimeText(sum) + ", " + (problems.empty() ? "no errors" : problems);
}

std::string UpdateOutcome::Folder() const {
  if (results_.empty()) return {};
  const std::string folder = results_.front().folder;
  return results_.size() == 1 ? folder : FolderOf(WithoutSeparator(folder));
}

bool UpdateOutcome::HasCompleteWorkout() const {
  return std::ranges::any_of(results_, [](const UpdateResult& result) {
    return result.end == UpdateResult::End::kComplete && result.files > 0;
  });
}

std::string TakePlayerHint(const Editor& editor) {
  OptionLines& options = editor.program.Options();
  if (Get(options, kPlayerHintShown)) return {};
  Put(options, kPlayerHintShown, true);
  try {
    SaveChangedOptions(editor);
  } catch (const std::exception&) {
    // A hint that is told twice does no harm.
  }
  return "How it gets into the player: if the folder is on the player, eject the player and unplug "
         "it. Otherwise copy the folder to the player.";
}

}  // namespace repvolta
