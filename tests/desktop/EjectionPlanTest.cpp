#include <QByteArrayList>
#include <gtest/gtest.h>
#include <sys/sysmacros.h>

#include "platform/desktop/EjectionPlan.h"

namespace repvolta {
namespace {

using State = Ejection::State;

constexpr const char* kBlocks = "/org/freedesktop/UDisks2/block_devices/";
constexpr const char* kDrives = "/org/freedesktop/UDisks2/drives/";

struct BlockFacts {
  unsigned minor = 0;
  QByteArrayList points = {};
  const char* drive = "Player";
  const char* backing = nullptr;
};

QDBusObjectPath PathOf(const char* folder, const char* name) {
  return QDBusObjectPath(name ? QString(folder) + name : QString("/"));
}

/// A player with one partition, which is mounted, and a disk.
class EjectionPlanTest : public testing::Test {
 protected:
  EjectionPlanTest() {
    AddBlock("sda1", {.minor = 1, .points = {"/"}, .drive = "Disk"});
    AddBlock("sdb", {.minor = 16});
    AddBlock("sdb1", {.minor = 17, .points = {"/media/WALKMAN"}});
    AddDrive("Disk", {{"CanPowerOff", true}});
    AddDrive("Player", {{"CanPowerOff", true}, {"SiblingId", ""}});
  }

  void AddBlock(const char* name, const BlockFacts& facts) {
    auto& interfaces = objects[PathOf(kBlocks, name)];
    interfaces = {{"org.freedesktop.UDisks2.Block",
                   {{"Device", QByteArray("/dev/") + name + '\0'},
                    {"DeviceNumber", qulonglong{makedev(8, facts.minor)}},
                    {"Drive", QVariant::fromValue(PathOf(kDrives, facts.drive))},
                    {"CryptoBackingDevice", QVariant::fromValue(PathOf(kBlocks, facts.backing))}}}};
    if (facts.points.isEmpty()) return;
    QByteArrayList ended;
    for (const QByteArray& point : facts.points) ended << point + '\0';
    interfaces["org.freedesktop.UDisks2.Filesystem"] = {
        {"MountPoints", QVariant::fromValue(ended)}};
  }
  void AddDrive(const char* name, const QVariantMap& properties) {
    objects[PathOf(kDrives, name)] = {{"org.freedesktop.UDisks2.Drive", properties}};
  }

  EjectionPlan Plan() const { return PlanEjection(objects, mount, "WALKMAN"); }
  std::vector<std::string> Calls() const {
    std::vector<std::string> calls;
    for (const EjectionCall& call : Plan().calls) {
      calls.push_back(
          (call.object.section('/', -1) + " " + call.interface.section('.', -1) + "." + call.method)
              .toStdString());
    }
    return calls;
  }

