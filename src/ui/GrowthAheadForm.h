#pragma once

#include <QCheckBox>
#include <QDialog>
#include <array>
#include <functional>
#include <memory>

#include "app/UpdateDays.h"
#include "editing/GrowthAheadView.h"

namespace Ui {
class GrowthAheadForm;
}

namespace repvolta {

class GrowthRows;

/// "Growth Ahead": on which days an exercise grows and to what, as a table and as a picture. It
/// does not block the other windows; closing it only hides it.
class GrowthAheadForm : public QDialog {
  Q_OBJECT

 public:
  explicit GrowthAheadForm(QWidget* owner);
  ~GrowthAheadForm() override;

  // What is called when the person chooses other update days, or to look less or farther ahead.
  void OnUpdateDays(std::function<void(const UpdateDays&)> choose) { choose_ = std::move(choose); }
  void OnWeeks(std::function<void()> choose);

  /// Shows update days and a view without calling back.
  void ShowUpdateDays(const UpdateDays& days);
  void Show(const GrowthAheadView& view);

  /// The days that were chosen to look ahead.
  int DaysAhead() const;

 private:
  void ConnectUpdateDays();
  void WeekdaysButton_Click();
  void TakeTickedDays();
  UpdateDays TickedDays() const;

  std::unique_ptr<Ui::GrowthAheadForm> ui_;
  std::array<QCheckBox*, 7> weekdays_;
  GrowthRows* rows_;
  std::function<void(const UpdateDays&)> choose_ = [](const UpdateDays&) {};
};

}  // namespace repvolta
