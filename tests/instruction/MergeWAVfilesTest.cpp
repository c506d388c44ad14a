#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/File.h"
#include "instruction/MergeWAVfiles.h"

#include "fakes/RecordingRun.h"
#include "support/ClipBytes.h"
#include "support/FailingClose.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

void Put32(Bytes& file, std::size_t offset, std::uint32_t value) {
  StoreLittleEndian(std::span(file).subspan(offset), value);
}

class MergeWAV : public testing::Test {
 protected:
  static std::uint32_t TargetNumber(std::uint64_t offset) {
    Bytes number(4);
    File::Open("target.wav", File::Access::kRead).ReadAt(offset, number);
    return LoadLittleEndian<std::uint32_t>(number);
  }

  /// Joins two clips that make a file of `size` bytes, most of them a hole.
  void JoinTo(std::uint64_t size) {
    constexpr std::uint64_t kSamples = 100;
    PutFile("target.wav", ClipBytes(Bytes(200, 't')));
    std::filesystem::resize_file("target.wav", size - kSamples);
    PutFile("source.wav", ClipBytes(Bytes(kSamples, 's')));
    MergeWAVfiles("target.wav", "source.wav", run);
    ASSERT_EQ(std::filesystem::file_size("target.wav"), size);
  }

  TemporaryFolder folder;
  RecordingRun run;
};

/// The largest file whose length without the first 8 bytes fits 32 bits.
constexpr std::uint64_t kGreatestRiff = (std::uint64_t{1} << 32) - 1 + 8;

/// The same for its length without the 47 bytes that do not count as samples.
constexpr std::uint64_t kGreatestData = (std::uint64_t{1} << 32) - 1 + 47;

TEST_F(MergeWAV, AppendsTheSamplesOverTheLastByte) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  Bytes source = ClipBytes(Bytes(100, 's'));
  source[45] = 'h';
  PutFile("source.wav", source);

  MergeWAVfiles("target.wav", "source.wav", run);

  const Bytes joined = GetFile("target.wav");
  ASSERT_EQ(joined.size(), 346U);
  EXPECT_EQ(AsText(std::span(joined).subspan(46, 199)), std::string(199, 't'));
  EXPECT_EQ(joined[245], 'h');
  EXPECT_EQ(AsText(std::span(joined).subspan(246)), std::string(100, 's'));
  EXPECT_EQ(TargetNumber(4), 338U);
  EXPECT_EQ(TargetNumber(16), 18U);
  EXPECT_EQ(TargetNumber(42), 299U);
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(MergeWAV, TellsWhenTheCloseCallsTheTargetUnwritten) {
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));

  const FailingClose unwritten("target.wav");
  MergeWAVfiles("target.wav", "source.wav", run);

  EXPECT_THAT(run.log, ElementsAre("ERROR: source.wav could not be joined to target.wav: "
                                   "Input/output error"));
}

TEST_F(MergeWAV, LeavesTheSourceAlone) {
  const Bytes source = ClipBytes(Bytes(100, 's'));
  PutFile("source.wav", source);
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_EQ(GetFile("source.wav"), source);
}

TEST_F(MergeWAV, WritesADataSizeOfMinusOneForTwoEmptyClips) {
  PutFile("source.wav", ClipBytes({}));
  PutFile("target.wav", ClipBytes({}));
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_EQ(TargetNumber(42), 0xFFFFFFFFU);
}

TEST_F(MergeWAV, JoinsAFileToItselfOnce) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  const FullDisk endsWhatRunsOn(rlim_t{1024} * 1024);
  MergeWAVfiles("target.wav", "target.wav", run);
  EXPECT_EQ(GetFile("target.wav").size(), 446U);
}

TEST_F(MergeWAV, WritesTheFormatSizeWhateverItWas) {
  Bytes target = ClipBytes(Bytes(200, 't'));
  target[16] = 16;
  PutFile("target.wav", target);
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_EQ(TargetNumber(16), 18U);
}

