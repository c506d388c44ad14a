#include <gmock/gmock.h>

#include "editing/MissingFiles.h"

#include "support/ProgramFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(MissingSongs, AreCountedInALine) {
  std::vector<MusicRow> rows = {{"/a.mp3", Presence::kThere}};
  EXPECT_EQ(GoneSongsText(rows), "");
  rows.push_back({"/b.mp3", Presence::kGone});
  EXPECT_EQ(GoneSongsText(rows), "1 song is gone");
  rows.push_back({"/c.mp3", Presence::kGone});
  EXPECT_EQ(GoneSongsText(rows), "2 songs are gone");
}

TEST(MissingSongs, AreNotCountedBeforeTheirDiskHasAnswered) {
  EXPECT_EQ(GoneSongsText({{"/a.mp3", Presence::kUnknown}}), "");
}

TEST(MissingSongs, HaveARemarkEach) {
  EXPECT_EQ(RemarkOf({"/a.mp3", Presence::kThere}), "");
  EXPECT_EQ(RemarkOf({"/a.mp3", Presence::kGone}), "This song is gone: an update leaves it out.");
  EXPECT_EQ(RemarkOf({"/a.mp3", Presence::kUnknown}), "The disk of this song does not answer.");
}

class MissingNames : public ProgramFixture {};

TEST_F(MissingNames, AreThoseWithoutARecording) {
  PutFile("voice/exercise/Squat.WAV", "");
  AddExercise("Squat");
  AddExercise("Row");
  EXPECT_THAT(NameRemarks(state),
              ElementsAre("", "This name has no recording: the computer speaks it."));
}

TEST_F(MissingNames, AreLookedForAsTheInstructionDoes) {
  PutFile("voice/exercise/squat.wav", "");
  PutFile("voice/exercise/Clean_Jerk.WAV", "");
  AddExercise("Squat ");
  AddExercise("Clean/Jerk");
  EXPECT_THAT(NameRemarks(state), ElementsAre("", ""));
}

TEST_F(MissingNames, GoWithTheRowsOfTheList) {
  PutFile("voice/exercise/Squat.WAV", "");
  AddExercise(" ");
  AddExercise("Row");
  AddExercise("Squat");
  EXPECT_THAT(NameRemarks(state), ElementsAre(HasSubstr("no recording"), IsEmpty()));
}

}  // namespace
}  // namespace repvolta
