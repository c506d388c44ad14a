#pragma once

#include <filesystem>
#include <string>

#include "platform/MountTable.h"

#include "support/TemporaryFolder.h"

namespace repvolta {

/// A system's files on disks, in a temporary folder; all paths are relative to it.
class DiskTree {
 public:
  /// A partition that the system describes in `place`, below which its disk is a folder of its own.
  void AddPartition(const std::string& place, const std::string& number,
                    const std::string& isRemovable = "0") {
    const std::filesystem::path partition = "sys/devices/" + place;
    PutFile(partition / "partition", "1\n");
    PutFile(partition.parent_path() / "removable", isRemovable + "\n");
    Name(partition, number);
  }

  /// A device without partitions.
  void AddDisk(const std::string& place, const std::string& number,
               const std::string& isRemovable = "0") {
    PutFile("sys/devices/" + place + "/removable", isRemovable + "\n");
    Name("sys/devices/" + place, number);
  }

  /// `device` is the device's name, "sdb1"; `link` its label as names of devices write it.
  void AddLabel(const std::string& link, const std::string& device) {
    std::filesystem::create_directories("dev/disk/by-label");
    std::filesystem::create_symlink("../../" + device, "dev/disk/by-label/" + link);
  }

  /// Replaces the table of mounts.
  void SetMounts(const std::string& table) { PutFile("mountinfo", table); }

  SystemFiles Files() const {
    return {.mounts = Path() + "mountinfo", .sys = Path() + "sys", .dev = Path() + "dev"};
  }
  const std::string& Path() const { return folder_.Path(); }

 private:
  static void Name(const std::filesystem::path& device, const std::string& number) {
    std::filesystem::create_directories("sys/dev/block");
    std::filesystem::create_directories("sys/class/block");
    const auto full = std::filesystem::absolute(device);
    std::filesystem::create_symlink(full, "sys/dev/block/" + number);
    std::filesystem::create_symlink(full, "sys/class/block" / device.filename());
  }

  TemporaryFolder folder_;
};

}  // namespace repvolta
