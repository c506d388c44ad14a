#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/FileError.h"
#include "clips/VoiceCheck.h"
#include "voices/ChangeOfVoice.h"

namespace repvolta {

/// A line of the list of voices.
struct VoiceRow {
  std::string voice;  // "" is the program's own
  bool isInUse = false;
  std::size_t words = 0;  // that it has itself
  std::size_t names = 0;
  std::vector<std::string> missing = {};  // words, "300"

  bool operator==(const VoiceRow&) const = default;
};

/// The program's own voice first. The program directory must be current. Throws FileError.
std::vector<VoiceRow> ListVoiceRows(const VoicesHere& here);

/// "The program's voice" or the voice's own name.
std::string ShownVoice(const std::string& voice);

/// What stands in the columns: "Kim", "in use", "58 of 60", "12".
std::vector<std::string> CellsOf(const VoiceRow& row);

/// What is missing, a sentence a line.
std::vector<std::string> AboutVoice(const VoiceRow& row);

/// What a check has found, a line each: first how many words and names there are and how loud they
/// are, then what is not as it should be.
std::vector<std::string> LinesOf(const VoiceCheck& check);

/// Those of the lines that a box has room for, each behind a line break, and how many more.
std::string FirstLines(const std::vector<std::string>& lines);

/// "300, 400, point and 12 more" of the files of words.
std::string WordList(const std::vector<std::string>& files);

/// What a window says while notes on the clips cannot be read; "" without a fault.
std::string NoticeOfNotes(const std::optional<FileError>& fault);

}  // namespace repvolta
