#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

#include "base/FileError.h"
#include "ui/Handlers.h"
#include "update/Steps.h"

#include "fakes/ScriptedDialogs.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The commands of a window that notes what is called.
class HandlersTest : public testing::Test {
 protected:
  std::function<void()> Note(const std::string& name) {
    return [this, name] { calls_.push_back(name); };
  }

  std::vector<std::string> calls_;
  std::function<void()> beforehand_ = Note("before");
  ScriptedDialogs dialogs_;
  Handlers handlers_{dialogs_, [this] { beforehand_(); },
                     [this](Handlers::Outcome outcome) {
                       calls_.emplace_back(outcome == Handlers::Outcome::kDone ? "done" : "failed");
                     }};
};

TEST_F(HandlersTest, RunACommandBetweenItsFirstAndLastStep) {
  handlers_.Run("", Note("command"));
  EXPECT_THAT(calls_, ElementsAre("before", "command", "done"));
}

TEST_F(HandlersTest, SkipACommandWhoseFirstStepFails) {
  beforehand_ = [] { throw std::runtime_error("It is gone."); };
  handlers_.Run("The set could not be added.", Note("command"));
  EXPECT_THAT(calls_, ElementsAre("failed"));
  EXPECT_THAT(dialogs_.asked,
              ElementsAre("message|Repvolta|The set could not be added.\rIt is gone."));
}

TEST_F(HandlersTest, RunACommandApartWithoutTheFirstStep) {
  handlers_.RunApart("", Note("command"));
  EXPECT_THAT(calls_, ElementsAre("command", "done"));
}

TEST_F(HandlersTest, ShowAFileErrorByItself) {
  handlers_.Run("Nothing happened.", [] { throw FileError("a", "could not be read", "Gone"); });
  EXPECT_THAT(dialogs_.asked, ElementsAre("message|Repvolta|a could not be read: Gone"));
}

TEST_F(HandlersTest, SayNothingOfAnUpdateThatWasStopped) {
  handlers_.Run("", [] { throw UpdateStopped(); });
  EXPECT_THAT(calls_, ElementsAre("before", "done"));
  EXPECT_THAT(dialogs_.asked, IsEmpty());
}

TEST_F(HandlersTest, RunOneCommandAtATime) {
  handlers_.Run("", [this] {
    EXPECT_TRUE(handlers_.AreRunning());
    handlers_.Run("", Note("another"));
  });
  EXPECT_FALSE(handlers_.AreRunning());
  EXPECT_THAT(calls_, ElementsAre("before", "done"));
}

TEST_F(HandlersTest, AreFreeForTheNextCommandAfterOneThatFails) {
  handlers_.Run("Nothing happened.", [] { throw std::runtime_error("It is gone."); });
  calls_.clear();
  handlers_.Run("", Note("command"));
  EXPECT_THAT(calls_, ElementsAre("before", "command", "done"));
}

TEST_F(HandlersTest, RunWhenAButtonIsClicked) {
  QPushButton button;
  QPushButton apart;
  handlers_.OnClick(&button, "", Note("command"));
  handlers_.OnClickApart(&apart, "", Note("command apart"));
  button.click();
  apart.click();
  EXPECT_THAT(calls_, ElementsAre("before", "command", "done", "command apart", "done"));
}

}  // namespace
}  // namespace repvolta
