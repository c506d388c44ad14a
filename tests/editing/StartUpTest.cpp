#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "base/FileError.h"
#include "editing/StartUp.h"

#include "support/UnreadableFile.h"
#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class FakeOutputs : public AudioOutputs {
 public:
  std::vector<std::string> Names() override { return {"Speakers"}; }
};

/// The start in a fresh program directory.
class StartUp : public WindowlessFixture {
 protected:
  void PutSettings(const SettingsRecord& settings) {
    PutFile("settings.dat", EncodeSettings(settings));
  }

  void PutLastWorkout(std::int16_t index) {
    SettingsRecord settings;
    settings.LastWorkoutIndex = index;
    PutSettings(settings);
  }

  void PutWorkout(const std::string& name, const std::string& exercise) {
    ExerciseSlots workout;
    workout[0].ExerciseName = exercise;
    PutFile("workouts/" + name, EncodeWorkout(workout));
  }

  void PutTwoWorkouts() {
    PutWorkout("Monday.RPV", "Squat");
    PutWorkout("Tuesday.RPV", "Rowing");
  }

  void Load() { Form_Load(editor, outputs); }
  void RunSetUp(std::deque<std::string> folders) {
    window.folders = std::move(folders);
    FirstRunSetup(editor);
  }

  FakeOutputs outputs;
};