TEST_F(MergeWAV, LeavesTheOtherHeaderFieldsAlone) {
  Bytes target = ClipBytes(Bytes(200, 't'));
  for (const std::size_t offset : {0U, 8U, 12U, 20U, 22U, 24U, 28U, 32U, 34U, 36U, 38U})
    target[offset] = 'x';
  PutFile("target.wav", target);
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));

  MergeWAVfiles("target.wav", "source.wav", run);

  const Bytes joined = GetFile("target.wav");
  for (const std::size_t offset : {0U, 8U, 12U, 20U, 22U, 24U, 28U, 32U, 34U, 36U, 38U})
    EXPECT_EQ(joined[offset], 'x') << offset;
}

TEST_F(MergeWAV, JoinsSoundsOfAnotherFormatAsTheyAre) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  Bytes source = WavHeader({.rate = 44100, .bits = 8, .channels = 2}, 100);
  source.resize(source.size() + 100, 's');
  PutFile("source.wav", source);

  MergeWAVfiles("target.wav", "source.wav", run);

  const Bytes joined = GetFile("target.wav");
  ASSERT_EQ(joined.size(), 346U);
  EXPECT_EQ(TargetNumber(24), 16000U);
  EXPECT_EQ(AsText(std::span(joined).subspan(246)), std::string(100, 's'));
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(MergeWAV, LogsAMissingSourceAndChangesNothing) {
  const Bytes target = ClipBytes(Bytes(200, 't'));
  PutFile("target.wav", target);
  MergeWAVfiles("target.wav", "voice/reps.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: voice/reps.wav NOT FOUND."));
  EXPECT_EQ(GetFile("target.wav"), target);
}

TEST_F(MergeWAV, LogsAMissingTargetAndMakesNone) {
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: target.wav NOT FOUND."));
  EXPECT_FALSE(std::filesystem::exists("target.wav"));
}

TEST_F(MergeWAV, LogsOnlyTheSourceWhenBothAreMissing) {
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: source.wav NOT FOUND."));
}

TEST_F(MergeWAV, SaysThatASourceIsTooShort) {
  for (const std::size_t size : {0U, 1U, 44U, 45U}) {
    PutFile("target.wav", ClipBytes(Bytes(200, 't')));
    PutFile("source.wav", Bytes(size, 's'));
    MergeWAVfiles("target.wav", "source.wav", run);
  }
  EXPECT_THAT(run.log, AllOf(SizeIs(4), Each("ERROR: source.wav could not be joined to "
                                             "target.wav: It is too short for a WAV file")));
}

TEST_F(MergeWAV, WritesOnlyTheNumbersOfTheHeaderForASourceThatIsTooShort) {
  Bytes expected = ClipBytes(Bytes(200, 't'));
  Put32(expected, 4, 238);
  Put32(expected, 16, 18);
  Put32(expected, 42, 199);
  for (const std::size_t size : {0U, 1U, 44U, 45U}) {
    Bytes target = ClipBytes(Bytes(200, 't'));
    for (const std::size_t offset : {4U, 16U, 42U}) Put32(target, offset, 77);
    PutFile("target.wav", target);
    PutFile("source.wav", Bytes(size, 's'));
    MergeWAVfiles("target.wav", "source.wav", run);
    EXPECT_EQ(GetFile("target.wav"), expected) << size;
  }
}

TEST_F(MergeWAV, SaysThatATargetIsTooShort) {
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  for (const std::size_t size : {0U, 1U, 45U}) {
    PutFile("target.wav", Bytes(size, 't'));
    MergeWAVfiles("target.wav", "source.wav", run);
  }
  EXPECT_THAT(run.log, AllOf(SizeIs(3), Each("ERROR: source.wav could not be joined to "
                                             "target.wav: target.wav is too short for a WAV "
                                             "file")));
}

