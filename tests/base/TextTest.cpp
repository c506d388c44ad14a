#include <gtest/gtest.h>

#include "base/Text.h"

namespace repvolta {
namespace {

TEST(ShownOnOneLine, KeepsWhatIsNoControlCharacter) {
  EXPECT_EQ(ShownOnOneLine("Développé 走る ~ \xFF\xC2\xA0"), "Développé 走る ~ \xFF\xC2\xA0");
}

TEST(ShownOnOneLine, HasAQuestionMarkForEachControlCharacter) {
  EXPECT_EQ(ShownOnOneLine("a\nb\r\tc\x1B[2J\x7F"), "a?b??c?[2J?");
  EXPECT_EQ(ShownOnOneLine(std::string("\0x", 2)), "?x");
}

TEST(ShownOnOneLine, TakesControlCharactersOfTwoBytesAsOne) {
  EXPECT_EQ(ShownOnOneLine("a\xC2\x9B"
                           "2J\xC2\x80\xC2"),
            "a?2J?\xC2");
  EXPECT_EQ(ShownOnOneLine("\xC2"
                           "A"),
            "\xC2"
            "A");
}

}  // namespace
}  // namespace repvolta
