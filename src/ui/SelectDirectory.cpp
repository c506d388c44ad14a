#include "ui/SelectDirectory.h"

#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <algorithm>
#include <utility>

#include "base/FileNames.h"
#include "ui/InputBox.h"
#include "ui/MessageBox.h"
#include "ui/WheelGuard.h"

#include "ui_SelectDirectory.h"

namespace repvolta {
namespace {

// In characters of the dialog's font.
constexpr int kWidth = 64;
constexpr int kHeight = 28;

/// The folder, or its nearest existing parent.
QString ExistingFolder(const QString& folder) {
  QString path = QDir(folder).absolutePath();
  while (!QFileInfo(path).isDir() && path != QDir::rootPath()) path = QFileInfo(path).path();
  return path;
}

}  // namespace

SelectDirectory::SelectDirectory(Volumes& volumes, const QString& start, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::SelectDirectory>()), volumes_(volumes) {
  ui_->setupUi(this);
  new WheelGuard(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  OpenTree();
  Show(ExistingFolder(start));
  ShowDrives(DriveEntries(volumes_.Now()));
  ui_->DriveListBox->setCurrentIndex(EntryHolding(drives_, CurrentFolder()));
  volumes_.OnChange([this] { VolumesChange(); });

  connect(ui_->DriveListBox, &QComboBox::currentIndexChanged, this,
          &SelectDirectory::DriveListBox_Change);
  connect(ui_->DirListBox->verticalScrollBar(), &QScrollBar::actionTriggered, this,
          &SelectDirectory::LetGo);
  connect(ui_->DirListBox, &QTreeView::expanded, this, &SelectDirectory::LetGo);
  connect(ui_->DirListBox, &QTreeView::collapsed, this, &SelectDirectory::LetGo);
  connect(ui_->NewFolderButton, &QPushButton::clicked, this,
          &SelectDirectory::NewFolderButton_Click);
  connect(ui_->OKButton, &QPushButton::clicked, this, &SelectDirectory::OKButton_Click);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &SelectDirectory::CancelButton_Click);
}

SelectDirectory::~SelectDirectory() {
  volumes_.OnChange({});
  CloseTree();
}

void SelectDirectory::DriveListBox_Change() {
  if (ui_->DriveListBox->currentIndex() >= 0) Show(ui_->DriveListBox->currentData().toString());
}

void SelectDirectory::DirListBox_Change() {
  ui_->SelectedFolderLabel->setText(QDir::toNativeSeparators(CurrentFolder()));
}

void SelectDirectory::NewFolderButton_Click() {
  // The settings would not keep a blank at the end of a path.
  const QString name =
      InputBox::Ask(this, tr("Enter a name for the new folder"), tr("New Folder")).trimmed();
  if (name.isEmpty()) return;
  const QString folder = QDir(CurrentFolder()).filePath(name);
  if (!IsFileName(name.toStdString())) {
    MessageBox::Show(this, tr("\"%1\" cannot be the name of a folder.").arg(name), windowTitle());
  } else if (!QDir().mkdir(folder)) {
    MessageBox::Show(this, tr("The folder %1 could not be made.").arg(folder), windowTitle());
  } else {
    Show(folder);
  }
}

void SelectDirectory::OKButton_Click() {
  selectedDirectory_ = QFile::encodeName(CurrentFolder()).toStdString();
  accept();
}

void SelectDirectory::CancelButton_Click() {
  selectedDirectory_.clear();
  reject();
}

void SelectDirectory::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Reveal();
}

void SelectDirectory::Show(const QString& folder) {
  const QModelIndex index = folders_->index(folder);
  ui_->DirListBox->setCurrentIndex(index);
  shown_ = index;
  Reveal();
  DirListBox_Change();
}

