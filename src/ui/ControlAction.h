#pragma once

#include <QAction>
#include <QWidget>

namespace repvolta {

/// The action of a control of the main window, for a menu. Icon, tool tip, check mark and enabled
/// state are those of the control. When it is triggered, it shows the control's tab, and then
/// clicks a button, acts like Enter on the selected row of a list, or gives the focus to another
/// control. The action of a tab only shows it.
class ControlAction : public QAction {
  Q_OBJECT

 public:
  /// `text` is for a list or field, see MenuLine. `control` must outlive the action.
  ControlAction(QWidget& control, const QString& text, QObject* parent);

  /// What the control is called now, with its mnemonic, and its key after a tab.
  QString TextOfControl() const;

  /// Takes over what has changed, except for the text.
  void FollowControl();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool CanBeUsed() const;
  void Use();

  QWidget& control_;
  const QString text_;
};

}  // namespace repvolta
