#include "platform/MountedVolumes.h"

#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <map>
#include <utility>

#include "platform/DiskOfMount.h"

namespace repvolta {
namespace {

constexpr std::chrono::milliseconds kInstant(200);

/// False for file systems that hold the machine's state, not a person's files.
bool IsPersonal(const std::string& type) {
  constexpr std::array<std::string_view, 23> kPersonal = {
      "btrfs", "cifs", "exfat", "ext2",    "ext3",    "ext4", "f2fs",    "fuseblk",
      "hfs",   "jfs",  "msdos", "hfsplus", "iso9660", "nfs",  "nfs4",    "ntfs",
      "ntfs3", "smb3", "udf",   "vfat",    "xfs",     "zfs",  "reiserfs"};
  return type.starts_with("fuse.") ||
         std::find(kPersonal.begin(), kPersonal.end(), type) != kPersonal.end();
}

Volume VolumeOf(const Mount& mount, const SystemFiles& files) {
  const bool isRemovable = IsOnRemovableDisk(mount, files);
  return {.root = mount.point,
          .label = isRemovable ? LabelOf(mount, files) : std::string(),
          .kind = isRemovable ? Volume::Kind::kRemovable : Volume::Kind::kFixed};
}

}  // namespace

std::vector<Volume> PersonalVolumes(const std::vector<Mount>& mounts, const SystemFiles& files) {
  std::map<std::string, const Mount*> last;  // a later mount hides an earlier one at its place
  for (const Mount& mount : mounts) last[mount.point] = &mount;
  // The system's own disk, even when the computer was started from a stick.
  std::vector<Volume> volumes = {{.root = "/"}};
  for (const auto& [root, mount] : last) {
    if (root != "/" && IsPersonal(mount->type)) volumes.push_back(VolumeOf(*mount, files));
  }
  return volumes;
}

MountedVolumes::MountedVolumes(SystemFiles files)
    : files_(std::move(files)),
      answers_([this] { Tell(); }),
      table_(OpenDescriptor(files_.mounts, O_RDONLY)) {
  if (!table_.IsOpen()) return;
  // The system reports a changed table as an exception of the open file.
  notifier_ = std::make_unique<QSocketNotifier>(table_.Number(), QSocketNotifier::Exception);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] {
    isStale_ = true;
    Tell();
  });
}

MountedVolumes::~MountedVolumes() = default;

std::vector<Volume> MountedVolumes::Now() {
  std::vector<Volume> volumes = PersonalVolumes(ReadMounts(files_), files_);
  for (const Volume& volume : volumes) {
    if (volume.root != "/" && (isStale_ || !answers_.Of(volume.root))) answers_.Ask(volume.root);
  }
  isStale_ = false;
  answers_.Wait(kInstant);
  std::erase_if(volumes, [this](Volume& volume) {
    if (volume.root == "/") return false;
    const auto answer = answers_.Of(volume.root);
    if (!answer) volume.state = Volume::State::kSilent;
    if (answer) volume.freeBytes = answer->freeBytes;
    // Single files can be mounted, too, and the program that serves a file system can be dead.
    return answer && !answer->isFolder;
  });
  return volumes;
}

void MountedVolumes::Tell() const {
  if (tell_) tell_();
}

}  // namespace repvolta
