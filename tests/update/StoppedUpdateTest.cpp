#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "app/WorkoutFiles.h"
#include "update/Steps.h"
#include "update/UpdateFixture.h"

#include "support/SavedFiles.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// Two exercises with a song each; the weight of the first is due to grow from 50 to 51.
class StoppedUpdate : public UpdateFixture {
 protected:
  StoppedUpdate() {
    ExerciseRecord& squat = AddNamed("Squat");
    squat.NumberOfSets = 1;
    squat.SetValue1[0] = 50;
    squat.SetIncrement1[0] = squat.SetFrequency1[0] = 1;
    squat.NextUpdate1[0] = kToday - 9;
    AddMusic(squat, "A.mp3");
    AddMusic(AddNamed("Row"), "B.mp3");
    for (const char* clip : {"1", "set", "50", "51", "kilograms", "for", "reps"}) {
      PutFile(std::string("voice/") + clip + ".wav", ClipBytes(Bytes(10, '+')));
    }
    before = state.Workout;
    BeginAnew();
  }

  void AddMusic(ExerciseRecord& exercise, const std::string& name) {
    PutFile("music/" + name, SongBytes(3));
    AddSong(exercise, Full("music/" + name));
  }

  /// The player has the folder of an earlier update; the workout has not grown.
  void BeginAnew() {
    fs::remove_all("player/Monday");
    PutFile("player/Monday/RV001-Old.mp3", "old");
    PutFile("workouts/Monday.RPV", EncodeWorkout(before));
    LoadWorkout(state);
    run.log.clear();
  }

  ExerciseSlots Saved() const { return DecodeWorkout(GetFile("workouts/Monday.RPV")); }

  /// The update is stopped when StopRequested has been asked this often. False: it ends before.
  bool StopAt(int question) {
    asked_ = 0;
    run.stopRequested = [this, question] { return ++asked_ >= question; };
    try {
      Update();
      return false;
    } catch (const UpdateStopped&) {
      return true;
    }
  }

  std::vector<std::string> ListedFiles() const {
    std::vector<std::string> names;
    if (!fs::exists("player/Monday/Monday.M3U")) return names;
    for (const std::string& line : SplitLines(PlayList())) {
      names.push_back(fs::path(line).filename());
    }
    return names;
  }

  static std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
      if (line.ends_with('\r')) line.pop_back();
      lines.push_back(line);
    }
    return lines;
  }

  /// The files on the player but for the play list.
  std::vector<std::string> Songs() const {
    if (!fs::exists("player/Monday")) return {};
    std::vector<std::string> names = PlayerFiles();
    std::erase(names, "Monday.M3U");
    return names;
  }

  void ExpectNothingHalf() const {
    EXPECT_EQ(Songs(), ListedFiles());
    for (const char* file : {"temp.wav", "temp.mp3", "temp.mp3.new"}) {
      EXPECT_FALSE(fs::exists(file)) << file;
    }
    for (const std::string& name : Songs()) {
      if (!name.ends_with("Instructions.mp3")) {
        EXPECT_THAT(GetTextFile("player/Monday/" + name), HasSubstr("Monday.RPV")) << name;
        EXPECT_GT(fs::file_size("player/Monday/" + name), SongBytes(3).size()) << name;
      }
    }
  }

  /// The last line says what the folder holds and what the workout is.
  void ExpectTold() const {
    const std::string line = run.log.back();
    if (line == "STOPPED: Monday.RPV is not updated.") {
      EXPECT_EQ(GetTextFile("player/Monday/RV001-Old.mp3"), "old");
      EXPECT_EQ(Saved(), before);
    } else if (Saved() == before) {
      EXPECT_EQ(line, "STOPPED: No new file is on the player, and Monday.RPV is as it was before.");
      EXPECT_THAT(Songs(), IsEmpty());
    } else {
      EXPECT_EQ(Saved()[0].SetValue1[0], 51);
      EXPECT_THAT(line, StartsWith("STOPPED: " + std::to_string(Songs().size()) + " of 4 files "));
    }
  }

  ExerciseSlots before;

 private:
  int asked_ = 0;
};

TEST_F(StoppedUpdate, LeavesWholeFilesThatThePlayListNamesAtEachStep) {
  int question = 1;
  for (; StopAt(question); ++question) {
    SCOPED_TRACE(question);
    if (run.log.back() != "STOPPED: Monday.RPV is not updated.") ExpectNothingHalf();
    ExpectTold();
    EXPECT_EQ(Saved(), state.Workout);
    EXPECT_THAT(run.log, Not(Contains(StartsWith("ERROR"))));
    EXPECT_THAT(run.log, Not(Contains("UPDATE COMPLETE.")));
    BeginAnew();
  }
  EXPECT_GT(question, 30);
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
}

TEST_F(StoppedUpdate, SaysWhoseFilesAreMissing) {
  run.stopRequested = [&] { return fs::exists("player/Monday/RV001-Instructions.mp3"); };
  EXPECT_THROW(Update(), UpdateStopped);
  EXPECT_EQ(run.log.back(),
            "STOPPED: 1 of 4 files is on the player; files of Squat and Row are missing.");
  EXPECT_THAT(Songs(), ElementsAre("RV001-Instructions.mp3"));
}

TEST_F(StoppedUpdate, LeavesNoPieceOfTheSongThatIsBeingCopied) {
  PutFile("music/A.mp3", Bytes(std::size_t{5} << 20));
  run.isWatched = true;
  bool isStopped = false;
  run.whenProgress = [&](const WorkDone& work) {
    if (work.atHand == "A.mp3" && fs::exists("player/Monday/RV002-A.mp3")) isStopped = true;
  };
  run.stopRequested = [&] { return isStopped; };

  EXPECT_THROW(Update(), UpdateStopped);

  EXPECT_THAT(Songs(), ElementsAre("RV001-Instructions.mp3"));
  ExpectNothingHalf();
}

TEST_F(StoppedUpdate, TakesBackTheGrowthThatIsNotSaved) {
  run.stopRequested = [&] {
    return std::ranges::any_of(
        run.log, [](const std::string& line) { return line.starts_with("Updated Field"); });
  };
  EXPECT_THROW(Update(), UpdateStopped);
  EXPECT_EQ(state.Workout, before);
  EXPECT_EQ(Saved(), before);
}

TEST_F(StoppedUpdate, NamesTheSameFilesInThePlayListForThePlayer) {
  Put(state.Options, kPlayListForPlayer, true);
  run.stopRequested = [] { return fs::exists("player/Monday/RV002-A.mp3"); };
  EXPECT_THROW(Update(), UpdateStopped);
  const std::string list = GetTextFile("player/Monday/Monday.m3u8");
  EXPECT_THAT(list, HasSubstr("\nRV001-Instructions.mp3\r\n"));
  EXPECT_THAT(list, HasSubstr("\nRV002-A.mp3\r\n"));
  EXPECT_THAT(list, Not(HasSubstr("RV003")));
}

TEST_F(StoppedUpdate, IsCompleteAfterTheNextUpdate) {
  ASSERT_TRUE(StopAt(20));
  run.stopRequested = {};
  Update();
  EXPECT_EQ(run.log.back(), "UPDATE COMPLETE.");
  EXPECT_EQ(Songs().size(), 4U);
  EXPECT_EQ(Saved()[0].SetValue1[0], 51);
}

}  // namespace
}  // namespace repvolta
