#include <QEvent>
#include <QWindow>
#include <gtest/gtest.h>

#include "ui/ShowAbove.h"

namespace repvolta {
namespace {

TEST(ShowAbove, HasTheWindowOnTheScreenWhenItReturns) {
  QWidget window;
  ShowAbove(window, nullptr);
  EXPECT_TRUE(window.windowHandle()->isExposed());
  EXPECT_FALSE(window.isModal());
}

TEST(ShowAbove, PutsTheWindowAboveItsOwner) {
  QWidget owner;
  owner.show();
  QWidget window;
  ShowAbove(window, &owner);
  EXPECT_EQ(window.windowHandle()->transientParent(), owner.windowHandle());
  ShowAbove(window, nullptr);
  EXPECT_EQ(window.windowHandle()->transientParent(), nullptr);
}

}  // namespace
}  // namespace repvolta
