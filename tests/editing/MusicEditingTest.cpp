#include <filesystem>
#include <stdexcept>

#include "app/WorkoutFiles.h"
#include "base/FileError.h"
#include "editing/MusicEditing.h"
#include "update/Steps.h"

#include "support/EditorFixture.h"
#include "support/SavesCounter.h"
#include "support/SongBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using testing::ThrowsMessage;

/// The exercise tab with one exercise.
class MusicEditing : public EditorFixture {
 protected:
  MusicEditing() { AddNewExercise("Squat"); }

  ExerciseRecord& Exercise() { return state.Workout[0]; }

  std::string Song(const std::string& name, int seconds) {
    const std::string path = folder.Path() + "music/" + name;
    PutFile(path, SongBytes(seconds));
    return path;
  }

  void Add(const std::string& path) {
    dialogs.answers = {path};
    AddMusicFileButton_Click(editor);
  }

  void MoveUp(int row) {
    dialogs.answers = {"OK"};
    MoveMusicFileUpListButton_Click(editor, row);
  }

  void Remove(int row) {
    dialogs.answers = {"OK"};
    RemoveMusicFileButton_Click(editor, row);
  }

  /// Three songs of 100, 200 and 300 seconds.
  void AddThreeSongs() {
    const std::vector<std::string> names = {"a.mp3", "b.mp3", "c.mp3"};
    for (int i = 0; i < 3; ++i) {
      Exercise().MusicFile[i] = names[static_cast<std::size_t>(i)];
      Exercise().MusicFilePlayTime[i] = static_cast<std::int16_t>(100 * (i + 1));
    }
    Exercise().NumberOfMusicFiles = 3;
    Exercise().TotalMusicTime = 600;
    Show();
  }

  void SetTime(const std::string& answer) {
    dialogs.asked.clear();
    dialogs.answers = {answer};
    SetExerciseTimeButton_Click(editor);
  }
};

TEST_F(MusicEditing, TheFileDialogStartsInTheMusicFolder) {
  Add("");
  EXPECT_THAT(dialogs.asked, ElementsAre("music|" + folder.Path() + "music"));
  EXPECT_EQ(Exercise().NumberOfMusicFiles, 0);
}

TEST_F(MusicEditing, AddingStoresThePathAndItsPlayTime) {
  const std::string first = Song("a.mp3", 100);
  const std::string second = Song("b.mp3", 20);
  Add(first);
  Add(second);
  const ExerciseRecord saved = Saved()[0];
  EXPECT_EQ(saved.NumberOfMusicFiles, 2);
  EXPECT_EQ(saved.MusicFile[0].Text(), first);
  EXPECT_EQ(saved.MusicFile[1].Text(), second);
  EXPECT_EQ(saved.MusicFilePlayTime[0], 100);
  EXPECT_EQ(saved.MusicFilePlayTime[1], 20);
  EXPECT_EQ(saved.TotalMusicTime, 120);
  EXPECT_THAT(screen.music.rows, ElementsAre(first, second));
  EXPECT_EQ(screen.musicTime, 120);
}

TEST_F(MusicEditing, TheAddedFileIsSelected) {
  Add(Song("a.mp3", 1));
  Add(Song("b.mp3", 1));
  EXPECT_EQ(screen.music.selected, 1);
}

TEST_F(MusicEditing, AddingMakesTheProgramDirectoryCurrentAgain) {
  const std::string song = Song("a.mp3", 1);
  fs::current_path("music");
  Add(song);
  EXPECT_EQ(fs::current_path().string() + "/", folder.Path());
}

TEST_F(MusicEditing, AFileWithoutMusicCountsZeroSeconds) {
  PutFile("music/song.wma", "no frames in here");
  Add(folder.Path() + "music/song.wma");
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 1);
  EXPECT_EQ(Saved()[0].MusicFilePlayTime[0], 0);
}

TEST_F(MusicEditing, SeveralChosenFilesAreAddedInNameOrder) {
  const std::string second = Song("b.wma", 20);
  const std::string first = Song("A.mp3", 100);
  Add(second + "\n" + first);
  EXPECT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(screen.music.rows, ElementsAre(first, second));
  EXPECT_EQ(screen.music.selected, 1);
  EXPECT_EQ(Saved()[0].TotalMusicTime, 120);
}

