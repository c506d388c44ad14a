#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>

#include "editing/ProgressWindows.h"

namespace Ui {
class RandomMusicMessage;
}

namespace repvolta {

/// Asks for patience while the music is listed; does not block the other windows.
class RandomMusicMessage : public QDialog, public PleaseWait {
  Q_OBJECT

 public:
  RandomMusicMessage();
  ~RandomMusicMessage() override;

  /// The message stays above this window.
  void SetOwner(QWidget* owner) { owner_ = owner; }

  void Show() override;
  void Hide() override { hide(); }

 private:
  std::unique_ptr<Ui::RandomMusicMessage> ui_;
  QPointer<QWidget> owner_;
};

}  // namespace repvolta
