#include "ui/MenuLines.h"

#include <iterator>

namespace repvolta {
namespace {

using M = Menu;

constexpr MenuLine kLines[] = {
    {M::kFile, "PrintAction"},
    {M::kFile, "SavePdfAction"},
    {M::kFile},
    {M::kFile, "ExportCsvAction"},
    {M::kFile, "ExportAllCsvAction"},
    {M::kFile},
    {M::kFile, "BackUpAction"},
    {M::kFile, "RestoreBackupAction"},

    {M::kWorkout, "WorkoutDropBox", "Choose Workout"},
    {M::kWorkout, "CreateNewWorkoutButton"},
    {M::kWorkout, "DuplicateWorkoutAction"},
    {M::kWorkout, "RenameWorkoutAction"},
    {M::kWorkout, "DeleteSelectedWorkoutButton"},
    {M::kWorkout, "RestoreVersionAction"},
    {M::kWorkout},
    {M::kWorkout, "PreviewAction"},
    {M::kWorkout, "UpdateSelectedWorkoutButton"},
    {M::kWorkout, "UpdateAllWorkoutsButton"},
    {M::kWorkout, "ShowLastUpdateAction"},
    {M::kWorkout, "OutputPathButton"},
    {M::kWorkout, "PlayerPlayListCheck"},
    {M::kWorkout, "AutoLoadPLaylistCheckbox"},
    {M::kWorkout},
    {M::kWorkout, "WorkoutPage"},
    {M::kWorkout, "ExercisePage"},
    {M::kWorkout, "SettingsPage"},
    {M::kWorkout, "PreviousTabAction"},
    {M::kWorkout, "NextTabAction"},
    {M::kWorkout},
    {M::kWorkout, "ExitButton"},

    {M::kEdit, "UndoAction"},
    {M::kEdit, "RedoAction"},
    {M::kEdit},
    {M::kEdit, "AddNewSetButton"},
    {M::kEdit, "RemoveSelectedSetButton"},
    {M::kEdit, "MoveSetUpListButton"},
    {M::kEdit, "ManualDateResetButton"},
    {M::kEdit},
    {M::kEdit, "SetList1", "Change First Value"},
    {M::kEdit, "SetList2", "Change Second Value"},
    {M::kEdit, "SetListInc1", "Change First Increment"},
    {M::kEdit, "SetListInc2", "Change Second Increment"},
    {M::kEdit, "FreqList1", "Change First Frequency"},
    {M::kEdit, "FreqList2", "Change Second Frequency"},
    {M::kEdit, "NextUpdateList", "Show Dates of Increments"},

    {M::kExercise, "AddExerciseButton"},
    {M::kExercise, "ExerciseList", "Open Exercise"},
    {M::kExercise, "PreviousExerciseButton", "Previous Exercise"},
    {M::kExercise, "NextExerciseButton", "Next Exercise"},
    {M::kExercise, "EditExerciseNameButton"},
    {M::kExercise, "CopyExerciseAction"},
    {M::kExercise, "RemoveExerciseButton"},
    {M::kExercise, "MoveUpExerciseListButton"},
    {M::kExercise},
    {M::kExercise, "SetButton_0"},
    {M::kExercise, "SetButton_1"},
    {M::kExercise, "SetButton_2"},
    {M::kExercise, "SetButton_3"},
    {M::kExercise},
    {M::kExercise, "UnitsSelection_0"},
    {M::kExercise, "UnitsSelection_1"},
    {M::kExercise},
    {M::kExercise, "SetExerciseTimeButton"},
    {M::kExercise, "ExerciseTimeButton"},
    {M::kExercise},
    {M::kExercise, "GrowthAheadAction"},

    {M::kMusic, "AddMusicFileButton"},
    {M::kMusic, "RemoveMusicFileButton"},
    {M::kMusic, "MoveMusicFileUpListButton"},
    {M::kMusic},
    {M::kMusic, "RandomMusicCheckBox"},
    {M::kMusic},
    {M::kMusic, "MusicPathButton"},
    {M::kMusic, "CompileMusicList"},

    {M::kVoice, "ListenButton"},
    {M::kVoice, "ListenNextButton"},
    {M::kVoice},
    {M::kVoice, "IncludeWeightValuesCheck"},
    {M::kVoice},
    {M::kVoice, "VoiceCB"},
    {M::kVoice, "RateSldr"},
    {M::kVoice, "VolumeSldr"},
    {M::kVoice, "FormatCB"},
    {M::kVoice, "AudioOutputCB"},
    {M::kVoice},
    {M::kVoice, "RecordingsAction"},
    {M::kVoice, "RecordWordsAction"},
    {M::kVoice, "SayDifferentlyAction"},
    {M::kVoice, "VoicesAction"},
    {M::kVoice, "VoiceAndMusicAction"},

    {M::kHelp, "HelpAction"},
    {M::kHelp, "GuideAction"},
    {M::kHelp},
    {M::kHelp, "GuidePage-first-start"},
    {M::kHelp, "GuidePage-first-workout"},
    {M::kHelp, "GuidePage-preview"},
    {M::kHelp, "GuidePage-growth"},
    {M::kHelp, "GuidePage-music"},
    {M::kHelp, "GuidePage-players"},
    {M::kHelp, "GuidePage-export-and-print"},
    {M::kHelp, "GuidePage-own-voice"},
    {M::kHelp, "GuidePage-record-your-voice"},
    {M::kHelp, "GuidePage-whole-voices"},
    {M::kHelp, "GuidePage-voice-other-languages"},
    {M::kHelp, "GuidePage-voice-and-music"},
    {M::kHelp, "GuidePage-schedule"},
    {M::kHelp, "GuidePage-desktops"},
    {M::kHelp, "GuidePage-messages"},
    {M::kHelp, "GuidePage-when-something-went-wrong"},
    {M::kHelp, "GuidePage-backup"},
    {M::kHelp, "GuidePage-keys"},
    {M::kHelp},
    {M::kHelp, "AboutButton"},
};

}  // namespace

const char* TitleOf(Menu menu) {
  switch (menu) {
    case Menu::kFile:
      return "File";
    case Menu::kWorkout:
      return "Workout";
    case Menu::kEdit:
      return "Edit";
    case Menu::kExercise:
      return "Exercise";
    case Menu::kMusic:
      return "Music";
    case Menu::kVoice:
      return "Voice";
    case Menu::kHelp:
      break;
  }
  return "Help";
}

std::vector<MenuLine> MenuLines() { return {std::begin(kLines), std::end(kLines)}; }

}  // namespace repvolta
