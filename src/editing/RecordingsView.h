#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "editing/SpokenSentence.h"
#include "voices/ClipTable.h"

namespace repvolta {

/// The columns of the table of recordings.
enum RecordingColumn : std::size_t {
  kRecordingSaid,
  kRecordingLength,
  kRecordingOwner,
  kRecordingLoudness,
  kRecordingUnderstood,
  kRecordingFault,
  kRecordingColumns
};

using RecordingCells = std::array<std::string, kRecordingColumns>;

RecordingCells RecordingHeadings();

/// "three hundred", "0.62 s", "program's voice", "-18.2", "understood", "is quieter than ...".
RecordingCells CellsOf(const ClipRow& row);

enum class RecordingsChoice { kAll, kMissing, kOwn, kComputer, kProgram, kWithFaults };

/// What a person wants to see, and in which order.
struct RecordingsView {
  enum class Order { kMissingFirst, kUp, kDown };

  RecordingsChoice choice = RecordingsChoice::kAll;
  std::string filter = {};  // a part of what is said or of the file's name, in any case
  Order order = Order::kMissingFirst;
  RecordingColumn column = kRecordingSaid;  // of the other orders

  bool operator==(const RecordingsView&) const = default;
};

/// The positions in `rows` of those that are to be seen, in their order. What has nothing in the
/// column of the order comes last.
std::vector<std::size_t> ShownRecordings(const std::vector<ClipRow>& rows,
                                         const RecordingsView& view);

/// "59 words and 152 names: 1 missing, none with a fault."
std::string RecordingsSummary(const std::vector<ClipRow>& rows);

/// What clips of the voice can say in a sentence.
std::vector<SayableClip> SayableClips(const std::vector<ClipRow>& rows);

}  // namespace repvolta
