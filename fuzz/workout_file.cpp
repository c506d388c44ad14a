#include <algorithm>
#include <memory>

#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "base/Text.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is a workout file. It is loaded, saved and loaded again without a change.

namespace repvolta {
namespace {

constexpr const char* kFile = "workouts/Monday.RPV";

/// The memory for a workout and for writing it, besides its file.
constexpr std::size_t kWorkoutInMemory = 6 * 1024 * 1024;

/// The place of a record's texts; everything else is kept bit by bit.
struct Field {
  std::size_t offset;
  std::size_t size;
};
constexpr Field kNumbers[] = {{3072, 3786 - 3072}, {3836, 4}, {4096, 1024}};

void RequireNumbersKept(std::span<const Byte> file, std::span<const Byte> saved) {
  for (std::size_t start = 0;
       start + kExerciseRecordSize <= file.size() && start < kWorkoutFileSize;
       start += kExerciseRecordSize) {
    for (const Field& field : kNumbers) {
      Require(std::ranges::equal(file.subspan(start + field.offset, field.size),
                                 saved.subspan(start + field.offset, field.size)),
              "numbers and reserved bytes are kept as found");
    }
  }
}

void RequireSameTexts(const ExerciseRecord& a, const ExerciseRecord& b) {
  Require(a.MusicFile == b.MusicFile, "paths of music are kept");
  Require(a.ExerciseName == b.ExerciseName, "names are kept");
  Require(a.UserField1Name == b.UserField1Name && a.UserField2Name == b.UserField2Name,
          "field names are kept");
  for (const auto& path : a.MusicFile) Require(IsUtf8(path.Text()), "texts are UTF-8");
}

std::unique_ptr<ProgramState> Load(const FuzzFolder& folder) {
  auto state = std::make_unique<ProgramState>();
  state->ProgramDirectory = folder.Path();
  state->WorkoutFileName = "Monday.RPV";
  Require(LoadWorkout(*state) == WorkoutLoad::kLoaded, "a file of any content is loaded");
  Require(state->NumberOfExercises >= 0 && state->NumberOfExercises <= MaxExercises, "the count");
  return state;
}

void LoadSaveLoad(const FuzzFolder& folder, std::span<const Byte> file) {
  const auto first = Load(folder);
  SaveWorkout(*first);
  const Bytes saved = GetFile(kFile);
  Require(saved.size() == kWorkoutFileSize, "a saved file has its size");
  RequireNumbersKept(file, saved);
  const auto second = Load(folder);
  Require(first->NumberOfExercises == second->NumberOfExercises, "the count is kept");
  for (int i = 0; i < static_cast<int>(kExerciseSlots); ++i) {
    RequireSameTexts(first->Workout[i], second->Workout[i]);
  }
  SaveWorkout(*second);
  Require(GetFile(kFile) == saved, "load, save, load, save gives the same file");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  static const bool made = [] {
    ProgramState state;
    LoadWorkoutNames(state);
    return true;
  }();
  static_cast<void>(made);
  const std::span<const Byte> file(data, size);
  PutFile(kFile, file);
  const LinearCost cost(size, kWorkoutInMemory);
  LoadSaveLoad(folder, file);
  return 0;
}
