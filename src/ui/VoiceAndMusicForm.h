#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "editing/VoiceAndMusic.h"
#include "editing/VoiceServices.h"

namespace Ui {
class VoiceAndMusicForm;
}

namespace repvolta {

class TextTable;

/// "Voice and Music": how loud some songs are, and the level of the voice beside them, chosen by
/// ear.
class VoiceAndMusicForm : public QDialog {
  Q_OBJECT

 public:
  /// Begins to measure the songs. `services` must outlive the form. Throws FileError when the clips
  /// or the list of songs cannot be read.
  explicit VoiceAndMusicForm(VoiceServices& services, QWidget* parent = nullptr);
  ~VoiceAndMusicForm() override;

 protected:
  void done(int result) override;

 private:
  void Form_Load();
  void ConnectControls();
  void MeasureButton_Click();
  void LevelSlider_Change(int value);
  void ListenButton_Click();
  void UseButton_Click();
  void ShowAll();
  void ShowSongs();
  void SelectTypicalSong();
  void ShowLevel();
  void Tell(const QString& notice);

  VoiceServices& services_;
  std::unique_ptr<Ui::VoiceAndMusicForm> ui_;
  TextTable* table_;
  std::size_t shownSongs_ = 0;
  int level_ = kVoiceAsMade;
  VoiceAndMusic work_;
};

/// Opens the window and returns when it is closed. Throws what the form's constructor throws.
void ShowVoiceAndMusic(QWidget* owner, VoiceServices& services);

}  // namespace repvolta
