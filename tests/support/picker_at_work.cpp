#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <sys/mount.h>

#include "base/Descriptor.h"
#include "platform/MountedVolumes.h"
#include "ui/SelectDirectory.h"

#include "support/FolderFrom.h"
#include "support/Modal.h"

// Opens the folder picker while disks come and go, and prints what it shows. It needs a namespace
// in which it may mount, and mounts in the current directory.

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kLimit = 10000;      // milliseconds for something to show
constexpr qint64 kInstant = 3000;  // milliseconds that no step of the window may take

void Say(const QString& line) {
  static_cast<void>(std::printf("%s\n", line.toUtf8().constData()));
  static_cast<void>(std::fflush(stdout));
}

void Require(bool succeeded, const char* what) {
  if (succeeded) return;
  std::perror(what);
  std::exit(2);
}

/// A mounted file system whose program never answers.
Descriptor MountHung(const char* place) {
  Descriptor device = OpenDescriptor("/dev/fuse", O_RDWR);
  Require(device.IsOpen(), "/dev/fuse");
  const std::string options =
      "fd=" + std::to_string(device.Number()) + ",rootmode=40000,user_id=0,group_id=0";
  Require(mount("hung", place, "fuse.hung", 0, options.c_str()) == 0, "mount of fuse");
  return device;
}

class PickerAtWork {
 public:
  PickerAtWork() {
    for (const char* name : {"disk/Music", "mnt", "hung", "start"}) fs::create_directories(name);
    dialog_ = std::make_unique<SelectDirectory>(volumes_, From(At("start")));
    dialog_->show();
  }

  void Run() {
    Require(mount("disk", "mnt", nullptr, MS_BIND, nullptr) == 0, "mount of a folder");
    AwaitEntry("mnt");
    Say("selected: " + Selected());
    Drives().setCurrentIndex(Drives().findData(At("mnt")));
    Await("listed: Music", [this] {
      const QModelIndex shown = Folders().currentIndex();
      return Folders().model()->index(0, 0, shown).data().toString() == "Music";
    });
    const Descriptor hung = MountHung("hung");
    AwaitEntry("hung (does not answer)");
    Say("selected: " + Selected());
    Require(umount2("mnt", MNT_DETACH) == 0, "unmount");
    Await("gone: mnt", [this] { return Drives().findData(At("mnt")) < 0; });
    Say("selected: " + Selected());
    dialog_.reset();
    Say("closed");
  }

 private:
  static QString At(const char* name) {
    return QString::fromStdString((fs::current_path() / name).string());
  }
  QComboBox& Drives() { return Find<QComboBox>(*dialog_, "DriveListBox"); }
  QTreeView& Folders() { return Find<QTreeView>(*dialog_, "DirListBox"); }
  QString Selected() {
    return Find<QLabel>(*dialog_, "SelectedFolderLabel").text().replace(At(""), "");
  }

  void AwaitEntry(const char* text) {
    Await(QStringLiteral("offered: ") + text, [&] { return Drives().findText(At(text)) >= 0; });
  }

  /// Lets events run until `shows`, and says so, or how long the window was stuck.
  static void Await(const QString& line, const std::function<bool()>& shows) {
    qint64 longest = 0;
    for (const QDeadlineTimer limit(kLimit); !shows() && !limit.hasExpired();) {
      QElapsedTimer step;
      step.start();
      QApplication::processEvents();
      longest = std::max(longest, step.elapsed());
    }
    Say((shows() ? "" : "not ") + line);
    if (longest > kInstant) Say(QStringLiteral("stuck for %1 ms").arg(longest));
  }

  MountedVolumes volumes_;
  std::unique_ptr<SelectDirectory> dialog_;
};

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  repvolta::PickerAtWork().Run();
  return 0;
}
