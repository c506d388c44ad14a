#include <QLabel>
#include <QWindow>
#include <gtest/gtest.h>

#include "ui/RandomMusicMessage.h"

#include "support/Modal.h"

namespace repvolta {
namespace {

TEST(RandomMusicMessage, AsksForPatienceWithoutBlocking) {
  RandomMusicMessage message;
  message.Show();
  EXPECT_TRUE(message.isVisible());
  EXPECT_FALSE(message.isModal());
  EXPECT_EQ(Find<QLabel>(message, "MessageLabel").text(),
            "Generating the Random Music file list, please wait...");
  message.Hide();
  EXPECT_FALSE(message.isVisible());
}

// The box that follows bears the program's name: in a list of windows the two are not mistaken.
TEST(RandomMusicMessage, HasATitleOfItsOwn) {
  EXPECT_EQ(RandomMusicMessage().windowTitle(), "Random Music File List");
}

TEST(RandomMusicMessage, StaysAboveItsOwner) {
  QWidget owner;
  owner.show();
  RandomMusicMessage message;
  message.SetOwner(&owner);
  message.Show();
  EXPECT_EQ(message.windowHandle()->transientParent(), owner.windowHandle());
}

}  // namespace
}  // namespace repvolta
