#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <sys/socket.h>
#include <sys/un.h>

#include "base/Descriptor.h"
#include "platform/desktop/UDisks.h"

#include "support/DiskTree.h"
#include "support/PrivateBus.h"
#include "support/RunProgram.h"

namespace repvolta {
namespace {

using State = Ejection::State;
using Calls = std::vector<std::string>;

constexpr int kLimit = 30000;  // milliseconds
constexpr std::chrono::milliseconds kShort(300);

/// A computer with a player, mounted in the folder "player", and its disks' service.
class UDisksTest : public testing::Test {
 protected:
  UDisksTest() {
    std::filesystem::create_directories("player/Monday");
    tree.AddPartition("pci/usb1/sdb/sdb1", "8:17");
    tree.AddPartition("pci/ata1/sda/sda1", "8:1");
    tree.AddLabel("WALKMAN", "sdb1");
    Mount("8:17", "vfat /dev/sdb1");
  }

  std::string At(const char* name) const { return tree.Path() + name; }

  /// Mounts the device in the folder "player".
  void Mount(const std::string& number, const std::string& typeAndSource) {
    tree.SetMounts("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 " + number + " / " + At("player") +
                   " rw - " + typeAndSource + " rw\n");
  }

  /// Before the service is started, tests may change what it knows and says.
  QJsonObject Block(std::vector<int> number, const char* point, const char* drive) const {
    return {{"number", QJsonArray{number[0], number[1]}},
            {"points", QJsonArray{QString::fromStdString(At(point))}},
            {"drive", drive}};
  }
  void Say(const char* method, const QStringList& results) {
    answers[method] = QJsonArray::fromStringList(results);
  }
  void StartService() {
    const QJsonObject parameters{{"blocks", blocks},
                                 {"drives", drives},
                                 {"answers", answers},
                                 {"calls", QString::fromStdString(At("calls"))}};
    bus.StartService(REPVOLTA_UDISKS_STAND_IN, QJsonDocument(parameters).toJson());
  }

  void UseLongLimits() {
    disks.emplace(UDisksSettings{tree.Files(), bus.Address(), std::chrono::milliseconds(kLimit),
                                 std::chrono::milliseconds(kLimit)});
  }

  Ejection Ask() {
    std::optional<Ejection> answer;
    disks->Ask(At("player/Monday"), [&](const Ejection& ejection) { answer = ejection; });
    Await([&] { return answer.has_value(); });
    return answer.value_or(Ejection{State::kNone, "", "no answer"});
  }
  std::string Eject() {
    std::optional<std::string> answer;
    disks->Eject(At("player/Monday"), [&](const std::string& failure) { answer = failure; });
    Await([&] { return answer.has_value(); });
    return answer.value_or("no answer");
  }
  static void Await(const std::function<bool()>& done) {
    for (const QDeadlineTimer limit(2 * kLimit); !done() && !limit.hasExpired();) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
  }

  Calls CallsOfService() const {
    return std::filesystem::exists("calls") ? Lines(GetTextFile("calls")) : Calls();
  }

  DiskTree tree;
  PrivateBus bus;
  QJsonObject blocks{{"sda1", Block({8, 1}, "/", "Disk")},
                     {"sdb1", Block({8, 17}, "player", "Player")}};
  QJsonObject drives{{"Disk", QJsonObject{{"Removable", false}}},
                     {"Player", QJsonObject{{"Removable", true}, {"CanPowerOff", true}}}};
  QJsonObject answers;
  std::optional<UDisks> disks;
};

const Ejection kPossible{State::kPossible, "WALKMAN", ""};

Ejection Refused(const std::string& reason) { return {State::kRefused, "WALKMAN", reason}; }

TEST_F(UDisksTest, CanEjectAPlayer) {
  StartService();
  UseLongLimits();
  EXPECT_EQ(Ask(), kPossible);
  EXPECT_EQ(CallsOfService(), Calls());
}

TEST_F(UDisksTest, UnmountAPlayerAndSwitchItOff) {
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(), "");
  EXPECT_EQ(CallsOfService(), (Calls{"sdb1 Unmount", "Player PowerOff"}));
}

TEST_F(UDisksTest, EjectWhatCannotBeSwitchedOff) {
  drives["Player"] = QJsonObject{{"Ejectable", true}, {"CanPowerOff", false}};
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(), "");
  EXPECT_EQ(CallsOfService(), (Calls{"sdb1 Unmount", "Player Eject"}));
}

TEST_F(UDisksTest, LockAnEncryptedPlayer) {
  tree.AddDisk("virtual/block/dm-0", "253:0");
  std::filesystem::create_directories("sys/devices/virtual/block/dm-0/slaves");
  std::filesystem::create_symlink(tree.Path() + "sys/devices/pci/usb1/sdb/sdb1",
                                  "sys/devices/virtual/block/dm-0/slaves/sdb1");
  Mount("253:0", "ext4 /dev/mapper/luks");
  QJsonObject opened = Block({253, 0}, "player", "");
  opened["backing"] = "sdb1";
  QJsonObject backing = Block({8, 17}, "player", "Player");
  backing.remove("points");
  blocks = {{"dm_2d0", opened}, {"sdb1", backing}};
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(), "");
  EXPECT_EQ(CallsOfService(), (Calls{"dm_2d0 Unmount", "sdb1 Lock", "Player PowerOff"}));
}

TEST_F(UDisksTest, SayWhenAProgramUsesThePlayerAndCanBeTriedAgain) {
  Say("Unmount", {"org.freedesktop.UDisks2.Error.DeviceBusy: target is busy"});
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(), "WALKMAN is still in use by a program. Close the program, and try again.");
  EXPECT_EQ(Eject(), "");
  EXPECT_EQ(CallsOfService(), (Calls{"sdb1 Unmount", "sdb1 Unmount", "Player PowerOff"}));
}

