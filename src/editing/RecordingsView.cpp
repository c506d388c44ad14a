#include "editing/RecordingsView.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdio>
#include <optional>

#include "base/FileNames.h"
#include "base/Text.h"

namespace repvolta {
namespace {

/// The same in every locale, with a point.
std::string Rounded(double value, int places) {
  const double scale = std::pow(10, places);
  const auto steps = static_cast<long long>(std::llround(std::abs(value) * scale));
  const auto whole = steps / static_cast<long long>(scale);
  std::string fraction = std::to_string(steps % static_cast<long long>(scale));
  fraction.insert(0, static_cast<std::size_t>(places) - fraction.size(), '0');
  return (value < 0 && steps != 0 ? "-" : "") + std::to_string(whole) + "." + fraction;
}

std::string SaidText(const ClipRow& row) {
  const std::string& spoken = row.origin.text;
  const bool isOther = row.origin.owner == ClipOwner::kComputer && !spoken.empty() &&
                       FoldCase(spoken) != FoldCase(row.said);
  return isOther ? row.said + " (as \"" + spoken + "\")" : row.said;
}

std::string OwnerText(const ClipOrigin& origin) {
  switch (origin.owner) {
    case ClipOwner::kProgram:
      return "program's voice";
    case ClipOwner::kComputer:
      return origin.day.empty() ? "computer voice" : "computer voice, " + origin.day;
    case ClipOwner::kOwn:
      return "your own";
    case ClipOwner::kUnknown:
      break;
  }
  return "not known";
}

bool IsFaulty(const ClipRow& row) { return !row.isMissing && !row.fault.empty(); }

bool IsOwnedBy(ClipOwner owner, const ClipRow& row) {
  return row.isRead && !row.isMissing && row.origin.owner == owner;
}

bool IsChosen(const ClipRow& row, RecordingsChoice choice) {
  switch (choice) {
    case RecordingsChoice::kMissing:
      return row.isMissing;
    case RecordingsChoice::kOwn:
      return IsOwnedBy(ClipOwner::kOwn, row);
    case RecordingsChoice::kComputer:
      return IsOwnedBy(ClipOwner::kComputer, row);
    case RecordingsChoice::kProgram:
      return IsOwnedBy(ClipOwner::kProgram, row);
    case RecordingsChoice::kWithFaults:
      return IsFaulty(row);
    case RecordingsChoice::kAll:
      break;
  }
  return true;
}

/// What a row has in a column: a number or a text; neither where the cell is empty.
struct SortKey {
  std::optional<double> number = {};
  std::u32string text = {};

  bool IsEmpty() const { return !number && text.empty(); }
};

SortKey KeyOf(const ClipRow& row, RecordingColumn column) {
  if (column == kRecordingLength && row.seconds > 0) return {.number = row.seconds};
  if (column == kRecordingLoudness) return {.number = row.loudness};
  return {.text = FoldCase(CellsOf(row)[column])};
}

std::partial_ordering Compared(const SortKey& a, const SortKey& b) {
  if (a.number && b.number) return *a.number <=> *b.number;
  return a.text <=> b.text;
}

void Sort(std::vector<std::size_t>& shown, const std::vector<ClipRow>& rows,
          const RecordingsView& view) {
  const auto isBefore = [&](std::size_t a, std::size_t b) {
    const SortKey first = KeyOf(rows[a], view.column);
    const SortKey second = KeyOf(rows[b], view.column);
    if (first.IsEmpty() || second.IsEmpty()) return !first.IsEmpty() && second.IsEmpty();
    const std::partial_ordering order = Compared(first, second);
    return view.order == RecordingsView::Order::kUp ? order < 0 : order > 0;
  };
  std::ranges::stable_sort(shown, isBefore);
}

}  // namespace

RecordingCells RecordingHeadings() {
  return {"What is said", "Length", "Whose", "LUFS", "Understood", "Fault"};
}

RecordingCells CellsOf(const ClipRow& row) {
  RecordingCells cells;
  cells[kRecordingSaid] = SaidText(row);
  cells[kRecordingFault] = row.fault;
  if (row.isMissing || !row.isRead) return cells;
  if (row.seconds > 0) cells[kRecordingLength] = Rounded(row.seconds, 2) + " s";
  cells[kRecordingOwner] = OwnerText(row.origin);
  if (row.loudness) cells[kRecordingLoudness] = Rounded(*row.loudness, 1);
  cells[kRecordingUnderstood] = IsUnderstood(row) ? "understood" : "not checked";
  return cells;
}

std::vector<std::size_t> ShownRecordings(const std::vector<ClipRow>& rows,
                                         const RecordingsView& view) {
  const std::u32string part = FoldCase(TrimBlanks(view.filter));
  const auto has = [&part](const std::string& text) {
    return FoldCase(text).find(part) != std::u32string::npos;
  };
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const bool isFound = has(SaidText(rows[i])) || has(BaseName(rows[i].file));
    if (isFound && IsChosen(rows[i], view.choice)) shown.push_back(i);
  }
  if (view.order == RecordingsView::Order::kMissingFirst) {
    std::stable_partition(shown.begin(), shown.end(),
                          [&rows](std::size_t i) { return rows[i].isMissing; });
  } else {
    Sort(shown, rows, view);
  }
  return shown;
}

std::string RecordingsSummary(const std::vector<ClipRow>& rows) {
  const auto count = [&rows](auto is) {
    return static_cast<std::size_t>(std::ranges::count_if(rows, is));
  };
  const std::size_t words =
      count([](const ClipRow& row) { return row.clip.kind == Clip::Kind::kWord; });
  const std::size_t missing = count([](const ClipRow& row) { return row.isMissing; });
  const std::size_t faulty = count(IsFaulty);
  const std::string faults = faulty == 0 ? "none" : std::to_string(faulty);
  return Counted(words, "word") + " and " + Counted(rows.size() - words, "name") + ": " +
         (missing == 0 ? "none" : std::to_string(missing)) + " missing, " + faults +
         " with a fault.";
}

std::vector<SayableClip> SayableClips(const std::vector<ClipRow>& rows) {
  std::vector<SayableClip> sayable;
  for (const ClipRow& row : rows) {
    if (row.isMissing) continue;
    sayable.push_back({row.clip, row.said});
    if (row.clip.kind == Clip::Kind::kWord && row.clip.text != row.said) {
      sayable.push_back({row.clip, row.clip.text});
    }
  }
  return sayable;
}

}  // namespace repvolta
