#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/PreviewRows.h"
#include "editing/ScreenTexts.h"
#include "player/PlayerPlayList.h"

#include "support/SamplePlan.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::Field;

using Place = PreviewPlace::Kind;

class PreviewRows : public testing::Test {
 protected:
  Preview Shown() const { return PreviewOf(plan, workout); }

  UpdatePlan plan = SamplePlan();
  ExerciseSlots workout = SampleWorkout();
};

TEST_F(PreviewRows, SayWhatThePlanIsFor) {
  EXPECT_EQ(Shown().headline, "What an update of Monday.RPV would do on " + DateText(39166) +
                                  ": 4 files in /media/player/Monday/");
}

TEST_F(PreviewRows, SayNoFolderWhereThereIsNone) {
  plan.folder = "";
  plan.exercises.pop_back();
  plan.exercises[0].files.pop_back();
  EXPECT_EQ(Shown().headline,
            "What an update of Monday.RPV would do on " + DateText(39166) + ": 1 file");
}

TEST_F(PreviewRows, HaveEachFileInItsOrder) {
  const Preview shown = Shown();
  ASSERT_EQ(shown.files.size(), 4);
  EXPECT_THAT(shown.files[0].cells, ElementsAre("RV001-Instructions.mp3", "Instruction of Squat",
                                                "about 00:12", "about 0.1 MB"));
  EXPECT_THAT(shown.files[1].cells,
              ElementsAre("RV002-Run.mp3", "Song of Squat", "03:20", "3.2 MB"));
  EXPECT_EQ(shown.files[2].exercise, 1);
}

TEST_F(PreviewRows, MarkAnExampleOfRandomMusic) {
  EXPECT_EQ(Shown().files[3].cells[kPreviewWhat], "Random song of Row (example)");
}

TEST_F(PreviewRows, SayThatAPlayTimeIsNotKnown) {
  plan.exercises[0].files[1].seconds = kUnknownSeconds;
  EXPECT_EQ(Shown().files[1].cells[kPreviewTime], "unknown");
}

TEST_F(PreviewRows, TellTheSentenceAndTheWordsOfAnInstruction) {
  EXPECT_EQ(Shown().files[0].details,
            "Sentence: Squat - 1 set, 22.5kg for 12reps\nWords: Squat, 1, set\n"
            "Title on the player: RV001- Squat - 3 sets, 20kg for 12reps");
}

TEST_F(PreviewRows, TellThatAnInstructionCannotBeSaid) {
  plan.exercises[0].sentence = "";
  plan.exercises[0].clips.clear();
  plan.exercises[0].files[0].title = "";
  EXPECT_EQ(Shown().files[0].details, "The instruction cannot be said.\nWords: none");
}

TEST_F(PreviewRows, TellWhereASongComesFrom) {
  plan.exercises[0].files[1].title = "";
  EXPECT_EQ(Shown().files[1].details, "Copied from: /music/Run.mp3");
}

TEST_F(PreviewRows, TellThatAnExampleIsDrawnAnew) {
  plan.exercises[1].files[1].title = "";
  EXPECT_EQ(Shown().files[3].details, "The update draws anew; this time it was: /music/Walk.mp3");
}

TEST_F(PreviewRows, KnowTheRowOfASongInItsMusicList) {
  EXPECT_EQ(Shown().files[1].place, (PreviewPlace{.kind = Place::kSong, .exercise = 0, .row = 1}));
}

TEST_F(PreviewRows, LeadToTheExerciseFromItsInstructionAndFromAnExample) {
  EXPECT_EQ(Shown().files[0].place, (PreviewPlace{.kind = Place::kExercise, .exercise = 0}));
  EXPECT_EQ(Shown().files[3].place, (PreviewPlace{.kind = Place::kExercise, .exercise = 1}));
}

TEST_F(PreviewRows, ListWhatGrows) {
  EXPECT_THAT(Shown().growth, ElementsAre(ElementsAre("Squat", "1", "Weight", "20", "22.5")));
}

