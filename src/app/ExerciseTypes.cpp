#include "app/ExerciseTypes.h"

#include "base/FileNames.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/SingleByteText.h"
#include "base/Text.h"

namespace repvolta {

std::vector<std::string> ExerciseTypes() {
  std::vector<std::string> types;
  for (const std::string& file : ListFiles(kExerciseFolder, kExerciseListExtension)) {
    types.push_back(BaseName(file));
  }
  return types;
}

std::vector<std::string> ExerciseNames(const std::string& type) {
  std::vector<std::string> names;
  ForEachLine(ExistingName(kExerciseFolder + type + kExerciseListExtension),
              [&](std::string_view line) {
                names.push_back(IsUtf8(line) ? std::string(line) : FromWindows1252(line));
                return true;
              });
  return names;
}

}  // namespace repvolta
