#include <filesystem>
#include <gtest/gtest.h>

#include "app/ClipOrigins.h"
#include "backup/BackupRestore.h"
#include "backup/WriteBackup.h"

#include "support/TemporaryFolder.h"
#include "support/WavBytes.h"

namespace repvolta {
namespace {

constexpr const char* kNotes = "voices/origins.txt";

Bytes Clip(int sample) { return WavBytes().Format(1, 16000, 16).Samples16({sample}).Get(); }

/// Two program directories; the current one is that of the restore.
class BackupRestoreTest : public testing::Test {
 protected:
  static void PutClip(const std::string& file, const Bytes& content, const ClipOrigin& origin) {
    PutFile("voice/" + file, content);
    NoteClipOrigin(file, origin);
  }

  static void Restore() {
    BackupRestore restore("../backup.zip");
    RestoreStage stage("");
    static_cast<void>(restore.Stage({}, stage));
    stage.Commit();
    FinishRestore("");
  }

  static void BackUpAs(const std::string& folder) {
    WriteBackup("../backup.zip", OriginHere(folder, 45000));
  }

  static void Enter(const std::string& folder) {
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
  }

  TemporaryFolder folder_;
};

TEST_F(BackupRestoreTest, BringsBackAProgramsClipOfAnotherLoudnessAsTheProgramsOwn) {
  Enter("there");
  PutClip("300.wav", Clip(3), {.owner = ClipOwner::kProgram});
  BackUpAs("there");
  Enter("../here");
  Restore();
  EXPECT_EQ(GetFile("voice/300.wav"), Clip(3));
  EXPECT_EQ(ClipOrigins("").Of("300.wav", Clip(3)).owner, ClipOwner::kProgram);
}

TEST_F(BackupRestoreTest, KeepsTheNotesOfClipsThatStay) {
  Enter("there");
  PutClip("300.wav", Clip(3), {.owner = ClipOwner::kComputer});
  BackUpAs("there");
  Enter("../here");
  PutClip("300.wav", Clip(4), {.owner = ClipOwner::kOwn});
  PutClip("exercise/Row.WAV", Clip(5), {.owner = ClipOwner::kOwn});
  Restore();
  const ClipOrigins origins("");
  EXPECT_EQ(origins.Of("300.wav", GetFile("voice/300.wav")).owner, ClipOwner::kComputer);
  EXPECT_EQ(origins.Of("exercise/Row.WAV", Clip(5)).owner, ClipOwner::kOwn);
}

TEST_F(BackupRestoreTest, ChangesNothingWhereTheNotesAreAllHere) {
  Enter("there");
  PutClip("300.wav", Clip(3), {.owner = ClipOwner::kComputer});
  BackUpAs("there");
  PutClip("exercise/Row.WAV", Clip(5), {.owner = ClipOwner::kOwn});
  EXPECT_TRUE(ChangesNothing(BackupRestore("../backup.zip").Plan({})));
}

}  // namespace
}  // namespace repvolta
