#include <filesystem>
#include <gmock/gmock.h>

#include "base/ProgramFiles.h"
#include "update/PlanUpdate.h"
#include "update/UpdateFixture.h"

#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using Kind = PlannedProblem::Kind;
using Severity = PlannedProblem::Severity;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

auto IsProblem(Kind kind, int exercise, int row, const std::string& text) {
  return AllOf(Field(&PlannedProblem::kind, kind), Field(&PlannedProblem::exercise, exercise),
               Field(&PlannedProblem::row, row), Field(&PlannedProblem::text, HasSubstr(text)));
}

/// An update does not log it as an error.
auto IsWarning(Kind kind, int exercise, int row, const std::string& text) {
  return AllOf(IsProblem(kind, exercise, row, text),
               Field(&PlannedProblem::severity, Severity::kWarning),
               Field(&PlannedProblem::line, ""));
}

auto IsError(Kind kind, int exercise, int row, const std::string& text) {
  return AllOf(IsProblem(kind, exercise, row, text),
               Field(&PlannedProblem::severity, Severity::kError));
}

class ProblemsAhead : public UpdateFixture {
 protected:
  ProblemsAhead() {
    for (const char* word : {"1", "2", "10", "50", "set", "kilograms", "for", "reps"}) {
      PutFile(std::string("voice/") + word + ".wav", ClipBytes(Bytes(10, '+')));
    }
    PutFile("music/short.mp3", SongBytes(3));
    PutFile("music/long.mp3", SongBytes(30));
  }

  std::vector<PlannedProblem> Problems() { return PlanUpdate(state, kToday, random).problems; }

  ExerciseRecord& AddSquat() {
    ExerciseRecord& exercise = AddNamed("Squat");
    AddSet(exercise, 50, 10);
    return exercise;
  }

  ExerciseRecord& AddWithRandomMusic(std::int16_t target) {
    ExerciseRecord& exercise = AddSquat();
    exercise.RandomMusic = kTrue;
    exercise.TargetExerciseTime = target;
    return exercise;
  }

  void ListSongs(const std::string& list, std::int32_t count) {
    PutFile(kMusicList, list);
    state.RandomMusicFiles = count;
  }
};

TEST_F(ProblemsAhead, AreNoneWhereAllIsWell) {
  AddSong(AddSquat(), Full("music/short.mp3"));
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(ProblemsAhead, NameASongThatIsGone) {
  ExerciseRecord& exercise = AddSquat();
  AddSong(exercise, Full("music/short.mp3"));
  AddSong(exercise, Full("music/gone.mp3"));
  EXPECT_THAT(Problems(),
              ElementsAre(AllOf(IsError(Kind::kSongGone, 0, 1, "gone.mp3. Put it back"),
                                Field(&PlannedProblem::line,
                                      "ERROR: File not found. " + Full("music/gone.mp3")))));
}

TEST_F(ProblemsAhead, NameASongThatCannotBeRead) {
  const UnreadableFile song("music/short.mp3");
  AddSong(AddSquat(), Full("music/short.mp3"));
  const auto problems = Problems();
  ASSERT_THAT(problems, ElementsAre(IsError(Kind::kSongGone, 0, 0, "cannot be read")));
  Update();
  EXPECT_THAT(run.log, Contains(problems[0].line));
}

TEST_F(ProblemsAhead, NameASongWhoseTagStays) {
  PutFile("music/odd.mp3", Mp3Bytes().Garbage(70).Raw("ID3").Raw(SongBytes(2)));
  AddSong(AddSquat(), Full("music/odd.mp3"));
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kOddSong, 0, 0, "odd.mp3 for Squat")));
}

TEST_F(ProblemsAhead, NameASongThatCannotBeListed) {
  PutFile("music/a\nb.mp3", SongBytes(2));
  AddSong(AddSquat(), Full("music/a\nb.mp3"));
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kOddSong, 0, 0, "line break")));
}

TEST_F(ProblemsAhead, WarnOnceOfANameThatIsYetToBeSpoken) {
  AddSet(AddExercise("Unheard of"), 50, 10);
  AddSet(AddExercise("Unheard of"), 50, 10);
  EXPECT_THAT(Problems(), ElementsAre(IsWarning(Kind::kNoRecording, 0, -1, "\"Unheard of\"")));
}

TEST_F(ProblemsAhead, NameAWordWithoutARecordingOnceAnExercise) {
  fs::remove("voice/reps.wav");
  ExerciseRecord& exercise = AddSquat();
  AddSet(exercise, 50, 10);
  EXPECT_THAT(Problems(),
              ElementsAre(AllOf(IsError(Kind::kNoRecording, 0, -1, "\"reps\" has no recording"),
                                Field(&PlannedProblem::line, "ERROR: voice/reps.wav NOT FOUND."))));
}

