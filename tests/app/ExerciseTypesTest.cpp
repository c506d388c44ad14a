#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ExerciseTypes.h"
#include "base/FileError.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ExerciseTypes, AreTheNamesOfTheListFiles) {
  const TemporaryFolder folder;
  PutFile("exercise/weights.LST", "");
  PutFile("exercise/Cardio.lst", "");
  PutFile("exercise/notes.txt", "");
  EXPECT_THAT(ExerciseTypes(), ElementsAre("Cardio", "weights"));
}

TEST(ExerciseTypes, AreNoneWhereTheFolderIsMissing) {
  const TemporaryFolder folder;
  EXPECT_THAT(ExerciseTypes(), IsEmpty());
}

TEST(ExerciseNames, AreTheLinesAsTheyStand) {
  const TemporaryFolder folder;
  PutFile("exercise/Cardio.lst", " Rowing \r\n\r\nRunning");
  EXPECT_THAT(ExerciseNames("Cardio"), ElementsAre(" Rowing ", "", "Running"));
}

TEST(ExerciseNames, AreFoundWithoutRegardToCase) {
  const TemporaryFolder folder;
  PutFile("exercise/weights.LST", "Squat\n");
  EXPECT_THAT(ExerciseNames("weights"), ElementsAre("Squat"));
}

TEST(ExerciseNames, MayBeUtf8OrSingleByteText) {
  const TemporaryFolder folder;
  PutFile("exercise/Ballet.lst", "D\xE9velopp\xE9\nDéveloppé\n走る\n");
  EXPECT_THAT(ExerciseNames("Ballet"), ElementsAre("Développé", "Développé", "走る"));
}

TEST(ExerciseNames, NeedTheirFile) {
  const TemporaryFolder folder;
  EXPECT_THROW(ExerciseNames("Gone"), FileError);
}

}  // namespace
}  // namespace repvolta
