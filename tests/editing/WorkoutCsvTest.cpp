#include <charconv>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

#include "app/UpdateDays.h"
#include "base/Days.h"
#include "editing/WorkoutCsv.h"

#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kNoSongs = ",,,,,,,,,,,,";

/// The workout "Monday" with one exercise, "Squat".
class WorkoutCsv : public testing::Test {
 protected:
  WorkoutCsv() {
    state_.WorkoutFileName = "Monday.RPV";
    state_.NumberOfExercises = 1;
    Squat().ExerciseName = "Squat";
    for (double& date : Squat().NextUpdate1) date = today_;
    for (double& date : Squat().NextUpdate2) date = today_ - 20;
  }

  ExerciseRecord& Squat() { return state_.Workout[0]; }
  std::string Lines() const { return CsvLines(state_, today_); }

  void AddSet(float weight, float reps) {
    Squat().SetValue1[Squat().NumberOfSets] = weight;
    Squat().SetValue2[Squat().NumberOfSets] = reps;
    ++Squat().NumberOfSets;
  }

  ProgramState state_;
  const double today_ = DateOf(2026, 11, 21);
};

TEST_F(WorkoutCsv, HasALineForEachSet) {
  AddSet(52.5F, 10);
  AddSet(55, 8);
  EXPECT_EQ(Lines(), std::string("Monday,1,Squat,Weight/Reps,metric,0,0,no,1,"
                                 "Weight,52.5,0,0,2026-11-21,,,Reps,10,0,0,2026-11-01,,") +
                         kNoSongs +
                         "\r\nMonday,1,Squat,Weight/Reps,metric,0,0,no,2,"
                         "Weight,55,0,0,2026-11-21,,,Reps,8,0,0,2026-11-01,," +
                         kNoSongs + "\r\n");
}

TEST_F(WorkoutCsv, SaysWhenAValueGrowsNext) {
  AddSet(50, 10);
  Squat().SetIncrement1[0] = 2.5F;
  Squat().SetFrequency1[0] = 6;
  EXPECT_THAT(Lines(), HasSubstr("Weight,50,2.5,6,2026-11-21,2026-11-28,52.5,"));
  UpdateDays mondays;
  mondays.set(0);
  PutUpdateDays(state_.Options, mondays);
  EXPECT_THAT(Lines(), HasSubstr("Weight,50,2.5,6,2026-11-21,2026-11-30,52.5,"));
}

TEST_F(WorkoutCsv, NamesNoDayForAValueThatStays) {
  AddSet(50, 10);
  Squat().SetFrequency1[0] = 6;
  EXPECT_THAT(Lines(), HasSubstr("Weight,50,0,6,2026-11-21,,,"));
}

TEST_F(WorkoutCsv, HasWhatIsSetForTheExerciseInEachLine) {
  AddSet(5, 10);
  AddSet(6, 11);
  Squat().SetType = kUserDefined;
  Squat().UserField1Name = "Lanes";
  Squat().UserField2Name = "Breath";
  Squat().Units = kTrue;
  Squat().TargetExerciseTime = 320;
  Squat().TotalMusicTime = 375;
  Squat().RandomMusic = kTrue;
  Squat().NumberOfMusicFiles = 2;
  Squat().MusicFile[0] = "/music/a.mp3";
  Squat().MusicFile[1] = "/music/b, c.mp3";
  const std::vector<std::string> lines = repvolta::Lines(Lines());
  ASSERT_EQ(lines.size(), 2U);
  for (const std::string& line : lines) {
    EXPECT_THAT(line, StartsWith("Monday,1,Squat,User Defined,imperial,320,375,yes,"));
    EXPECT_THAT(line, HasSubstr(",Lanes,"));
    EXPECT_THAT(line, HasSubstr(",Breath,"));
    EXPECT_THAT(line, EndsWith(",/music/a.mp3,\"/music/b, c.mp3\",,,,,,,,,,\r"));
  }
}

