#include "clips/ClipLists.h"

#include <algorithm>
#include <sstream>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/SingleByteText.h"
#include "base/Text.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestList = std::size_t{1024} * 1024;

/// The lines in UTF-8, trimmed of line ends and blanks.
std::vector<std::string> Lines(const std::string& path) {
  std::istringstream text(AsText(ReadWholeFile(path, kLongestList)));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.emplace_back(TrimBlanks(DecodeField(AsBytes(line))));
  }
  return lines;
}

}  // namespace

std::vector<ClipWords> ReadWordList(const std::string& path) {
  std::vector<ClipWords> clips;
  int number = 0;
  for (const std::string& line : Lines(path)) {
    ++number;
    if (line.empty() || line.starts_with('#')) continue;
    const std::size_t blank = std::min(line.find(' '), line.size());
    const std::string file = line.substr(0, blank) + kClipExtension;
    const std::string words(TrimBlanks(std::string_view(line).substr(blank)));
    if (words.empty() || !IsFileName(file)) {
      throw ClipError(path + ", line " + std::to_string(number) +
                      ": expected a clip's name and the words that it says");
    }
    clips.push_back({file, words});
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

}  // namespace repvolta
