#include "voices/ClipTable.h"

#include <map>
#include <utility>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestClip = std::size_t{4} << 20;  // of those that a voice can have

ClipRow Row(std::string file, Clip clip, std::string said, bool isMissing) {
  return {.file = std::move(file),
          .clip = std::move(clip),
          .said = std::move(said),
          .isMissing = isMissing,
          .loudness = {},
          .origin = {},
          .fault = isMissing ? "is missing" : ""};
}

std::vector<ClipRow> WordRows() {
  std::vector<ClipRow> rows;
  for (const std::string& file : WordClips()) {
    rows.push_back(Row(file, {Clip::Kind::kWord, BaseName(file)}, WordsOfClip(file),
                       !FindFile(kClipFolder + file)));
  }
  return rows;
}

/// A clip is called what the exercise is called, which may have characters that no file can have.
std::vector<ClipRow> NameRows(const std::vector<std::string>& names) {
  std::map<std::u32string, std::string> called;  // by the name of the file
  for (const std::string& name : names) {
    called.try_emplace(FoldCase(AsFileName(name, kNameClipExtension)), name);
  }
  std::map<std::u32string, std::vector<ClipRow>> rows;
  const auto add = [&rows](const std::string& file, const std::string& name, bool isMissing) {
    rows[FoldCase(name)].push_back(
        Row(kNameClipSubfolder + file, {Clip::Kind::kName, name}, name, isMissing));
  };
  for (const std::string& file : ListFiles(kNameClipFolder, kNameClipExtension)) {
    const auto found = called.find(FoldCase(file));
    const bool isCalled = found != called.end() && !found->second.empty();
    add(file, isCalled ? std::exchange(found->second, "") : BaseName(file), false);
  }
  for (const auto& [folded, name] : called) {
    if (!name.empty()) add(AsFileName(name, kNameClipExtension), name, true);
  }
  std::vector<ClipRow> all;
  for (auto& [folded, ofName] : rows) {
    for (ClipRow& row : ofName) all.push_back(std::move(row));
  }
  return all;
}

double SecondsOf(const Bytes& content) {
  try {
    const WavSource source(content);
    return static_cast<double>(source.Size()) / source.Rate();
  } catch (const WavError&) {
    return 0;
  }
}

}  // namespace

bool IsUnderstood(const ClipRow& row) {
  return !row.isMissing && row.origin.owner == ClipOwner::kProgram;
}

ClipTable::ClipTable(const std::vector<std::string>& names)
    : origins_("", UnreadNotes::kAreMissed), rows_(WordRows()) {
  for (ClipRow& row : NameRows(names)) rows_.push_back(std::move(row));
  measured_.reserve(rows_.size());
}

bool ClipTable::ReadNext() {
  if (measured_.size() == rows_.size()) return false;
  Read(rows_[measured_.size()]);
  if (measured_.size() == rows_.size()) Compare();
  return true;
}

void ClipTable::Read(ClipRow& row) {
  measured_.push_back(MeasureClip(kClipFolder, row.file));
  const MeasuredClip& measured = measured_.back();
  row.isRead = true;
  row.loudness = measured.loudness;
  row.isMissing = measured.finding && measured.finding->fault == ClipFault::kMissing;
  if (row.isMissing) return;
  try {
    const Bytes content = ReadWholeFile(ExistingName(kClipFolder + row.file), kLargestClip);
    row.origin = origins_.Of(row.file, content);
    row.seconds = SecondsOf(content);
  } catch (const FileError&) {
    // The fault says so.
  }
}

void ClipTable::Compare() {
  const double middle = MiddleLoudness(measured_);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const std::optional<ClipFinding> finding = FindingBeside(measured_[i], middle);
    rows_[i].fault = finding ? finding->words : "";
  }
}

}  // namespace repvolta
