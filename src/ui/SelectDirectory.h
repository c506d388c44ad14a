#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <QStringList>
#include <memory>
#include <string>

namespace Ui {
class SelectDirectory;
}

namespace repvolta {

/// The roots of the volumes that may hold a person's files, "/" first.
QStringList MountedVolumes();

/// Picks a folder; can create a new one first.
class SelectDirectory : public QDialog {
  Q_OBJECT

 public:
  /// Opens at the folder `start`, or at its nearest existing parent. `drives` are the entries of
  /// DriveListBox.
  SelectDirectory(const QStringList& drives, const QString& start, QWidget* parent = nullptr);
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

  void Show(const QString& folder);
  void Reveal();
  void KeepInSight();
  void ShowDriveOf(const QString& folder);
  QString CurrentFolder() const;

  std::unique_ptr<Ui::SelectDirectory> ui_;
  QFileSystemModel* folders_;
  QPersistentModelIndex shown_;  // the folder to keep in sight, if any
  std::string selectedDirectory_;
};

}  // namespace repvolta
