#include "platform/desktop/EjectionPlan.h"

#include <QByteArrayList>
#include <QDBusArgument>
#include <sys/sysmacros.h>

namespace repvolta {
namespace {

constexpr const char* kBlock = "org.freedesktop.UDisks2.Block";
constexpr const char* kDrive = "org.freedesktop.UDisks2.Drive";
constexpr const char* kEncrypted = "org.freedesktop.UDisks2.Encrypted";
constexpr const char* kFilesystem = "org.freedesktop.UDisks2.Filesystem";

/// One object of the service.
class Object {
 public:
  Object(const UDisksObjects& all, QString path)
      : interfaces_(all.value(QDBusObjectPath(path))), path_(std::move(path)) {}

  const QString& Path() const { return path_; }
  QVariant Get(const char* interface, const char* property) const {
    return interfaces_.value(interface).value(property);
  }
  QString PathIn(const char* interface, const char* property) const {
    return Get(interface, property).value<QDBusObjectPath>().path();
  }
  EjectionCall Call(const char* interface, const char* method) const {
    return {path_, interface, method};
  }

  bool IsBlock() const { return interfaces_.contains(kBlock); }
  QByteArrayList MountPoints() const {
    return qdbus_cast<QByteArrayList>(Get(kFilesystem, "MountPoints"));
  }

 private:
  QMap<QString, QVariantMap> interfaces_;
  QString path_;
};

/// Texts of the service that are paths end with a zero byte.
QByteArray WithoutZero(QByteArray bytes) {
  if (bytes.endsWith('\0')) bytes.chop(1);
  return bytes;
}

bool IsDeviceOf(const Object& block, const Mount& mount) {
  if (mount.major != 0) {
    return block.Get(kBlock, "DeviceNumber").toULongLong() == makedev(mount.major, mount.minor);
  }
  // The file system has a number of its own.
  return WithoutZero(block.Get(kBlock, "Device").toByteArray()).toStdString() == mount.source;
}

/// The encrypted device that an opened one stands for, or else the device itself.
Object Backing(const UDisksObjects& objects, const Object& block) {
  const Object backing(objects, block.PathIn(kBlock, "CryptoBackingDevice"));
  return backing.IsBlock() ? backing : block;
}

Object DriveOf(const UDisksObjects& objects, const Object& block) {
  return {objects, Backing(objects, block).PathIn(kBlock, "Drive")};
}

/// True when unplugging one unplugs the other.
bool AreOneDevice(const Object& drive, const Object& other) {
  const QString sibling = drive.Get(kDrive, "SiblingId").toString();
  return drive.Path() == other.Path() ||
         (!sibling.isEmpty() && sibling == other.Get(kDrive, "SiblingId").toString());
}

/// Where another part of the device is mounted; empty when none is.
std::string OtherMount(const UDisksObjects& objects, const Object& block, const Object& drive) {
  for (auto entry = objects.keyBegin(); entry != objects.keyEnd(); ++entry) {
    const Object other(objects, entry->path());
    if (!other.IsBlock() || other.Path() == block.Path()) continue;
    const QByteArrayList points = other.MountPoints();
    if (points.isEmpty() || !AreOneDevice(drive, DriveOf(objects, other))) continue;
    return WithoutZero(points.first()).toStdString();
  }
  return {};
}

std::vector<EjectionCall> CallsFor(const UDisksObjects& objects, const Object& block,
                                   const Object& drive) {
  std::vector<EjectionCall> calls;
  for (qsizetype i = 0; i < block.MountPoints().size(); ++i) {
    calls.push_back(block.Call(kFilesystem, "Unmount"));
  }
  const Object backing = Backing(objects, block);
  if (backing.Path() != block.Path()) calls.push_back(backing.Call(kEncrypted, "Lock"));
  if (drive.Get(kDrive, "CanPowerOff").toBool()) {
    calls.push_back(drive.Call(kDrive, "PowerOff"));
  } else if (drive.Get(kDrive, "Ejectable").toBool()) {
    calls.push_back(drive.Call(kDrive, "Eject"));
  }
  return calls;
}

EjectionPlan Refusal(const std::string& label, std::string reason) {
  return {{Ejection::State::kRefused, label, std::move(reason)}, {}};
}

}  // namespace

EjectionPlan PlanEjection(const UDisksObjects& objects, const Mount& mount,
                          const std::string& label) {
  for (auto entry = objects.keyBegin(); entry != objects.keyEnd(); ++entry) {
    const Object block(objects, entry->path());
    if (!block.IsBlock() || !IsDeviceOf(block, mount)) continue;
    const Object drive = DriveOf(objects, block);
    const std::string other = OtherMount(objects, block, drive);
    if (!other.empty()) {
      return Refusal(
          label, "Another part of this device is mounted, too: " + other + ". Unmount it first.");
    }
    if (block.MountPoints().isEmpty()) break;
    return {{Ejection::State::kPossible, label, {}}, CallsFor(objects, block, drive)};
  }
  return Refusal(label, "The service that ejects disks (UDisks2) does not know " + label + ".");
}

std::string ReasonOf(const QString& error, const QString& text, const std::string& label) {
  const auto is = [&](const char* prefix) { return error.startsWith(prefix); };
  if (is("org.freedesktop.UDisks2.Error.DeviceBusy")) {
    return label + " is still in use by a program. Close the program, and try again.";
  }
  if (is("org.freedesktop.UDisks2.Error.NotAuthorized")) {
    return "You are not allowed to eject " + label + ".";
  }
  if (is(kNoReply) || is("org.freedesktop.UDisks2.Error.Timedout") ||
      is("org.freedesktop.DBus.Error.Timeout") || is("org.freedesktop.DBus.Error.TimedOut")) {
    return "The service that ejects disks (UDisks2) does not answer.";
  }
  if (is(kNoService) || is("org.freedesktop.DBus.Error.Spawn") ||
      is("org.freedesktop.DBus.Error.NameHasNoOwner") ||
      is("org.freedesktop.DBus.Error.Disconnected")) {
    return "The service that ejects disks (UDisks2) is not running.";
  }
  if (is("org.freedesktop.DBus.Error.Unknown")) return label + " is no longer there.";
  return label + " could not be ejected: " + text.toStdString();
}

}  // namespace repvolta
