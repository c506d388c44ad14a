#include "editing/FolderQuestions.h"

namespace repvolta {

FolderQuestion MusicFolderQuestion(const SettingsRecord& settings) {
  return {.purpose =
              "Choose the folder with your music. Random music is drawn from it and from "
              "the folders below it; nothing in it is changed.",
          .start = settings.MusicPath.Trimmed(),
          .figure = FolderQuestion::Figure::kSongs};
}

FolderQuestion OutputFolderQuestion(const SettingsRecord& settings) {
  return {.purpose =
              "Choose the folder for your workouts, on the player or to be copied to it. "
              "Each workout has a folder in it, which every update deletes and makes anew.",
          .start = settings.OutputPath.Trimmed(),
          .figure = FolderQuestion::Figure::kRoom};
}

}  // namespace repvolta
