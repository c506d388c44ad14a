#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/RecordingsView.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Order = RecordingsView::Order;

ClipRow RowOf(const std::string& file, const std::string& said, Clip::Kind kind) {
  return {.file = file,
          .clip = {kind, said},
          .said = said,
          .isRead = true,
          .seconds = 0.5,
          .loudness = -18,
          .origin = {.owner = ClipOwner::kProgram},
          .fault = {}};
}

/// Two words and four names, of each kind of owner one.
std::vector<ClipRow> Rows() {
  std::vector<ClipRow> rows = {RowOf("300.wav", "three hundred", Clip::Kind::kWord),
                               RowOf("kph.wav", "kilometers per hour", Clip::Kind::kWord),
                               RowOf("exercise/Lunge.WAV", "Lunge", Clip::Kind::kName),
                               RowOf("exercise/OHP.WAV", "OHP", Clip::Kind::kName),
                               RowOf("exercise/Row.WAV", "Row", Clip::Kind::kName),
                               RowOf("exercise/squat.WAV", "squat", Clip::Kind::kName)};
  rows[0].clip.text = "300";
  rows[1].clip.text = "kph";
  rows[1].origin.owner = ClipOwner::kOwn;
  rows[1].seconds = 0.25;
  rows[1].loudness = -25.04;
  rows[1].fault = "is quieter than the other clips by 7 dB";
  rows[2].origin = {.owner = ClipOwner::kUnknown};
  rows[2].seconds = 1.5;
  rows[2].loudness = -9.96;
  rows[3].origin = {
      .owner = ClipOwner::kComputer, .day = "2026-11-22", .text = "overhead press", .voice = "slt"};
  rows[4] = {.file = "exercise/Row.WAV",
             .clip = {Clip::Kind::kName, "Row"},
             .said = "Row",
             .isMissing = true,
             .isRead = true,
             .loudness = {},
             .origin = {},
             .fault = "is missing"};
  return rows;
}

/// What is said in the rows that are shown.
std::vector<std::string> Shown(const RecordingsView& view) {
  const std::vector<ClipRow> rows = Rows();
  std::vector<std::string> said;
  for (const std::size_t i : ShownRecordings(rows, view)) said.push_back(rows[i].said);
  return said;
}

std::vector<std::string> Sorted(RecordingColumn column, Order order = Order::kUp) {
  return Shown({.order = order, .column = column});
}

TEST(RecordingsView, SaysInAllColumnsWhatIsKnown) {
  EXPECT_THAT(CellsOf(Rows()[0]),
              ElementsAre("three hundred", "0.50 s", "program's voice", "-18.0", "understood", ""));
  EXPECT_THAT(CellsOf(Rows()[1]),
              ElementsAre("kilometers per hour", "0.25 s", "your own", "-25.0", "not checked",
                          "is quieter than the other clips by 7 dB"));
  EXPECT_THAT(CellsOf(Rows()[2]),
              ElementsAre("Lunge", "1.50 s", "not known", "-10.0", "not checked", ""));
}

TEST(RecordingsView, SaysWhatTheComputerWasGivenToSpeak) {
  EXPECT_THAT(CellsOf(Rows()[3]),
              ElementsAre("OHP (as \"overhead press\")", "0.50 s", "computer voice, 2026-11-22",
                          "-18.0", "not checked", ""));
  ClipRow plain = Rows()[3];
  plain.origin.text = "ohp";
  plain.origin.day = "";
  EXPECT_EQ(CellsOf(plain)[kRecordingSaid], "OHP");
  EXPECT_EQ(CellsOf(plain)[kRecordingOwner], "computer voice");
}

TEST(RecordingsView, SaysNothingOfWhatIsMissing) {
  EXPECT_THAT(CellsOf(Rows()[4]), ElementsAre("Row", "", "", "", "", "is missing"));
}

TEST(RecordingsView, SaysNothingOfWhatIsNotReadYet) {
  ClipRow row = Rows()[0];
  row.isRead = false;
  EXPECT_THAT(CellsOf(row), ElementsAre("three hundred", "", "", "", "", ""));
}

