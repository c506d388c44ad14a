#include "ui/QtDialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QInputDialog>
#include <QUrl>
#include <algorithm>

#include "app/ExerciseTypes.h"
#include "base/FileError.h"
#include "platform/MountedVolumes.h"
#include "ui/AboutForm.h"
#include "ui/FileDialogs.h"
#include "ui/InputBox.h"
#include "ui/MessageBox.h"
#include "ui/MusicFileDialog.h"
#include "ui/PreviewForm.h"
#include "ui/RestoreBackupForm.h"
#include "ui/RestoreVersionForm.h"
#include "ui/RowList.h"
#include "ui/SelectDirectory.h"
#include "ui/SelectExerciseDialog.h"
#include "ui/WheelGuard.h"
#include "ui/WorkWindow.h"

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
                               const AnswerHelp& help, std::string_view initial) {
  return InputBox::Ask(owner_, ToQt(prompt), ToQt(title), help, ToQt(initial)).toStdString();
}

std::optional<std::size_t> QtDialogs::Choose(std::string_view prompt, std::string_view title,
                                             const std::vector<std::string>& items) {
  QInputDialog dialog(owner_);
  dialog.setWindowTitle(ToQt(title));
  dialog.setLabelText(ToQt(prompt));
  dialog.setOption(QInputDialog::UseListViewForComboBoxItems);
  dialog.setComboBoxItems(QtTexts(items));
  new WheelGuard(&dialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const auto found = std::find(items.begin(), items.end(), dialog.textValue().toStdString());
  if (found == items.end()) return std::nullopt;
  return static_cast<std::size_t>(found - items.begin());
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

std::string QtDialogs::ChooseFileToSave(const FileQuestion& question) {
  return PickFile(owner_, question, FileChoice::kToSave, layoutFile_);
}

std::string QtDialogs::ChooseFileToOpen(const FileQuestion& question) {
  return PickFile(owner_, question, FileChoice::kToOpen, layoutFile_);
}

void QtDialogs::ShowLongWork(std::string_view text, const LongWork& work) {
  RunInSight(owner_, text, work);
}

std::optional<std::vector<PathExchange>> QtDialogs::AskRestore(const RestoreQuestion& question) {
  RestoreBackupForm form(question, owner_);
  if (form.exec() != QDialog::Accepted) return std::nullopt;
  return form.Exchanges();
}

PreviewOutcome QtDialogs::ShowPreview(const std::function<Preview()>& plan, Listening* listening) {
  const Preview preview = [&] {
    const BusyPointer busy;
    return plan();
  }();
  PreviewForm form(preview, owner_);
  if (listening != nullptr) form.OfferListening(*listening);
  form.exec();
  return form.Outcome();
}

std::optional<ChosenVersion> QtDialogs::ChooseVersion(EarlierVersions& versions) {
  RestoreVersionForm form(versions, owner_);
  form.exec();
  return form.Chosen();
}

void QtDialogs::ShowAbout() { AboutForm(owner_).exec(); }

void QtDialogs::OpenDocument(const std::string& path) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(path.c_str())));
}

void QtDialogs::OpenGuide(std::string_view page) {
  const QString file = ToQt(page).section('#', 0, 0);
  const QString path = QDir::cleanPath(QFile::decodeName(guide_.c_str()) + file);
  if (guide_.empty() || !QFile::exists(path)) {
    ShowMessage("The guide is not installed: its page " + file.toStdString() + " is missing.");
    return;
  }
  QUrl url = QUrl::fromLocalFile(path);
  url.setFragment(ToQt(page).section('#', 1));
  if (QDesktopServices::openUrl(url)) return;
  ShowMessage("There is no program that can show the guide. Open this page with a browser:\r" +
              path.toStdString());
}

}  // namespace repvolta
