#include "editing/GrowthEditing.h"

namespace repvolta {

UpdateDays ChosenUpdateDays(const Editor& editor) {
  return ChosenUpdateDays(editor.State().Options);
}

void ChooseUpdateDays(const Editor& editor, const UpdateDays& days) {
  PutUpdateDays(editor.program.Options(), days);
  ShowExercise(editor);
  SaveChangedOptions(editor);
}

}  // namespace repvolta
