#include "editing/VoiceTexts.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "clips/WordClips.h"
#include "voices/VoiceFiles.h"

namespace repvolta {
namespace {

constexpr std::size_t kMostLines = 10;
constexpr std::size_t kMostWords = 12;

VoiceRow RowOf(const VoicesHere& here, const std::string& voice) {
  const std::string folder = OwnFolderOf(here, voice);
  VoiceRow row;
  row.voice = voice;
  row.isInUse = voice == here.inUse;
  std::set<std::string> clips;
  if (!folder.empty()) {
    for (const std::string& file : ClipsIn(folder)) clips.insert(ClipOfPath(file));
  }
  for (const std::string& word : WordClips()) {
    if (clips.contains(word)) {
      ++row.words;
    } else {
      row.missing.push_back(word);
    }
  }
  row.names = static_cast<std::size_t>(std::ranges::count_if(
      clips, [](const std::string& clip) { return clip.starts_with(kNameClipSubfolder); }));
  return row;
}

}  // namespace

std::vector<VoiceRow> ListVoiceRows(const VoicesHere& here) {
  std::vector<VoiceRow> rows{RowOf(here, "")};
  for (const std::string& voice : ListVoices()) rows.push_back(RowOf(here, voice));
  return rows;
}

std::string ShownVoice(const std::string& voice) {
  return voice.empty() ? kTheProgramsVoice : ShownOnOneLine(voice);
}

std::vector<std::string> CellsOf(const VoiceRow& row) {
  return {ShownVoice(row.voice), row.isInUse ? "in use" : "",
          std::to_string(row.words) + " of " + std::to_string(row.words + row.missing.size()),
          std::to_string(row.names)};
}

std::vector<std::string> AboutVoice(const VoiceRow& row) {
  std::vector<std::string> lines;
  if (row.missing.empty()) {
    lines.emplace_back("It has all words.");
  } else {
    std::string words;
    for (const std::string& file : row.missing)
      words += (words.empty() ? "" : ", ") + BaseName(file);
    lines.push_back("It lacks " + Counted(row.missing.size(), "word") + ": " + words + ".");
    if (!row.voice.empty()) lines.emplace_back("For these the program's voice speaks.");
  }
  lines.push_back(row.names == 0 ? "It has no names of exercises."
                                 : "It has " + Counted(row.names, "name") + " of exercises.");
  return lines;
}

std::vector<std::string> LinesOf(const VoiceCheck& check) {
  std::string first = Counted(check.words, "word") + " and " + Counted(check.names, "name");
  if (std::isfinite(check.loudness)) {
    first += ", at " + std::to_string(std::lround(check.loudness)) + " LUFS";
  }
  const std::size_t faults = check.findings.size();
  std::vector<std::string> lines{
      first + (faults == 0 ? ": all is well." : ": " + Counted(faults, "fault") + ".")};
  for (const ClipFinding& finding : check.findings) {
    lines.push_back(ShownOnOneLine(finding.file + " " + finding.words));
  }
  return lines;
}

std::string FirstLines(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < std::min(lines.size(), kMostLines); ++i) {
    text += "\r" + ShownOnOneLine(lines[i]);
  }
  if (lines.size() > kMostLines) {
    text += "\rand " + std::to_string(lines.size() - kMostLines) + " more";
  }
  return text;
}

std::string WordList(const std::vector<std::string>& files) {
  std::string text;
  for (std::size_t i = 0; i < std::min(files.size(), kMostWords); ++i) {
    text += (i == 0 ? "" : ", ") + BaseName(files[i]);
  }
  const std::size_t more = files.size() - std::min(files.size(), kMostWords);
  return more == 0 ? text : text + " and " + std::to_string(more) + " more";
}

std::string NoticeOfNotes(const std::optional<FileError>& fault) {
  return fault ? "The recordings cannot be changed now. " + std::string(fault->what()) + "." : "";
}

}  // namespace repvolta