TEST_F(MusicEditing, OfSeveralChosenFilesTheOthersAreAddedWhenOneIsGone) {
  const std::string song = Song("a.mp3", 1);
  Add("/nowhere/b.mp3\n" + song);
  EXPECT_THAT(Saved()[0].MusicFile[0].Text(), song);
  EXPECT_THAT(dialogs.asked.back(),
              StartsWith("message|Repvolta|1 song was added.\r\r1 could not be read or kept:\r"
                         "/nowhere/b.mp3 "));
}

TEST_F(MusicEditing, DroppedFoldersAndFilesAreAddedAndSaved) {
  const std::string second = Song("b.mp3", 20);
  const std::string first = Song("album/a.mp3", 100);
  MusicList_DragDrop(editor, {second, folder.Path() + "music/album"});
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 2);
  EXPECT_THAT(screen.music.rows, ElementsAre(first, second));
  EXPECT_EQ(screen.music.selected, 1);
  EXPECT_EQ(screen.musicTime, 120);
}

TEST_F(MusicEditing, ADropIsSavedOnce) {
  const std::vector<std::string> songs = {Song("a.mp3", 1), Song("b.mp3", 1), Song("c.mp3", 1)};
  const SavesCounter saves;
  MusicList_DragDrop(editor, songs);
  EXPECT_EQ(saves.Count(), 1);
}

TEST_F(MusicEditing, OneMessageSaysWhatOfADropWasNotAddedWhenTheRestIsSaved) {
  const std::string song = Song("a.mp3", 1);
  PutFile("music/cover.jpg", "");
  dialogs.whenAsked = [] { EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 1); };
  MusicList_DragDrop(editor, {"/nowhere/b.mp3", song, folder.Path() + "music/cover.jpg"});
  ASSERT_THAT(dialogs.asked, SizeIs(1));
  EXPECT_THAT(dialogs.asked[0],
              AllOf(StartsWith("message|Repvolta|1 song was added.\r\r1 is no MP3 file"),
                    HasSubstr("\rcover.jpg\r\r1 could not"), HasSubstr("\r/nowhere/b.mp3 ")));
}

TEST_F(MusicEditing, ADropWithoutMusicIsToldAndSavesNothing) {
  BlockWorkouts();
  MusicList_DragDrop(editor, {folder.Path() + "music"});
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|0 songs were added.\r\r1 is no MP3 "
                                         "file, or a folder without one:\rmusic/"));
}

TEST_F(MusicEditing, AFullListTakesNothingOfADrop) {
  Exercise().NumberOfMusicFiles = 10;
  MusicList_DragDrop(editor, {Song("a.mp3", 1)});
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("1 song did not fit")));
  EXPECT_EQ(Exercise().NumberOfMusicFiles, 10);
}

TEST_F(MusicEditing, ADropThatCannotBeSavedIsShownLikeASingleFile) {
  const std::string first = Song("a.mp3", 1);
  const std::string second = Song("b.mp3", 1);
  BlockWorkouts();
  EXPECT_THROW(MusicList_DragDrop(editor, {first, second, "/nowhere/c.mp3"}), UnsavedChange);
  EXPECT_THAT(screen.music.rows, ElementsAre(first, second));
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("/nowhere/c.mp3")));
}

TEST_F(MusicEditing, ADropThatIsStoppedAddsNothing) {
  const std::string song = Song("a.mp3", 1);
  editor.runEvents = [] { throw UpdateStopped(); };
  EXPECT_THROW(MusicList_DragDrop(editor, {song, folder.Path() + "music"}), UpdateStopped);
  EXPECT_EQ(Exercise().NumberOfMusicFiles, 0);
}

TEST_F(MusicEditing, AnEleventhFileIsRefused) {
  Exercise().NumberOfMusicFiles = 10;
  AddMusicFileButton_Click(editor);
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Repvolta|Cannot add any more music files"));
  EXPECT_EQ(Exercise().NumberOfMusicFiles, 10);
}

