#include "clips/ClipLists.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <utility>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/SingleByteText.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "clips/WordClips.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestList = std::size_t{1024} * 1024;
constexpr std::string_view kSaysNothing = "-";
constexpr std::string_view kMarkOfUtf8 = "\xEF\xBB\xBF";  // some editors begin a file with it

/// The lines in UTF-8, trimmed of line ends and blanks.
std::vector<std::string> Lines(const std::string& path) {
  const Bytes file = ReadWholeFile(path, kLongestList);
  std::string content = AsText(file);
  if (content.starts_with(kMarkOfUtf8)) content.erase(0, kMarkOfUtf8.size());
  std::istringstream text(content);
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.emplace_back(TrimBlanks(DecodeField(AsBytes(line))));
  }
  return lines;
}

/// A line of a word list in its two parts; without a tab, the first blank parts them.
ClipWords PartsOf(const std::string& line) {
  const std::size_t tab = line.find('\t');
  const std::size_t end = std::min(tab == std::string::npos ? line.find(' ') : tab, line.size());
  const std::string name(TrimBlanks(std::string_view(line).substr(0, end)));
  std::string words = line.substr(end);
  std::ranges::replace(words, '\t', ' ');
  return {name, std::string(TrimBlanks(words))};
}

/// "" for a name that no file can have.
std::string FileOf(const std::string& clip) {
  if (!clip.starts_with(kNameClipSubfolder)) {
    const std::string file = clip + kClipExtension;
    return IsFileName(file) && !clip.empty() ? file : "";
  }
  const std::string_view exercise =
      TrimBlanks(std::string_view(clip).substr(std::string_view(kNameClipSubfolder).size()));
  return exercise.empty() ? "" : kNameClipSubfolder + AsFileName(exercise, kNameClipExtension);
}

std::string PlaceOf(const ClipWords& clip, const std::string& path) {
  return path + ", line " + std::to_string(clip.line) + ": ";
}

std::string Named(const std::string& file) { return file.substr(0, file.rfind('.')); }

std::string ListedNames(const std::vector<std::string>& files) {
  std::string names;
  for (const std::string& file : files) names += (names.empty() ? "" : ", ") + Named(file);
  return names;
}

}  // namespace

std::vector<ClipWords> ReadWordList(const std::string& path) {
  std::vector<ClipWords> clips;
  int number = 0;
  for (const std::string& line : Lines(path)) {
    ++number;
    if (line.empty() || line.starts_with('#')) continue;
    ClipWords clip = PartsOf(line);
    clip.file = FileOf(clip.file);
    clip.line = number;
    if (clip.file.empty() || clip.words.empty()) {
      throw ClipError(PlaceOf(clip, path) + "expected a clip's name and the words that it says");
    }
    if (clip.words == kSaysNothing) clip.words.clear();
    clips.push_back(std::move(clip));
  }
  return clips;
}

std::vector<ClipWords> ReadNameList(const std::string& path) {
  std::vector<ClipWords> clips;
  for (const std::string& name : Lines(path)) {
    if (!name.empty())
      clips.push_back({kNameClipSubfolder + AsFileName(name, kNameClipExtension), name});
  }
  return clips;
}

std::vector<std::string> RemarksOn(const std::vector<ClipWords>& clips, const std::string& path) {
  std::vector<std::string> remarks;
  std::vector<std::string> missing = WordClips();
  const std::set<std::string> known(missing.begin(), missing.end());
  std::set<std::string> seen;
  for (const ClipWords& clip : clips) {
    const bool isName = clip.file.starts_with(kNameClipSubfolder);
    const std::string place = PlaceOf(clip, path) + "\"" + Named(clip.file) + "\"";
    if (!isName && !known.contains(clip.file)) remarks.push_back(place + " is said by no exercise");
    if (!seen.insert(clip.file).second)
      remarks.push_back(place + " is there twice, this one counts");
    std::erase(missing, clip.file);
  }
  if (!missing.empty()) remarks.push_back(path + " has no words for " + ListedNames(missing));
  return remarks;
}

}  // namespace repvolta
