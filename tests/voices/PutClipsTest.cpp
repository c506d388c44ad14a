#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "keeping/PendingRestore.h"
#include "update/UpdateLock.h"
#include "voices/PutClips.h"

#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const ClipOrigin kOwnClip{.owner = ClipOwner::kOwn, .day = "2026-11-22"};

Bytes BytesOf(std::string_view text) {
  const auto bytes = AsBytes(text);
  return {bytes.begin(), bytes.end()};
}

NewClip Clip(const std::string& file, std::string_view content) {
  return {.file = file, .content = BytesOf(content), .origin = kOwnClip};
}

/// A program directory with two clips and a voice that is not in use.
class PutClipsTest : public testing::Test {
 protected:
  PutClipsTest() {
    PutFile("voice/reps.wav", "old reps");
    PutFile("voice/exercise/SQUAT.wav", "old Squat");
    PutFile("voices/Kim/reps.wav", "Kim's reps");
  }

  TemporaryFolder folder_;
};

TEST_F(PutClipsTest, PutsThemInPlaceAndNotesWhoseTheyAre) {
  PutClips("", {.clips = {Clip("reps.wav", "new reps"), Clip("exercise/Row.WAV", "Row")}});
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "new reps");
  EXPECT_EQ(GetTextFile("voice/exercise/Row.WAV"), "Row");
  const ClipOrigins origins("");
  EXPECT_EQ(origins.Of("reps.wav", BytesOf("new reps")), kOwnClip);
  EXPECT_EQ(origins.Of("exercise/Row.WAV", BytesOf("Row")), kOwnClip);
}

TEST_F(PutClipsTest, ReplacesAClipWhoseNameDiffersInCase) {
  PutClips("", {.clips = {Clip("exercise/Squat.WAV", "new Squat")}});
  EXPECT_EQ(GetTextFile("voice/exercise/SQUAT.wav"), "new Squat");
  EXPECT_FALSE(fs::exists("voice/exercise/Squat.WAV"));
}

TEST_F(PutClipsTest, WritesAndRemovesOtherFilesWithThem) {
  PutClips("", {.clips = {},
                .files = {{"voices/Removed/reps.wav", BytesOf("old reps")}},
                .removed = {"voice/reps.wav", "voices/Kim/reps.wav", "voices/Lee/never.wav"}});
  EXPECT_EQ(GetTextFile("voices/Removed/reps.wav"), "old reps");
  EXPECT_FALSE(fs::exists("voice/reps.wav"));
  EXPECT_FALSE(fs::exists("voices/Kim/reps.wav"));
  EXPECT_FALSE(IsRestorePending(""));
}

TEST_F(PutClipsTest, FindsTheDirectoryFromAnotherFolder) {
  fs::current_path("/");
  PutClips(folder_.Path() + "/", {.clips = {Clip("exercise/Squat.WAV", "new Squat")}});
  fs::current_path(folder_.Path());
  EXPECT_EQ(GetTextFile("voice/exercise/SQUAT.wav"), "new Squat");
}

TEST_F(PutClipsTest, ChangesNothingWhileAnUpdateRuns) {
  const UpdateLock update("");
  const auto put = [] { PutClips("", {.clips = {Clip("reps.wav", "new reps")}}); };
  EXPECT_THAT(FailureOf(put), HasSubstr("An update is running. Nothing was changed"));
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "old reps");
  EXPECT_FALSE(fs::exists("voices/origins.txt"));
}

TEST_F(PutClipsTest, SaysWhichClipCouldNotBeChangedAndThatNothingWas) {
  const auto put = [] {
    PutClips("", {.clips = {Clip("x.wav", ""), Clip("exercise/Squat.WAV", "new Squat")}});
  };
  const FullDisk full(0);
  EXPECT_EQ(FailureOf(put),
            "voice/ could not be changed: voice/exercise/SQUAT.wav could not be written: File too "
            "large. Nothing was changed");
}

TEST_F(PutClipsTest, NamesTheOnlyClip) {
  const auto put = [] { PutClips("", {.clips = {Clip("REPS.wav", "new reps")}}); };
  const FullDisk full(0);
  EXPECT_EQ(FailureOf(put),
            "voice/reps.wav could not be changed: File too large. Nothing was changed");
}

TEST_F(PutClipsTest, NamesTheOnlyClipAlsoWhenItsNoteCouldNotBeWritten) {
  const auto put = [] { PutClips("", {.clips = {Clip("reps.wav", "")}}); };
  const FullDisk full(0);
  EXPECT_EQ(FailureOf(put),
            "voice/reps.wav could not be changed: voices/origins.txt could not be written: File "
            "too large. Nothing was changed");
}

TEST_F(PutClipsTest, IsRefusedWithoutALossWhileTheNotesCannotBeRead) {
  fs::create_directories("voices/origins.txt/kept");
  const auto put = [] { PutClips("", {.clips = {Clip("reps.wav", "new reps")}}); };
  EXPECT_EQ(FailureOf(put),
            "voice/reps.wav could not be changed: voices/origins.txt could not be read: It is not "
            "a file. Nothing was changed");
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "old reps");
  EXPECT_TRUE(fs::is_directory("voices/origins.txt/kept"));
}

TEST_F(PutClipsTest, KeepsTheNotesOfAClipWhoseNameDiffersInCaseOnly) {
  PutFile("voice/exercise/Squat.WAV", "another Squat");
  PutClips("", {.clips = {Clip("exercise/Squat.WAV", "new Squat")}});
  PutClips("", {.clips = {Clip("exercise/SQUAT.wav", "loud SQUAT")}});
  const ClipOrigins origins("");
  EXPECT_EQ(origins.Of("exercise/Squat.WAV", BytesOf("new Squat")), kOwnClip);
  EXPECT_EQ(origins.Of("exercise/SQUAT.wav", BytesOf("loud SQUAT")), kOwnClip);
}

TEST_F(PutClipsTest, ChangesNothingWhenOneOfThemHasNoPlace) {
  const auto put = [] {
    PutClips("", {.clips = {Clip("reps.wav", "new reps"), Clip("../../x.wav", "outside")}});
  };
  EXPECT_THROW(put(), FileError);
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "old reps");
  EXPECT_FALSE(fs::exists("restore.pending"));
}

TEST_F(PutClipsTest, FirstFinishesWhatWasDecidedBefore) {
  {
    RestoreStage stage("");
    stage.Add("voice/and.wav", AsBytes("and"));
    stage.Commit();
  }
  PutClips("", {.clips = {Clip("reps.wav", "new reps")}});
  EXPECT_EQ(GetTextFile("voice/and.wav"), "and");
  EXPECT_EQ(GetTextFile("voice/reps.wav"), "new reps");
}

TEST_F(PutClipsTest, KeepsTheNotesOfOtherClips) {
  PutClips("", {.clips = {Clip("exercise/Row.WAV", "Row")}});
  PutClips("", {.clips = {Clip("reps.wav", "new reps")}});
  EXPECT_EQ(ClipOrigins("").Of("exercise/row.wav", BytesOf("Row")), kOwnClip);
}

}  // namespace
}  // namespace repvolta
