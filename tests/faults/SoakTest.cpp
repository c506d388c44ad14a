#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>

#include "faults/FaultWorld.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

class Soak : public FaultWorld {
 protected:
  static int Runs() { return IsLongRun() ? 1000 : 50; }
};

TEST_F(Soak, OfUpdatesInOneProcessGrowsNothing) {
  fs::current_path("program");
  // The sanitizers' allocator must not keep freed memory.
  const ProgramRun run = RunProgram(ProgramBeside("soak_updates"), {std::to_string(Runs())},
                                    {"ASAN_OPTIONS=quarantine_size_mb=0:thread_local_quarantine_"
                                     "size_kb=0:malloc_context_size=1"});
  EXPECT_EQ(run.status, 0) << run.output << run.errors;
  std::printf("%s", run.output.c_str());
  fs::current_path(folder.Path());
  ExpectNoTemporaryFiles();
}

TEST_F(Soak, OfRunsOfTheProgramLeavesNothing) {
  LearnWhatIsRight();
  // The workout as it is now is kept as a version only once.
  ASSERT_EQ(Update().status, 0);
  const Entries before = Look(".");
  for (int i = 0; i < Runs(); ++i) {
    SCOPED_TRACE(i);
    const ProgramRun run = Update();
    ASSERT_EQ(run.status, 0) << run.output << run.errors;
    ASSERT_TRUE(PlayerIsRight());
  }
  const Entries after = Look(".");
  EXPECT_EQ(after.size(), before.size());
  ExpectNothingLost();
  ExpectNoTemporaryFiles();
  std::printf("[  POINTS  ] %d runs of repvolta-update\n", Runs());
}

}  // namespace
}  // namespace repvolta
