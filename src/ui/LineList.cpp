#include "ui/LineList.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QStringList>

#include "ui/ProblemLines.h"

namespace repvolta {
namespace {

/// In the order of the list, whatever the order in which they were selected.
QString SelectedLines(const QListWidget& list) {
  QStringList lines;
  for (int i = 0; i < list.count(); ++i) {
    if (list.item(i)->isSelected()) lines.append(list.item(i)->text());
  }
  return lines.join('\n');
}

QAction& AddAction(QListWidget& list, const QString& text, QKeySequence::StandardKey key) {
  auto* action = new QAction(text, &list);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetShortcut);
  action->setAutoRepeat(false);
  list.addAction(action);
  return *action;
}

}  // namespace

void OfferCopy(QListWidget& list) {
  list.setSelectionMode(QAbstractItemView::ExtendedSelection);
  list.setContextMenuPolicy(Qt::ActionsContextMenu);
  QAction& copy = AddAction(list, "&Copy", QKeySequence::Copy);
  copy.setObjectName("CopyLinesAction");
  QObject::connect(&copy, &QAction::triggered, &list, [&list] {
    const QString lines = SelectedLines(list);
    if (!lines.isEmpty()) QApplication::clipboard()->setText(lines);
  });
  QAction& all = AddAction(list, "Select &All", QKeySequence::SelectAll);
  all.setObjectName("SelectAllLinesAction");
  QObject::connect(&all, &QAction::triggered, &list, &QListWidget::selectAll);
}

void ShowWholeInToolTip(QListWidgetItem& item) {
  // Escaped rich text, so that long lines are wrapped and no character is taken for markup.
  if (!item.text().isEmpty()) item.setToolTip("<qt>" + item.text().toHtmlEscaped() + "</qt>");
}

void SelectNext(QListWidget& list, LineKind kind) {
  const int count = list.count();
  for (int step = 1; step <= count; ++step) {
    QListWidgetItem* item = list.item((list.currentRow() + step + count) % count);
    if (KindOf(*item) != kind) continue;
    list.setCurrentItem(item, QItemSelectionModel::ClearAndSelect);
    list.setFocus(Qt::OtherFocusReason);
    return;
  }
}

}  // namespace repvolta