TEST_F(StartUp, FillsTheWindowInOrder) {
  PutTwoWorkouts();
  PutLastWorkout(1);

  Load();

  EXPECT_THAT(window.calls, ElementsAre("tab 0", "workout names", "enable", "workout 1",
                                        "workout screen", "exercise screen", "voices",
                                        "audio outputs", "formats", "settings screen"));
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST_F(StartUp, EntersTheProgramDirectory) {
  PutLastWorkout(0);
  std::filesystem::current_path("/");
  Load();
  EXPECT_EQ(std::filesystem::current_path().string() + "/", folder.Path());
}

TEST_F(StartUp, DoesNotRunWhereTheProgramDirectoryIsGone) {
  state.ProgramDirectory = folder.Path() + "gone/";
  EXPECT_THROW(Load(), FileError);
  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(StartUp, CountsTheRandomMusic) {
  PutLastWorkout(0);
  PutFile("musiclist.txt", "a.mp3\nb.mp3\n");
  Load();
  EXPECT_EQ(state.RandomMusicFiles, 2);
}

TEST_F(StartUp, LoadsTheLastWorkout) {
  PutTwoWorkouts();
  PutLastWorkout(1);
  Load();
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
  EXPECT_EQ(state.Workout[0].ExerciseName.Text(), "Rowing");
}

TEST_F(StartUp, LoadsTheFirstWorkoutWhenTheLastIndexIsOutsideTheList) {
  PutTwoWorkouts();
  for (const std::int16_t index : std::initializer_list<std::int16_t>{-1, 2, 32767}) {
    PutLastWorkout(index);
    Load();
    EXPECT_EQ(state.Settings.LastWorkoutIndex, 0) << index;
    EXPECT_EQ(state.WorkoutFileName, "Monday.RPV") << index;
  }
}

TEST_F(StartUp, LoadsNothingWithoutWorkouts) {
  PutLastWorkout(3);

  Load();

  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_EQ(state.Settings.LastWorkoutIndex, 0);
  EXPECT_THAT(window.calls, ElementsAre("tab 0", "workout names", "enable", "voices",
                                        "audio outputs", "formats", "settings screen"));
}

TEST_F(StartUp, SetsTheVoiceUpFromTheSettings) {
  SettingsRecord settings;
  settings.VoiceIndex = 1;
  settings.VoiceRate = -3;
  settings.VoiceVolume = 40;
  settings.AudioFormat = "3";
  PutSettings(settings);

  Load();

  EXPECT_THAT(window.voices, ElementsAre("first", "second"));
  EXPECT_THAT(window.outputs, ElementsAre("Speakers"));
  EXPECT_EQ(state.Voice.Voice, 1);
  EXPECT_EQ(state.Voice.Rate, -3);
  EXPECT_EQ(state.Voice.Volume, 40);
}

TEST_F(StartUp, BeginsWithTheDefaultFormatWhateverWasStored) {
  SettingsRecord settings;
  settings.AudioFormat = "3";
  PutSettings(settings);
  state.Voice.Format = 3;
  Load();
  EXPECT_EQ(state.Voice.Format, 14);
}

TEST_F(StartUp, TakesAGarbledWorkoutAsAnEmptyOne) {
  PutFile("workouts/Monday.RPV", "garbage");
  PutLastWorkout(0);
  Load();
  EXPECT_EQ(state.WorkoutFileName, "Monday.RPV");
  EXPECT_EQ(state.NumberOfExercises, 0);
  EXPECT_EQ(window.calls.back(), "settings screen");
}

TEST_F(StartUp, TellsOfADamagedWorkoutAndGoesOn) {
  ExerciseSlots workout;
  workout[0].ExerciseName = "Squat";
  workout[0].NumberOfSets = -7293;
  PutFile("workouts/Monday.RPV", EncodeWorkout(workout));
  PutLastWorkout(0);
  Load();
  EXPECT_THAT(
      window.messages,
      ElementsAre("Monday.RPV seems to be damaged: it holds numbers that no workout can have."));
  EXPECT_EQ(window.calls.back(), "settings screen");
}

TEST_F(StartUp, TellsThatAWorkoutCannotBeShownAsAWhole) {
  class WindowThatThrows : public RecordingWindow {
    void UpdateWorkoutScreen() override { throw std::overflow_error("The number is too large"); }
  } throwing;
  PutTwoWorkouts();
  PutLastWorkout(1);
  Form_Load(throwing.EditorOf(program), outputs);
  EXPECT_THAT(throwing.messages, ElementsAre("The workout cannot be shown as a whole.\r"
                                             "The number is too large"));
  EXPECT_EQ(state.WorkoutFileName, "Tuesday.RPV");
}

TEST_F(StartUp, LetsNobodyEditAWorkoutThatCouldNotBeRead) {
  PutTwoWorkouts();
  PutLastWorkout(1);
  const Bytes before = GetFile("workouts/Tuesday.RPV");
  {
    const UnreadableFile unreadable("workouts/Tuesday.RPV");
    Load();
    SaveWorkout(state);
  }

  EXPECT_EQ(state.WorkoutFileName, "");
  EXPECT_EQ(GetFile("workouts/Tuesday.RPV"), before);
  EXPECT_THAT(window.messages,
              ElementsAre("workouts/Tuesday.RPV could not be read: Permission denied"));
}

TEST_F(StartUp, TellsWhatKeepsTheMusicFromBeingCounted) {
  PutLastWorkout(0);
  PutFile("musiclist.txt", "a.mp3");
  {
    const UnreadableFile unreadable("musiclist.txt");
    Load();
  }
  EXPECT_THAT(window.messages, ElementsAre("musiclist.txt could not be read: Permission denied"));
  EXPECT_EQ(window.calls.back(), "settings screen");
}

TEST_F(StartUp, GoesOnWhereNothingCanBeWritten) {
  PutLastWorkout(0);
  PutFile("workouts", "a file in the way");
  Load();
  EXPECT_EQ(window.calls.back(), "settings screen");
}

TEST_F(StartUp, ReadsTheOptions) {
  PutLastWorkout(0);
  PutFile("options.conf", "play-list-for-player = yes\n");
  Load();
  EXPECT_TRUE(Get(state.Options, kPlayListForPlayer));
  EXPECT_THAT(window.messages, IsEmpty());
}

TEST_F(StartUp, TellsOnceOfOptionsThatItDoesNotUnderstand) {
  PutLastWorkout(0);
  PutFile("options.conf", "nonsense\n");
  Load();
  EXPECT_THAT(
      window.messages,
      ElementsAre("options.conf has lines that cannot be understood: 1 (nonsense). They are "
                  "kept and have no effect."));
}

TEST_F(StartUp, TellsOfOptionsThatCannotBeReadAndGoesOn) {
  PutLastWorkout(0);
  PutFile("options.conf", "play-list-for-player = yes\n");
  const UnreadableFile unreadable("options.conf");
  Load();
  EXPECT_THAT(window.messages, ElementsAre("options.conf could not be read: Permission denied"));
  EXPECT_EQ(window.calls.back(), "settings screen");
}

TEST_F(StartUp, RunsTheSetUpFirstWhenThereAreNoSettings) {
  window.folders = {"/music", "/player"};
  Load();
  EXPECT_EQ(window.calls.front(), "message: Welcome to Repvolta");
  EXPECT_EQ(state.Settings.MusicPath.Text(), "/music");
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/player");
}

class FirstRun : public StartUp {};

TEST_F(FirstRun, AsksInOrder) {
  RunSetUp({"/music", "/player"});

  EXPECT_THAT(window.calls,
              ElementsAre("message: Welcome to Repvolta", "message: Find your music files",
                          "select directory", "paths", "please wait", "message: Repvolta",
                          "message: Select your output directory", "select directory", "paths"));
}

TEST_F(FirstRun, AsksLetterForLetter) {
  RunSetUp({"/music", "/player"});

  EXPECT_THAT(
      window.messages,
      ElementsAre("This is the first time the program has been executed, so lets set up some "
                  "simple stuff first to get started.\rPress ENETER to begin.",
                  "Repvolta needs to know where your MP3 music files are loacted.\rThese are the "
                  "music files Repvolta will use to create your workout.\rPress ENTER to select "
                  "where your files are located",
                  "The random music list has been compiled.",
                  "Repvolta now needs to know what directory you want to store your Exercise files "
                  "in.\rIt is recommended you create a new directory just for this purpose.\rPress "
                  "ENTER to select a directory."));
}

TEST_F(FirstRun, WritesTheFoldersAndTheDefaults) {
  RunSetUp({"/music", "/player"});

  SettingsRecord expected;
  expected.MusicPath = "/music";
  expected.OutputPath = "/player";
  expected.DefaultExerciseTime = 5;
  expected.IncludeWeightValues = kTrue;
  expected.VoiceVolume = 100;
  EXPECT_EQ(GetFile("settings.dat"), EncodeSettings(expected));
}

TEST_F(FirstRun, CompilesTheMusicOfTheChosenFolder) {
  PutFile("music/a.mp3", "");
  RunSetUp({folder.Path() + "music", "/player"});
  EXPECT_EQ(GetTextFile("musiclist.txt"), folder.Path() + "music/a.mp3\n");
  EXPECT_EQ(state.RandomMusicFiles, 1);
}

TEST_F(FirstRun, TakesCancelledPickersAsNoFolders) {
  RunSetUp({"", ""});
  const SettingsRecord settings = DecodeSettings(GetFile("settings.dat"));
  EXPECT_TRUE(settings.MusicPath.IsBlank());
  EXPECT_TRUE(settings.OutputPath.IsBlank());
}

TEST_F(FirstRun, TellsOfAFolderWhosePathCannotBeKeptAndTakesNone) {
  RunSetUp({"/" + std::string(256, 'm'), "/player"});
  EXPECT_THAT(window.messages, Contains(HasSubstr("The path cannot be kept")));
  const SettingsRecord settings = DecodeSettings(GetFile("settings.dat"));
  EXPECT_TRUE(settings.MusicPath.IsBlank());
  EXPECT_EQ(settings.OutputPath.Text(), "/player");
}

TEST_F(FirstRun, DoesNothingWhenThereAreSettings) {
  PutLastWorkout(0);
  RunSetUp({});
  EXPECT_THAT(window.calls, IsEmpty());
}

TEST_F(FirstRun, KeepsTheAnswersInMemoryWhenTheyCannotBeSaved) {
  window.folders = {"/music", "/player"};
  std::filesystem::create_directory(".settings.dat.new");
  PutFile(".settings.dat.new/kept", "x");

  Load();

  EXPECT_THAT(window.messages, Contains(HasSubstr("settings.dat could not be written")));
  EXPECT_EQ(state.Settings.OutputPath.Text(), "/player");
  std::filesystem::remove_all(".settings.dat.new");
  ExitButton_Click(editor);
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).OutputPath.Text(), "/player");
}

