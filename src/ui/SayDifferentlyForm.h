#pragma once

#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "editing/SayDifferently.h"
#include "editing/VoiceServices.h"

namespace Ui {
class SayDifferentlyForm;
}

namespace repvolta {

/// "Say It Differently": a name of an exercise is spoken as the person types it, until it sounds
/// right. It stays open for further names.
class SayDifferentlyForm : public QDialog {
  Q_OBJECT

 public:
  /// Begins with the name of `clip`, a file below the clip folder, or with the first one for "".
  /// `services` must outlive the form. Throws FileError when the clips cannot be listed.
  SayDifferentlyForm(const VoiceServices& services, const std::string& clip,
                     QWidget* parent = nullptr);
  ~SayDifferentlyForm() override;

 protected:
  void done(int result) override;

 private:
  void Form_Load();
  void ConnectControls();
  void SelectClip(const std::string& clip);
  void ShowLastWay();
  void ShowState();
  void Tell(const QString& notice);
  const SayableName* Name() const;
  WayToSay Way() const;
  void Listen();
  void Keep();

  const VoiceServices& services_;
  std::unique_ptr<Ui::SayDifferentlyForm> ui_;
  std::vector<SayableName> names_;
  SayDifferently saying_;
};

/// Opens the window and returns when it is closed. It begins with the name of `clip`, a file below
/// the clip folder ("exercise/OHP.WAV"). Throws FileError when the clips cannot be listed.
void ShowSayDifferently(QWidget* owner, VoiceServices& services, const std::string& clip = "");

}  // namespace repvolta
