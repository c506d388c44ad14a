#include <QCoreApplication>
#include <QDeadlineTimer>
#include <cerrno>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/desktop/SingleInstance.h"

#include "support/TemporaryFolder.h"
#include "support/WeakLocks.h"

namespace repvolta {
namespace {

/// Lets events run until `done`, for a few seconds at most.
bool WaitFor(const std::function<bool()>& done) {
  for (const QDeadlineTimer limit(5000); !done() && !limit.hasExpired();) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
  }
  return done();
}

TEST(SingleInstance, IsTheFirstInADirectoryOfItsOwn) {
  const TemporaryFolder folder;
  EXPECT_TRUE(SingleInstance(folder.Path()).IsFirst());
}

TEST(SingleInstance, IsNotTheFirstWhileAnotherHoldsTheDirectory) {
  const TemporaryFolder folder;
  const SingleInstance first(folder.Path());
  EXPECT_FALSE(SingleInstance(folder.Path()).IsFirst());
}

TEST(SingleInstance, IsNotTheFirstEitherWhereTheDiskHasNoLocks) {
  const TemporaryFolder folder;
  const WeakLocks none(ENOLCK);
  const SingleInstance first(folder.Path());
  EXPECT_TRUE(first.IsFirst());
  EXPECT_FALSE(SingleInstance(folder.Path()).IsFirst());
}

TEST(SingleInstance, MayHoldOtherDirectories) {
  const TemporaryFolder folder;
  std::filesystem::create_directories("other");
  const SingleInstance first(folder.Path());
  EXPECT_TRUE(SingleInstance(folder.Path() + "other/").IsFirst());
}

TEST(SingleInstance, KnowsADirectoryByAnotherName) {
  const TemporaryFolder folder;
  std::filesystem::create_directories("real");
  std::filesystem::create_directory_symlink("real", "link");
  const SingleInstance first(folder.Path() + "real/");
  EXPECT_FALSE(SingleInstance(folder.Path() + "link/").IsFirst());
}

TEST(SingleInstance, LeavesNothingBehind) {
  const TemporaryFolder folder;
  {
    const SingleInstance first(folder.Path());
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
  EXPECT_TRUE(SingleInstance(folder.Path()).IsFirst());
}

TEST(SingleInstance, LosesItsHoldWhenItsProcessDies) {
  const TemporaryFolder folder;
  const pid_t child = fork();
  if (child == 0) {
    const SingleInstance killed(folder.Path());
    _exit(killed.IsFirst() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  ASSERT_EQ(status, 0);
  EXPECT_TRUE(SingleInstance(folder.Path()).IsFirst());
}

TEST(SingleInstance, IsRaisedByALaterStart) {
  const TemporaryFolder folder;
  SingleInstance first(folder.Path());
  int raised = 0;
  first.OnLaterStart([&](const QByteArray&) { ++raised; });

  const SingleInstance later(folder.Path());

  EXPECT_TRUE(later.RaiseFirst());
  EXPECT_TRUE(WaitFor([&] { return raised == 1; }));
}

TEST(SingleInstance, HandsOnTheLeaveOfALaterStartToComeToTheFront) {
  const TemporaryFolder folder;
  SingleInstance first(folder.Path());
  std::vector<QByteArray> leaves;
  first.OnLaterStart([&](const QByteArray& leave) { leaves.push_back(leave); });

  const SingleInstance later(folder.Path());

  EXPECT_TRUE(later.RaiseFirst("token 7"));
  EXPECT_TRUE(WaitFor([&] { return leaves.size() == 1; }));
  EXPECT_TRUE(later.RaiseFirst());
  EXPECT_TRUE(WaitFor([&] { return leaves.size() == 2; }));
  EXPECT_EQ(leaves, (std::vector<QByteArray>{"token 7", ""}));
}

TEST(SingleInstance, CanBeRaisedAfterAnotherCrashed) {
  const TemporaryFolder folder;
  const pid_t child = fork();
  if (child == 0) {
    SingleInstance killed(folder.Path());
    killed.OnLaterStart([](const QByteArray&) {});
    _exit(0);  // This leaves its socket behind.
  }
  waitpid(child, nullptr, 0);
  SingleInstance first(folder.Path());
  int raised = 0;
  first.OnLaterStart([&](const QByteArray&) { ++raised; });

  EXPECT_TRUE(SingleInstance(folder.Path()).RaiseFirst());

  EXPECT_TRUE(WaitFor([&] { return raised == 1; }));
}

TEST(SingleInstance, SaysWhenTheFirstCannotBeAsked) {
  const TemporaryFolder folder;
  const SingleInstance silent(folder.Path());
  EXPECT_FALSE(SingleInstance(folder.Path()).RaiseFirst({}, std::chrono::milliseconds(60)));
}

}  // namespace
}  // namespace repvolta
