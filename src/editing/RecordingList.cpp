#include "editing/RecordingList.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "base/File.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "clips/ClipLists.h"
#include "clips/WordClips.h"

namespace repvolta {
namespace {

constexpr const char* kListExtension = ".txt";
constexpr const char* kEnglish = "English";

/// What is said for each clip of a word list, by its name without regard to case.
using SaidWords = std::map<std::u32string, std::string>;

SaidWords WordsOfList(const std::string& wordList) {
  SaidWords words;
  if (wordList.empty()) return words;
  for (const ClipWords& clip : ReadWordList(wordList)) words[FoldCase(clip.file)] = clip.words;
  return words;
}

/// The clip of a name as an update looks for it.
std::string NameClip(std::string_view exercise) {
  const std::string clip = ExistingName(kNameClipFolder + AsFileName(exercise, kNameClipExtension));
  return clip.substr(std::string_view(kClipFolder).size());
}

std::vector<WordToRecord> NamesOf(const ProgramState& state) {
  std::vector<WordToRecord> names;
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const std::string name = state.Workout[i].ExerciseName.Trimmed();
    if (!name.empty()) names.push_back({NameClip(name), name});
  }
  return names;
}

std::vector<WordToRecord> AllWords() {
  std::vector<WordToRecord> words;
  for (const std::string& file : WordClips()) words.push_back({file, WordsOfClip(file)});
  return words;
}

void Append(std::vector<WordToRecord>& list, const std::vector<WordToRecord>& more) {
  list.insert(list.end(), more.begin(), more.end());
}

std::vector<WordToRecord> Chosen(const std::vector<std::string>& files) {
  std::vector<WordToRecord> chosen;
  chosen.reserve(files.size());
  for (const std::string& file : files) {
    const std::string words = WordsOfClip(file);
    chosen.push_back({file, words.empty() ? BaseName(file) : words});
  }
  return chosen;
}

bool HasClip(const WordToRecord& word) { return FindFile(kClipFolder + word.file).has_value(); }

/// In English.
std::vector<WordToRecord> Wanted(const RecordingWish& wish, const ProgramState& state) {
  switch (wish.what) {
    case WhatToRecord::kAllWords:
      return AllWords();
    case WhatToRecord::kWorkoutNames:
      return NamesOf(state);
    case WhatToRecord::kChosen:
      return Chosen(wish.chosen);
    case WhatToRecord::kMissing:
      break;
  }
  std::vector<WordToRecord> missing = AllWords();
  Append(missing, NamesOf(state));
  std::erase_if(missing, HasClip);
  return missing;
}

}  // namespace

std::vector<WordToRecord> ListToRecord(const RecordingWish& wish, const ProgramState& state,
                                       const IsOwnRecording& isOwn) {
  const SaidWords inLanguage = WordsOfList(wish.wordList);
  std::set<std::u32string> seen;
  std::vector<WordToRecord> list;
  for (WordToRecord& word : Wanted(wish, state)) {
    const std::u32string key = FoldCase(word.file);
    if (!seen.insert(key).second) continue;
    if (wish.own == OwnRecordings::kLeaveOut && isOwn(word.file)) continue;
    const auto said = inLanguage.find(key);
    if (said != inLanguage.end()) word.words = said->second;
    list.push_back(std::move(word));
  }
  return list;
}

std::vector<RecordingLanguage> RecordingLanguages(const std::string& folder) {
  std::vector<RecordingLanguage> languages = {{kEnglish, ""}};
  if (folder.empty()) return languages;
  for (const std::string& file : ListFiles(folder, kListExtension)) {
    std::string name = BaseName(file);
    if (name.empty()) continue;
    if (name.front() >= 'a' && name.front() <= 'z') name.front() += 'A' - 'a';
    if (name != kEnglish) languages.push_back({name, folder + file});
  }
  return languages;
}

}  // namespace repvolta
