#include "app/Settings.h"

#include "app/RecordFormat.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr int kTries = 3;

/// Another program saved settings while ours were being written.
class SettingsCameIn : public FileError {
 public:
  SettingsCameIn()
      : FileError(kSettingsFile, "could not be written", "Another program goes on changing it") {}
};

/// The stamp of the file if its content was neither loaded nor saved here.
std::optional<FileStamp> StampOfOthers(const ProgramState& state) {
  const std::optional<FileStamp> stamp = StampOf(kSettingsFile);
  return stamp == state.KnownSettings.stamp ? std::nullopt : stamp;
}

void RememberPlaced(ProgramState& state, const WholeFileWriter& writer) {
  if (const auto stamp = writer.Placed()) state.KnownSettings = {state.Settings, stamp};
}

void WriteSettings(ProgramState& state) {
  WholeFileWriter writer(kSettingsFile);
  ReloadChangedSettings(state);
  writer.Append(EncodeSettings(state.Settings));
  try {
    writer.Commit([&] {
      if (StampOfOthers(state)) throw SettingsCameIn();
    });
  } catch (const FileError&) {
    RememberPlaced(state, writer);
    throw;
  }
  RememberPlaced(state, writer);
}

}  // namespace

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
  const std::optional<FileStamp> stamp = StampOfOthers(state);
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
  if (state.SettingsAreUnread) {
    throw FileError(kSettingsFile, "is kept as it was", "It could not be read at the start");
  }
  for (int tries = 1; true; ++tries) {
    try {
      return WriteSettings(state);
    } catch (const SettingsCameIn&) {
      if (tries == kTries) throw;
    }
  }
}

}  // namespace repvolta
