#include "update/PlanText.h"

#include <QDate>
#include <cmath>

#include "base/Numbers.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::uint64_t kMegabyte = 1'000'000;
constexpr std::uint64_t kTenth = kMegabyte / 10;

/// "1 file", "2 files"
std::string Counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

/// Puts `text` at the right end of a column.
std::string AtRight(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

/// The lines, each without anything that could control a terminal.
class LinesOfPlan {
 public:
  void Add(std::size_t indent, std::string_view line) {
    text_ += std::string(indent, ' ') + ShownOnOneLine(line) + "\n";
  }
  void AddGap() { text_ += "\n"; }

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

std::string ProblemLine(PlannedProblem::Severity severity, const std::string& text) {
  return (severity == PlannedProblem::Severity::kError ? "ERROR: " : "WARNING: ") + text;
}

std::string GrowthLine(const SetGrowth& growth) {
  const std::string value =
      "Set " + std::to_string(growth.set + 1) + ", field " + std::to_string(growth.field);
  if (growth.failure)
    return value + " stays " + ListNumberText(growth.from) + ": " + *growth.failure;
  return value + " grows from " + ListNumberText(growth.from) + " to " + ListNumberText(growth.to);
}

std::string FileLine(const PlannedFile& file) {
  constexpr std::size_t kTimeWidth = 8;
  constexpr std::size_t kSizeWidth = 10;
  const std::string about = file.figures == PlannedFile::Figures::kEstimated ? "~" : "";
  std::string line = AtRight(about + PlayTimeText(file.seconds), kTimeWidth) +
                     AtRight(about + SizeText(file.bytes), kSizeWidth) + "  " + file.name;
  if (file.choice == PlannedFile::Choice::kExample) line += " (example)";
  return line;
}

void AddExercise(LinesOfPlan& lines, const PlannedExercise& exercise) {
  lines.AddGap();
  lines.Add(2, exercise.name);
  for (const SetGrowth& growth : exercise.growth) lines.Add(4, GrowthLine(growth));
  if (!exercise.sentence.empty()) lines.Add(4, "Says: " + exercise.sentence);
  for (const PlannedFile& file : exercise.files) lines.Add(4, FileLine(file));
}

std::size_t FilesOf(const UpdatePlan& plan) {
  std::size_t files = 0;
  for (const PlannedExercise& exercise : plan.exercises) files += exercise.files.size();
  return files;
}

bool HasExamples(const DryRun& run) {
  for (const UpdatePlan& plan : run.plans) {
    for (const PlannedExercise& exercise : plan.exercises) {
      for (const PlannedFile& file : exercise.files) {
        if (file.choice == PlannedFile::Choice::kExample) return true;
      }
    }
  }
  return false;
}

std::string TotalLine(std::size_t files, std::int64_t seconds, std::uint64_t bytes) {
  return Counted(files, "file") + ", " + PlayTimeText(seconds) + ", " + SizeText(bytes);
}

std::string RoomText(const std::optional<DiskRoom>& room) {
  return room ? "there is room for " + std::to_string(room->free / kMegabyte) + " MB"
              : "the room is not known";
}

std::string DayText(double day) {
  const std::string text = IsoDayText(day);
  return text.empty() ? "a day that no calendar has" : text;
}

void AddPlan(LinesOfPlan& lines, const UpdatePlan& plan) {
  lines.Add(0, plan.workout + " on " + DayText(plan.day));
  for (const PlannedProblem& problem : plan.problems) {
    lines.Add(2, ProblemLine(problem.severity, problem.text));
  }
  for (const PlannedExercise& exercise : plan.exercises) AddExercise(lines, exercise);
  lines.AddGap();
  lines.Add(2, TotalLine(FilesOf(plan), plan.seconds, plan.bytes) + "; " + RoomText(plan.room));
  if (!plan.folder.empty()) lines.Add(2, "Folder: " + plan.folder);
  if (!plan.playList.empty()) lines.Add(2, "Play list: " + plan.playList);
}

void AddTotals(LinesOfPlan& lines, const DryRun& run) {
  if (run.plans.size() > 1) {
    std::size_t files = 0;
    std::int64_t seconds = 0;
    std::uint64_t bytes = 0;
    for (const UpdatePlan& plan : run.plans) {
      files += FilesOf(plan);
      seconds += plan.seconds;
      bytes += plan.bytes;
    }
    lines.Add(0, "All workouts: " + TotalLine(files, seconds, bytes));
  }
  if (HasExamples(run)) lines.Add(0, "(example): random music; the update draws its own.");
}

}  // namespace

std::string PlayTimeText(std::int64_t seconds) {
  if (seconds < 0) return "--:--";
  const auto twoDigits = [](std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
  };
  return twoDigits(seconds / kMinute) + ":" + twoDigits(seconds % kMinute);
}

std::string SizeText(std::uint64_t bytes) {
  const std::uint64_t tenths = bytes / kTenth + (bytes % kTenth > 0 ? 1 : 0);
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

std::string IsoDayText(double day) {
  constexpr double kLimit = 1e7;  // days; more years than a calendar shows
  if (!(std::abs(day) < kLimit)) return {};
  return QDate(1899, 12, 30)
      .addDays(static_cast<qint64>(std::floor(day)))
      .toString(Qt::ISODate)
      .toStdString();
}

std::string PlanText(const DryRun& run) {
  LinesOfPlan lines;
  for (const DryRunProblem& problem : run.problems) {
    lines.Add(0, ProblemLine(problem.severity, problem.text));
  }
  if (!run.problems.empty()) lines.AddGap();
  for (const UpdatePlan& plan : run.plans) {
    AddPlan(lines, plan);
    lines.AddGap();
  }
  AddTotals(lines, run);
  return lines.Text();
}

}  // namespace repvolta
