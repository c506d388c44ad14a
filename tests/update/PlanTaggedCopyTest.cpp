#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "base/File.h"
#include "update/ProcessMP3tag.h"

#include "fakes/RecordingLog.h"
#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

constexpr const char* kSource = "A Song.mp3";
constexpr const char* kCopy = "out/RV002-A Song.mp3";
constexpr const char* kTitle = "Squats, 3 sets";
constexpr const char* kWorkout = " Monday.RPV ";

struct Outcome {
  Bytes copy;
  std::vector<std::string> log;

  bool operator==(const Outcome&) const = default;
};

/// The result of copying the source and then tagging the copy.
Outcome InTwoSteps() {
  RecordingLog log;
  CopyFileOver(kSource, kCopy);
  ProcessMP3tag(kCopy, kTitle, kWorkout, log);
  return {GetFile(kCopy), log.lines};
}

/// The result of the plan; nothing without a plan.
std::optional<Outcome> InOnePass() {
  const auto plan = PlanTaggedCopy(kSource, kCopy, kTitle, kWorkout);
  if (!plan) return std::nullopt;
  RecordingLog log;
  CopyFileOver(kSource, kCopy, {plan->tag, plan->audioOffset});
  LogTagged(kCopy, log);
  return Outcome{GetFile(kCopy), log.lines};
}

void PutSong(std::span<const Byte> content) {
  PutFile(kSource, content);
  std::filesystem::create_directory("out");
}

Id3v2Bytes ATag() { return Id3v2Bytes().Text("TIT2", "Old").Text("TPE1", "Band").Padding(300); }

struct Song {
  const char* name;
  Bytes content;
};

class SongOfAKind : public testing::TestWithParam<Song> {};

TEST_P(SongOfAKind, ComesToTheSameInOnePass) {
  TemporaryFolder folder;
  PutSong(GetParam().content);
  const auto inOnePass = InOnePass();
  ASSERT_TRUE(inOnePass.has_value());
  EXPECT_EQ(*inOnePass, InTwoSteps());
}

constexpr FrameFields kWithCrc{.protection = 0};

INSTANTIATE_TEST_SUITE_P(
    PlanTaggedCopy, SongOfAKind,
    testing::Values(
        Song{"NoTag", Mp3Bytes().Frames(30)},
        Song{"TagInFront", Mp3Bytes().Id3v2(ATag().Syncsafe()).Frames(30)},
        Song{"LargeTag",
             Mp3Bytes()
                 .Id3v2(Id3v2Bytes().Frame("APIC", std::string(300000, '\xFF')).Syncsafe())
                 .Frames(30)},
        Song{"GarbageBehindTheTag", Mp3Bytes().Id3v2(ATag().Syncsafe()).Garbage(999).Frames(30)},
        Song{"TwoTags", Mp3Bytes().Id3v2(ATag().Syncsafe()).Id3v2(ATag().Syncsafe()).Frames(30)},
        Song{"FooterBehindTheAudio", Mp3Bytes().Frames(30).Footer(Id3v2Bytes(4, 0x10).Syncsafe())},
        Song{"Version1", Mp3Bytes().Frames(30).Id3v1("Old", 3)},
        Song{"AllTags", Mp3Bytes().Id3v2(ATag().Syncsafe()).Frames(30).Id3v1("Old", 3)},
        Song{"OtherAudioThanTheSearchEndsAt", Mp3Bytes().Frames(30, kWithCrc)},
        Song{"GarbageInFront", Mp3Bytes().Garbage(5000).Frames(30)},
        Song{"NoFrame", Mp3Bytes().Garbage(5000)}, Song{"Nothing", Bytes()}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(PlanTaggedCopy, LeavesATagThatStaysToTheTwoSteps) {
  TemporaryFolder folder;
  // The search for the tag ends at none of these.
  for (const FrameFields& fields : {kWithCrc, kMpeg2Layer3, FrameFields{.layer = 2}}) {
    PutSong(Mp3Bytes().Frames(3, fields).Id3v2(ATag()).Frames(3));
    EXPECT_EQ(PlanTaggedCopy(kSource, kCopy, kTitle, kWorkout), std::nullopt);
  }
  PutSong(Mp3Bytes().Id3v2(ATag().Syncsafe()));
  EXPECT_EQ(PlanTaggedCopy(kSource, kCopy, kTitle, kWorkout), std::nullopt);
}

TEST(PlanTaggedCopy, LeavesWhatCannotBeReadToTheTwoSteps) {
  TemporaryFolder folder;
  EXPECT_EQ(PlanTaggedCopy("missing.mp3", kCopy, kTitle, kWorkout), std::nullopt);
  // Its average bit rate is 0.
  PutSong(Mp3Bytes().Frame().Xing(1, 1000000000).Frames(9));
  EXPECT_EQ(PlanTaggedCopy(kSource, kCopy, kTitle, kWorkout), std::nullopt);
}

TEST(PlanTaggedCopy, ComesToTheSameForSongsPutTogetherAtRandom) {
  TemporaryFolder folder;
  std::mt19937 random(5);
  int planned = 0;
  for (int round = 0; round < 1500; ++round) {
    Mp3Bytes song;
    for (int part = static_cast<int>(random() % 6); part > 0; --part) {
      switch (random() % 9) {
        case 0:
          song.Id3v2(ATag().Syncsafe());
          break;
        case 1:
          song.Id3v2(ATag());
          break;
        case 2:
          song.Frames(random() % 4);
          break;
        case 3:
          song.Frames(random() % 4, kWithCrc);
          break;
        case 4:
          song.Garbage(random() % 5000);
          break;
        case 5:
          song.Footer(ATag().Syncsafe());
          break;
        case 6:
          song.Id3v1("Old", 1);
          break;
        case 7:
          song.Raw("ID3");
          break;
        default:
          song.Zeros(random() % 20);
      }
    }
    PutSong(song);
    const auto inOnePass = InOnePass();
    if (!inOnePass) continue;
    ++planned;
    ASSERT_EQ(*inOnePass, InTwoSteps()) << "in round " << round;
  }
  EXPECT_GT(planned, 300);
}

}  // namespace
}  // namespace repvolta