TEST_F(MusicEditing, AFileThatIsGoneIsToldAndNotAdded) {
  const ExerciseRecord before = Exercise();
  EXPECT_THAT([this] { Add("/nowhere/song.mp3"); },
              ThrowsMessage<FileError>(StartsWith("/nowhere/song.mp3 ")));
  EXPECT_EQ(Exercise(), before);
  EXPECT_THAT(screen.music.rows, IsEmpty());
}

TEST_F(MusicEditing, APathThatWouldBeCutIsNotAdded) {
  const ExerciseRecord before = Exercise();
  EXPECT_THAT([this] { Add("/" + std::string(256, 'x')); },
              ThrowsMessage<std::length_error>(StartsWith("The path cannot be kept")));
  EXPECT_EQ(Exercise(), before);
}

TEST_F(MusicEditing, ATotalThatDoesNotFitAddsNothing) {
  Exercise().NumberOfMusicFiles = 1;
  Exercise().MusicFilePlayTime[0] = 32767;
  const ExerciseRecord before = Exercise();
  const std::string song = Song("a.mp3", 1);
  EXPECT_THAT([&] { Add(song); }, ThrowsMessage<std::overflow_error>("The number is too large"));
  EXPECT_EQ(Exercise(), before);
}

TEST_F(MusicEditing, MovingUpAsksWithThePath) {
  AddThreeSongs();
  dialogs.answers = {"Cancel"};
  MoveMusicFileUpListButton_Click(editor, 1);
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Move Music File|Are you SURE you want to move the music file up "
                          "the list?:\rb.mp3"));
  EXPECT_EQ(Saved()[0].MusicFile[1].Text(), "b.mp3");
}

TEST_F(MusicEditing, MovingUpSwapsTheNamesOnly) {
  AddThreeSongs();
  MoveUp(1);
  EXPECT_THAT(screen.music.rows, ElementsAre("b.mp3", "a.mp3", "c.mp3"));
  EXPECT_EQ(Saved()[0].MusicFile[0].Text(), "b.mp3");
  EXPECT_EQ(Saved()[0].MusicFilePlayTime[0], 100);
  EXPECT_EQ(Saved()[0].TotalMusicTime, 600);
  EXPECT_EQ(screen.music.selected, 0);
}

