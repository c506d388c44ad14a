#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "editing/RecordWords.h"

class QComboBox;
class QLabel;

namespace Ui {
class RecordForm;
}

namespace repvolta {

/// "Record Words": shows one word after the other, and what the microphone and the recording of it
/// are like. All of it works by the keyboard alone; what changes is heard as the description of the
/// button that has the focus.
class RecordForm : public QDialog {
  Q_OBJECT

 public:
  /// `recording` must outlive the form.
  RecordForm(RecordWords& recording, QWidget* owner);
  ~RecordForm() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Form_Load();
  void ConnectButtons();
  void ConnectChoices();
  void ShowChoices();
  void ShowMicrophones();
  void ShowSession();
  void ShowButtons(const RecordView& view);
  void SayToScreenReader(const RecordView& view);
  void Tell(QLabel& label, const std::string& text);
  void GiveFocus();

  RecordWords& recording_;
  std::unique_ptr<Ui::RecordForm> ui_;
  QTimer microphones_{this};  // looks for new ones
  std::vector<std::string> shownMicrophones_;
};

/// Opens "Record Words", and returns when it is closed. It asks for the words; with `clip`, a file
/// below the folder of the voice, for that one first.
void ShowRecordWords(QWidget* owner, VoiceServices& services, const std::string& clip = "");

}  // namespace repvolta
