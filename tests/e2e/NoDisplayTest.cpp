#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::EndsWith;

class NoDisplay : public testing::TestWithParam<const char*> {};

/// Not an abort, and no advice to install the program again.
TEST_P(NoDisplay, IsSaidAtTheStart) {
  const TemporaryFolder folder;
  const ProgramRun run =
      RunProgram(REPVOLTA_BIN "/repvolta", {},
                 {"DISPLAY=", "WAYLAND_DISPLAY=", std::string("QT_QPA_PLATFORM=") + GetParam()});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.errors, EndsWith("repvolta: There is no display to show the window on. Start it "
                                   "on a desktop, X11 or Wayland; repvolta-update works without "
                                   "one.\n"));
}

INSTANTIATE_TEST_SUITE_P(Of, NoDisplay, testing::Values("xcb", "wayland", ""),
                         [](const auto& platform) {
                           const std::string name = platform.param;
                           return name.empty() ? "any" : name;
                         });

}  // namespace
}  // namespace repvolta