/// Expands the tree down to the shown folder and scrolls to it.
void SelectDirectory::Reveal() {
  if (!shown_.isValid()) return;
  const QPersistentModelIndex shown = std::exchange(shown_, {});
  for (QModelIndex index = shown; index.isValid(); index = index.parent()) {
    ui_->DirListBox->expand(index);
  }
  ui_->DirListBox->scrollTo(shown, QTreeView::PositionAtCenter);
  shown_ = shown;
}

void SelectDirectory::OpenTree() {
  CloseTree();
  folders_ = new QFileSystemModel(this);
  folders_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  folders_->setRootPath(QDir::rootPath());
  ui_->DirListBox->setModel(folders_);
  for (int column = 1; column < folders_->columnCount(); ++column) {
    ui_->DirListBox->hideColumn(column);
  }
  connect(ui_->DirListBox->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &SelectDirectory::DirListBox_Change);
  connect(ui_->DirListBox->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &SelectDirectory::LetGo);
  KeepInSight();
}

/// Deleting the model waits until it has read its last folder, which never happens on a drive that
/// does not answer.
void SelectDirectory::CloseTree() {
  if (!folders_) return;
  ui_->DirListBox->setModel(nullptr);
  folders_->disconnect(this);
  const bool mayNeverEnd = std::any_of(drives_.begin(), drives_.end(),
                                       [](const DriveEntry& drive) { return !drive.canBeChosen; });
  if (mayNeverEnd) {
    folders_->setParent(nullptr);
  } else {
    delete folders_;
  }
  folders_ = nullptr;
}

/// The folders above and beside the shown one are read and sorted in the background, which can
/// scroll it out of sight. This scrolls back to it until the person selects something else.
void SelectDirectory::KeepInSight() {
  connect(folders_, &QFileSystemModel::directoryLoaded, this, &SelectDirectory::Reveal);
  connect(folders_, &QFileSystemModel::rowsInserted, this, &SelectDirectory::Reveal);
  connect(folders_, &QFileSystemModel::layoutChanged, this, &SelectDirectory::Reveal);
}

void SelectDirectory::LetGo() { shown_ = QModelIndex(); }

/// What is selected stays, in both lists, unless it is gone.
void SelectDirectory::VolumesChange() {
  const std::vector<DriveEntry> now = DriveEntries(volumes_.Now());
  if (now == drives_) return;
  const QSignalBlocker quiet(ui_->DriveListBox);
  const QString drive = ui_->DriveListBox->currentData().toString();
  const QString folder = CurrentFolder();
  const int holder = EntryHolding(drives_, folder);
  const QString pulledOut = holder < 0 ? QString() : drives_[static_cast<std::size_t>(holder)].path;
  ShowDrives(now);
  if (EntryAt(now, pulledOut) < 0) {
    OpenTree();
    Show(ExistingFolder(folder));
  }
  const int kept = EntryAt(now, drive);
  ui_->DriveListBox->setCurrentIndex(kept >= 0 ? kept : EntryHolding(now, CurrentFolder()));
}

/// Changes only the entries that differ, so that the list can stay open meanwhile.
void SelectDirectory::ShowDrives(const std::vector<DriveEntry>& drives) {
  QComboBox& box = *ui_->DriveListBox;
  auto& model = dynamic_cast<QStandardItemModel&>(*box.model());
  for (int i = box.count() - 1; i >= 0; --i) {
    if (EntryAt(drives, box.itemData(i).toString()) < 0) box.removeItem(i);
  }
  int row = 0;
  for (const DriveEntry& drive : drives) {
    if (box.itemData(row).toString() != drive.path) box.insertItem(row, drive.text, drive.path);
    box.setItemText(row, drive.text);
    box.setItemData(row, QDir::toNativeSeparators(drive.path), Qt::ToolTipRole);
    model.item(row)->setEnabled(drive.canBeChosen);
    ++row;
  }
  drives_ = drives;
}

QString SelectDirectory::CurrentFolder() const {
  return folders_->filePath(ui_->DirListBox->currentIndex());
}

}  // namespace repvolta
