#include <atomic>
#include <gtest/gtest.h>
#include <semaphore>

#include "platform/Answers.h"

namespace repvolta {
namespace {

constexpr std::chrono::milliseconds kLong(5000);
constexpr std::chrono::milliseconds kShort(1);

/// A disk that answers when it is let.
class SilentDisk : public testing::Test {
 protected:
  ~SilentDisk() override { disk_->release(10); }

  void Speak() { disk_->release(); }

  std::shared_ptr<std::counting_semaphore<>> disk_ = std::make_shared<std::counting_semaphore<>>(0);
  std::shared_ptr<std::atomic<int>> asked_ = std::make_shared<std::atomic<int>>(0);
  Answers<std::size_t> answers{[disk = disk_, asked = asked_](const std::string& path) {
                                 ++*asked;
                                 disk->acquire();
                                 return path.size();
                               },
                               [] {}};
};

TEST_F(SilentDisk, OwesItsAnswer) {
  EXPECT_FALSE(answers.AreOwed());
  answers.Ask("/nas");
  answers.Wait(kShort);
  EXPECT_TRUE(answers.AreOwed());
  EXPECT_FALSE(answers.Of("/nas"));
  Speak();
  answers.Wait(kLong);
  EXPECT_FALSE(answers.AreOwed());
  EXPECT_EQ(answers.Of("/nas"), 4U);
}

TEST_F(SilentDisk, IsNotAskedTwiceForWhatItOwes) {
  answers.Ask("/nas");
  answers.Ask("/nas");
  Speak();
  answers.Wait(kLong);
  EXPECT_EQ(*asked_, 1);
  answers.Ask("/nas");
  Speak();
  answers.Wait(kLong);
  EXPECT_EQ(*asked_, 2);
}

TEST_F(SilentDisk, IsAllowedToOutliveItsAskers) {
  Answers<int> shortLived(
      [disk = disk_](const std::string&) {
        disk->acquire();
        return 1;
      },
      [] { ADD_FAILURE() << "Nobody asks any more"; });
  shortLived.Ask("/nas");
}

}  // namespace
}  // namespace repvolta