TEST_F(FirstRun, LeavesNoSettingsWhenItIsInterrupted) {
  window.folders = {"/music"};  // The second picker never answers.
  EXPECT_THROW(FirstRunSetup(editor), std::out_of_range);
  EXPECT_FALSE(std::filesystem::exists("settings.dat"));
}

TEST_F(FirstRun, SaysWhyTheMusicCouldNotBeListed) {
  PutFile("musiclist.txt/in the way", "");

  RunSetUp({"/music", "/player"});

  EXPECT_THAT(window.messages, Contains(HasSubstr("musiclist.txt could not be written")));
  EXPECT_THAT(window.messages, testing::Not(Contains("The random music list has been compiled.")));
  EXPECT_TRUE(std::filesystem::exists("settings.dat"));
}

class Exit : public StartUp {};

TEST_F(Exit, StoresTheSelectedWorkout) {
  window.selectedWorkout = 4;
  ExitButton_Click(editor);
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).LastWorkoutIndex, 4);
}

TEST_F(Exit, StoresThatNoWorkoutIsSelected) {
  ExitButton_Click(editor);
  EXPECT_EQ(DecodeSettings(GetFile("settings.dat")).LastWorkoutIndex, -1);
}

TEST_F(Exit, KeepsTheSettingsThatCameInMeanwhile) {
  PutTwoWorkouts();
  PutLastWorkout(1);
  Load();
  ProgramState other = state;
  other.Settings.OutputPath = "/other";
  other.Settings.LastWorkoutIndex = 0;
  SaveSettings(other);
  std::filesystem::current_path("/");
  window.selectedWorkout = 1;

  ExitButton_Click(editor);

  const SettingsRecord saved = DecodeSettings(GetFile(folder.Path() + "settings.dat"));
  EXPECT_EQ(saved.OutputPath.Text(), "/other");
  EXPECT_EQ(saved.LastWorkoutIndex, 1);
}

TEST_F(Exit, SaysWhyTheSettingsCouldNotBeSaved) {
  std::filesystem::create_directory("settings.dat");
  ExitButton_Click(editor);
  EXPECT_THAT(window.messages, ElementsAre(HasSubstr("settings.dat could not be")));
}

}  // namespace
}  // namespace repvolta
