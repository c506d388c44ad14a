#include <filesystem>
#include <gtest/gtest.h>

#include "app/ProgramState.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

TEST(ProgramDirectoryOfTheState, BecomesTheCurrentOne) {
  TemporaryFolder folder;
  fs::create_directory("elsewhere");
  ProgramState state;
  state.ProgramDirectory = folder.Path() + "elsewhere/";
  MakeProgramDirectoryCurrent(state);
  EXPECT_EQ(fs::current_path(), folder.Path() + "elsewhere");
}

TEST(ProgramDirectoryOfTheState, IsToldWhenItIsGone) {
  TemporaryFolder folder;
  ProgramState state;
  state.ProgramDirectory = folder.Path() + "gone/";
  EXPECT_EQ(FailureOf([&] { MakeProgramDirectoryCurrent(state); }),
            folder.Path() + "gone/ could not be opened: No such file or directory");
  EXPECT_EQ(fs::current_path().string() + "/", folder.Path());
}

}  // namespace
}  // namespace repvolta
