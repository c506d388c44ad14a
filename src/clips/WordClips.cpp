#include "clips/WordClips.h"

#include "base/ProgramFiles.h"

namespace repvolta {
namespace {

constexpr const char* kWords[] = {"and",       "point", "set",        "sets",  "pounds",
                                  "kilograms", "for",   "reps",       "level", "minutes",
                                  "kph",       "mph",   "kilometers", "miles"};

struct Numbers {
  int first;
  int last;
  int step;
};

constexpr Numbers kNumbers[] = {{1, 20, 1}, {30, 90, 10}, {100, 900, 100}, {1000, 9000, 1000}};

}  // namespace

std::vector<std::string> WordClips() {
  std::vector<std::string> files;
  for (const Numbers& numbers : kNumbers) {
    for (int number = numbers.first; number <= numbers.last; number += numbers.step) {
      files.push_back(std::to_string(number) + kClipExtension);
    }
  }
  for (const char* word : kWords) files.push_back(std::string(word) + kClipExtension);
  return files;
}

}  // namespace repvolta
