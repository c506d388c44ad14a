#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "clips/VoiceCheck.h"
#include "clips/WordClips.h"
#include "voices/ClipTable.h"
#include "voices/NamesInUse.h"
#include "voices/PutClips.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"
#include "support/ToneClip.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// A program directory with few words, so that little is measured.
class ClipTableTest : public testing::Test {
 protected:
  ClipTableTest() {
    for (const char* word : {"1.wav", "2.wav", "300.wav", "reps.wav"}) PutTone(word, 0.2F);
    PutTone("exercise/Squat.WAV", 0.2F);
  }

  static void PutTone(const std::string& file, float level) {
    PutFile("voice/" + file, AsText(ToneClip(level)));
  }

  static std::vector<ClipRow> Read(const std::vector<std::string>& names = {}) {
    ClipTable table(names);
    while (table.ReadNext()) {
    }
    return table.Rows();
  }

  /// Fails the test when there is no such row.
  static ClipRow RowOf(const std::string& file, const std::vector<ClipRow>& rows = Read()) {
    const auto found = std::ranges::find(rows, file, &ClipRow::file);
    if (found != rows.end()) return *found;
    ADD_FAILURE() << file;
    return {};
  }

  static std::vector<std::string> NamesOf(const std::vector<ClipRow>& rows) {
    std::vector<std::string> names;
    for (const ClipRow& row : rows) {
      if (row.clip.kind == Clip::Kind::kName) names.push_back(row.said);
    }
    return names;
  }

  TemporaryFolder folder_;
};

TEST_F(ClipTableTest, HasAllWordsInTheirOrder) {
  std::vector<std::string> files;
  for (const ClipRow& row : Read()) files.push_back(row.file);
  files.pop_back();
  EXPECT_EQ(files, WordClips());
}

TEST_F(ClipTableTest, SaysOfAWordWhatIsKnown) {
  const ClipRow row = RowOf("300.wav");
  EXPECT_EQ(row.said, "three hundred");
  EXPECT_EQ(row.clip, (Clip{Clip::Kind::kWord, "300"}));
  EXPECT_FALSE(row.isMissing);
  EXPECT_DOUBLE_EQ(row.seconds, 0.5);
  EXPECT_NEAR(row.loudness.value(), -17.5, 3);
  EXPECT_EQ(row.fault, "");
}

TEST_F(ClipTableTest, ListsNamesThatHaveNoClip) {
  const std::vector<ClipRow> rows = Read({"Zercher Hop", "SQUAT", "Bench Press"});
  EXPECT_THAT(NamesOf(rows), ElementsAre("Bench Press", "SQUAT", "Zercher Hop"));
  EXPECT_TRUE(RowOf("exercise/Zercher Hop.WAV", rows).isMissing);
  EXPECT_EQ(RowOf("exercise/Zercher Hop.WAV", rows).fault, "is missing");
  EXPECT_FALSE(RowOf("exercise/Squat.WAV", rows).isMissing);
}

TEST_F(ClipTableTest, KnowsAtOnceWhatIsMissing) {
  const ClipTable table({"Row"});
  EXPECT_TRUE(RowOf("point.wav", table.Rows()).isMissing);
  EXPECT_TRUE(RowOf("exercise/Row.WAV", table.Rows()).isMissing);
  EXPECT_FALSE(RowOf("300.wav", table.Rows()).isMissing);
  EXPECT_FALSE(RowOf("300.wav", table.Rows()).isRead);
}

TEST_F(ClipTableTest, CallsAClipAsTheExerciseIsCalled) {
  PutTone("exercise/Clean_Jerk.WAV", 0.2F);
  EXPECT_THAT(NamesOf(Read({"Clean/Jerk"})), ElementsAre("Clean/Jerk", "Squat"));
  EXPECT_THAT(NamesOf(Read()), ElementsAre("Clean_Jerk", "Squat"));
}

TEST_F(ClipTableTest, TakesNamesInAnyCaseAndLanguage) {
  PutTone("exercise/ÜBUNG.wav", 0.2F);
  const ClipRow row = RowOf("exercise/ÜBUNG.wav", Read({"Übung"}));
  EXPECT_EQ(row.said, "Übung");
  EXPECT_FALSE(row.isMissing);
  EXPECT_NEAR(row.seconds, 0.5, 0.01);
}

TEST_F(ClipTableTest, ShowsBothOfTwoClipsThatDifferInCase) {
  PutTone("exercise/squat.WAV", 0.2F);
  EXPECT_EQ(NamesOf(Read({"Squat"})).size(), 2U);
}

TEST_F(ClipTableTest, TakesAWordWhateverTheCaseOfItsFile) {
  fs::rename("voice/300.wav", "voice/300.WAV");
  EXPECT_FALSE(RowOf("300.wav").isMissing);
  EXPECT_DOUBLE_EQ(RowOf("300.wav").seconds, 0.5);
}

