#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "update/Steps.h"

#include "fakes/RecordingRun.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The steps of an update that is recorded.
class StepsOfAnUpdate : public testing::Test {
 protected:
  RecordingRun run;
  Steps steps{run, run};
};

TEST_F(StepsOfAnUpdate, AreLoggedWhenTheyFailAndGoOn) {
  steps.Run([] { throw std::runtime_error("no sound"); });
  steps.Run([this] { steps.Log("next"); });
  EXPECT_THAT(run.log, ElementsAre("ERROR: no sound", "next"));
}

TEST_F(StepsOfAnUpdate, TellWhyTheyFailedWithoutALine) {
  EXPECT_EQ(steps.Try([] { throw std::runtime_error("no sound"); }), "no sound");
  EXPECT_EQ(steps.Try([] {}), std::nullopt);
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(StepsOfAnUpdate, AreNotBegunOnceThePersonHasEndedTheProgram) {
  run.stopRequested = [] { return true; };
  EXPECT_THROW(steps.Run([this] { steps.Log("begun"); }), UpdateStopped);
  EXPECT_THROW(steps.CheckStop(), UpdateStopped);
  EXPECT_THAT(run.log, IsEmpty());
}

TEST_F(StepsOfAnUpdate, AreNotFailedByTheEndOfTheProgram) {
  EXPECT_THROW(steps.Run([] { throw UpdateStopped(); }), UpdateStopped);
  EXPECT_THAT(run.log, IsEmpty());
}

}  // namespace
}  // namespace repvolta
