#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "editing/FolderLook.h"
#include "platform/Volumes.h"
#include "ui/DriveEntries.h"

namespace Ui {
class SelectDirectory;
}

namespace repvolta {

/// Picks a folder; can create a new one first. Says on top what the folder is for, and below the
/// selected one how many songs are in it or how much room; that is found out in the background.
class SelectDirectory : public QDialog {
  Q_OBJECT

 public:
  /// Opens at the folder where the question begins, or at its nearest existing parent, or in the
  /// home folder if that drive does not answer. DriveListBox follows the volumes, which must
  /// outlive the dialog.
  SelectDirectory(Volumes& volumes, const FolderQuestion& question, QWidget* parent = nullptr);
  ~SelectDirectory() override;

  /// The full path of the chosen folder when the dialog was closed with OK, else empty.
  std::string SelectedDirectory() const { return selectedDirectory_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void DriveListBox_Change();
  void DirListBox_Change();
  void NewFolderButton_Click();
  void OKButton_Click();
  void CancelButton_Click();

  void OpenTree();
  void CloseTree();
  void VolumesChange();
  void ShowDrives(const std::vector<DriveEntry>& drives);
  void Show(const QString& folder);
  void Reveal();
  void KeepInSight();
  void LetGo();
  QString StartOf(const FolderQuestion& question) const;
  void LookAtFolder();
  void ShowSight(const FolderSight& sight);
  QString CurrentFolder() const;

  std::unique_ptr<Ui::SelectDirectory> ui_;
  Volumes& volumes_;
  std::vector<DriveEntry> drives_;
  QFileSystemModel* folders_ = nullptr;
  const FolderQuestion::Figure figure_;
  FolderLook look_;
  QTimer lookSoon_;
  QString folderInQuestion_;     // its figure is shown or sought
  QPersistentModelIndex shown_;  // the folder to keep in sight, if any
  std::string selectedDirectory_;
};

}  // namespace repvolta
