#include "ui/QtDialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QUrl>

#include "app/ExerciseTypes.h"
#include "base/FileError.h"
#include "platform/MountedVolumes.h"
#include "ui/AboutForm.h"
#include "ui/InputBox.h"
#include "ui/MessageBox.h"
#include "ui/PreviewForm.h"
#include "ui/SelectDirectory.h"
#include "ui/SelectExerciseDialog.h"
#include "ui/WheelGuard.h"

namespace repvolta {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Shows the pointer of a busy program.
class BusyPointer {
 public:
  BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyPointer() { QApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace

void QtDialogs::ShowMessage(std::string_view text, std::string_view title) {
  MessageBox::Show(owner_, ToQt(text), ToQt(title));
}

bool QtDialogs::Confirm(std::string_view text, std::string_view title) {
  return MessageBox::Confirm(owner_, ToQt(text), ToQt(title));
}

std::string QtDialogs::AskText(std::string_view prompt, std::string_view title,
                               std::string_view initial) {
  return InputBox::Ask(owner_, ToQt(prompt), ToQt(title), ToQt(initial)).toStdString();
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

std::string QtDialogs::SelectDirectory() {
  MountedVolumes volumes;
  repvolta::SelectDirectory dialog(volumes, QDir::homePath(), owner_);
  dialog.exec();
  return dialog.SelectedDirectory();
}

std::vector<std::string> QtDialogs::SelectMusicFiles(const std::string& startFolder) {
  QFileDialog dialog(owner_, "Music File Selection", QFile::decodeName(startFolder.c_str()));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setFileMode(QFileDialog::ExistingFiles);
  dialog.setNameFilters({"MP3 (*.MP3)", "WMA (*.WMA)"});
  new WheelGuard(&dialog);
  if (dialog.exec() != QDialog::Accepted) return {};
  std::vector<std::string> files;
  for (const QString& file : dialog.selectedFiles()) {
    files.push_back(QFile::encodeName(file).toStdString());
  }
  return files;
}

PreviewOutcome QtDialogs::ShowPreview(const std::function<Preview()>& plan) {
  const Preview preview = [&] {
    const BusyPointer busy;
    return plan();
  }();
  PreviewForm form(preview, owner_);
  form.exec();
  return form.Outcome();
}

void QtDialogs::ShowAbout() { AboutForm(owner_).exec(); }

void QtDialogs::OpenDocument(const std::string& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

}  // namespace repvolta
