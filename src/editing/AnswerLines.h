#pragma once

#include "app/ProgramState.h"
#include "editing/AnswerHelp.h"
#include "editing/ScreenTexts.h"
#include "platform/Clock.h"

namespace repvolta {

// What stands below the fields of the input boxes. What will be kept is what Answers.h says, which
// the commands ask, too. A clock must live as long as the help that got it.

/// A number of a set, by its column.
AnswerHelp SetNumberHelp(const ExerciseRecord& exercise, int set, SetColumn column,
                         const Clock& clock);

/// A value of the set that is added. `field` is 1 or 2.
AnswerHelp NewSetHelp(const ExerciseRecord& exercise, int field);

AnswerHelp DefaultTimeHelp(const SettingsRecord& settings);
AnswerHelp TargetTimeHelp(const ExerciseRecord& exercise);
AnswerHelp ExerciseNameHelp(const ExerciseRecord& exercise);

// The names of workouts: a new one takes the place of another with its name, a copy does not, and a
// workout keeps its name only in another case. The state must live as long as the help.
AnswerHelp NewWorkoutHelp(const ProgramState& state);
AnswerHelp CopiedWorkoutHelp(const ProgramState& state);
AnswerHelp RenamedWorkoutHelp(const ProgramState& state);

}  // namespace repvolta
