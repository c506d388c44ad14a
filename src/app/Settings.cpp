#include "app/Settings.h"

#include "app/RecordFormat.h"
#include "app/SharedFile.h"
#include "base/File.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {

void LoadSettings(ProgramState& state) {
  state.SettingsAreUnread = true;
  // The stamp is taken before the content, so that a change in between is noticed later.
  const std::optional<FileStamp> stamp = StampOf(kSettingsFile);
  state.Settings = FileExists(kSettingsFile)
                       ? DecodeSettings(ReadWholeFile(kSettingsFile, kLongestSettingsFile))
                       : SettingsRecord{};
  state.KnownSettings = {state.Settings, stamp};
  state.SettingsAreUnread = false;
}

void ReloadChangedSettings(ProgramState& state) {
  const std::optional<FileStamp> stamp = StampOfOthers(kSettingsFile, state.KnownSettings.stamp);
  if (!stamp || state.SettingsAreUnread) return;
  const Bytes file = ReadWholeFile(kSettingsFile, kLongestSettingsFile);
  state.KnownSettings.stamp = stamp;
  const SettingsRecord theirs = DecodeSettings(file);
  // Decoding fills up a truncated file with blanks, which are nobody's settings.
  if (file.size() < EncodeSettings(theirs).size()) return;
  state.Settings = MergeSettings(state.KnownSettings.record, state.Settings, theirs);
  state.KnownSettings.record = theirs;
}

void SaveSettings(ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  SaveShared(
      {.name = kSettingsFile,
       .isUnread = state.SettingsAreUnread,
       .knownStamp = [&] { return state.KnownSettings.stamp; },
       .takeOver = [&] { ReloadChangedSettings(state); },
       .content = [&] { return EncodeSettings(state.Settings); },
       .remember = [&](const FileStamp& stamp) { state.KnownSettings = {state.Settings, stamp}; }});
}

}  // namespace repvolta