TEST_F(WorkoutCsv, HasALineForAnExerciseWithoutSets) {
  Squat().NumberOfMusicFiles = 1;
  Squat().MusicFile[0] = "/music/a.mp3";
  EXPECT_EQ(Lines(),
            "Monday,1,Squat,Weight/Reps,metric,0,0,no,,,,,,,,,,,,,,,,/music/a.mp3,,,,,,,,,,,\r\n");
}

TEST_F(WorkoutCsv, HasALineForAWorkoutWithoutExercises) {
  state_.NumberOfExercises = 0;
  EXPECT_THAT(Lines(), StartsWith("Monday,,,"));
  EXPECT_EQ(CsvLineCount(state_), 1);
}

TEST_F(WorkoutCsv, HasAsManyCellsInEachLineAsInTheFirst) {
  AddSet(50, 10);
  const auto commas = [](const std::string& text) { return std::ranges::count(text, ','); };
  EXPECT_EQ(commas(Lines()), commas(CsvHeader()));
  Squat().NumberOfSets = 0;
  EXPECT_EQ(commas(Lines()), commas(CsvHeader()));
  state_.NumberOfExercises = 0;
  EXPECT_EQ(commas(Lines()), commas(CsvHeader()));
}

TEST_F(WorkoutCsv, BeginsWithTheMarkOfUtf8) {
  EXPECT_THAT(CsvHeader(), StartsWith("\xEF\xBB\xBFworkout,exercise,name,"));
}