TEST_F(PreviewRows, SayWhyAValueStays) {
  plan.exercises[0].growth[0].field = 2;
  plan.exercises[0].growth[0].failure = "The number is too large";
  EXPECT_THAT(Shown().growth, ElementsAre(ElementsAre("Squat", "1", "Reps", "20",
                                                      "stays: The number is too large")));
}

TEST_F(PreviewRows, NumberAFieldWithoutAName) {
  workout[0].SetType = kUserDefined;
  EXPECT_EQ(Shown().growth[0][kGrowthValue], "Field 1");
}

TEST_F(PreviewRows, CountWhatWillGoWrong) {
  EXPECT_EQ(Shown().outlook, "Nothing will go wrong, as far as it can be known before.");
  plan.problems = {ProblemOf(PlannedProblem::Kind::kNoEncoder, "a"),
                   ProblemOf(PlannedProblem::Kind::kMusicListOld, "b")};
  plan.problems[1].severity = PlannedProblem::Severity::kWarning;
  EXPECT_EQ(Shown().outlook, "What will go wrong: 1 error, 1 warning");
}

TEST_F(PreviewRows, KeepTheProblemsInTheirOrder) {
  plan.problems = {ProblemOf(PlannedProblem::Kind::kNoEncoder, "a"),
                   ProblemOf(PlannedProblem::Kind::kMusicListOld, "b")};
  EXPECT_THAT(Shown().problems,
              ElementsAre(Field(&PreviewProblem::text, "a"), Field(&PreviewProblem::text, "b")));
}

TEST_F(PreviewRows, ComparesTheTotalsWithTheRoom) {
  EXPECT_EQ(Shown().totals,
            "Together about 07:04 and about 6.6 MB. There is room for 1200 MB on the player.");
}

TEST_F(PreviewRows, SaysTheTotalsExactlyWhenEachFigureIs) {
  for (PlannedExercise& exercise : plan.exercises) {
    for (PlannedFile& file : exercise.files) {
      file.figures = PlannedFile::Figures::kExact;
      file.choice = PlannedFile::Choice::kSet;
    }
  }
  plan.room.reset();
  EXPECT_EQ(Shown().totals, "Together 07:04 and 6.6 MB. The room on the player is not known.");
}

TEST(PlaceOf, IsWhereTheProblemIsMended) {
  using Kind = PlannedProblem::Kind;
  const auto placeOf = [](Kind kind) { return PlaceOf(ProblemOf(kind, "", 2, 1)); };
  for (const Kind kind : {Kind::kSongGone, Kind::kOddSong}) {
    EXPECT_EQ(placeOf(kind), (PreviewPlace{.kind = Place::kSong, .exercise = 2, .row = 1}));
  }
  for (const Kind kind : {Kind::kUnspeakable, Kind::kGrowth, Kind::kDateAhead}) {
    EXPECT_EQ(placeOf(kind), (PreviewPlace{.kind = Place::kSet, .exercise = 2, .row = 1}));
  }
  EXPECT_EQ(placeOf(Kind::kNoRecording),
            (PreviewPlace{.kind = Place::kExercise, .exercise = 2, .row = 1}));
  EXPECT_EQ(placeOf(Kind::kNoSongFits),
            (PreviewPlace{.kind = Place::kTargetTime, .exercise = 2, .row = 1}));
  for (const Kind kind : {Kind::kMusicListEmpty, Kind::kMusicListOld}) {
    EXPECT_EQ(placeOf(kind), PreviewPlace{.kind = Place::kRandomMusicList});
  }
  for (const Kind kind : {Kind::kNoOutputPath, Kind::kLackOfRoom}) {
    EXPECT_EQ(placeOf(kind), PreviewPlace{.kind = Place::kOutputPath});
  }
  EXPECT_EQ(placeOf(Kind::kDamagedWorkout), PreviewPlace{.kind = Place::kWorkout});
}

TEST(PlaceOf, IsTheGuideWhereTheEncoderIsMissing) {
  EXPECT_EQ(PlaceOf(ProblemOf(PlannedProblem::Kind::kNoEncoder, "")),
            PreviewPlace{.kind = Place::kGuide});
}

}  // namespace
}  // namespace repvolta
