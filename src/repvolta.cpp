#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <string>

#include "app/ProgramDirectory.h"
#include "app/UserFolders.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/Product.h"
#include "base/ProgramFiles.h"
#include "editing/StartUp.h"
#include "platform/QtChildProcesses.h"
#include "platform/desktop/DesktopAudioOutputs.h"
#include "platform/desktop/DesktopMicrophone.h"
#include "platform/desktop/DesktopSoundPlayer.h"
#include "platform/desktop/SingleInstance.h"
#include "platform/desktop/UDisks.h"
#include "speech/EngineBackgroundSpeech.h"
#include "speech/EngineSpeech.h"
#include "speech/PreparedSpeech.h"
#include "ui/ClearIndicators.h"
#include "ui/ComeToFront.h"
#include "ui/DisplayNeeded.h"
#include "ui/MessageBox.h"
#include "ui/QtDialogs.h"
#include "ui/RandomMusicMessage.h"
#include "ui/RepvoltaForm.h"
#include "ui/TouchScreen.h"
#include "ui/UpdateForm.h"
#include "ui/VoiceActions.h"
#include "ui/WindowLayout.h"

// The desktop program.

namespace repvolta {
namespace {

constexpr int kNotStarted = 1;
constexpr const char* kStartsAllTheSame =
    "\rRepvolta starts without it. The workouts are as they were.";

int Fail(const std::string& reason) {
  static_cast<void>(std::fprintf(stderr, "repvolta: %s\n", reason.c_str()));
  MessageBox::Show(nullptr, QString::fromStdString(reason), kProductName.data());
  return kNotStarted;
}

/// The icon of the desktop's theme, or the program's own.
QIcon ProgramIcon() {
  QIcon own;
  for (const int size : {16, 32, 48, 128, 256}) {
    own.addFile(QString(":/icons/repvolta-%1.png").arg(size));
  }
  return QIcon::fromTheme("repvolta", own);
}

/// Returns why the directory lacks something, or "". Throws FileError where nobody has used it yet.
std::string PrepareProgramDirectory(const std::string& directory, const std::string& executable) {
  std::string lack;
  try {
    FillProgramDirectory(directory, executable);
  } catch (const FileError& error) {
    if (!FileExists(directory + kSettingsFile)) throw;
    lack = error.what();
  }
  LinkEncoder(directory);
  return lack;
}

std::unique_ptr<SpeechSynthesizer> MakeSpeech(ChildProcesses& processes) {
  return std::make_unique<EngineSpeech>(InstalledEngines(processes));
}

/// The state, the services and the windows of one run.
class Desktop {
 public:
  Desktop(const std::string& programDirectory, std::string layoutFile,
          const std::string& executable)
      : layoutFile_(std::move(layoutFile)) {
    state_.ProgramDirectory = programDirectory;
    window_ = &form_;
    dialogs_.SetOwner(&form_);
    dialogs_.SetGuide(FindGuide(executable));
    progress_.SetOwner(&form_);
    progress_.OfferEject(disks_, [this] { return state_.Settings.OutputPath.Trimmed(); });
    pleaseWait_.SetOwner(&form_);
    form_.OfferListening(player_, backgroundSpeech_);
    form_.GetVoiceActions().Offer({.player = player_,
                                   .speech = backgroundSpeech_,
                                   .microphone = &microphone_,
                                   .programVoice = FindProgramVoice(executable),
                                   .wordLists = FindWordLists(executable)});
    QObject::connect(&form_, &RepvoltaForm::Ended, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
  }

  int Run(SingleInstance& instance, const std::string& lack) {
    instance.OnLaterStart([this](const QByteArray& leave) { ComeToFront(form_, leave); });
    if (!lack.empty()) dialogs_.ShowMessage(lack + kStartsAllTheSame);
    Form_Load(form_.GetEditor(), outputs_);
    form_.show();
    return QApplication::exec();
  }

 private:
  void RunEvents() {
    if (window_) window_->RunEvents();
  }

  std::string layoutFile_;
  RepvoltaForm* window_ = nullptr;  // null until it is created
  ProgramState state_;
  SystemClock clock_;
  TimerSeededNumbers random_;
  QtChildProcesses processes_{[this] { RunEvents(); }};
  PreparedSpeech speech_{MakeSpeech, processes_};
  DesktopAudioOutputs outputs_;
  DesktopSoundPlayer player_;
  DesktopMicrophone microphone_;
  EngineBackgroundSpeech backgroundSpeech_{MakeSpeech};
  UDisks disks_;
  QtDialogs dialogs_{layoutFile_};
  UpdateForm progress_;
  RandomMusicMessage pleaseWait_;
  Program program_{state_, clock_, random_, processes_, speech_};
  RepvoltaForm form_{program_, dialogs_, progress_, pleaseWait_, layoutFile_};
};

int Run() {
  const std::string executable = QCoreApplication::applicationFilePath().toStdString();
  const std::string directory = FindProgramDirectory(executable);
  const std::string lack = PrepareProgramDirectory(directory, executable);
  SingleInstance instance(directory);
  if (instance.IsFirst()) {
    const std::string layoutFile = WindowLayoutFile(directory, executable);
    if (!layoutFile.empty()) KeepFileDialogIn(directory);
    return Desktop(directory, layoutFile, executable).Run(instance, lack);
  }
  return instance.RaiseFirst(LeaveToComeToFront())
             ? 0
             : Fail("Repvolta is already running in " + directory);
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  repvolta::CorrectUserFolders();
  auto displayNeeded = std::make_unique<repvolta::DisplayNeeded>();
  QApplication application(argc, argv);
  displayNeeded.reset();
  QApplication::setApplicationName("repvolta");
  QApplication::setDesktopFileName("repvolta");
  // The window need not wait for its icon: looking through the themes takes several milliseconds.
  QTimer::singleShot(0, [] { QApplication::setWindowIcon(repvolta::ProgramIcon()); });
  QApplication::setStyle(new repvolta::ClearIndicators(
      repvolta::HasTouchScreen() ? repvolta::Pointing::kFinger : repvolta::Pointing::kMouse));
  repvolta::HandKeyboardToBoxes(application);
  // Only the Exit command ends the program. During the set-up, closing a message box closes the
  // last window.
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    return repvolta::Run();
  } catch (const std::exception& error) {
    return repvolta::Fail(error.what());
  }
}
