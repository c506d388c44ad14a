#include "ui/QtDialogs.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

#include "app/ExerciseTypes.h"
#include "base/FileError.h"
#include "platform/MountedVolumes.h"
#include "ui/AboutForm.h"
#include "ui/InputBox.h"
#include "ui/MessageBox.h"
#include "ui/MusicFileDialog.h"
#include "ui/SelectDirectory.h"
#include "ui/SelectExerciseDialog.h"

namespace repvolta {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

void QtDialogs::ShowMessage(std::string_view text, std::string_view title) {
  MessageBox::Show(owner_, ToQt(text), ToQt(title));
}

bool QtDialogs::Confirm(std::string_view text, std::string_view title) {
  return MessageBox::Confirm(owner_, ToQt(text), ToQt(title));
}

std::string QtDialogs::AskText(std::string_view prompt, std::string_view title,
                               const AnswerHelp& help, std::string_view initial) {
  return InputBox::Ask(owner_, ToQt(prompt), ToQt(title), help, ToQt(initial)).toStdString();
}

std::string QtDialogs::SelectExercise() {
  const auto namesOfType = [this](const std::string& type) -> std::vector<std::string> {
    try {
      return ExerciseNames(type);
    } catch (const FileError& error) {
      ShowMessage(error.what());
      return {};
    }
  };
  SelectExerciseDialog dialog(ExerciseTypes(), namesOfType, owner_);
  dialog.exec();
  return dialog.SelectedName();
}

std::string QtDialogs::SelectDirectory(const FolderQuestion& question) {
  MountedVolumes volumes;
  repvolta::SelectDirectory dialog(volumes, question, owner_);
  dialog.exec();
  return dialog.SelectedDirectory();
}

std::vector<std::string> QtDialogs::SelectMusicFiles(const std::string& startFolder) {
  return PickMusicFiles(owner_, startFolder, layoutFile_);
}

void QtDialogs::ShowAbout() { AboutForm(owner_).exec(); }

void QtDialogs::OpenDocument(const std::string& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

}  // namespace repvolta
