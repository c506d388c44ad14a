#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Lines.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

std::vector<std::string> LinesOf(std::string_view content) {
  TemporaryFolder folder;
  PutFile("list.txt", content);
  std::vector<std::string> lines;
  ForEachLine("list.txt", [&](std::string_view line) {
    lines.emplace_back(line);
    return true;
  });
  return lines;
}

TEST(ForEachLine, TakesBothLineEnds) {
  EXPECT_THAT(LinesOf("one\r\ntwo\nthree\n"), ElementsAre("one", "two", "three"));
}

TEST(ForEachLine, NeedsNoEndBehindTheLastLine) {
  EXPECT_THAT(LinesOf("one\ntwo"), ElementsAre("one", "two"));
}

TEST(ForEachLine, GivesBlankLines) {
  EXPECT_THAT(LinesOf("one\n\n \n"), ElementsAre("one", "", " "));
  EXPECT_TRUE(LinesOf("").empty());
}

TEST(ForEachLine, JoinsLinesThatRunOverBlocks) {
  const std::string longLine(50000, 'x');
  const std::vector<std::string> lines =
      LinesOf(longLine + "\n" + longLine + "\n" + longLine + "\r\nend");
  EXPECT_THAT(lines, ElementsAre(longLine, longLine, longLine, "end"));
}

TEST(ForEachLine, KeepsTheBeginningOfAnEndlessLine) {
  const std::vector<std::string> lines = LinesOf(std::string(1000000, 'x') + "\nend\n");
  EXPECT_THAT(lines, ElementsAre(std::string(kLongestLine, 'x'), "end"));
}

TEST(ForEachLine, StopsWhenAsked) {
  TemporaryFolder folder;
  PutFile("list.txt", "one\ntwo\nthree\n");
  int count = 0;
  ForEachLine("list.txt", [&](std::string_view) { return ++count < 2; });
  EXPECT_EQ(count, 2);
}

}  // namespace
}  // namespace repvolta