TEST_F(WorkoutCsv, QuotesWhatWouldPartALine) {
  Squat().ExerciseName = "Press, \"military\"";
  EXPECT_THAT(Lines(), StartsWith(R"(Monday,1,"Press, ""military""",)"));
  Squat().ExerciseName = "two\r\nlines";
  EXPECT_THAT(Lines(), StartsWith("Monday,1,\"two\r\nlines\","));
}

TEST_F(WorkoutCsv, MakesNoFormulaOfAText) {
  for (const char* name : {"=1+2", "+1", "-1", "@SUM(A1)", "\t=1", "＝1+2", "'=1"}) {
    Squat().ExerciseName = name;
    EXPECT_THAT(Lines(), StartsWith("Monday,1,'" + std::string(name) + ",")) << name;
  }
  for (const char* name : {"1+2", "'80s", "A=B", "'"}) {
    Squat().ExerciseName = name;
    EXPECT_THAT(Lines(), StartsWith("Monday,1," + std::string(name) + ",")) << name;
  }
}

TEST_F(WorkoutCsv, LeavesNegativeNumbersNumbers) {
  AddSet(-2.5F, 1);
  EXPECT_THAT(Lines(), HasSubstr("Weight,-2.5,"));
}

TEST_F(WorkoutCsv, IsUtf8WhateverTheNamesHold) {
  state_.WorkoutFileName = "Sm\xF8r.RPV";
  EXPECT_THAT(Lines(), StartsWith("Sm\xC3\xB8r,1,"));
}

TEST_F(WorkoutCsv, LeavesOutADateThatNoCalendarHas) {
  AddSet(50, 10);
  Squat().NextUpdate1[0] = 1e30;
  EXPECT_THAT(Lines(), HasSubstr("Weight,50,0,0,,,,Reps"));
}

TEST_F(WorkoutCsv, LeavesOutSetsThatHaveNoSlot) {
  Squat().NumberOfSets = 99;
  EXPECT_EQ(CsvLineCount(state_), 17);
  EXPECT_EQ(repvolta::Lines(Lines()).size(), 17U);
}

/// Another program's reader; a line for each cell in hexadecimal, a blank one after each row.
constexpr const char* kReader = R"(
import csv
with open("table.csv", encoding="utf-8-sig", newline="") as table:
    for row in csv.DictReader(table, strict=True):
        assert None not in row and None not in row.values()
        for name, cell in row.items():
            print(name.encode().hex(), cell.encode().hex())
        print()
)";

std::string FromHex(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    int byte = 0;
    std::from_chars(&text[i], &text[i + 2], byte, 16);
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

using Row = std::map<std::string, std::string>;

std::vector<Row> ReadByPython(const std::string& table) {
  const TemporaryFolder folder;
  PutFile("table.csv", table);
  const ProgramRun run = RunProgram("/usr/bin/python3", {"-c", kReader});
  EXPECT_EQ(run.errors, "");
  std::vector<Row> rows(1);
  for (const std::string& line : Lines(run.output)) {
    if (line.empty()) {
      rows.emplace_back();
    } else {
      const std::size_t blank = line.find(' ');
      rows.back()[FromHex(line.substr(0, blank))] = FromHex(line.substr(blank + 1));
    }
  }
  rows.pop_back();
  return rows;
}

/// A person's own apostrophe and that of a text which looks like a formula, as the page says.
std::string TextOf(const std::string& cell) {
  const std::size_t begin = cell.find_first_not_of('\'');
  const bool isGuarded = cell.starts_with('\'') && begin != std::string::npos &&
                         std::string("=+-@\t\r\n").find(cell[begin]) != std::string::npos;
  return isGuarded ? cell.substr(1) : cell;
}

float NumberOf(const std::string& cell) {
  float number = -12345;
  std::from_chars(cell.data(), cell.data() + cell.size(), number);
  return number;
}

/// Workouts with every kind of text and number.
class RandomWorkouts {
 public:
  ProgramState Next() {
    ProgramState state;
    state.WorkoutFileName = Text() + ".RPV";
    state.NumberOfExercises = static_cast<std::int16_t>(1 + Below(6));
    for (int i = 0; i < state.NumberOfExercises; ++i) Fill(state.Workout[i]);
    return state;
  }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(numbers_); }

  std::string Text() {
    static const std::array<const char*, 16> kParts = {"a",          ",", "\"", "\r\n", "\n", "=",
                                                       "+",          "-", "@",  "'",    " b", "ø",
                                                       "スクワット", ";", "1",  "\t"};
    std::string text;
    for (int i = Below(6); i >= 0; --i) {
      text += kParts[static_cast<std::size_t>(Below(static_cast<int>(kParts.size())))];
    }
    return text + "x";
  }

  /// Seven digits hold it.
  float Number() { return static_cast<float>(Below(400000) - 200000) / 4; }

  void Fill(ExerciseRecord& exercise) {
    exercise.ExerciseName = Text();
    exercise.SetType = static_cast<std::int16_t>(Below(4));
    exercise.UserField1Name = CutToField(Text(), 25);
    exercise.UserField2Name = CutToField(Text(), 25);
    exercise.Units = Below(2) == 0 ? kFalse : kTrue;
    exercise.RandomMusic = Below(2) == 0 ? kFalse : kTrue;
    exercise.TargetExerciseTime = static_cast<std::int16_t>(Below(60000) - 30000);
    exercise.TotalMusicTime = static_cast<std::int16_t>(Below(30000));
    exercise.NumberOfMusicFiles = static_cast<std::int16_t>(Below(13));
    for (int i = 0; i < exercise.NumberOfMusicFiles; ++i) exercise.MusicFile[i] = "/" + Text();
    exercise.NumberOfSets = static_cast<std::int16_t>(Below(18));
    for (int i = 0; i < exercise.NumberOfSets; ++i) {
      exercise.SetValue1[i] = Number();
      exercise.SetValue2[i] = Number();
      exercise.SetIncrement1[i] = Number();
      exercise.SetIncrement2[i] = Number();
      exercise.SetFrequency1[i] = static_cast<float>(Below(3));
      exercise.SetFrequency2[i] = static_cast<float>(Below(3));
      exercise.NextUpdate1[i] = Below(90000);
      exercise.NextUpdate2[i] = Below(90000);
    }
  }

  std::mt19937 numbers_{20261121};  // the same workouts in every run
};

void ExpectExercise(Row& row, const ProgramState& state, int index) {
  const ExerciseRecord& exercise = state.Workout[index];
  EXPECT_EQ(TextOf(row["workout"]) + ".RPV", state.WorkoutFileName);
  EXPECT_EQ(row["exercise"], std::to_string(index + 1));
  EXPECT_EQ(TextOf(row["name"]), exercise.ExerciseName.Trimmed());
  static const std::array kTypes = {"Weight/Reps", "Level/Time", "Distance/Speed", "User Defined"};
  EXPECT_EQ(row["set type"], kTypes.at(static_cast<std::size_t>(exercise.SetType)));
  EXPECT_EQ(row["units"], exercise.Units == kTrue ? "imperial" : "metric");
  EXPECT_EQ(row["random music"], exercise.RandomMusic == kTrue ? "yes" : "no");
  EXPECT_EQ(row["target seconds"], std::to_string(exercise.TargetExerciseTime));
  EXPECT_EQ(row["music seconds"], std::to_string(exercise.TotalMusicTime));
  for (int i = 0; i < 12; ++i) {
    const bool isSong = i < exercise.NumberOfMusicFiles;
    EXPECT_EQ(TextOf(row["song " + std::to_string(i + 1)]),
              isSong ? exercise.MusicFile[i].Trimmed() : "");
  }
}

void ExpectSet(Row& row, const ExerciseRecord& exercise, int set) {
  EXPECT_EQ(row["set"], std::to_string(set + 1));
  EXPECT_EQ(NumberOf(row["value 1"]), exercise.SetValue1[set]);
  EXPECT_EQ(NumberOf(row["value 2"]), exercise.SetValue2[set]);
  EXPECT_EQ(NumberOf(row["increment 1"]), exercise.SetIncrement1[set]);
  EXPECT_EQ(NumberOf(row["increment 2"]), exercise.SetIncrement2[set]);
  EXPECT_EQ(NumberOf(row["frequency 1"]), exercise.SetFrequency1[set]);
  EXPECT_EQ(NumberOf(row["frequency 2"]), exercise.SetFrequency2[set]);
  EXPECT_EQ(row["counted from 1"], IsoDate(exercise.NextUpdate1[set]));
  EXPECT_EQ(row["counted from 2"], IsoDate(exercise.NextUpdate2[set]));
  if (exercise.SetType != kUserDefined) return;
  EXPECT_EQ(TextOf(row["field 1"]), exercise.UserField1Name.Text());
  EXPECT_EQ(TextOf(row["field 2"]), exercise.UserField2Name.Text());
}

/// Takes the rows of the workout from `rows`.
void ExpectWorkout(std::vector<Row>::iterator& row, const ProgramState& state) {
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const ExerciseRecord& exercise = state.Workout[i];
    for (int set = 0; set < std::max<int>(1, exercise.NumberOfSets); ++set, ++row) {
      ExpectExercise(*row, state, i);
      if (exercise.NumberOfSets > 0) ExpectSet(*row, exercise, set);
    }
  }
}

TEST(WorkoutCsvJudged, HasEveryValueOfRandomWorkouts) {
  constexpr std::size_t kWorkouts = 15;
  RandomWorkouts workouts;
  std::vector<ProgramState> written;
  written.reserve(kWorkouts);
  std::string table = CsvHeader();
  int lines = 0;
  for (std::size_t i = 0; i < kWorkouts; ++i) {
    written.push_back(workouts.Next());
    table += CsvLines(written.back(), DateOf(2026, 11, 21));
    lines += CsvLineCount(written.back());
  }
  std::vector<Row> rows = ReadByPython(table);
  ASSERT_EQ(rows.size(), static_cast<std::size_t>(lines));
  auto row = rows.begin();
  for (const ProgramState& state : written) ExpectWorkout(row, state);
}

}  // namespace
}  // namespace repvolta