TEST_F(ProblemsAhead, AreNoneForWordsThatAreNotSaid) {
  fs::remove("voice/reps.wav");
  state.Settings.IncludeWeightValues = kFalse;
  AddSquat();
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(ProblemsAhead, NameADamagedRecording) {
  PutFile("voice/reps.wav", "short");
  AddSquat();
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kNoRecording, 0, -1, "damaged recording")));
}

TEST_F(ProblemsAhead, WarnOfValuesThatCannotBeSaid) {
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSet(exercise, 50, 10);
  AddSet(exercise, 12000, -2);
  EXPECT_THAT(Problems(), Contains(IsWarning(Kind::kUnspeakable, 0, 1, "the value 12000,")));
  EXPECT_THAT(Problems(), Contains(IsWarning(Kind::kUnspeakable, 0, 1, "the value -2,")));
}

TEST_F(ProblemsAhead, AreNoneForAZeroOrAFraction) {
  PutFile("voice/point.wav", ClipBytes({}));
  PutFile("voice/5.wav", ClipBytes({}));
  AddSet(AddNamed("Squat"), 0, 0.5F);
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(ProblemsAhead, NameMoreSetsThanSlots) {
  AddSquat().NumberOfSets = 18;
  EXPECT_THAT(Problems(),
              Contains(AllOf(IsError(Kind::kUnspeakable, 0, -1, "more sets"),
                             Field(&PlannedProblem::line, "ERROR: Number 17 is outside 0 to 16"))));
  EXPECT_THAT(Problems(),
              Contains(IsWarning(Kind::kDamagedWorkout, -1, -1, "seems to be damaged")));
}

TEST_F(ProblemsAhead, NameMoreSongsThanSlots) {
  AddSquat().NumberOfMusicFiles = 13;
  EXPECT_THAT(Problems(), Contains(IsError(Kind::kDamagedWorkout, 0, -1, "more songs")));
}

TEST_F(ProblemsAhead, NameAValueThatCannotGrow) {
  ExerciseRecord& exercise = AddNamed("Squat");
  AddSet(exercise, 3e38F, 10);
  exercise.SetIncrement1[0] = 3e38F;
  exercise.SetFrequency1[0] = 1;
  exercise.NextUpdate1[0] = kToday - 5;
  EXPECT_THAT(Problems(),
              Contains(AllOf(IsError(Kind::kGrowth, 0, 0, "Set 1 of Squat: field 1 cannot grow"),
                             Field(&PlannedProblem::line, "ERROR: The number is too large"))));
}

TEST_F(ProblemsAhead, WarnOfADateThatAWrongClockHasSet) {
  ExerciseRecord& exercise = AddSquat();
  AddSet(exercise, 50, 10);
  exercise.SetFrequency2[1] = 7;
  exercise.NextUpdate2[1] = kToday + 800;
  EXPECT_THAT(Problems(), ElementsAre(IsWarning(Kind::kDateAhead, 0, 1,
                                                "field 2 does not grow within the next "
                                                "800 days")));
}

TEST_F(ProblemsAhead, AreNoneForTheDateOfANewFrequency) {
  ExerciseRecord& exercise = AddSquat();
  exercise.SetFrequency1[0] = 7;
  exercise.NextUpdate1[0] = kToday + 7;
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(ProblemsAhead, AreNoneForTheDateOfAValueThatNeverGrows) {
  AddSquat().NextUpdate1[0] = kToday + 800;
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(ProblemsAhead, NameATargetThatNoSongFits) {
  ListSongs(Full("music/long.mp3") + "\n", 1);
  AddWithRandomMusic(10);
  EXPECT_THAT(Problems(),
              ElementsAre(AllOf(IsError(Kind::kNoSongFits, 0, -1, "target time of Squat, 00:10"),
                                Field(&PlannedProblem::line,
                                      "ERROR: Unable to find random music for Exercise - Squat"))));
}

TEST_F(ProblemsAhead, NameAnEmptyMusicList) {
  state.Settings.MusicPath = "";
  AddWithRandomMusic(10);
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kMusicListEmpty, 0, -1, "list is empty")));
  ListSongs("", 0);
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kMusicListEmpty, 0, -1, "list is empty")));
}

TEST_F(ProblemsAhead, NameAListedSongThatIsGone) {
  ListSongs(Full("music/gone.mp3") + "\n", 1);
  AddWithRandomMusic(10);
  EXPECT_THAT(Problems(), Contains(IsError(Kind::kMusicListOld, 0, -1, "gone.mp3. Compile")));
}

