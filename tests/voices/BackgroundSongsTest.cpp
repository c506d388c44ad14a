#include <QCoreApplication>
#include <QEventLoop>
#include <atomic>
#include <chrono>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

#include "voices/BackgroundSongs.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

/// Work whose end is noted.
BackgroundSongs::Work Noted(std::vector<int>& ended, int number) {
  return [&ended, number](ChildProcesses& /*processes*/) -> std::function<void()> {
    return [&ended, number] { ended.push_back(number); };
  };
}

/// Work with a program that runs for a minute, and then notes its end.
BackgroundSongs::Work Slow(std::vector<int>& ended,
                           const std::shared_ptr<std::promise<void>>& begun) {
  return [&ended, begun](ChildProcesses& processes) -> std::function<void()> {
    begun->set_value();
    processes.Run({.program = "sleep", .arguments = {"60"}});
    return [&ended] { ended.push_back(-1); };
  };
}

void WaitFor(const std::vector<int>& ended) {
  while (ended.empty()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

class BackgroundSongsWork : public testing::Test {
 protected:
  std::vector<int> ended_;
  std::shared_ptr<std::promise<void>> begun_ = std::make_shared<std::promise<void>>();
};

TEST_F(BackgroundSongsWork, EndsInTheEventLoop) {
  BackgroundSongs songs;
  songs.Begin(Noted(ended_, 1));
  WaitFor(ended_);
  EXPECT_THAT(ended_, ElementsAre(1));
}

TEST_F(BackgroundSongsWork, EndsAtOnceWhenItIsStopped) {
  const auto start = std::chrono::steady_clock::now();
  {
    BackgroundSongs songs;
    songs.Begin(Slow(ended_, begun_));
    begun_->get_future().wait();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
  QCoreApplication::processEvents();
  EXPECT_THAT(ended_, ElementsAre());
}

TEST_F(BackgroundSongsWork, GivesWayToOtherWork) {
  BackgroundSongs songs;
  songs.Begin(Slow(ended_, begun_));
  begun_->get_future().wait();
  songs.Begin(Noted(ended_, 2));
  WaitFor(ended_);
  EXPECT_THAT(ended_, ElementsAre(2));
}

TEST_F(BackgroundSongsWork, HasEndedWithItsOwnerAlsoWhenItGaveWay) {
  const auto ended = std::make_shared<std::atomic<bool>>(false);
  {
    BackgroundSongs songs;
    songs.Begin([ended, begun = begun_](ChildProcesses& processes) -> std::function<void()> {
      const std::shared_ptr<void> end(nullptr, [ended](void*) { *ended = true; });
      begun->set_value();
      processes.Run({.program = "sleep", .arguments = {"60"}});
      return [] {};
    });
    begun_->get_future().wait();
    songs.Begin(Noted(ended_, 2));
  }
  EXPECT_TRUE(*ended);
}

TEST_F(BackgroundSongsWork, IsAbandonedOnADiskThatDoesNotAnswer) {
  const auto answer = std::make_shared<std::promise<void>>();
  {
    BackgroundSongs songs;
    songs.Begin([begun = begun_, answer](ChildProcesses& /*processes*/) -> std::function<void()> {
      begun->set_value();
      answer->get_future().wait();
      return [] {};
    });
    begun_->get_future().wait();
  }
  answer->set_value();
}

}  // namespace
}  // namespace repvolta
