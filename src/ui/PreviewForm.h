#pragma once

#include <QDialog>
#include <memory>

#include "editing/Preview.h"

namespace Ui {
class PreviewForm;
}

namespace repvolta {

class Listening;
class TextTable;

/// What an update would do: what will go wrong, the files, what is spoken, and what grows. It
/// changes nothing; what the person wants next is done by who opened it.
class PreviewForm : public QDialog {
  Q_OBJECT

 public:
  explicit PreviewForm(const Preview& preview, QWidget* parent = nullptr);
  ~PreviewForm() override;

  /// Until this call nothing can be listened to. `listening` must outlive the form.
  void OfferListening(Listening& listening);

  const PreviewOutcome& Outcome() const { return outcome_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Form_Load();
  void ShowProblems();
  void AddProblem(const PreviewProblem& problem, int row);
  void ShowFiles();
  void ShowGrowth();
  void FileRow_Select(int row);
  void CloseWith(const PreviewOutcome& outcome);

  const Preview preview_;
  std::unique_ptr<Ui::PreviewForm> ui_;
  TextTable* files_;
  TextTable* growth_;
  PreviewOutcome outcome_;
};

}  // namespace repvolta