class AgeOfMusicList : public ProblemsAhead {
 protected:
  AgeOfMusicList() {
    ListSongs(Full("music/short.mp3") + "\n", 1);
    AddWithRandomMusic(2);
    PutFile("music/new/song.mp3", SongBytes(1));
    PutFile("music/notes/list.txt", "");
    for (const char* name : {"music/new", "music/notes", "music"}) SetAge(name, 10);
  }

  static void SetAge(const std::string& path, int hours) {
    fs::last_write_time(path, fs::last_write_time(kMusicList) - std::chrono::hours(hours));
  }
};

TEST_F(AgeOfMusicList, IsNoProblemWhileTheMusicStays) { EXPECT_THAT(Problems(), IsEmpty()); }

TEST_F(AgeOfMusicList, IsAWarningWhenAFolderOfSongsIsNewer) {
  SetAge("music/new", -1);
  EXPECT_THAT(Problems(), ElementsAre(IsWarning(Kind::kMusicListOld, -1, -1, "/music/new has")));
}

TEST_F(AgeOfMusicList, IsNoProblemWhenAFolderWithoutSongsIsNewer) {
  SetAge("music/notes", -1);
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(AgeOfMusicList, IsNoProblemForTheFilesOfAnUpdate) {
  state.Settings.OutputPath = Full("music/new");
  SetAge("music/new", -1);
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(AgeOfMusicList, IsNoProblemWithoutRandomMusic) {
  state.Workout[0].RandomMusic = kFalse;
  SetAge("music/new", -1);
  EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(AgeOfMusicList, IsAWarningWhenAListedSongIsGone) {
  PutFile(kMusicList, Full("music/short.mp3") + "\n" + Full("music/gone.mp3") + "\n");
  state.RandomMusicFiles = 2;
  EXPECT_THAT(Problems(), ElementsAre(IsWarning(Kind::kMusicListOld, -1, -1, "gone.mp3 is gone")));
}

TEST_F(ProblemsAhead, NameAnOutputPathThatWasNotChosen) {
  state.Settings.OutputPath = " ";
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kNoOutputPath, -1, -1, "has been chosen")));
}

TEST_F(ProblemsAhead, NameAPlayerThatIsNotThere) {
  fs::remove("player");
  AddSquat();
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kNoOutputPath, -1, -1,
                                              Full("player") + " is not there. Connect")));
  Update();
  EXPECT_THAT(run.log, Contains(testing::StartsWith("ERROR: ")));
}

TEST_F(ProblemsAhead, NameAFolderThatMustNotBeDeleted) {
  PutFile("player/Monday/mine.mp3", SongBytes(2));
  AddSong(AddSquat(), Full("player/Monday/mine.mp3"));
  const auto problems = Problems();
  ASSERT_THAT(problems, ElementsAre(IsError(Kind::kNoOutputPath, -1, -1, "mine.mp3 lies there")));
  Update();
  EXPECT_THAT(run.log, Contains(problems[0].line));
  EXPECT_TRUE(fs::exists("player/Monday/mine.mp3"));
}

TEST_F(ProblemsAhead, NameAFolderThatIsALink) {
  fs::create_directory("elsewhere");
  fs::create_directory_symlink("../elsewhere", "player/Monday");
  AddSquat();
  EXPECT_THAT(Problems(), ElementsAre(IsError(Kind::kNoOutputPath, -1, -1, "it is a link")));
}

TEST_F(ProblemsAhead, WarnOfTooLittleRoom) {
  PutFile("music/huge.mp3", "");
  fs::resize_file("music/huge.mp3", std::uintmax_t{1} << 43);
  AddSong(AddSquat(), Full("music/huge.mp3"));
  EXPECT_THAT(Problems(), Contains(IsWarning(Kind::kLackOfRoom, -1, -1, "Monday.RPV needs ")));
}

TEST_F(ProblemsAhead, WarnOfAMissingEncoder) {
  fs::remove("lame.exe");
  EXPECT_THAT(Problems(), ElementsAre(IsWarning(Kind::kNoEncoder, -1, -1, "Install lame")));
}

TEST_F(ProblemsAhead, BeginWithThoseOfAll) {
  fs::remove("lame.exe");
  AddSong(AddSquat(), Full("music/gone.mp3"));
  AddExercise("Unheard of");
  EXPECT_THAT(Problems(),
              ElementsAre(Field(&PlannedProblem::exercise, -1), Field(&PlannedProblem::exercise, 0),
                          Field(&PlannedProblem::exercise, 1)));
}

}  // namespace
}  // namespace repvolta
