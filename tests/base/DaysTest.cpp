#include <gtest/gtest.h>

#include "base/Days.h"

namespace repvolta {
namespace {

TEST(DateOf, CountsDaysSinceTheThirtiethOfDecember1899) {
  EXPECT_EQ(DateOf(1899, 12, 30), 0);
  EXPECT_EQ(DateOf(1900, 1, 1), 2);
  EXPECT_EQ(DateOf(2007, 3, 25), 39166);
  EXPECT_EQ(DateOf(1899, 12, 29), -1);
}

}  // namespace
}  // namespace repvolta
