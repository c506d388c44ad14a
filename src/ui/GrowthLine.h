#pragma once

#include <QLabel>
#include <vector>

#include "editing/Editor.h"
#include "ui/RowList.h"

namespace repvolta {

/// The line below the lists of sets that says when the values of the selected set grow. Screen
/// readers say it with the lists that it explains.
class GrowthLine : public QLabel {
 public:
  explicit GrowthLine(QWidget* parent = nullptr);

  /// Shows from now on what the selected row of these lists, which select together, comes to.
  void Follow(const Editor& editor, const std::vector<RowList*>& lists);

  /// Shows the current exercise as it is in memory.
  void Refresh();

  void ShowNothing() { Say({}); }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void KeepRoom();
  void Say(const QString& sentence);

  const Editor* editor_ = nullptr;
  std::vector<RowList*> lists_;
};

}  // namespace repvolta