TEST_F(ClipTableTest, SaysWhoseTheyAre) {
  const Bytes spoken = ToneClip(0.19F);
  const Bytes levelled = ToneClip(0.21F);
  PutClips("", {.clips = {{"exercise/Row.WAV",
                           spoken,
                           {.owner = ClipOwner::kComputer, .day = "2026-11-22", .text = "row it"}},
                          {"2.wav", levelled, {.owner = ClipOwner::kProgram}}},
                .files = {},
                .removed = {}});
  const std::vector<ClipRow> rows = Read();
  EXPECT_EQ(RowOf("exercise/Row.WAV", rows).origin.owner, ClipOwner::kComputer);
  EXPECT_EQ(RowOf("exercise/Row.WAV", rows).origin.day, "2026-11-22");
  EXPECT_EQ(RowOf("2.wav", rows).origin.owner, ClipOwner::kProgram);
  EXPECT_EQ(RowOf("300.wav", rows).origin.owner, ClipOwner::kOwn);
  EXPECT_EQ(RowOf("exercise/Squat.WAV", rows).origin.owner, ClipOwner::kUnknown);
}

TEST_F(ClipTableTest, KnowsOnlyTheProgramsClipsToBeUnderstood) {
  PutClips("", {.clips = {{"2.wav", ToneClip(0.21F), {.owner = ClipOwner::kProgram}}},
                .files = {},
                .removed = {}});
  EXPECT_TRUE(IsUnderstood(RowOf("2.wav")));
  EXPECT_FALSE(IsUnderstood(RowOf("300.wav")));
  EXPECT_FALSE(IsUnderstood(RowOf("point.wav")));
}

TEST_F(ClipTableTest, FindsTheFaultsOfTheCheck) {
  PutTone("300.wav", 0.05F);
  PutFile("voice/reps.wav", "ID3");
  PutFile("voice/exercise/Row.WAV", "");
  std::vector<std::string> faults;
  for (const ClipRow& row : Read()) {
    if (!row.fault.empty()) faults.push_back(row.file + " " + row.fault);
  }
  std::vector<std::string> findings;
  for (const ClipFinding& finding : CheckVoice("voice").findings) {
    findings.push_back(finding.file + " " + finding.words);
  }
  EXPECT_EQ(faults, findings);
  EXPECT_THAT(faults, Contains("300.wav is quieter than the other clips by 12 dB"));
}

TEST_F(ClipTableTest, HasNoLengthOfWhatCannotBeRead) {
  PutFile("voice/reps.wav", "ID3");
  const UnreadableFile unreadable("voice/300.wav");
  const std::vector<ClipRow> rows = Read();
  EXPECT_EQ(RowOf("reps.wav", rows).seconds, 0);
  EXPECT_EQ(RowOf("300.wav", rows).seconds, 0);
  EXPECT_EQ(RowOf("300.wav", rows).fault, "could not be read: Permission denied");
}

TEST_F(ClipTableTest, SeesAClipThatGoesWhileItReads) {
  ClipTable table({});
  fs::remove("voice/exercise/Squat.WAV");
  while (table.ReadNext()) {
  }
  EXPECT_TRUE(RowOf("exercise/Squat.WAV", table.Rows()).isMissing);
}

TEST_F(ClipTableTest, CountsWhatItHasRead) {
  ClipTable table({});
  EXPECT_EQ(table.AreRead(), 0U);
  EXPECT_TRUE(table.ReadNext());
  EXPECT_EQ(table.AreRead(), 1U);
  while (table.ReadNext()) {
  }
  EXPECT_EQ(table.AreRead(), table.Rows().size());
  EXPECT_FALSE(table.ReadNext());
}

TEST_F(ClipTableTest, IsThereWithoutAVoice) {
  fs::remove_all("voice");
  const std::vector<ClipRow> rows = Read({"Row"});
  EXPECT_EQ(rows.size(), WordClips().size() + 1);
  EXPECT_TRUE(std::ranges::all_of(rows, &ClipRow::isMissing));
}

/// The names that a person trains with.
class NamesInUse : public testing::Test {
 protected:
  NamesInUse() {
    PutFile("exercise/Legs.lst", "Squat\r\nLunge\n\n  \nCaf\xE9 Press\n");
    PutFile("exercise/More.lst", "squat\n");
    PutWorkout("Monday", {"Row", " Lunge "});
    PutWorkout("Tuesday", {"Zercher Hop"});
  }

  static void PutWorkout(const std::string& workout, const std::vector<std::string>& names) {
    ExerciseSlots slots;
    std::int16_t slot = 0;
    for (const std::string& name : names) slots[slot++].ExerciseName = name;
    PutFile("workouts/" + workout + ".RPV", AsText(EncodeWorkout(slots)));
  }

  TemporaryFolder folder_;
};

TEST_F(NamesInUse, AreThoseOfTheListsAndOfAllWorkouts) {
  EXPECT_THAT(ExerciseNamesInUse(),
              ElementsAre("Café Press", "Lunge", "Row", "Squat", "Zercher Hop"));
}

TEST_F(NamesInUse, LeaveOutWhatCannotBeRead) {
  const UnreadableFile list("exercise/Legs.lst");
  const UnreadableFile workout("workouts/Monday.RPV");
  EXPECT_THAT(ExerciseNamesInUse(), ElementsAre("squat", "Zercher Hop"));
}

TEST_F(NamesInUse, CanBeNone) {
  fs::remove_all("exercise");
  fs::remove_all("workouts");
  EXPECT_THAT(ExerciseNamesInUse(), IsEmpty());
}

}  // namespace
}  // namespace repvolta
