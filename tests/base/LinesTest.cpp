#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

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

/// Lines of many lengths, some longer than a block of the reader, with both line ends.
std::string RandomList(std::mt19937& random) {
  std::string list;
  for (int i = static_cast<int>(random() % 30); i > 0; --i) {
    const std::size_t size = random() % 8 == 0 ? random() % 300000 : random() % 90;
    list.append(size, static_cast<char>('a' + i % 26)).append(random() % 2 == 0 ? "\n" : "\r\n");
  }
  if (random() % 2 == 0) list += "without an end";
  return list;
}

TEST(CountLines, CountsWhatForEachLineGives) {
  std::mt19937 random(1);
  for (int round = 0; round < 100; ++round) {
    const std::string list = RandomList(random);
    const std::size_t expected = LinesOf(list).size();
    TemporaryFolder folder;
    PutFile("list.txt", list);
    EXPECT_EQ(CountLines("list.txt"), static_cast<std::int64_t>(expected));
  }
}

TEST(CountLines, CountsMoreBlankLinesInARowThanAByteHolds) {
  TemporaryFolder folder;
  for (const std::size_t count : {255U, 256U, 1000U}) {
    PutFile("list.txt", std::string(count, '\n'));
    EXPECT_EQ(CountLines("list.txt"), count);
  }
}

TEST(LinesAt, GivesWhatForEachLineGives) {
  std::mt19937 random(2);
  for (int round = 0; round < 200; ++round) {
    const std::string list = RandomList(random);
    const std::vector<std::string> all = LinesOf(list);
    std::vector<std::int64_t> numbers;
    for (std::size_t i = 0; i < all.size() + 2; ++i) {
      if (random() % 4 == 0) {
        numbers.insert(numbers.end(), 1 + random() % 2, static_cast<std::int64_t>(i));
      }
    }
    std::vector<std::string> expected;
    for (const std::int64_t number : numbers) {
      const auto index = std::min(static_cast<std::size_t>(number) + 1, all.size());
      expected.push_back(index == 0 ? "" : all[index - 1]);
    }
    TemporaryFolder folder;
    PutFile("list.txt", list);
    EXPECT_EQ(LinesAt("list.txt", numbers), expected);
  }
}

}  // namespace
}  // namespace repvolta
