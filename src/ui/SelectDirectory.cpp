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
#include "ui/ReadableTree.h"
#include "ui/SizeOnScreen.h"
#include "ui/WheelGuard.h"

#include "ui_SelectDirectory.h"

namespace repvolta {
namespace {

// In characters of the dialog's font.
constexpr int kWidth = 64;
constexpr int kHeight = 28;

// Milliseconds for which a folder is selected before it is looked at.
constexpr int kRest = 150;

/// The folder, or its nearest existing parent.
QString ExistingFolder(const QString& folder) {
  QString path = QDir(folder).absolutePath();
  while (!QFileInfo(path).isDir() && path != QDir::rootPath()) path = QFileInfo(path).path();
  return path;
}

QString SongsText(const FolderSight& sight) {
  using State = FolderSight::State;
  if (sight.state == State::kUnreadable) return SelectDirectory::tr("This folder cannot be read.");
  const QString text = SelectDirectory::tr("Songs in it and below it: %1").arg(sight.songs);
  return sight.state == State::kLooking ? text + "..." : text;
}

QString RoomText(const FolderSight& sight) {
  if (!sight.freeBytes) return SelectDirectory::tr("How much room it has is not known.");
  return SelectDirectory::tr("Room: %1").arg(FreeRoomText(*sight.freeBytes));
}

/// The settings would not keep a blank at the end of a path.
QString NewFolderName(const QString& answer) { return answer.trimmed(); }

AnswerHelp NewFolderHelp(const QString& parent) {
  return {.now = "In " + QDir::toNativeSeparators(parent).toStdString() + ".",
          .kept = [](std::string_view answer) -> std::string {
            const QString typed =
                QString::fromUtf8(answer.data(), static_cast<qsizetype>(answer.size()));
            const std::string name = NewFolderName(typed).toStdString();
            if (name.empty()) return "Nothing is made.";
            return IsFileName(name) ? "Will be made: \"" + name + "\"."
                                    : "Refused: a folder cannot have this name.";
          }};
}

}  // namespace

SelectDirectory::SelectDirectory(Volumes& volumes, const FolderQuestion& question, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::SelectDirectory>()),
      volumes_(volumes),
      figure_(question.figure),
      look_(question.figure, [this](const FolderSight& sight) { ShowSight(sight); }) {
  ui_->setupUi(this);
  new WheelGuard(this);
  ui_->PurposeLabel->setText(QString::fromStdString(question.purpose));
  ui_->DirListBox->setAccessibleDescription(ui_->PurposeLabel->text());
  lookSoon_.setSingleShot(true);
  lookSoon_.setInterval(kRest);
  connect(&lookSoon_, &QTimer::timeout, this, &SelectDirectory::LookAtFolder);
  resize(SizeOnScreen(
      *this, {kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing()}));
  OpenTree();
  ShowDrives(DriveEntries(volumes_.Now()));
  Show(StartOf(question));
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

/// Is also called when folders beside the selected one come and go.
void SelectDirectory::DirListBox_Change() {
  const QString folder = CurrentFolder();
  if (folder == folderInQuestion_) return;
  folderInQuestion_ = folder;
  ui_->SelectedFolderLabel->setText(QDir::toNativeSeparators(folder));
  ui_->FigureLabel->clear();
  look_.GiveUp();
  lookSoon_.start();
}

void SelectDirectory::NewFolderButton_Click() {
  const QString name =
      NewFolderName(InputBox::Ask(this, tr("Enter a name for the new folder"), tr("New Folder"),
                                  NewFolderHelp(CurrentFolder())));
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
  folderInQuestion_.clear();
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
  KeepReadable(*ui_->DirListBox);
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

/// A drive that does not answer would hold up the window.
QString SelectDirectory::StartOf(const FolderQuestion& question) const {
  const QString start = QFile::decodeName(question.start.c_str());
  const int drive = EntryHolding(drives_, start);
  const bool answers = drive < 0 || drives_[static_cast<std::size_t>(drive)].canBeChosen;
  return start.isEmpty() || !answers ? QDir::homePath() : ExistingFolder(start);
}

void SelectDirectory::LookAtFolder() { look_.At(QFile::encodeName(CurrentFolder()).toStdString()); }

void SelectDirectory::ShowSight(const FolderSight& sight) {
  const QString text =
      figure_ == FolderQuestion::Figure::kSongs ? SongsText(sight) : RoomText(sight);
  ui_->FigureLabel->setText(text);
  // Read by screen readers with the folder that has the focus.
  ui_->DirListBox->setAccessibleDescription(ui_->PurposeLabel->text() + " " + text);
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
