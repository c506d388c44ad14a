#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>

namespace repvolta {
namespace {

TEST(Locale, HasADecimalCommaWhereTheSuiteIsRunForIt) {
  const bool comma = std::getenv("REPVOLTA_EXPECT_COMMA") != nullptr;
  EXPECT_STREQ(std::localeconv()->decimal_point, comma ? "," : ".");
}

}  // namespace
}  // namespace repvolta
