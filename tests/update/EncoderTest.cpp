#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "update/Encoder.h"

#include "fakes/FakeServices.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EncodeMP3file, RunsTheEncoderOfTheCurrentDirectory) {
  TemporaryFolder folder;
  FakeProcesses processes;
  PutFile("lame.exe", "");
  EXPECT_EQ(EncodeMP3file(processes, "temp.wav", "temp.mp3"), Encoding::kEncoderRun);
  EXPECT_THAT(processes.started, ElementsAre("lame.exe -V4 temp.wav temp.mp3"));
}

TEST(EncodeMP3file, LooksForTheEncoderInTheCurrentDirectory) {
  TemporaryFolder folder;
  FakeProcesses processes;
  PutFile("lame.exe", "");
  ProgramPlace place = ProgramPlace::kPath;
  processes.run = [&](const ChildCommand& command) { place = command.place; };
  EncodeMP3file(processes, "temp.wav", "temp.mp3");
  EXPECT_EQ(place, ProgramPlace::kCurrentDirectoryThenPath);
}

TEST(EncodeMP3file, TrimsTheNames) {
  TemporaryFolder folder;
  FakeProcesses processes;
  PutFile("lame.exe", "");
  EncodeMP3file(processes, "  temp.wav ", " temp.mp3  ");
  EXPECT_THAT(processes.started, ElementsAre("lame.exe -V4 temp.wav temp.mp3"));
}

TEST(EncodeMP3file, RunsNothingWithoutAnEncoder) {
  TemporaryFolder folder;
  FakeProcesses processes;
  EXPECT_EQ(EncodeMP3file(processes, "temp.wav", "temp.mp3"), Encoding::kNoEncoder);
  EXPECT_THAT(processes.started, IsEmpty());
}

TEST(EncodeMP3file, RunsNoFolder) {
  TemporaryFolder folder;
  FakeProcesses processes;
  std::filesystem::create_directory("lame.exe");
  EXPECT_EQ(EncodeMP3file(processes, "temp.wav", "temp.mp3"), Encoding::kNoEncoder);
}

TEST(EncodeMP3file, LeavesNoOlderResult) {
  TemporaryFolder folder;
  FakeProcesses processes;
  PutFile("lame.exe", "");
  PutFile("temp.mp3", "another exercise");
  EncodeMP3file(processes, "temp.wav", "temp.mp3");
  EXPECT_FALSE(std::filesystem::exists("temp.mp3"));
}

}  // namespace
}  // namespace repvolta
