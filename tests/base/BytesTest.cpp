#include <gtest/gtest.h>
#include <stdexcept>

#include "base/Bytes.h"

namespace repvolta {
namespace {

TEST(Bytes, AreTheBytesOfATextAndBack) {
  const auto bytes = AsBytes("a\xFF");
  EXPECT_EQ(Bytes(bytes.begin(), bytes.end()), (Bytes{'a', 0xFF}));
  EXPECT_EQ(AsText(bytes), "a\xFF");
}

TEST(LittleEndian, HasTheLowByteFirst) {
  const Bytes bytes = {0x01, 0x02, 0x03, 0x84, 0xFF};
  EXPECT_EQ(LoadLittleEndian<std::uint16_t>(bytes), 0x0201);
  EXPECT_EQ(LoadLittleEndian<std::uint32_t>(bytes), 0x84030201U);
  Bytes stored(3, 0xEE);
  StoreLittleEndian<std::uint16_t>(stored, 0x0201);
  EXPECT_EQ(stored, (Bytes{0x01, 0x02, 0xEE}));
}

TEST(BigEndian, HasTheHighByteFirst) {
  const Bytes bytes = {0x81, 0x02, 0x03, 0x04, 0xFF};
  EXPECT_EQ(LoadBigEndian32(bytes), 0x81020304U);
  Bytes stored(4);
  StoreBigEndian32(stored, 0x81020304U);
  EXPECT_EQ(stored, (Bytes{0x81, 0x02, 0x03, 0x04}));
}

TEST(Bytes, EndAValueThatRunsPastThem) {
  Bytes three(3);
  EXPECT_THROW(LoadLittleEndian<std::uint32_t>(three), std::out_of_range);
  EXPECT_THROW(LoadBigEndian32(three), std::out_of_range);
  EXPECT_THROW(StoreLittleEndian<std::uint32_t>(three, 1), std::out_of_range);
  EXPECT_THROW(StoreBigEndian32(three, 1), std::out_of_range);
}

}  // namespace
}  // namespace repvolta
