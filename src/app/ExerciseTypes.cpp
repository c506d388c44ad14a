#include "app/ExerciseTypes.h"

#include "base/FileNames.h"
#include "base/Lines.h"
#include "base/SingleByteText.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr const char* kExerciseFolder = "exercise/";
constexpr const char* kListExtension = ".lst";

}  // namespace

std::vector<std::string> ExerciseTypes() {
  std::vector<std::string> types;
  for (const std::string& file : ListFiles(kExerciseFolder, kListExtension)) {
    types.push_back(BaseName(file));
  }
  return types;
}

std::vector<std::string> ExerciseNames(const std::string& type) {
  std::vector<std::string> names;
  ForEachLine(ExistingName(kExerciseFolder + type + kListExtension), [&](std::string_view line) {
    names.push_back(IsUtf8(line) ? std::string(line) : FromWindows1252(line));
    return true;
  });
  return names;
}

}  // namespace repvolta