  UDisksObjects objects;
  Mount mount{"/media/WALKMAN", "vfat", "/dev/sdb1", 8, 17};
};

using Names = std::vector<std::string>;

TEST_F(EjectionPlanTest, UnmountsAndSwitchesOff) {
  EXPECT_EQ(Plan().ejection, (Ejection{State::kPossible, "WALKMAN", ""}));
  EXPECT_EQ(Calls(), (Names{"sdb1 Filesystem.Unmount", "Player Drive.PowerOff"}));
}

TEST_F(EjectionPlanTest, NamesTheWholeObjectAndInterface) {
  EXPECT_EQ(Plan().calls.at(0), (EjectionCall{QString(kBlocks) + "sdb1",
                                              "org.freedesktop.UDisks2.Filesystem", "Unmount"}));
}

TEST_F(EjectionPlanTest, EjectsWhatCannotBeSwitchedOff) {
  AddDrive("Player", {{"CanPowerOff", false}, {"Ejectable", true}});
  EXPECT_EQ(Calls(), (Names{"sdb1 Filesystem.Unmount", "Player Drive.Eject"}));
}

TEST_F(EjectionPlanTest, OnlyUnmountsACardInAReaderThatStays) {
  AddDrive("Player", {{"CanPowerOff", false}, {"Ejectable", false}});
  EXPECT_EQ(Calls(), (Names{"sdb1 Filesystem.Unmount"}));
}

TEST_F(EjectionPlanTest, UnmountsEachPlaceOfTheFileSystem) {
  AddBlock("sdb1", {.minor = 17, .points = {"/media/WALKMAN", "/srv/player"}});
  EXPECT_EQ(Calls(),
            (Names{"sdb1 Filesystem.Unmount", "sdb1 Filesystem.Unmount", "Player Drive.PowerOff"}));
}

TEST_F(EjectionPlanTest, LocksAnEncryptedDevice) {
  AddBlock("sdb1", {.minor = 17});
  AddBlock("dm_2d0", {.minor = 99, .points = {"/media/X"}, .drive = nullptr, .backing = "sdb1"});
  mount.minor = 99;
  EXPECT_EQ(Calls(),
            (Names{"dm_2d0 Filesystem.Unmount", "sdb1 Encrypted.Lock", "Player Drive.PowerOff"}));
}

TEST_F(EjectionPlanTest, FindsAFileSystemWithANumberOfItsOwnByItsDevice) {
  mount = {"/media/WALKMAN", "btrfs", "/dev/sdb1", 0, 44};
  EXPECT_EQ(Calls(), (Names{"sdb1 Filesystem.Unmount", "Player Drive.PowerOff"}));
}

TEST_F(EjectionPlanTest, RefusesWhileAnotherPartitionIsMounted) {
  AddBlock("sdb2", {.minor = 18, .points = {"/media/PART2"}});
  EXPECT_EQ(Plan().ejection,
            (Ejection{State::kRefused, "WALKMAN",
                      "Another part of this device is mounted, too: /media/PART2. Unmount it "
                      "first."}));
  EXPECT_EQ(Calls(), Names());
}

TEST_F(EjectionPlanTest, RefusesWhileTheCardInThePlayerIsMounted) {
  AddDrive("Card", {{"SiblingId", "usb-1"}});
  AddBlock("sdc1", {.minor = 33, .points = {"/media/CARD"}, .drive = "Card"});
  EXPECT_EQ(Plan().ejection.state, State::kPossible);
  AddDrive("Player", {{"CanPowerOff", true}, {"SiblingId", "usb-1"}});
  EXPECT_EQ(Plan().ejection.state, State::kRefused);
}

TEST_F(EjectionPlanTest, RefusesWhatTheServiceDoesNotKnow) {
  mount.minor = 55;
  EXPECT_EQ(Plan().ejection.reason,
            "The service that ejects disks (UDisks2) does not know WALKMAN.");
}

TEST_F(EjectionPlanTest, RefusesWhatTheServiceDoesNotTakeForMounted) {
  AddBlock("sdb1", {.minor = 17});
  EXPECT_EQ(Plan().ejection.state, State::kRefused);
}

TEST(EjectionReason, IsInPlainWords) {
  const auto reason = [](const char* error) { return ReasonOf(error, "Text.", "WALKMAN"); };
  const std::string service = "The service that ejects disks (UDisks2) ";
  EXPECT_EQ(reason("org.freedesktop.UDisks2.Error.DeviceBusy"),
            "WALKMAN is still in use by a program. Close the program, and try again.");
  for (const char* error : {"NotAuthorized", "NotAuthorizedCanObtain", "NotAuthorizedDismissed"}) {
    EXPECT_EQ(reason((std::string("org.freedesktop.UDisks2.Error.") + error).c_str()),
              "You are not allowed to eject WALKMAN.");
  }
  for (const char* error :
       {kNoReply, "org.freedesktop.DBus.Error.TimedOut", "org.freedesktop.DBus.Error.Timeout",
        "org.freedesktop.UDisks2.Error.Timedout"}) {
    EXPECT_EQ(reason(error), service + "does not answer.") << error;
  }
  for (const char* error :
       {kNoService, "org.freedesktop.DBus.Error.Spawn.ServiceNotFound",
        "org.freedesktop.DBus.Error.NameHasNoOwner", "org.freedesktop.DBus.Error.Disconnected"}) {
    EXPECT_EQ(reason(error), service + "is not running.") << error;
  }
  EXPECT_EQ(reason("org.freedesktop.DBus.Error.UnknownObject"), "WALKMAN is no longer there.");
  EXPECT_EQ(reason("org.freedesktop.UDisks2.Error.Failed"), "WALKMAN could not be ejected: Text.");
}

}  // namespace
}  // namespace repvolta
