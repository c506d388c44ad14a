#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include "platform/VolumeAnswers.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

constexpr std::chrono::milliseconds kLong(5000);

class VolumeAnswersTest : public testing::Test {
 protected:
  TemporaryFolder folder;
  int rings = 0;
  VolumeAnswers answers{[this] { ++rings; }};
};

TEST_F(VolumeAnswersTest, KnowNothingThatWasNotAsked) { EXPECT_FALSE(answers.Of(folder.Path())); }

TEST_F(VolumeAnswersTest, TellTheRoomOfAFolder) {
  answers.Ask(folder.Path());
  answers.Wait(kLong);
  const auto answer = answers.Of(folder.Path());
  ASSERT_TRUE(answer);
  EXPECT_TRUE(answer->isFolder);
  struct statvfs room{};
  ASSERT_EQ(statvfs(folder.Path().c_str(), &room), 0);
  ASSERT_TRUE(answer->freeBytes);
  // Others use this disk, too.
  const double bytes = static_cast<double>(room.f_bavail) * static_cast<double>(room.f_frsize);
  EXPECT_NEAR(static_cast<double>(*answer->freeBytes), bytes, 1e9);
}

TEST_F(VolumeAnswersTest, KnowAFileAndWhatIsMissingFromAFolder) {
  PutFile("file", "");
  for (const char* name : {"file", "missing"}) {
    answers.Ask(folder.Path() + name);
    answers.Wait(kLong);
    EXPECT_FALSE(answers.Of(folder.Path() + name)->isFolder) << name;
  }
}

TEST_F(VolumeAnswersTest, DoNotKnowTheRoomOfAFileSystemWithoutAny) {
  answers.Ask("/proc");
  answers.Wait(kLong);
  EXPECT_TRUE(answers.Of("/proc")->isFolder);
  EXPECT_EQ(answers.Of("/proc")->freeBytes, std::nullopt);
}

TEST_F(VolumeAnswersTest, RingWhenTheyHaveCome) {
  answers.Ask(folder.Path());
  for (const QDeadlineTimer limit(kLong); rings == 0 && !limit.hasExpired();) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  }
  EXPECT_EQ(rings, 1);
  EXPECT_TRUE(answers.Of(folder.Path()));
}

}  // namespace
}  // namespace repvolta
