#include "app/Settings.h"

#include "app/RecordFormat.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"

namespace repvolta {

void LoadSettings(ProgramState& state) {
  state.SettingsAreUnread = true;
  state.Settings = FileExists(kSettingsFile)
                       ? DecodeSettings(ReadWholeFile(kSettingsFile, kLongestSettingsFile))
                       : SettingsRecord{};
  state.SettingsAreUnread = false;
}

void SaveSettings(const ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  if (state.SettingsAreUnread) {
    throw FileError(kSettingsFile, "is kept as it was", "It could not be read at the start");
  }
  WriteWholeFile(kSettingsFile, EncodeSettings(state.Settings));
}

}  // namespace repvolta