TEST_F(UDisksTest, GoOnWithWhatIsLeftWhenThePlayerIsAlreadyUnmounted) {
  Say("PowerOff", {"org.freedesktop.UDisks2.Error.Failed: Error writing: I/O error"});
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(),
            "WALKMAN is unmounted and holds all its files, but it could not be switched off. "
            "WALKMAN could not be ejected: Error writing: I/O error");
  tree.SetMounts("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n");
  EXPECT_EQ(Eject(), "");
  EXPECT_EQ(CallsOfService(), (Calls{"sdb1 Unmount", "Player PowerOff", "Player PowerOff"}));
}

TEST_F(UDisksTest, TakeAPlayerThatSomeoneHasUnmountedForUnmounted) {
  Say("Unmount", {"org.freedesktop.UDisks2.Error.NotMounted: not mounted"});
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(), "");
  EXPECT_EQ(CallsOfService(), (Calls{"sdb1 Unmount", "Player PowerOff"}));
}

TEST_F(UDisksTest, SayWhoMayNotEject) {
  Say("Unmount", {"org.freedesktop.UDisks2.Error.NotAuthorizedCanObtain: Not authorized"});
  StartService();
  UseLongLimits();
  EXPECT_EQ(Eject(), "You are not allowed to eject WALKMAN.");
}

TEST_F(UDisksTest, GiveUpWhenTheServiceDoesNotUnmount) {
  Say("Unmount", {"silent"});
  StartService();
  disks.emplace(UDisksSettings{tree.Files(), bus.Address(), std::chrono::seconds(30), kShort});
  EXPECT_EQ(Eject(), "The service that ejects disks (UDisks2) does not answer.");
}

TEST_F(UDisksTest, SayWhenAnotherPartOfThePlayerIsMounted) {
  blocks["sdb2"] = Block({8, 18}, "other", "Player");
  StartService();
  UseLongLimits();
  EXPECT_EQ(Ask(), Refused("Another part of this device is mounted, too: " + At("other") +
                           ". Unmount it first."));
  EXPECT_EQ(Eject(), Ask().reason);
  EXPECT_EQ(CallsOfService(), Calls());
}

TEST_F(UDisksTest, SayWhenThereIsNoService) {
  UseLongLimits();
  EXPECT_EQ(Ask(), Refused("The service that ejects disks (UDisks2) is not running."));
}

TEST_F(UDisksTest, SayWhenThereIsNoBus) {
  disks.emplace(UDisksSettings{tree.Files(), "unix:path=" + QString::fromStdString(At("no bus"))});
  EXPECT_EQ(Ask(), Refused("The service that ejects disks (UDisks2) is not running."));
}

TEST_F(UDisksTest, FindAServiceThatIsStartedLater) {
  UseLongLimits();
  EXPECT_EQ(Ask().state, State::kRefused);
  StartService();
  EXPECT_EQ(Ask(), kPossible);
}

/// A bus that takes connections and never says a word.
class MuteBus {
 public:
  explicit MuteBus(const std::string& path)
      : socket_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(bind(socket_.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(socket_.Number(), 8), 0);
  }

 private:
  Descriptor socket_;
};

TEST_F(UDisksTest, AreNotHeldUpByABusThatDoesNotAnswer) {
  const MuteBus mute(At("mute"));
  disks.emplace(UDisksSettings{tree.Files(), "unix:path=" + QString::fromStdString(At("mute")),
                               kShort, kShort});
  QElapsedTimer time;
  time.start();
  EXPECT_EQ(Ask(), Refused("The service that ejects disks (UDisks2) does not answer."));
  EXPECT_LT(time.elapsed(), 10000);
}

TEST_F(UDisksTest, EjectNothingFixed) {
  Mount("8:1", "ext4 /dev/sda1");
  StartService();
  UseLongLimits();
  EXPECT_EQ(Ask(), Ejection());
}

TEST_F(UDisksTest, EjectNoFileSystemThatAProgramServes) {
  Mount("0:61", "fuse.jmtpfs jmtpfs");
  StartService();
  UseLongLimits();
  EXPECT_EQ(Ask(), Ejection());
}

TEST_F(UDisksTest, DoNotEjectTheDiskThatTheyWorkOn) {
  StartService();
  UseLongLimits();
  std::filesystem::current_path("player");
  EXPECT_EQ(Ask(), Refused("Repvolta itself works on WALKMAN."));
}

TEST_F(UDisksTest, FindAPlayerThroughALink) {
  std::filesystem::create_directory_symlink("player/Monday", "link");
  StartService();
  UseLongLimits();
  std::optional<Ejection> answer;
  disks->Ask(At("link"), [&](const Ejection& ejection) { answer = ejection; });
  Await([&] { return answer.has_value(); });
  EXPECT_EQ(answer, kPossible);
}

TEST_F(UDisksTest, AnswerOnlyTheNewestQuestion) {
  StartService();
  UseLongLimits();
  bool answered = false;
  disks->Ask(tree.Path(), [&](const Ejection&) { answered = true; });
  EXPECT_EQ(Ask(), kPossible);
  EXPECT_FALSE(answered);
}

TEST_F(UDisksTest, AreSilentOnceTheyAreGone) {
  Say("Unmount", {"silent"});
  StartService();
  UseLongLimits();
  bool answered = false;
  disks->Eject(At("player"), [&](const std::string&) { answered = true; });
  Await([&] { return !CallsOfService().empty(); });
  disks.reset();
  QCoreApplication::processEvents();
  EXPECT_FALSE(answered);
}

}  // namespace
}  // namespace repvolta
