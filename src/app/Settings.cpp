#include "app/Settings.h"

#include "app/RecordFormat.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

void RememberPlaced(ProgramState& state, const WholeFileWriter& writer) {
  if (const auto stamp = writer.Placed()) state.KnownSettings = {state.Settings, stamp};
}

}  // namespace

void LoadSettings(ProgramState& state) {
  state.SettingsAreUnread = true;
  // Taken before the content: a change in between is then noticed, not lost.
  const std::optional<FileStamp> stamp = StampOf(kSettingsFile);
  state.Settings = FileExists(kSettingsFile)
                       ? DecodeSettings(ReadWholeFile(kSettingsFile, kLongestSettingsFile))
                       : SettingsRecord{};
  state.KnownSettings = {state.Settings, stamp};
  state.SettingsAreUnread = false;
}

void ReloadChangedSettings(ProgramState& state) {
  const std::optional<FileStamp> stamp = StampOf(kSettingsFile);
  if (state.SettingsAreUnread || !stamp || stamp == state.KnownSettings.stamp) return;
  const Bytes file = ReadWholeFile(kSettingsFile, kLongestSettingsFile);
  state.KnownSettings.stamp = stamp;
  const SettingsRecord theirs = DecodeSettings(file);
  // The blanks that half a file is filled up with are nobody's settings.
  if (file.size() < EncodeSettings(theirs).size()) return;
  state.Settings = MergeSettings(state.KnownSettings.record, state.Settings, theirs);
  state.KnownSettings.record = theirs;
}

void SaveSettings(ProgramState& state) {
  MakeProgramDirectoryCurrent(state);
  if (state.SettingsAreUnread) {
    throw FileError(kSettingsFile, "is kept as it was", "It could not be read at the start");
  }
  // Made first: no other that saves the same file comes between the look and the save.
  WholeFileWriter writer(kSettingsFile);
  ReloadChangedSettings(state);
  writer.Append(EncodeSettings(state.Settings));
  try {
    writer.Commit();
  } catch (const FileError&) {
    RememberPlaced(state, writer);
    throw;
  }
  RememberPlaced(state, writer);
}

}  // namespace repvolta
