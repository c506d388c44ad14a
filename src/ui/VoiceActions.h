#pragma once

#include <QAction>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "editing/Editor.h"
#include "editing/VoiceServices.h"
#include "ui/Handlers.h"

namespace repvolta {

/// The windows of the menu "Voice". Each one is opened by a free function of its form's file,
///
///     void ShowRecordings(QWidget* owner, VoiceServices& services);
///
/// which returns when it is closed; one that can begin with a certain clip has a last parameter
/// `const std::string& clip = ""`, its file below the folder of the voice: "300.wav",
/// "exercise/Squat.WAV".
class VoiceActions {
 public:
  /// The actions belong to `window`. Until Offer they are disabled.
  VoiceActions(QWidget& window, const Editor& editor, Handlers& handlers,
               std::function<ChosenOutput()> output);

  struct Devices {
    SoundPlayer& player;
    BackgroundSpeech& speech;
    Microphone* microphone = nullptr;
    std::string programVoice = {};  // see VoiceServices
    std::string wordLists = {};
  };

  /// What is given here must outlive the window.
  void Offer(const Devices& devices);

 private:
  /// What it changes can be seen and heard in the other windows.
  void Show(QWidget& window, void (*show)(QWidget* owner, VoiceServices& services));

  const Editor& editor_;
  std::function<ChosenOutput()> output_;
  std::optional<VoiceServices> services_;
  std::vector<QAction*> actions_;
};

}  // namespace repvolta
