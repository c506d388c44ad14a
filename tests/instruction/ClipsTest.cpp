#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "instruction/Clips.h"

#include "fakes/RecordingRun.h"
#include "support/ClipBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A sound to which clips are appended; the last of its bytes is written over.
class AppendedClip : public testing::Test {
 protected:
  AppendedClip() { PutFile("temp.wav", ClipBytes(Bytes(10, 't'))); }

  TemporaryFolder folder;
  RecordingRun run;
};

TEST_F(AppendedClip, ComesFromTheFolderOfClips) {
  PutFile("voice/300.wav", ClipBytes(Bytes(20, '3')));
  AppendClip("temp.wav", "300", run);
  EXPECT_EQ(GetFile("temp.wav").size(), 46U + 10 + 20);
  EXPECT_EQ(GetFile("temp.wav").back(), '3');
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(AppendedClip, MayHaveAnyCaseInItsName) {
  PutFile("voice/Reps.WAV", ClipBytes(Bytes(20, 'r')));
  AppendClip("temp.wav", "reps", run);
  EXPECT_EQ(GetFile("temp.wav").back(), 'r');
}

TEST_F(AppendedClip, IsToldWhenItIsMissing) {
  AppendClip("temp.wav", "reps", run);
  EXPECT_THAT(run.log, ElementsAre("ERROR: voice/reps.wav NOT FOUND."));
  EXPECT_EQ(GetFile("temp.wav"), ClipBytes(Bytes(10, 't')));
}

}  // namespace
}  // namespace repvolta
