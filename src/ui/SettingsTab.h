#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editing/Editor.h"
#include "platform/SoundPlayer.h"
#include "ui/Handlers.h"

namespace Ui {
class SettingsTab;
}

namespace repvolta {

/// "Program Settings": the folders, the defaults and the voice.
class SettingsTab : public QWidget {
  Q_OBJECT

 public:
  SettingsTab(Editor& editor, Handlers& handlers);
  ~SettingsTab() override;

  void UpdateSettingsScreen();
  void ShowPaths();
  void ShowDefaultExerciseTime();
  void ShowVoices(const std::vector<std::string>& names);
  void ShowAudioOutputs(const std::vector<std::string>& names);

  /// Without a name, for the default output, when there was none at the start.
  ChosenOutput SelectedAudioOutput() const;

  void ShowFormats();

 private:
  void ConnectButtons();
  void ConnectVoice();
  void ConnectCheckBoxes();
  void Keep(const std::function<void()>& handler);

  Editor& editor_;
  Handlers& handlers_;
  std::unique_ptr<Ui::SettingsTab> ui_;
};

}  // namespace repvolta
