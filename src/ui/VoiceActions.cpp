#include "ui/VoiceActions.h"

#include <utility>

#include "editing/Listening.h"
#include "ui/Keys.h"
#include "ui/RecordForm.h"
#include "ui/RecordingsForm.h"
#include "ui/SayDifferentlyForm.h"
#include "ui/VoiceAndMusicForm.h"
#include "ui/VoicesForm.h"
#include "ui/WorkoutTab.h"

namespace repvolta {
namespace {

struct VoiceWindow {
  const char* objectName;
  const char* text;
  QKeySequence key;
  const char* failure;
  void (*show)(QWidget* owner, VoiceServices& services);
};

/// In the order of the menu.
std::vector<VoiceWindow> VoiceWindows() {
  return {{"RecordingsAction", "Recordings ...", Qt::CTRL | Qt::Key_R,
           "The recordings cannot be shown.",
           [](QWidget* owner, VoiceServices& services) { ShowRecordings(owner, services); }},
          {"RecordWordsAction", "Record Words ...", Qt::CTRL | Qt::SHIFT | Qt::Key_R,
           "Nothing can be recorded.",
           [](QWidget* owner, VoiceServices& services) { ShowRecordWords(owner, services); }},
          {"SayDifferentlyAction",
           "Say It Differently ...",
           {},
           "The names cannot be said differently.",
           [](QWidget* owner, VoiceServices& services) { ShowSayDifferently(owner, services); }},
          {"VoicesAction", "Voices ...", {}, "The voices cannot be shown.", ShowVoices},
          {"VoiceAndMusicAction",
           "Voice and Music ...",
           {},
           "The window \"Voice and Music\" cannot be shown.",
           ShowVoiceAndMusic}};
}

}  // namespace

VoiceActions::VoiceActions(QWidget& window, const Editor& editor, Handlers& handlers,
                           std::function<ChosenOutput()> output)
    : editor_(editor), output_(std::move(output)) {
  for (const VoiceWindow& line : VoiceWindows()) {
    QAction* action = AddCommand(&window, line.objectName, line.text, line.key);
    action->setEnabled(false);
    QObject::connect(action, &QAction::triggered, &window,
                     [this, &window, &handlers, failure = line.failure, show = line.show] {
                       handlers.Run(failure, [&] { Show(window, show); });
                     });
    actions_.push_back(action);
  }
}

void VoiceActions::Offer(const Devices& devices) {
  services_.emplace(VoiceServices{.editor = editor_,
                                  .player = devices.player,
                                  .speech = devices.speech,
                                  .output = output_,
                                  .microphone = devices.microphone,
                                  .programVoice = devices.programVoice,
                                  .wordLists = devices.wordLists});
  for (QAction* action : actions_) action->setEnabled(true);
}

void VoiceActions::Show(QWidget& window, void (*show)(QWidget* owner, VoiceServices& services)) {
  if (editor_.listening != nullptr) editor_.listening->Stop();
  show(&window, *services_);
  const KeptRow selected = window.findChild<WorkoutTab*>()->KeepSelection();
  ShowWorkout(editor_);
}

}  // namespace repvolta
