#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editing/VoiceServices.h"
#include "editing/VoiceTexts.h"

namespace Ui {
class VoicesForm;
}

namespace repvolta {

class TextTable;

/// "Voices": the whole voices, which one is in use, and what can be done with them.
class VoicesForm : public QDialog {
  Q_OBJECT

 public:
  /// Throws FileError. `services` must outlive the form.
  explicit VoicesForm(VoiceServices& services, QWidget* parent = nullptr);
  ~VoicesForm() override;

 protected:
  void done(int result) override;

 private:
  void Form_Load();
  void ConnectButtons();
  void Show(const std::string& selected);
  void VoiceRow_Select(int row);
  void ListenButton_Click();
  void CheckButton_Click();
  void TakeIn(std::string (*takeIn)(const VoiceServices& services));
  void Do(const std::string& failure, const std::function<void()>& step);
  void Silence();
  const VoiceRow& Selected() const;

  VoiceServices& services_;
  std::unique_ptr<Ui::VoicesForm> ui_;
  TextTable* table_;
  std::vector<VoiceRow> rows_;
  bool isHeard_ = false;
};

/// Shows the form until it is closed. Throws FileError.
void ShowVoices(QWidget* owner, VoiceServices& services);

}  // namespace repvolta
