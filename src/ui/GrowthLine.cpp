#include "ui/GrowthLine.h"

#include <QEvent>

#include "editing/GrowthEditing.h"
#include "editing/GrowthSentence.h"

namespace repvolta {

GrowthLine::GrowthLine(QWidget* parent) : QLabel(parent) {
  setForegroundRole(QPalette::PlaceholderText);
  KeepRoomForOneLine();
}

void GrowthLine::Follow(const Editor& editor, const std::vector<RowList*>& lists) {
  editor_ = &editor;
  lists_ = lists;
  connect(lists_.front(), &RowList::RowSelected, this, [this] { Refresh(); });
}

void GrowthLine::Refresh() {
  const QString sentence = QString::fromStdString(
      GrowthSentence(editor_->Exercise(), lists_.front()->SelectedRow(), ChosenUpdateDays(*editor_),
                     editor_->program.clock.Today()));
  if (sentence == text()) return;
  setText(sentence);
  for (RowList* list : lists_) list->setAccessibleDescription(sentence);
}

void GrowthLine::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) KeepRoomForOneLine();
}

/// The buttons below do not move when a set without growth is selected.
void GrowthLine::KeepRoomForOneLine() { setMinimumHeight(fontMetrics().height()); }

}  // namespace repvolta
