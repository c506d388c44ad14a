#include "update/SeveralUpdates.h"

#include <exception>
#include <numeric>

#include "app/ProgramState.h"
#include "app/WorkoutFiles.h"
#include "update/Steps.h"
#include "update/UpdateWork.h"

namespace repvolta {
namespace {

/// A workout that cannot be read will not be updated.
std::uint64_t AmountOfWorkout(const std::string& workout) {
  ProgramState state;
  state.WorkoutFileName = workout;
  try {
    if (LoadWorkout(state) != WorkoutLoad::kLoaded) return 0;
  } catch (const std::exception&) {
    return 0;
  }
  return AmountOfWork(WorkOfExercises(state.Workout, state.NumberOfExercises));
}

}  // namespace

SeveralUpdates::SeveralUpdates(UpdateHost& host, std::vector<std::string> workouts)
    : host_(host), workouts_(std::move(workouts)), ahead_(workouts_.size()) {
  if (!host_.IsWatched()) return;
  for (std::size_t i = 0; i < workouts_.size(); ++i) ahead_[i] = AmountOfWorkout(workouts_[i]);
  after_ = std::accumulate(ahead_.begin(), ahead_.end(), std::uint64_t{0});
}

void SeveralUpdates::BeginNext() {
  if (StopRequested()) throw UpdateStopped();
  before_ += current_;
  current_ = 0;
  after_ -= ahead_.at(begun_);
  ++begun_;
}

std::vector<std::string> SeveralUpdates::NotBegun() const {
  return {workouts_.begin() + static_cast<std::ptrdiff_t>(begun_), workouts_.end()};
}

void SeveralUpdates::ShowWork(const WorkDone& work) {
  current_ = work.total;
  host_.ShowWork(
      {.done = before_ + work.done, .total = before_ + work.total + after_, .atHand = work.atHand});
}

}  // namespace repvolta
