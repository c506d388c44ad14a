#include <gtest/gtest.h>

#include "app/ScreenUpdate.h"

namespace repvolta {
namespace {

TEST(ScreenUpdate, LastsAsLongAsItLives) {
  ProgramState state;
  {
    const ScreenUpdate updating(state);
    EXPECT_TRUE(state.ScreenUpdating);
  }
  EXPECT_FALSE(state.ScreenUpdating);
}

TEST(ScreenUpdate, DoesNotEndTheOneAroundIt) {
  ProgramState state;
  const ScreenUpdate outer(state);
  {
    const ScreenUpdate inner(state);
  }
  EXPECT_TRUE(state.ScreenUpdating);
}

}  // namespace
}  // namespace repvolta