TEST(RecordingsView, SaysNothingWhereNothingCouldBeMeasured) {
  ClipRow row = Rows()[0];
  row.seconds = 0;
  row.loudness = {};
  EXPECT_EQ(CellsOf(row)[kRecordingLength], "");
  EXPECT_EQ(CellsOf(row)[kRecordingLoudness], "");
}

TEST(RecordingsView, ShowsFirstWhatIsMissing) {
  EXPECT_THAT(Shown({}),
              ElementsAre("Row", "three hundred", "kilometers per hour", "Lunge", "OHP", "squat"));
}

TEST(RecordingsView, ShowsWhatIsChosen) {
  EXPECT_THAT(Shown({.choice = RecordingsChoice::kMissing}), ElementsAre("Row"));
  EXPECT_THAT(Shown({.choice = RecordingsChoice::kOwn}), ElementsAre("kilometers per hour"));
  EXPECT_THAT(Shown({.choice = RecordingsChoice::kComputer}), ElementsAre("OHP"));
  EXPECT_THAT(Shown({.choice = RecordingsChoice::kProgram}), ElementsAre("three hundred", "squat"));
  EXPECT_THAT(Shown({.choice = RecordingsChoice::kWithFaults}), ElementsAre("kilometers per hour"));
}

TEST(RecordingsView, FindsATextWithoutRegardToCase) {
  EXPECT_THAT(Shown({.filter = "U"}),
              ElementsAre("three hundred", "kilometers per hour", "Lunge", "squat"));
  EXPECT_THAT(Shown({.filter = " hundred "}), ElementsAre("three hundred"));
  EXPECT_THAT(Shown({.filter = "300"}), ElementsAre("three hundred"));
  EXPECT_THAT(Shown({.filter = "PRESS"}), ElementsAre("OHP"));
  EXPECT_THAT(Shown({.filter = "exercise"}), IsEmpty());
  EXPECT_THAT(Shown({.choice = RecordingsChoice::kOwn, .filter = "lunge"}), IsEmpty());
}

TEST(RecordingsView, SortsTexts) {
  EXPECT_THAT(Sorted(kRecordingSaid),
              ElementsAre("kilometers per hour", "Lunge", "OHP", "Row", "squat", "three hundred"));
  EXPECT_THAT(Sorted(kRecordingSaid, Order::kDown),
              ElementsAre("three hundred", "squat", "Row", "OHP", "Lunge", "kilometers per hour"));
  EXPECT_THAT(Sorted(kRecordingFault),
              ElementsAre("Row", "kilometers per hour", "three hundred", "Lunge", "OHP", "squat"));
}

TEST(RecordingsView, SortsNumbersByTheirSize) {
  EXPECT_THAT(Sorted(kRecordingLength),
              ElementsAre("kilometers per hour", "three hundred", "OHP", "squat", "Lunge", "Row"));
  EXPECT_THAT(Sorted(kRecordingLoudness),
              ElementsAre("kilometers per hour", "three hundred", "OHP", "squat", "Lunge", "Row"));
  EXPECT_THAT(Sorted(kRecordingLoudness, Order::kDown),
              ElementsAre("Lunge", "three hundred", "OHP", "squat", "kilometers per hour", "Row"));
}

TEST(RecordingsView, SumsUp) {
  EXPECT_EQ(RecordingsSummary(Rows()), "2 words and 4 names: 1 missing, 1 with a fault.");
  EXPECT_EQ(RecordingsSummary({Rows()[0]}), "1 word and 0 names: none missing, none with a fault.");
  EXPECT_EQ(RecordingsSummary({}), "0 words and 0 names: none missing, none with a fault.");
}

TEST(RecordingsView, CanSayWhatIsThere) {
  std::vector<std::string> words;
  for (const SayableClip& clip : SayableClips(Rows())) words.push_back(clip.words);
  EXPECT_THAT(words, ElementsAre("three hundred", "300", "kilometers per hour", "kph", "Lunge",
                                 "OHP", "squat"));
}

}  // namespace
}  // namespace repvolta
