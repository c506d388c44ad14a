#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include "app/PathField.h"

namespace repvolta {
namespace {

TEST(PathField, HoldsAPathAsItIs) {
  const std::string longest = "/" + std::string(255, 'x');
  for (const std::string& path : {std::string("/music/ä"), std::string(" lead"), longest}) {
    EXPECT_EQ(PathField(path).Text(), path);
  }
}

TEST(PathField, RefusesAPathThatWouldBeCut) {
  EXPECT_THROW(PathField("/" + std::string(256, 'x')), std::length_error);
}

TEST(PathField, RefusesAPathThatWouldLoseItsBlanks) {
  try {
    PathField("/music ");
    FAIL() << "kept";
  } catch (const std::length_error& error) {
    EXPECT_STREQ(error.what(),
                 "The path cannot be kept: it is longer than 256 characters, or blanks stand at "
                 "its end.");
  }
}

TEST(PathField, SaysWhenAPathIsNotUtf8) {
  try {
    PathField("/caf\xE9.mp3");
    FAIL() << "kept";
  } catch (const std::length_error& error) {
    EXPECT_STREQ(error.what(), "The path cannot be kept: it is not UTF-8.");
  }
}

}  // namespace
}  // namespace repvolta
