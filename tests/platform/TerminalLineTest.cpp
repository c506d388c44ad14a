#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/TerminalLine.h"

#include "support/PseudoTerminal.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

TEST(TerminalLine, ReplacesTheLineBefore) {
  PseudoTerminal terminal(20);
  {
    TerminalLine line(terminal.Number());
    line.Show("5 %: A.mp3");
    line.Show("6 %");
  }
  const std::string empty = "\r" + Blanks(19) + "\r";
  EXPECT_EQ(terminal.ReadToEnd(), empty + "5 %: A.mp3" + empty + "6 %" + empty);
}

TEST(TerminalLine, WritesNothingThatItShowsAlready) {
  PseudoTerminal terminal(4);
  TerminalLine line(terminal.Number());
  line.Clear();
  line.Show("5 %");
  line.Show("5 %");
  EXPECT_EQ(terminal.ReadToEnd(), "\r   \r5 %");
}

TEST(TerminalLine, MakesRoomForTheLinesOfOthers) {
  PseudoTerminal terminal(40);
  TerminalLine line(terminal.Number());
  line.Show("5 %, about 2 minutes left: A.mp3");
  line.Clear();
  ASSERT_EQ(write(terminal.Number(), "Tag\n", 4), 4);
  line.Show("6 %");
  EXPECT_THAT(ShownLines(terminal.ReadToEnd()), ElementsAre("Tag", "6 %"));
}

TEST(TerminalLine, IsCutToTheWidthThatTheTerminalHasNow) {
  PseudoTerminal terminal(20);
  TerminalLine line(terminal.Number());
  terminal.Resize(9);
  line.Show("5 %: 走る.mp3");
  EXPECT_THAT(ShownLines(terminal.ReadToEnd()), ElementsAre("5 %: 走"));
}

TEST(TerminalLine, TakesATerminalWithoutAWidthForAUsualOne) {
  PseudoTerminal terminal(0);
  TerminalLine line(terminal.Number());
  line.Show(std::string(200, 'x'));
  EXPECT_THAT(ShownLines(terminal.ReadToEnd()), ElementsAre(std::string(79, 'x')));
}

TEST(TerminalLine, CannotControlTheTerminalByANameOfAFile) {
  PseudoTerminal terminal(20);
  TerminalLine line(terminal.Number());
  line.Show("\x1B[2J\n.mp3");
  EXPECT_THAT(ShownLines(terminal.ReadToEnd()), ElementsAre("?[2J?.mp3"));
}

TEST(TerminalLine, IsNotWrittenToAFile) {
  const TemporaryFolder folder;
  PutFile("log", "");
  const Descriptor log = OpenDescriptor("log", O_WRONLY);
  {
    TerminalLine line(log.Number());
    EXPECT_FALSE(line.IsThere());
    line.Show("5 %");
  }
  EXPECT_EQ(GetTextFile("log"), "");
}

}  // namespace
}  // namespace repvolta
