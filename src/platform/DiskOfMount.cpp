#include "platform/DiskOfMount.h"

#include <charconv>
#include <filesystem>
#include <fstream>

#include "base/FileNames.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kDeepestLayer = 4;  // of disks that lie on other disks

/// The folder in which the system describes the block device of the mount; empty when there is
/// none.
fs::path DeviceFolder(const Mount& mount, const SystemFiles& files) {
  std::error_code error;
  const std::string number = std::to_string(mount.major) + ":" + std::to_string(mount.minor);
  fs::path folder = fs::canonical(fs::path(files.sys) / "dev/block" / number, error);
  // Some file systems have a number of their own, not the device's.
  if (error && mount.source.starts_with("/dev/")) {
    folder = fs::canonical(fs::path(files.sys) / "class/block" / FileName(mount.source), error);
  }
  return error ? fs::path() : folder;
}

std::string FirstWord(const fs::path& file) {
  std::ifstream stream(file);
  std::string word;
  stream >> word;
  return word;
}

bool IsRemovable(fs::path device, int layer) {
  std::error_code error;
  if (fs::exists(device / "partition", error)) device = device.parent_path();
  const std::string path = device.string();
  if (path.find("/usb") != std::string::npos || FirstWord(device / "removable") == "1") return true;
  // A card in its slot; memory that is soldered in calls itself "MMC".
  if (path.find("/mmc_host/") != std::string::npos && FirstWord(device / "device/type") == "SD") {
    return true;
  }
  if (layer == kDeepestLayer) return false;
  for (const fs::directory_entry& below : fs::directory_iterator(device / "slaves", error)) {
    std::error_code gone;
    const fs::path disk = fs::canonical(below.path(), gone);
    if (!gone && IsRemovable(disk, layer + 1)) return true;
  }
  return false;
}

/// Names of devices write blanks and the like as \x20.
std::string Decoded(const std::string& name) {
  constexpr std::size_t kLength = 4;
  std::string text;
  for (std::size_t i = 0; i < name.size(); ++i) {
    unsigned code = 0;
    if (name.compare(i, 2, "\\x") == 0 && i + kLength <= name.size() &&
        std::from_chars(name.data() + i + 2, name.data() + i + kLength, code, 16).ec ==
            std::errc()) {
      text += static_cast<char>(code);
      i += kLength - 1;
    } else {
      text += name[i];
    }
  }
  return text;
}

}  // namespace

bool IsOnRemovableDisk(const Mount& mount, const SystemFiles& files) {
  const fs::path device = DeviceFolder(mount, files);
  return !device.empty() && IsRemovable(device, 0);
}

std::string LabelOf(const Mount& mount, const SystemFiles& files) {
  const std::string device = DeviceFolder(mount, files).filename().string();
  std::error_code error;
  for (const auto& link : fs::directory_iterator(fs::path(files.dev) / "disk/by-label", error)) {
    std::error_code gone;
    const fs::path target = fs::read_symlink(link.path(), gone);
    if (!gone && !device.empty() && target.filename() == device) {
      return Decoded(link.path().filename().string());
    }
  }
  return FileName(mount.point);
}

}  // namespace repvolta
