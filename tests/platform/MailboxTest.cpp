#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

#include "platform/Mailbox.h"

namespace repvolta {
namespace {

constexpr int kLimit = 5000;  // milliseconds

TEST(Mailbox, BringsTheCallsOfAnotherThreadToThisOneInTheirOrder) {
  const Mailbox mailbox;
  std::vector<std::pair<int, std::thread::id>> made;
  std::thread([&made, post = mailbox.Poster()] {
    for (const int number : {1, 2}) {
      post([&made, number] { made.emplace_back(number, std::this_thread::get_id()); });
    }
  }).join();
  EXPECT_TRUE(made.empty());
  for (const QDeadlineTimer limit(kLimit); made.size() < 2 && !limit.hasExpired();) {
    QCoreApplication::processEvents();
  }
  const auto here = std::this_thread::get_id();
  EXPECT_EQ(made, (std::vector<std::pair<int, std::thread::id>>{{1, here}, {2, here}}));
}

TEST(Mailbox, DropsWhatComesAfterItsEnd) {
  std::optional<Mailbox> mailbox(std::in_place);
  const auto post = mailbox->Poster();
  bool made = false;
  post([&] { made = true; });
  mailbox.reset();
  post([&] { made = true; });
  QCoreApplication::processEvents();
  EXPECT_FALSE(made);
}

TEST(Mailbox, MayBeEndedByACall) {
  std::optional<Mailbox> mailbox(std::in_place);
  bool made = false;
  mailbox->Poster()([&] { mailbox.reset(); });
  mailbox->Poster()([&] { made = true; });
  for (const QDeadlineTimer limit(kLimit); mailbox && !limit.hasExpired();) {
    QCoreApplication::processEvents();
  }
  EXPECT_FALSE(made);
}

}  // namespace
}  // namespace repvolta
