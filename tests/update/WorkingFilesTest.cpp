#include <filesystem>
#include <gtest/gtest.h>

#include "update/Steps.h"
#include "update/UpdateFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// What becomes of "temp.wav" and "temp.mp3".
using UpdateDriver = UpdateFixture;

TEST_F(UpdateDriver, LeavesTheWavFileOfAnUpdateBeforeWhereItMakesNone) {
  PutFile("temp.wav", "kept without an encoder");
  PutFile("temp.mp3", "not of this run either");
  Update();
  EXPECT_EQ(GetTextFile("temp.wav"), "kept without an encoder");
  EXPECT_EQ(GetTextFile("temp.mp3"), "not of this run either");
}

TEST_F(UpdateDriver, LeavesTheWavFileOfAnUpdateBeforeWhenItIsStoppedAtOnce) {
  PutFile("temp.wav", "kept without an encoder");
  AddNamed("Squat");
  run.stopRequested = [] { return true; };
  EXPECT_THROW(Update(), UpdateStopped);
  EXPECT_EQ(GetTextFile("temp.wav"), "kept without an encoder");
}

TEST_F(UpdateDriver, LeavesTheWavFileWithoutAnEncoderAlsoWhenItIsStopped) {
  fs::remove("lame.exe");
  AddNamed("Squat");
  run.stopRequested = [&] { return fs::exists("player/Monday/Monday.M3U"); };
  EXPECT_THROW(Update(), UpdateStopped);
  EXPECT_TRUE(fs::exists("temp.wav"));
}

TEST_F(UpdateDriver, IsStoppedAlsoWhereItsWorkingFilesCannotBeRemoved) {
  AddNamed("Squat");
  processes.run = [](const ChildCommand&) { PutFile("temp.mp3/in the way", ""); };
  run.stopRequested = [&] { return !processes.started.empty(); };
  EXPECT_THROW(Update(), UpdateStopped);
}

}  // namespace
}  // namespace repvolta
