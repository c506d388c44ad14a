#pragma once

#include "editing/Editor.h"

namespace repvolta {

// The commands that show another exercise of the workout; its row is selected in ExerciseList.
// Nothing is selected in the lists of sets and music. At the ends of the workout they do nothing.

void NextExerciseButton_Click(Editor& editor);
void PreviousExerciseButton_Click(Editor& editor);

}  // namespace repvolta
