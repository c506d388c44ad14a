#include "ui/SelectDirectory.h"

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QScrollBar>
#include <QStorageInfo>
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

/// False for file systems that hold the machine's state, not a person's files.
bool IsPersonal(const QStorageInfo& volume) {
  static const QStringList personal{"btrfs", "cifs",    "exfat", "ext2",    "ext3",    "ext4",
                                    "f2fs",  "fuseblk", "hfs",   "hfsplus", "iso9660", "jfs",
                                    "msdos", "nfs",     "nfs4",  "ntfs",    "ntfs3",   "reiserfs",
                                    "smb3",  "udf",     "vfat",  "xfs",     "zfs"};
  return personal.contains(QString::fromLatin1(volume.fileSystemType())) ||
         volume.fileSystemType().startsWith("fuse.");
}

/// The folder, or its nearest existing parent.
QString ExistingFolder(const QString& folder) {
  QString path = QDir(folder).absolutePath();
  while (!QFileInfo(path).isDir() && path != QDir::rootPath()) path = QFileInfo(path).path();
  return path;
}

}  // namespace

QStringList MountedVolumes() {
  QStringList roots;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const QString root = volume.rootPath();
    if (volume.isReady() && IsPersonal(volume) && QFileInfo(root).isDir()) roots << root;
  }
  roots.removeAll(QDir::rootPath());
  roots.sort();
  roots.removeDuplicates();
  roots.prepend(QDir::rootPath());
  return roots;
}

SelectDirectory::SelectDirectory(const QStringList& drives, const QString& start, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::SelectDirectory>()),
      folders_(new QFileSystemModel(this)) {
  ui_->setupUi(this);
  new WheelGuard(this);
  resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
  folders_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  folders_->setRootPath(QDir::rootPath());
  ui_->DirListBox->setModel(folders_);
  for (int column = 1; column < folders_->columnCount(); ++column) {
    ui_->DirListBox->hideColumn(column);
  }
  ui_->DriveListBox->addItems(drives);
  Show(ExistingFolder(start));
  ShowDriveOf(CurrentFolder());

  connect(ui_->DriveListBox, &QComboBox::currentIndexChanged, this,
          &SelectDirectory::DriveListBox_Change);
  connect(ui_->DirListBox->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &SelectDirectory::DirListBox_Change);
  KeepInSight();
  connect(ui_->NewFolderButton, &QPushButton::clicked, this,
          &SelectDirectory::NewFolderButton_Click);
  connect(ui_->OKButton, &QPushButton::clicked, this, &SelectDirectory::OKButton_Click);
  connect(ui_->CancelButton, &QPushButton::clicked, this, &SelectDirectory::CancelButton_Click);
}

SelectDirectory::~SelectDirectory() = default;

void SelectDirectory::DriveListBox_Change() { Show(ui_->DriveListBox->currentText()); }

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

/// The folders above and beside the shown one are read and sorted in the background, which can
/// scroll it out of sight. This scrolls back to it until the person selects something else.
void SelectDirectory::KeepInSight() {
  const auto reveal = [this] { Reveal(); };
  connect(folders_, &QFileSystemModel::directoryLoaded, this, reveal);
  connect(folders_, &QFileSystemModel::rowsInserted, this, reveal);
  connect(folders_, &QFileSystemModel::layoutChanged, this, reveal);

  const auto letGo = [this] { shown_ = QModelIndex(); };
  connect(ui_->DirListBox->selectionModel(), &QItemSelectionModel::currentChanged, this, letGo);
  connect(ui_->DirListBox, &QTreeView::expanded, this, letGo);
  connect(ui_->DirListBox, &QTreeView::collapsed, this, letGo);
  connect(ui_->DirListBox->verticalScrollBar(), &QScrollBar::actionTriggered, this, letGo);
}

/// Selects the innermost volume of DriveListBox that contains the folder.
void SelectDirectory::ShowDriveOf(const QString& folder) {
  int best = -1;
  for (int i = 0; i < ui_->DriveListBox->count(); ++i) {
    const QString root = ui_->DriveListBox->itemText(i);
    const bool holds = folder == root || folder.startsWith(root.endsWith('/') ? root : root + '/');
    if (holds && (best < 0 || root.size() > ui_->DriveListBox->itemText(best).size())) best = i;
  }
  ui_->DriveListBox->setCurrentIndex(best);
}

QString SelectDirectory::CurrentFolder() const {
  return folders_->filePath(ui_->DirListBox->currentIndex());
}

}  // namespace repvolta
