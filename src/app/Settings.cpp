#include "app/Settings.h"

#include "app/RecordFormat.h"
#include "base/File.h"
#include "base/WholeFile.h"

namespace repvolta {

void LoadSettings(ProgramState& state) {
  state.Settings = FileExists(kSettingsFile)
                       ? DecodeSettings(ReadWholeFile(kSettingsFile, kLongestSettingsFile))
                       : SettingsRecord{};
}

void SaveSettings(const ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  WriteWholeFile(kSettingsFile, EncodeSettings(state.Settings));
}

}  // namespace repvolta
