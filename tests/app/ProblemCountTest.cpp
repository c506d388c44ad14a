#include <gtest/gtest.h>

#include "app/ProblemCount.h"

namespace repvolta {
namespace {

TEST(ProblemCount, KnowsProblemsByTheBeginningOfTheirLine) {
  EXPECT_EQ(KindOfLine("ERROR: File not found. /a.mp3"), LineKind::kError);
  EXPECT_EQ(KindOfLine("ERROR:RV002-a.mp3 - MP3v2 TAG could not be removed."), LineKind::kError);
  EXPECT_EQ(KindOfLine("WARNING: a.mp3 is kept as b.mp3"), LineKind::kWarning);
  EXPECT_EQ(KindOfLine("Updating Workout ERROR.RPV"), LineKind::kPlain);
  EXPECT_EQ(KindOfLine(""), LineKind::kPlain);
}

TEST(ProblemCount, CountsInWords) {
  ProblemCount count;
  EXPECT_EQ(count.Text(), "");
  count.Add(LineKind::kPlain);
  EXPECT_EQ(count.Text(), "");
  count.Add(LineKind::kWarning);
  EXPECT_EQ(count.Text(), "1 warning");
  count.Add(LineKind::kWarning);
  EXPECT_EQ(count.Text(), "2 warnings");
  count.Add(LineKind::kError);
  EXPECT_EQ(count.Text(), "1 error, 2 warnings");
  count.Add(LineKind::kError);
  EXPECT_EQ(count.Text(), "2 errors, 2 warnings");
  EXPECT_EQ(count.Errors(), 2);
}

TEST(ProblemCount, NamesErrorsAloneWithoutWarnings) {
  ProblemCount count;
  count.Add(LineKind::kError);
  EXPECT_EQ(count.Text(), "1 error");
}

}  // namespace
}  // namespace repvolta