TEST_F(MergeWAV, JoinsToATargetThatIsTooShortAsToAnyOther) {
  Bytes source = ClipBytes(Bytes(100, 's'));
  source[45] = 'h';
  PutFile("source.wav", source);
  for (const std::size_t size : {1U, 2U, 20U, 44U, 45U}) {
    PutFile("target.wav", Bytes(size, 't'));
    MergeWAVfiles("target.wav", "source.wav", run);
    const std::string text = std::string(size - 1, 't') + "h" + std::string(100, 's');
    const auto bytes = AsBytes(text);
    Bytes expected(bytes.begin(), bytes.end());
    Put32(expected, 4, static_cast<std::uint32_t>(size + 100 - 8));
    Put32(expected, 16, 18);
    Put32(expected, 42, static_cast<std::uint32_t>(size + 100 - 47));
    EXPECT_EQ(GetFile("target.wav"), expected) << size;
  }
}

TEST_F(MergeWAV, WritesTheNumbersOfTheHeaderAlsoWhereNoneIs) {
  Bytes expected(46);
  Put32(expected, 4, 0xFFFFFFF8U);
  Put32(expected, 16, 18);
  Put32(expected, 42, 0xFFFFFFD1U);
  for (const std::size_t size : {0U, 45U, 146U}) {
    PutFile("source.wav", Bytes(size, 's'));
    PutFile("target.wav", Bytes());
    MergeWAVfiles("target.wav", "source.wav", run);
    EXPECT_EQ(GetFile("target.wav"), expected) << "an empty target has no last byte; " << size;
  }
}

TEST_F(MergeWAV, WritesTheGreatestRiffSize) {
  JoinTo(kGreatestRiff);
  EXPECT_EQ(TargetNumber(4), 0xFFFFFFFFU);
}

TEST_F(MergeWAV, LeavesARiffSizeThatIsTooGreatAsItWas) {
  JoinTo(kGreatestRiff + 1);
  EXPECT_EQ(TargetNumber(4), 238U);
  EXPECT_EQ(TargetNumber(16), 18U);
  EXPECT_EQ(TargetNumber(42), 0xFFFFFFFFU - 38);
}

TEST_F(MergeWAV, WritesTheGreatestDataSize) {
  JoinTo(kGreatestData);
  EXPECT_EQ(TargetNumber(42), 0xFFFFFFFFU);
}

TEST_F(MergeWAV, LeavesADataSizeThatIsTooGreatAsItWas) {
  JoinTo(kGreatestData + 1);
  EXPECT_EQ(TargetNumber(42), 200U);
}

TEST_F(MergeWAV, SaysWhyAClipCouldNotBeJoined) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  PutFile("source.wav", ClipBytes(Bytes(100'000, 's')));
  const FullDisk full(50'000);
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: source.wav could not be joined to target.wav: "
                                   "File too large"));
}

TEST_F(MergeWAV, WritesTheSizesOfThePartThatStillFitted) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  PutFile("source.wav", ClipBytes(Bytes(100'000, 's')));
  {
    const FullDisk full(50'000);
    MergeWAVfiles("target.wav", "source.wav", run);
  }
  const std::size_t size = GetFile("target.wav").size();
  EXPECT_EQ(TargetNumber(4), size - 8);
  EXPECT_EQ(TargetNumber(42), size - 47);
}

TEST_F(MergeWAV, SaysOnceThatNothingCanBeWritten) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  const FullDisk full(0);
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: source.wav could not be joined to target.wav: "
                                   "File too large"));
}

TEST_F(MergeWAV, SaysWhyAClipThatIsThereCannotBeRead) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  const UnreadableFile unreadable("source.wav");
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: source.wav could not be joined to target.wav: "
                                   "Permission denied"));
}

TEST_F(MergeWAV, TakesAFolderForNoFile) {
  PutFile("target.wav", ClipBytes(Bytes(200, 't')));
  std::filesystem::create_directory("source.wav");
  MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: source.wav NOT FOUND."));
}

TEST_F(MergeWAV, JoinsManyClips) {
  PutFile("target.wav", ClipBytes(Bytes(10, 't')));
  PutFile("source.wav", ClipBytes(Bytes(100, 's')));
  for (int i = 0; i < 60; ++i) MergeWAVfiles("target.wav", "source.wav", run);
  EXPECT_EQ(GetFile("target.wav").size(), 46U + 10 + 60 * 100);
  EXPECT_EQ(TargetNumber(42), 10U + 60 * 100 - 1);
}

}  // namespace
}  // namespace repvolta
