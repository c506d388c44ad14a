#include "voices/NamesInUse.h"

#include <functional>
#include <map>

#include "app/ExerciseTypes.h"
#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

/// In name order; of names that differ in case, the first.
using Names = std::map<std::u32string, std::string>;

void Add(Names& names, std::string_view name) {
  const std::string_view trimmed = TrimBlanks(name);
  if (!trimmed.empty()) names.try_emplace(FoldCase(trimmed), trimmed);
}

/// One damaged file does not hide the names of the others.
void IfReadable(const std::function<void()>& read) {
  try {
    read();
  } catch (const FileError&) {
  }
}

void AddNamesOfWorkout(Names& names, const std::string& file) {
  ExerciseSlots workout = DecodeWorkout(ReadWholeFile(kWorkoutFolder + file, kWorkoutFileSize));
  const std::int16_t count = CountExercises(workout);
  for (std::int16_t i = 0; i < count; ++i) Add(names, workout[i].ExerciseName.Trimmed());
}

}  // namespace

std::vector<std::string> ExerciseNamesInUse() {
  Names found;
  IfReadable([&found] {
    for (const std::string& type : ExerciseTypes()) {
      IfReadable([&] {
        for (const std::string& name : ExerciseNames(type)) Add(found, name);
      });
    }
  });
  IfReadable([&found] {
    for (const std::string& file : ListFiles(kWorkoutFolder, kWorkoutExtension)) {
      IfReadable([&] { AddNamesOfWorkout(found, file); });
    }
  });
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [folded, name] : found) names.push_back(std::move(name));
  return names;
}

}  // namespace repvolta
