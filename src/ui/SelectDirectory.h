#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <memory>
#include <string>
#include <vector>

#include "platform/Volumes.h"
#include "ui/DriveEntries.h"

namespace Ui {
class SelectDirectory;
}

namespace repvolta {

/// Picks a folder; can create a new one first.
class SelectDirectory : public QDialog {
  Q_OBJECT

 public:
  /// Opens at the folder `start`, or at its nearest existing parent. DriveListBox follows the
  /// volumes, which must outlive the dialog.
  SelectDirectory(Volumes& volumes, const QString& start, QWidget* parent = nullptr);
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
  QString CurrentFolder() const;

  std::unique_ptr<Ui::SelectDirectory> ui_;
  Volumes& volumes_;
  std::vector<DriveEntry> drives_;
  QFileSystemModel* folders_ = nullptr;
  QPersistentModelIndex shown_;  // the folder to keep in sight, if any
  std::string selectedDirectory_;
};

}  // namespace repvolta
