#include "editing/GuidePages.h"

#include <algorithm>
#include <iterator>

namespace repvolta {
namespace {

constexpr GuidePage kPages[] = {
    {"first-start", "The first start"},
    {"first-workout", "A first workout"},
    {"preview", "Before an update"},
    {"growth", "Growth"},
    {"music", "Music"},
    {"players", "Players"},
    {"export-and-print", "Export and print"},
    {"own-voice", "Your own voice and exercises"},
    {"record-your-voice", "Record your own voice"},
    {"whole-voices", "Whole voices"},
    {"voice-other-languages", "The voice in other languages"},
    {"voice-and-music", "Voice and music"},
    {"schedule", "Updates on a schedule"},
    {"desktops", "On your desktop"},
    {"messages", "What the program says"},
    {"when-something-went-wrong", "When something went wrong"},
    {"backup", "Backup and moving"},
    {"keys", "Menus and keys"},
};

constexpr HelpPlace kPlaces[] = {
    {"WorkoutPage", "", "first-workout.html#set-it-up"},
    {"ExercisePage", "", "first-workout.html#kinds-of-sets"},
    {"SettingsPage", "", "first-start.html#two-questions"},
    {"InputBox", "New Workout", "first-workout.html#set-it-up"},
    {"InputBox", "Duplicate Workout", "first-workout.html#a-second-one-from-the-first"},
    {"InputBox", "Rename Workout", "first-workout.html#a-second-one-from-the-first"},
    {"InputBox", "Edit Exercise Name", "own-voice.html#names-without-a-recording"},
    {"InputBox", "Set Target Exercise Time", "music.html#random-music"},
    {"InputBox", "Set Default Exercise Time", "music.html#random-music"},
    {"InputBox", "Take In a Voice", "whole-voices.html#take-in-a-voice"},
    {"InputBox", "Rename a Voice", "whole-voices.html"},
    {"InputBox", "", "first-workout.html#kinds-of-sets"},
    {"MessageBox", "Welcome to Repvolta", "first-start.html#two-questions"},
    {"MessageBox", "Find your music files", "first-start.html#two-questions"},
    {"MessageBox", "Select your output directory", "first-start.html#two-questions"},
    {"MessageBox", "Update Workout", "players.html#is-there-room"},
    {"MessageBox", "Update ALL Workouts", "players.html#is-there-room"},
    {"MessageBox", "Back Up", "backup.html"},
    {"MessageBox", "Print", "export-and-print.html#a-sheet-to-tick-off"},
    {"MessageBox", "Save as PDF", "export-and-print.html#a-sheet-to-tick-off"},
    {"MessageBox", "Export as CSV", "export-and-print.html#a-table-for-spreadsheets"},
    {"MessageBox", "Use a Voice", "whole-voices.html#use-another-voice"},
    {"MessageBox", "Take In a Voice", "whole-voices.html#take-in-a-voice"},
    {"MessageBox", "Write Out a Voice", "whole-voices.html#give-a-voice-to-others"},
    {"MessageBox", "Rename a Voice", "whole-voices.html"},
    {"MessageBox", "Remove a Voice", "whole-voices.html"},
    {"MessageBox", "", "messages.html#messages-of-the-window"},
    {"SelectExerciseDialog", "", "first-workout.html#set-it-up"},
    {"SelectDirectory", "", "first-start.html#two-questions"},
    {"MusicFileDialog", "", "music.html#songs-of-your-choice"},
    {"BackupFileDialog", "", "backup.html"},
    {"VoiceFileDialog", "", "whole-voices.html"},
    {"VoicesForm", "", "whole-voices.html"},
    {"WorkWindow", "", "backup.html"},
    {"CsvFileDialog", "", "export-and-print.html#a-table-for-spreadsheets"},
    {"PdfFileDialog", "", "export-and-print.html#a-sheet-to-tick-off"},
    {"PrintDialog", "", "export-and-print.html#a-sheet-to-tick-off"},
    {"SayDifferentlyForm", "", "own-voice.html#say-it-differently"},
    {"GrowthAheadForm", "", "growth.html#looking-ahead"},
    {"RecordingsForm", "", "own-voice.html#recordings"},
    {"VoiceAndMusicForm", "", "voice-and-music.html"},
    {"UpdateForm", "", "messages.html#lines-of-an-update"},
    {"PreviewForm", "", "preview.html"},
    {"RestoreBackupForm", "",
     "when-something-went-wrong.html#the-computer-is-lost-or-there-is-a-new-one"},
    {"RestoreVersionForm", "", "when-something-went-wrong.html#bring-back-an-earlier-version"},
    {"RecordForm", "", "record-your-voice.html"},
    {"WordListDialog", "", "record-your-voice.html#what-is-asked-for"},
    {"RandomMusicMessage", "", "music.html#random-music"},
    {"AboutForm", "", kGuideContents},
};

}  // namespace

std::vector<GuidePage> GuidePages() { return {std::begin(kPages), std::end(kPages)}; }

std::vector<HelpPlace> HelpPlaces() { return {std::begin(kPlaces), std::end(kPlaces)}; }

std::string GuidePageOf(std::string_view place, std::string_view title) {
  const auto* line =
      std::find_if(std::begin(kPlaces), std::end(kPlaces), [&](const HelpPlace& one) {
        return one.place == place && (one.title.empty() || one.title == title);
      });
  return std::string(line == std::end(kPlaces) ? kGuideContents : line->page);
}

}  // namespace repvolta
