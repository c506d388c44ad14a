#include "editing/ChooseTarget.h"

#include <filesystem>

#include "backup/BackupContents.h"
#include "base/Text.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// The path below the program directory; a path that leads elsewhere begins with "..".
std::string PathInProgram(const std::string& programDirectory, const std::string& path) {
  std::error_code error;
  const fs::path directory = fs::weakly_canonical(programDirectory, error);
  const fs::path file = fs::weakly_canonical(path, error);
  return file.lexically_relative(directory).string();
}

}  // namespace

std::string WeaknessText(const std::string& weakness) {
  return weakness.empty() ? "" : "\r\rIt may not survive a power cut: " + weakness;
}

std::string ChooseTarget(const Editor& editor, const FileQuestion& question) {
  std::string path = editor.dialogs.ChooseFileToSave(question);
  if (path.empty() || !BackupKindOf(PathInProgram(editor.State().ProgramDirectory, path))) {
    return path;
  }
  editor.dialogs.ShowMessage(
      ShownOnOneLine(path) +
          " is a file of Repvolta's own and is not replaced. Choose another name.",
      question.title);
  return "";
}

}  // namespace repvolta
