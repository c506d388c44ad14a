#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mp3/Id3v2Frames.h"

#include "support/Mp3Bytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

TEST(Id3v2Frames, TellFramesOfOneIdentifierApartByTheirOrdinal) {
  Id3v2Frames frames;
  frames.Add("COMM", "first");
  frames.Add("TIT2", "Squats");
  frames.Add("COMM", "second");
  EXPECT_EQ(frames.Count("COMM"), 2U);
  EXPECT_EQ(frames.Text("COMM", 1), "first");
  EXPECT_EQ(frames.Text("COMM", 2), "second");
  EXPECT_EQ(frames.LastText("COMM"), "second");
}

TEST(Id3v2Frames, HaveNoTextWhereThereIsNone) {
  Id3v2Frames frames;
  frames.Add("COMM", "first");
  EXPECT_EQ(frames.Text("COMM", 0), "");
  EXPECT_EQ(frames.Text("COMM", 2), "");
  EXPECT_EQ(frames.LastText("TIT2"), "");
  EXPECT_EQ(frames.Count("TIT2"), 0U);
}

TEST(Id3v2Frames, KeepThePlaceOfARemovedIdentifier) {
  Id3v2Frames frames;
  frames.Add("TIT2", "old");
  frames.Add("TALB", "album");
  frames.RemoveAll("TIT2");
  EXPECT_EQ(frames.Count("TIT2"), 0U);
  frames.Add("TIT2", "new");
  EXPECT_THAT(frames.Identifiers(), ElementsAre("TIT2", "TALB"));
}

TEST(Id3v2Frames, AreBuiltInVersion3IdentifierByIdentifier) {
  Id3v2Frames frames;
  frames.Add("COMM", "a");
  frames.Add("TIT2", "\xC3\xA4");  // one byte in the tag
  frames.Add("COMM", "b");
  Bytes expected = Id3v2Bytes().Text("COMM", "a").Text("COMM", "b").Text("TIT2", "\xE4").Build();
  expected.erase(expected.begin(), expected.begin() + 10);  // the tag's header
  EXPECT_EQ(frames.Build(), expected);
}

TEST(Id3v2Frames, AreBuiltWithoutIdentifiersThatHoldTheMarker) {
  Id3v2Frames frames;
  frames.Add("XID3", "a");
  EXPECT_EQ(frames.Build(), Bytes());
}

TEST(Id3v2Frames, PadAnIdentifierOfVersion2WithAZero) {
  Id3v2Frames frames;
  frames.Add("XYZ", "a");
  EXPECT_EQ(frames.Build(), (Bytes{'X', 'Y', 'Z', 0, 0, 0, 0, 2, 0, 0, 0, 'a'}));
}

}  // namespace
}  // namespace repvolta
