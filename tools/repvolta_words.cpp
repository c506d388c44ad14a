#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "instruction/SpokenWords.h"

// Prints the words that the program says for exercises, without their names, a line each. Each line
// of standard input is an exercise: the number of its set type, its units flag, and two values a
// set.
//
//   0 -1 135 10 185 5     2 sets 100 and 30 5 pounds for 10 reps 100 and 80 5 pounds for 5 reps

namespace repvolta {
namespace {

ExerciseRecord ReadExercise(const std::string& line) {
  std::istringstream numbers(line);
  ExerciseRecord exercise;
  const bool hasType = static_cast<bool>(numbers >> exercise.SetType >> exercise.Units);
  const std::vector<float> values(std::istream_iterator<float>(numbers), {});
  if (!hasType || !numbers.eof() || values.size() % 2 != 0) {
    throw std::runtime_error("No exercise: " + line);
  }
  for (std::size_t i = 0; i < values.size(); i += 2) {
    exercise.SetValue1[exercise.NumberOfSets] = values[i];
    exercise.SetValue2[exercise.NumberOfSets++] = values[i + 1];
  }
  return exercise;
}

void PrintWords(const ExerciseRecord& exercise) {
  std::string words;
  for (const Clip& clip : ClipsOfInstruction(exercise, SetValues::kSaid).clips) {
    if (clip.kind == Clip::Kind::kWord) words += (words.empty() ? "" : " ") + clip.text;
  }
  std::cout << words << '\n';
}

}  // namespace
}  // namespace repvolta

int main() {
  try {
    std::string line;
    while (std::getline(std::cin, line)) repvolta::PrintWords(repvolta::ReadExercise(line));
  } catch (const std::exception& error) {
    std::cerr << "repvolta-words: " << error.what() << '\n';
    return 1;
  }
}
