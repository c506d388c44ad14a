#include <QAction>

#include "support/BackedUp.h"
#include "support/FormFixture.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

class BackupActions : public FormFixture {
 protected:
  BackupActions() { std::filesystem::create_directory("out"); }

  void BackUpInto(const std::string& target) {
    dialogs.answers = {target};
    Get<QAction>("BackUpAction").trigger();
  }
};

TEST_F(BackupActions, BackUp) {
  BackUpInto(folder.Path() + "out/b.zip");
  EXPECT_THAT(FilesIn("out/b.zip"), testing::Contains(testing::Key("workouts/Monday.RPV")));
}

TEST_F(BackupActions, SayThatThereIsNoNewBackup) {
  PutFile("out/b.zip", "old");
  const FullDisk disk(100);
  BackUpInto(folder.Path() + "out/b.zip");
  EXPECT_EQ(dialogs.asked.back(),
            "message|Repvolta|There is no new backup; an older one of this name is as it was.\r" +
                folder.Path() + "out/b.zip could not be written: File too large");
  EXPECT_EQ(GetTextFile("out/b.zip"), "old");
}

}  // namespace
}  // namespace repvolta