TEST_F(MusicEditing, TheFirstFileCannotMoveUp) {
  AddThreeSongs();
  MoveMusicFileUpListButton_Click(editor, 0);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(MusicEditing, NothingIsAskedWithoutASelectedFile) {
  MoveMusicFileUpListButton_Click(editor, -1);
  RemoveMusicFileButton_Click(editor, -1);
  AddThreeSongs();
  MoveMusicFileUpListButton_Click(editor, -1);
  RemoveMusicFileButton_Click(editor, -1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(MusicEditing, RemovingAsksWithThePath) {
  AddThreeSongs();
  dialogs.answers = {"Cancel"};
  RemoveMusicFileButton_Click(editor, 2);
  EXPECT_THAT(dialogs.asked,
              ElementsAre("confirm|Remove Music File|Are you SURE you want to remove the music "
                          "file:\rc.mp3"));
  EXPECT_EQ(Saved()[0].NumberOfMusicFiles, 3);
}

TEST_F(MusicEditing, RemovingTheMiddleFileLeavesThePlayTimesWhereTheyAre) {
  AddThreeSongs();
  Remove(1);
  const ExerciseRecord saved = Saved()[0];
  EXPECT_THAT(screen.music.rows, ElementsAre("a.mp3", "c.mp3"));
  EXPECT_EQ(saved.NumberOfMusicFiles, 2);
  EXPECT_TRUE(saved.MusicFile[2].IsBlank());
  EXPECT_EQ(saved.TotalMusicTime, 300);
  EXPECT_EQ(saved.MusicFilePlayTime[2], 300);
  EXPECT_EQ(screen.music.selected, 1);
}

TEST_F(MusicEditing, RemovesAnyOfAsManyFilesAsAWorkoutFileHolds) {
  constexpr int kAll = static_cast<int>(kMusicSlots);
  for (const int row : {0, kAll - 1}) {
    for (int i = 0; i < kAll; ++i) Exercise().MusicFile[i] = std::to_string(i) + ".mp3";
    Exercise().NumberOfMusicFiles = kAll;
    Show();
    Remove(row);
    const ExerciseRecord saved = Saved()[0];
    EXPECT_EQ(saved.NumberOfMusicFiles, kAll - 1) << row;
    EXPECT_EQ(saved.MusicFile[0].Text(), row == 0 ? "1.mp3" : "0.mp3");
    EXPECT_EQ(saved.MusicFile[kAll - 2].Text(), row == 0 ? "11.mp3" : "10.mp3");
    EXPECT_TRUE(saved.MusicFile[kAll - 1].IsBlank()) << row;
  }
}

TEST_F(MusicEditing, RemovingTheLastFileSelectsTheOneBefore) {
  AddThreeSongs();
  Remove(2);
  EXPECT_EQ(screen.music.selected, 1);
}

TEST_F(MusicEditing, RandomMusicIsSavedWithoutARedraw) {
  screen.exerciseName = "as it was";
  RandomMusicCheckBox_Click(editor, CheckBox::kTicked);
  EXPECT_EQ(Saved()[0].RandomMusic, kTrue);
  RandomMusicCheckBox_Click(editor, CheckBox::kUnticked);
  EXPECT_EQ(Saved()[0].RandomMusic, kFalse);
  EXPECT_EQ(screen.exerciseName, "as it was");
}

TEST_F(MusicEditing, RandomMusicStaysWhileTheScreenIsUpdating) {
  state.ScreenUpdating = true;
  RandomMusicCheckBox_Click(editor, CheckBox::kTicked);
  EXPECT_EQ(Exercise().RandomMusic, kFalse);
}

TEST_F(MusicEditing, TheTargetTimeIsAskedFor) {
  SetTime("");
  EXPECT_THAT(dialogs.asked, ElementsAre("ask|Set Target Exercise Time|Enter the Target Exercise "
                                         "time in minutes"));
}

TEST_F(MusicEditing, TheTargetTimeIsStoredInSecondsAndShown) {
  SetTime("1.5");
  EXPECT_EQ(Saved()[0].TargetExerciseTime, 90);
  EXPECT_EQ(screen.targetTime, 90);
}

TEST_F(MusicEditing, LeadingNumbersBecomeTargetTimes) {
  // An unchanged target time stays 300.
  const std::vector<std::pair<std::string, int>> times = {{"12abc", 720},
                                                          {"abc", 300},
                                                          {" 7 ", 420},
                                                          {"-5", 300},
                                                          {"+3", 180},
                                                          {"1e1", 600},
                                                          {"nan", 300},
                                                          {"inf", 300},
                                                          {"0", 300},
                                                          {"0x10", 300},
                                                          {"1,5", 60},
                                                          {"", 300},
                                                          {"  ", 300},
                                                          {".025", 2},
                                                          {"1e39", 300},
                                                          {"1e3", 300},
                                                          {"2" + std::string(100000, 'x'), 120}};
  for (const auto& [answer, seconds] : times) {
    Exercise().TargetExerciseTime = 300;
    SaveWorkout(state);
    SetTime(answer);
    EXPECT_EQ(Saved()[0].TargetExerciseTime, seconds) << answer.substr(0, 20);
  }
}

TEST_F(MusicEditing, HalvesOfSecondsAreRoundedToEven) {
  SetTime("0.125");  // 7.5 seconds
  EXPECT_EQ(Saved()[0].TargetExerciseTime, 8);
  SetTime("0.375");  // 22.5 seconds
  EXPECT_EQ(Saved()[0].TargetExerciseTime, 22);
}

TEST_F(MusicEditing, ATargetTimeThatDoesNotFitIsRefused) {
  for (const char* answer : {"546.13", "547", "1e300"}) {
    SetTime(answer);
    ASSERT_THAT(dialogs.asked, SizeIs(2)) << answer;
    EXPECT_EQ(dialogs.asked[1],
              "message|Set Target Exercise Time|This time is too long. The longest target time is "
              "546:07 (minutes and seconds).");
    EXPECT_EQ(Saved()[0].TargetExerciseTime, 300);
  }
  SetTime("546.1");
  EXPECT_EQ(Saved()[0].TargetExerciseTime, 32766);
}

}  // namespace
}  // namespace repvolta
