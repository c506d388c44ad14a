#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"

#include "fakes/RecordingScreen.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The workout "Monday" in a program directory of its own.
class WorkoutInMemory : public testing::Test {
 protected:
  WorkoutInMemory() {
    state.ProgramDirectory = folder.Path();
    state.WorkoutFileName = "Monday.RPV";
  }

  TemporaryFolder folder;
  ProgramState state;
  RecordingScreen screen;
};

/// A loaded file with two exercises in use and one behind a blank name.
class DamagedWorkout : public WorkoutInMemory {
 protected:
  static constexpr const char* kDamage =
      "Monday.RPV seems to be damaged: it holds numbers that no workout can have.";

  DamagedWorkout() {
    for (const int slot : {0, 1, 3}) workout[slot].ExerciseName = "Squat";
  }

  void Load() {
    PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
    screen.messages.clear();
    screen.calls.clear();
    EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kLoaded);
  }

  ExerciseSlots workout;
};

TEST_F(DamagedWorkout, IsToldOnceItIsShown) {
  for (const std::int16_t count : std::initializer_list<std::int16_t>{-7293, -1, 18, 32767}) {
    workout[1].NumberOfSets = count;
    Load();
    EXPECT_THAT(screen.messages, ElementsAre(kDamage)) << count;
    EXPECT_THAT(screen.titles, testing::Each("Repvolta"));
    EXPECT_THAT(screen.calls, ElementsAre("workout screen", "exercise screen", "message"));
  }
  workout[1].NumberOfSets = 0;
  for (const std::int16_t count : std::initializer_list<std::int16_t>{-32768, -1, 13}) {
    workout[0].NumberOfMusicFiles = count;
    Load();
    EXPECT_THAT(screen.messages, ElementsAre(kDamage)) << count;
  }
}

TEST_F(DamagedWorkout, IsToldOnceForAllItsExercises) {
  for (const int slot : {0, 1}) workout[slot].NumberOfSets = workout[slot].NumberOfMusicFiles = -1;
  Load();
  EXPECT_THAT(screen.messages, ElementsAre(kDamage));
}

TEST_F(DamagedWorkout, IsNoneWhereEverySlotIsUsed) {
  for (const int slot : {0, 1}) {
    workout[slot].NumberOfSets = 17;
    workout[slot].NumberOfMusicFiles = 12;
  }
  Load();
  EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DamagedWorkout, IsNoneForASlotThatIsNotInUse) {
  workout[2].NumberOfSets = workout[3].NumberOfSets = -1;
  Load();
  EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(DamagedWorkout, LeavesTheFileAsItIs) {
  workout[0].NumberOfSets = -1;
  Load();
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), EncodeWorkout(workout));
}

/// Cannot show the workout.
class ScreenThatThrows : public RecordingScreen {
 public:
  void UpdateWorkoutScreen() override { throw std::overflow_error("The number is too large"); }
};

TEST_F(DamagedWorkout, IsAllThatIsToldWhereItCannotBeShown) {
  workout[0].NumberOfSets = -1;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  ScreenThatThrows throwing;
  EXPECT_EQ(LoadWorkout(state, throwing), WorkoutLoad::kLoaded);
  EXPECT_THAT(throwing.messages, ElementsAre(kDamage));

  workout[0].NumberOfSets = 1;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  EXPECT_THROW(LoadWorkout(state, throwing), std::overflow_error);
}

TEST_F(DamagedWorkout, IsToldWhenAnotherProgramDamagedIt) {
  Load();
  workout[1].NumberOfSets = -1;
  PutFile("workouts/other", EncodeWorkout(workout));
  std::filesystem::rename("workouts/other", "workouts/Monday.RPV");
  try {
    ReloadChangedWorkout(state, screen);
    FAIL() << "nothing was told";
  } catch (const WorkoutReplaced& told) {
    EXPECT_EQ(told.what(),
              "Monday.RPV was changed by another program and has been loaded again.\r" +
                  std::string(kDamage));
  }
}

/// A loaded file of any size.
class OddSize : public WorkoutInMemory {
 protected:
  void LoadFileOf(std::size_t size) {
    PutFile("workouts/Monday.RPV", Bytes(size));
    EXPECT_EQ(LoadWorkout(state, screen), WorkoutLoad::kLoaded);
  }
};

TEST_F(OddSize, IsToldOfAFileThatIsTooShort) {
  constexpr const char* kFilledUp = "; what is missing was filled up with blanks.";
  LoadFileOf(0);
  EXPECT_EQ(OddSizeOf(state), std::string("Monday.RPV has 0 bytes instead of 266240") + kFilledUp);
  LoadFileOf(266239);
  EXPECT_EQ(OddSizeOf(state),
            std::string("Monday.RPV has 266239 bytes instead of 266240") + kFilledUp);
}

TEST_F(OddSize, IsToldOfAFileThatIsTooLong) {
  LoadFileOf(300000);
  EXPECT_EQ(OddSizeOf(state),
            "Monday.RPV has 300000 bytes instead of 266240; what is too much was ignored.");
}

TEST_F(OddSize, IsNoneOfAFileAsItShouldBe) {
  LoadFileOf(266240);
  EXPECT_EQ(OddSizeOf(state), "");
}

TEST_F(OddSize, IsNoneOnceTheWorkoutIsSaved) {
  LoadFileOf(0);
  SaveWorkout(state);
  EXPECT_EQ(OddSizeOf(state), "");
}

TEST_F(OddSize, IsNoneWithoutAWorkout) {
  EXPECT_EQ(OddSizeOf(state), "");
  LoadFileOf(0);
  state.WorkoutFileName = "";
  EXPECT_EQ(OddSizeOf(state), "");
}

}  // namespace
}  // namespace repvolta
