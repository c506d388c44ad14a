#include <gtest/gtest.h>

#include "mp3/FirstMatch.h"

namespace repvolta {
namespace {

constexpr Byte IsAbc(Byte first, Byte second, Byte third) {
  return static_cast<Byte>(AsBit(first == 'a') & AsBit(second == 'b') & AsBit(third == 'c'));
}

/// `count` + 2 bytes with "abc" at the places.
Bytes WithAbcAt(std::size_t count, std::initializer_list<std::size_t> places) {
  Bytes bytes(count + 2, '.');
  for (const std::size_t place : places) {
    bytes[place] = 'a';
    bytes[place + 1] = 'b';
    bytes[place + 2] = 'c';
  }
  return bytes;
}

TEST(FirstMatch, IsFoundAtEachPlace) {
  for (std::size_t place = 0; place < 600; ++place) {
    EXPECT_EQ(FirstMatch(WithAbcAt(600, {place}), 600, IsAbc), place);
  }
}

TEST(FirstMatch, IsTheFirstOfSeveral) {
  EXPECT_EQ(FirstMatch(WithAbcAt(600, {300, 310, 511, 590}), 600, IsAbc), 300U);
}

TEST(FirstMatch, IsTheCountWhereThereIsNone) {
  for (const std::size_t count : {0U, 1U, 255U, 256U, 257U, 600U}) {
    EXPECT_EQ(FirstMatch(WithAbcAt(count, {}), count, IsAbc), count);
  }
}

TEST(FirstMatch, LooksForNoneThatBeginsBehindTheCount) {
  EXPECT_EQ(FirstMatch(WithAbcAt(600, {300}), 299, IsAbc), 299U);
}

}  // namespace
}  // namespace repvolta
