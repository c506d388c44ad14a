#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class AboutForm;
}

namespace repvolta {

/// The program's version and credits.
class AboutForm : public QDialog {
  Q_OBJECT

 public:
  explicit AboutForm(QWidget* parent = nullptr);
  ~AboutForm() override;

 private:
  void Form_Load();
  void cmdSysInfo_Click();

  std::unique_ptr<Ui::AboutForm> ui_;
};

}  // namespace repvolta
