#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "voices/KeptRecordings.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

Bytes BytesOf(std::string_view text) {
  const auto bytes = AsBytes(text);
  return {bytes.begin(), bytes.end()};
}

/// A program directory with a recording of "reps" and one of "Squat".
class KeptRecordingsTest : public testing::Test {
 protected:
  KeptRecordingsTest() {
    PutFile("voice/reps.wav", "own reps");
    PutFile("voice/exercise/SQUAT.wav", "own Squat");
  }

  static ClipChange NewReps() {
    return {.clips = {{.file = "reps.wav",
                       .content = BytesOf("program's reps"),
                       .origin = {.owner = ClipOwner::kProgram}}}};
  }

  static std::size_t Put(ClipChange change) {
    const std::size_t kept = KeepRecordings("", change);
    PutClips("", change);
    return kept;
  }

  TemporaryFolder folder_;
};

TEST_F(KeptRecordingsTest, AreThoseThatAnotherClipReplaces) {
  EXPECT_EQ(Put(NewReps()), 1U);
  EXPECT_EQ(GetTextFile("voices/My recordings/reps.wav"), "own reps");
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "program's reps");
}

TEST_F(KeptRecordingsTest, AreThoseThatAreRemoved) {
  EXPECT_EQ(Put({.removed = {"voice/exercise/SQUAT.wav"}}), 1U);
  EXPECT_EQ(GetTextFile("voices/My recordings/exercise/SQUAT.wav"), "own Squat");
}

TEST_F(KeptRecordingsTest, TakeAnotherFolderBesideAnotherOne) {
  PutFile("voices/My recordings/reps.wav", "older reps");
  PutFile("voices/My recordings 2/REPS.wav", "old reps");
  ClipChange change = NewReps();
  KeepRecordings("", change);
  EXPECT_EQ(VoiceOfKept(change), "My recordings 3");
  PutClips("", change);
  EXPECT_EQ(GetTextFile("voices/My recordings/reps.wav"), "older reps");
  EXPECT_EQ(GetTextFile("voices/My recordings 2/REPS.wav"), "old reps");
  EXPECT_EQ(GetTextFile("voices/My recordings 3/reps.wav"), "own reps");
}

TEST_F(KeptRecordingsTest, AreNotHiddenBehindOneWhoseNameDiffersInCaseOnly) {
  PutFile("voice/exercise/Squat.WAV", "own other Squat");
  EXPECT_EQ(Put({.removed = {"voice/exercise/SQUAT.wav", "voice/exercise/Squat.WAV"}}), 2U);
  EXPECT_EQ(GetTextFile("voices/My recordings/exercise/SQUAT.wav"), "own Squat");
  EXPECT_EQ(GetTextFile("voices/My recordings 2/exercise/Squat.WAV"), "own other Squat");
}

TEST_F(KeptRecordingsTest, AreKeptOnce) {
  PutFile("voices/My recordings/reps.wav", "own reps");
  EXPECT_EQ(Put(NewReps()), 0U);
}

TEST_F(KeptRecordingsTest, AreNotWhatTheProgramOrTheComputerCanMakeAgain) {
  PutClips("", NewReps());
  ClipChange spoken = NewReps();
  spoken.clips[0].content = BytesOf("spoken reps");
  spoken.clips[0].origin.owner = ClipOwner::kComputer;
  EXPECT_EQ(Put(spoken), 0U);
  EXPECT_EQ(Put(NewReps()), 0U);
}

TEST_F(KeptRecordingsTest, AreNotGuessedWhileNotesCannotBeRead) {
  for (const std::string notes : {"voices/level.txt", "voices/origins.txt"}) {
    std::filesystem::create_directories(notes);
    EXPECT_EQ(FailureOf([] { Put(NewReps()); }),
              "voice/ could not be changed: " + notes +
                  " could not be read: It is not a file. Nothing "
                  "was changed");
    std::filesystem::remove(notes);
  }
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "own reps");
}

TEST_F(KeptRecordingsTest, AreNotThoseThatStay) {
  ClipChange same = NewReps();
  same.clips[0].content = BytesOf("own reps");
  EXPECT_EQ(Put(same), 0U);
}

}  // namespace
}  // namespace repvolta
