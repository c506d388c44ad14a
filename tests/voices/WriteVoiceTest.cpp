#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "voices/VoiceClips.h"
#include "voices/VoiceStage.h"
#include "voices/WriteVoice.h"

#include "support/FailureOf.h"
#include "support/FullDisk.h"
#include "support/RunProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

struct Stopped {};

void Stop(std::size_t /*done*/, std::size_t /*all*/) { throw Stopped(); }

class WrittenVoice : public testing::Test {
 protected:
  WrittenVoice() {
    PutClip("voices/Kim/1.wav", 'k');
    PutClip("voices/Kim/exercise/Läufe.WAV", 'l');
    fs::create_directory("out");
    clips_ = ClipsOfVoice({.programVoice = "", .inUse = ""}, "Kim", ClipsToWrite::kOwn);
  }

  /// Takes "out/..." in as "Back" and expects it to be Kim's.
  void ExpectBack(std::vector<std::string> (*read)(const std::string&, const VoiceReading&),
                  const std::string& path) {
    VoiceStage stage;
    const auto take = [&](const std::string& clip, std::span<const Byte> content) {
      stage.Add(clip, content);
    };
    EXPECT_THAT(read(path, {.take = take}), ElementsAre());
    stage.Commit("Back", {});
    EXPECT_EQ(RunProgram("diff", {"-r", "voices/Kim", "voices/Back"}).status, 0);
  }

  void ExpectNothingOut() { EXPECT_TRUE(fs::is_empty("out")); }

  TemporaryFolder folder_;
  VoiceClips clips_;
};

TEST_F(WrittenVoice, ComesBackFromAZipFile) {
  WriteVoiceArchive(clips_, "Kim", "out/k.zip", {});
  ExpectBack(ReadVoiceArchive, "out/k.zip");
}

TEST_F(WrittenVoice, ComesBackFromAFolder) {
  WriteVoiceFolder(clips_, "out/k", {});
  ExpectBack(ReadVoiceFolder, "out/k");
}

TEST_F(WrittenVoice, IsReadByOtherPrograms) {
  WriteVoiceArchive(clips_, "Kim", "out/k.zip", {});
  const ProgramRun run = RunProgram("python3", {"-c",
                                                "import zipfile\n"
                                                "z = zipfile.ZipFile('out/k.zip')\n"
                                                "assert z.testzip() is None\n"
                                                "for name in z.namelist(): print(name)\n"
                                                "z.extractall('x')\n"});
  EXPECT_EQ(run.output, "Kim/1.wav\nKim/exercise/Läufe.WAV\n") << run.errors;
  EXPECT_EQ(RunProgram("diff", {"-r", "voices/Kim", "x/Kim"}).status, 0);
  EXPECT_EQ(RunProgram("unzip", {"-tqq", "out/k.zip"}).status, 0);
}

TEST_F(WrittenVoice, ReplacesOnlyAZipFileThatWasChosen) {
  PutFile("out/k.zip", "old");
  WriteVoiceArchive(clips_, "Kim", "out/k.zip", {});
  EXPECT_NE(GetTextFile("out/k.zip"), "old");
  PutFile("out/k/mine.txt", "mine");
  EXPECT_THAT(FailureOf([&] { WriteVoiceFolder(clips_, "out/k", {}); }),
              HasSubstr("Something else has its name"));
  EXPECT_EQ(GetTextFile("out/k/mine.txt"), "mine");
}

TEST_F(WrittenVoice, LeavesNothingOnAFullDisk) {
  const FullDisk full(200);
  EXPECT_THAT(FailureOf([&] { WriteVoiceArchive(clips_, "Kim", "out/k.zip", {}); }),
              HasSubstr("out/k.zip could not be written"));
  ExpectNothingOut();
  EXPECT_THAT(FailureOf([&] { WriteVoiceFolder(clips_, "out/k", {}); }),
              HasSubstr("could not be written"));
  ExpectNothingOut();
}

TEST_F(WrittenVoice, LeavesNothingWhenItIsStopped) {
  EXPECT_THROW(WriteVoiceArchive(clips_, "Kim", "out/k.zip", Stop), Stopped);
  EXPECT_THROW(WriteVoiceFolder(clips_, "out/k", Stop), Stopped);
  ExpectNothingOut();
}

TEST_F(WrittenVoice, IsComparedWithWhatIsOnTheDisk) {
  std::size_t count = 0;
  WriteVoiceArchive(clips_, "Kim", "out/k.zip", [&](std::size_t done, std::size_t all) {
    EXPECT_EQ(done, ++count);
    EXPECT_EQ(all, 4U);
  });
  EXPECT_EQ(count, 4U);
}

}  // namespace
}  // namespace repvolta
