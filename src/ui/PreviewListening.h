#pragma once

#include <QLabel>
#include <QObject>
#include <QPushButton>
#include <optional>

#include "editing/Listening.h"
#include "editing/Preview.h"
#include "ui/RowTable.h"
#include "ui/TextTable.h"

namespace repvolta {

/// Lets a person hear the instructions of the preview, and marks the row of the one that is heard.
/// What is heard ends with this object.
class PreviewListening : public QObject {
 public:
  struct Controls {
    RowTable* files;
    TextTable* rows;
    QPushButton* listen;
    QPushButton* stop;
    QPushButton* next;
    QLabel* notice;
  };

  /// `preview` and `listening` must outlive the object.
  PreviewListening(const Preview& preview, Listening& listening, const Controls& controls,
                   QObject* parent);
  ~PreviewListening() override;

 private:
  std::optional<int> SelectedExercise() const;
  void Play(int exercise);
  void PlayNext();
  void Tell(const QString& notice);
  void ShowHeard();

  /// The row of the instruction; -1 when there is none.
  int InstructionRow(std::optional<int> exercise) const;

  const Preview& preview_;
  Listening& listening_;
  Controls controls_;
  Listening::Watch watch_;
};

}  // namespace repvolta
