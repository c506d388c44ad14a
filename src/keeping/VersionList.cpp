#include "keeping/VersionList.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "app/RecordFormat.h"
#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

/// Beyond the size of a workout, so that a file that is too large is known for one.
constexpr std::size_t kMostRead = kWorkoutFileSize + 1;

std::vector<std::string> FoldersOfVersions() {
  std::vector<std::string> names;
  const int error = ForEachEntry(kVersionFolder, [&](std::string_view entry, EntryType type) {
    if (type == EntryType::kFolder) names.emplace_back(entry);
  });
  if (error != 0 && error != ENOENT) throw FileError(kVersionFolder, "could not be read", error);
  std::ranges::sort(names, {}, [](const std::string& name) { return FoldCase(name); });
  return names;
}

/// The workout whose versions lie in the folder; a new one, which was deleted, when there is none.
KeptWorkout& WorkoutOf(const std::string& folder, std::vector<KeptWorkout>& list) {
  const auto isNamed = [&](const KeptWorkout& kept) { return BaseName(kept.fileName) == folder; };
  const auto isNamedInAnotherCase = [&](const KeptWorkout& kept) {
    return FoldCase(BaseName(kept.fileName)) == FoldCase(folder);
  };
  auto found = std::ranges::find_if(list, isNamed);
  if (found == list.end()) found = std::ranges::find_if(list, isNamedInAnotherCase);
  if (found != list.end()) return *found;
  return list.emplace_back(KeptWorkout{folder + kWorkoutExtension, true, {}, {}});
}

/// Adds the versions in a folder to those that the workout has already.
void AddVersions(const std::string& folder, KeptWorkout& kept) {
  try {
    const std::vector<Version> versions = VersionsOf(folder + kWorkoutExtension);
    kept.versions.insert(kept.versions.end(), versions.begin(), versions.end());
  } catch (const FileError& error) {
    kept.failure = error.what();
  }
  std::ranges::sort(kept.versions, [](const Version& a, const Version& b) {
    return FileName(a.path) > FileName(b.path);
  });
}

std::string SizeText(std::size_t size) {
  if (size >= kMostRead) return "more bytes than the " + std::to_string(kWorkoutFileSize);
  return std::to_string(size) + (size == 1 ? " byte" : " bytes") + " instead of the " +
         std::to_string(kWorkoutFileSize);
}

std::string DamageIn(const WorkoutContent& content) {
  if (content.bytes.size() != kWorkoutFileSize) {
    return "It has " + SizeText(content.bytes.size()) + " of a workout.";
  }
  return std::ranges::any_of(content.exercises, HasImpossibleCounts)
             ? "It holds numbers that no workout can have."
             : "";
}

}  // namespace

std::vector<KeptWorkout> ListKeptWorkouts(const std::string& present) {
  std::vector<KeptWorkout> list;
  if (!present.empty()) list.push_back({present, !FindFile(kWorkoutFolder + present), {}, {}});
  for (const std::string& fileName : ListFiles(kWorkoutFolder, kWorkoutExtension)) {
    if (fileName != present) list.push_back({fileName, false, {}, {}});
  }
  for (const std::string& folder : FoldersOfVersions())
    AddVersions(folder, WorkoutOf(folder, list));
  std::erase_if(list, [&](const KeptWorkout& kept) {
    return kept.fileName != present && kept.versions.empty() && kept.failure.empty();
  });
  return list;
}

WorkoutContent WorkoutContentOf(Bytes bytes) {
  WorkoutContent content{std::move(bytes), {}, {}};
  ExerciseSlots slots = DecodeWorkout(content.bytes);
  const std::int16_t count = CountExercises(slots);
  content.exercises.assign(slots.begin(), slots.begin() + count);
  content.damage = DamageIn(content);
  return content;
}

WorkoutContent ReadWorkoutContent(const std::string& path) {
  return WorkoutContentOf(ReadWholeFile(path, kMostRead));
}

}  // namespace repvolta
