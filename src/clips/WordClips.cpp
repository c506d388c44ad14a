#include "clips/WordClips.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

struct Word {
  const char* name;
  const char* words;
};

constexpr Word kWords[] = {{"and", "and"},
                           {"point", "point"},
                           {"set", "set"},
                           {"sets", "sets"},
                           {"pounds", "pounds"},
                           {"kilograms", "kilograms"},
                           {"for", "for"},
                           {"reps", "reps"},
                           {"level", "level"},
                           {"minutes", "minutes"},
                           {"kph", "kilometers per hour"},
                           {"mph", "miles per hour"},
                           {"kilometers", "kilometers"},
                           {"miles", "miles"}};

constexpr std::array kUnits = {"",        "one",     "two",       "three",    "four",
                               "five",    "six",     "seven",     "eight",    "nine",
                               "ten",     "eleven",  "twelve",    "thirteen", "fourteen",
                               "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array kTens = {"",      "",      "twenty",  "thirty", "forty",
                              "fifty", "sixty", "seventy", "eighty", "ninety"};

struct Numbers {
  int first;
  int last;
  int step;
};

constexpr Numbers kNumbers[] = {{1, 20, 1}, {30, 90, 10}, {100, 900, 100}, {1000, 9000, 1000}};

/// Of one of kNumbers.
std::string WordsOf(int number) {
  const auto at = [](const auto& words, int i) { return words.at(static_cast<std::size_t>(i)); };
  if (number >= 1000) return std::string(at(kUnits, number / 1000)) + " thousand";
  if (number >= 100) return std::string(at(kUnits, number / 100)) + " hundred";
  return number >= 20 ? at(kTens, number / 10) : at(kUnits, number);
}

/// All words in their order.
std::vector<std::pair<std::string, std::string>> FilesAndWords() {
  std::vector<std::pair<std::string, std::string>> all;
  for (const Numbers& numbers : kNumbers) {
    for (int number = numbers.first; number <= numbers.last; number += numbers.step) {
      all.emplace_back(std::to_string(number) + kClipExtension, WordsOf(number));
    }
  }
  for (const Word& word : kWords)
    all.emplace_back(word.name + std::string(kClipExtension), word.words);
  return all;
}

}  // namespace

std::vector<std::string> WordClips() {
  std::vector<std::string> files;
  for (auto& [file, words] : FilesAndWords()) files.push_back(std::move(file));
  return files;
}

std::string WordsOfClip(std::string_view file) {
  const auto all = FilesAndWords();
  const auto found = std::ranges::find(all, file, [](const auto& one) { return one.first; });
  return found == all.end() ? "" : found->second;
}

}  // namespace repvolta
