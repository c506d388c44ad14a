#include <filesystem>
#include <gmock/gmock.h>
#include <limits>

#include "update/PlanUpdate.h"
#include "update/UpdateFixture.h"

#include "support/OrdinaryRights.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

class FolderProblems : public UpdateFixture {
 protected:
  FolderProblems() { AddNamed("Squat"); }

  UpdatePlan Plan() { return PlanUpdate(state, kToday, random); }
  std::vector<PlannedProblem> Problems() { return Plan().problems; }

  static auto IsOfFolder(const std::string& text, const std::string& line) {
    return AllOf(Field(&PlannedProblem::kind, PlannedProblem::Kind::kNoOutputPath),
                 Field(&PlannedProblem::severity, PlannedProblem::Severity::kError),
                 Field(&PlannedProblem::text, HasSubstr(text)), Field(&PlannedProblem::line, line));
  }
};

TEST_F(FolderProblems, AreNoneForAFolderOfTheLastUpdate) {
  PutFile("player/Monday/RV001-Instructions.mp3", "old");
  EXPECT_THAT(Problems(), IsEmpty());
  EXPECT_TRUE(fs::exists("player/Monday/RV001-Instructions.mp3"));
}

TEST_F(FolderProblems, TellThatASongLiesInTheFolder) {
  PutFile("player/Monday/Song.mp3", SongBytes(3));
  AddSong(state.Workout[0], Full("player/Monday/Song.mp3"));
  const std::string text =
      Full("player/Monday is not deleted: ") + Full("player/Monday/Song.mp3 lies there");
  EXPECT_THAT(Problems(), ElementsAre(IsOfFolder(text, "ERROR: " + text)));
  EXPECT_TRUE(fs::exists("player/Monday/Song.mp3"));
}

TEST_F(FolderProblems, TellThatTheFolderHoldsTheMusic) {
  fs::create_directories("player/Monday/music");
  state.Settings.MusicPath = Full("player/Monday/music");
  const std::string text =
      Full("player/Monday is not deleted: ") + Full("player/Monday/music lies there");
  EXPECT_THAT(Problems(), ElementsAre(IsOfFolder(text, "ERROR: " + text)));
}

TEST_F(FolderProblems, TellThatAFileIsInTheWay) {
  PutFile("player/Monday", "");
  EXPECT_THAT(Problems(), ElementsAre(IsOfFolder("could not be created: File exists", "")));
}

TEST_F(FolderProblems, TellThatThePlayerCannotBeWritten) {
  const OrdinaryRights rights;
  fs::permissions("player", fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THAT(Problems(), ElementsAre(IsOfFolder("could not be created: Permission denied", "")));
  fs::permissions("player", fs::perms::owner_all);
}

TEST_F(FolderProblems, TellThatTheWorkoutCannotBeSaved) {
  fs::create_directory("workouts");
  const UnreadableFile unwritable("workouts", fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_THAT(Problems(),
              ElementsAre(AllOf(Field(&PlannedProblem::kind, PlannedProblem::Kind::kNotSaved),
                                Field(&PlannedProblem::severity, PlannedProblem::Severity::kError),
                                Field(&PlannedProblem::text,
                                      HasSubstr("Monday.RPV could not be written: Permission")))));
}

TEST_F(FolderProblems, LeaveOutTheFolderWithoutAnOutputPath) {
  state.Settings.OutputPath = "";
  EXPECT_EQ(Plan().folder, "");
}

TEST_F(FolderProblems, TellADateThatIsNoNumber) {
  ExerciseRecord& exercise = state.Workout[0];
  AddSet(exercise, 50, 10);
  exercise.SetFrequency1[0] = 7;
  exercise.NextUpdate1[0] = std::numeric_limits<double>::quiet_NaN();
  exercise.SetFrequency2[0] = std::numeric_limits<float>::quiet_NaN();
  std::vector<std::string> ofDates;
  for (const PlannedProblem& problem : Problems()) {
    if (problem.kind == PlannedProblem::Kind::kDateAhead) ofDates.push_back(problem.text);
  }
  EXPECT_THAT(ofDates, ElementsAre("Set 1 of Squat: field 1 never grows, because its date is "
                                   "impossible. Enter the days again, which sets the date anew."));
}

}  // namespace
}  // namespace repvolta
