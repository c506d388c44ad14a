#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "app/WorkoutDamage.h"
#include "app/WorkoutFiles.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// The workout "Monday" in a fresh program directory.
class WorkoutInMemory : public testing::Test {
 protected:
  WorkoutInMemory() {
    state.ProgramDirectory = folder.Path();
    state.WorkoutFileName = "Monday.RPV";
  }

  TemporaryFolder folder;
  ProgramState state;
};

/// A loaded file with two exercises in use and one after a blank name.
class DamagedWorkout : public WorkoutInMemory {
 protected:
  static constexpr const char* kDamage =
      "Monday.RPV seems to be damaged: it holds numbers that no workout can have.";

  DamagedWorkout() {
    for (const int slot : {0, 1, 3}) workout[slot].ExerciseName = "Squat";
  }

  void Load() {
    PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
    EXPECT_EQ(LoadWorkout(state), WorkoutLoad::kLoaded);
  }

  ExerciseSlots workout;
};

TEST_F(DamagedWorkout, HasCountsThatThereAreNoSlotsFor) {
  for (const std::int16_t count : std::initializer_list<std::int16_t>{-7293, -1, 18, 32767}) {
    workout[1].NumberOfSets = count;
    Load();
    EXPECT_EQ(DamageOf(state), kDamage) << count;
  }
  workout[1].NumberOfSets = 0;
  for (const std::int16_t count : std::initializer_list<std::int16_t>{-32768, -1, 13}) {
    workout[0].NumberOfMusicFiles = count;
    Load();
    EXPECT_EQ(DamageOf(state), kDamage) << count;
  }
}

TEST_F(DamagedWorkout, IsNoneWhereEverySlotIsUsed) {
  for (const int slot : {0, 1}) {
    workout[slot].NumberOfSets = 17;
    workout[slot].NumberOfMusicFiles = 12;
  }
  Load();
  EXPECT_EQ(DamageOf(state), "");
}

TEST_F(DamagedWorkout, IsNoneForASlotThatIsNotInUse) {
  workout[2].NumberOfSets = workout[3].NumberOfSets = -1;
  Load();
  EXPECT_EQ(DamageOf(state), "");
}

TEST_F(DamagedWorkout, LeavesTheFileAsItIs) {
  workout[0].NumberOfSets = -1;
  Load();
  EXPECT_EQ(GetFile("workouts/Monday.RPV"), EncodeWorkout(workout));
}

/// A loaded file of any size.
class OddSize : public WorkoutInMemory {
 protected:
  void LoadFileOf(std::size_t size) {
    PutFile("workouts/Monday.RPV", Bytes(size));
    EXPECT_EQ(LoadWorkout(state), WorkoutLoad::kLoaded);
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

TEST_F(OddSize, OfOneByteIsSingular) {
  LoadFileOf(1);
  EXPECT_THAT(OddSizeOf(state), testing::StartsWith("Monday.RPV has 1 byte instead of 266240;"));
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
