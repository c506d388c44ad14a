#include <gtest/gtest.h>
#include <string>

#include "player/OutputPath.h"

namespace repvolta {
namespace {

SettingsRecord WithOutputPath(const std::string& path) {
  SettingsRecord settings;
  settings.OutputPath = path;
  return settings;
}

TEST(OutputPath, IsMissingWhenItIsBlank) {
  EXPECT_TRUE(IsOutputPathMissing({}));
  EXPECT_TRUE(IsOutputPathMissing(WithOutputPath("   ")));
}

TEST(OutputPath, IsThereWhenItIsSet) {
  EXPECT_FALSE(IsOutputPathMissing(WithOutputPath("/player")));
}

TEST(OutputPath, IsMissingWhenItFillsItsField) {
  EXPECT_TRUE(IsOutputPathMissing(WithOutputPath(std::string(256, 'x'))));
  EXPECT_FALSE(IsOutputPathMissing(WithOutputPath(std::string(255, 'x'))));
}

TEST(OutputPath, IsMeasuredAsTheFieldHoldsIt) {
  // One byte of the field a letter, whatever it takes elsewhere.
  std::string letters;
  for (int i = 0; i < 200; ++i) letters += "ä";
  EXPECT_FALSE(IsOutputPathMissing(WithOutputPath(letters)));
}

}  // namespace
}  // namespace repvolta
