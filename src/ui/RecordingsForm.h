#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editing/ClipPlayback.h"
#include "editing/RecordingsView.h"
#include "editing/VoiceServices.h"
#include "voices/ClipTable.h"

namespace Ui {
class RecordingsForm;
}

namespace repvolta {

class TextTable;

/// "Recordings": all words and names of the voice, to be listened to, one by one or as a sentence;
/// the other windows of the voice are opened for the selected one. The clips are read in the
/// background of the window.
class RecordingsForm : public QDialog {
  Q_OBJECT

 public:
  /// `services` must outlive the form. Throws FileError when the clips cannot be listed.
  explicit RecordingsForm(VoiceServices& services, QWidget* parent = nullptr);
  ~RecordingsForm() override;

  /// False while clips are still to be read.
  bool IsComplete() const { return !reading_; }

 protected:
  void done(int result) override;

 private:
  void Form_Load();
  void ConnectControls();
  void ReadAgain();
  void ReadSome();
  void ShowProgress();
  void ShowRows();
  void ShowRow(int row);
  void Header_Click(int column);
  void SortBox_Select();
  void Change(const std::string& failure,
              const std::function<void(const std::string& clip)>& change);
  void Listen();
  void PlaySentence();
  void ShowHeard();
  void Tell(const QString& notice);
  const ClipRow* Selected() const;
  void Select(const std::string& file);

  VoiceServices& services_;
  std::unique_ptr<Ui::RecordingsForm> ui_;
  TextTable* table_;
  QTimer timer_;
  std::optional<ClipTable> reading_;  // until all are read
  std::vector<ClipRow> rows_;
  std::vector<std::size_t> shown_;  // the row of the window's table -> the position in rows_
  std::string notice_;              // of the notes on the clips, in sentences
  RecordingsView view_;
  ClipPlayback playback_;
};

/// Opens the window and returns when it is closed. Throws FileError when the clips cannot be
/// listed.
void ShowRecordings(QWidget* owner, VoiceServices& services);

}  // namespace repvolta
