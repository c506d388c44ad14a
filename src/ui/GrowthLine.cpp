#include "ui/GrowthLine.h"

#include <QEvent>

#include "editing/GrowthEditing.h"
#include "editing/GrowthSentence.h"

namespace repvolta {

GrowthLine::GrowthLine(QWidget* parent) : QLabel(parent) {
  setForegroundRole(QPalette::PlaceholderText);
  setAlignment(Qt::AlignTop | Qt::AlignLeft);
  KeepRoom();
}

void GrowthLine::Follow(const Editor& editor, const std::vector<RowList*>& lists) {
  editor_ = &editor;
  lists_ = lists;
  connect(lists_.front(), &RowList::RowSelected, this, [this] { Refresh(); });
}

void GrowthLine::Refresh() {
  Say(QString::fromStdString(GrowthSentence(editor_->Exercise(), lists_.front()->SelectedRow(),
                                            ChosenUpdateDays(*editor_),
                                            editor_->program.clock.Today())));
}

void GrowthLine::Say(const QString& sentence) {
  if (sentence == text()) return;
  setText(sentence);
  for (RowList* list : lists_) list->setAccessibleDescription(sentence);
}

void GrowthLine::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) KeepRoom();
}

/// For most sentences, so that the controls below do not move with the selection.
void GrowthLine::KeepRoom() {
  constexpr int kLines = 2;
  setMinimumHeight(kLines * fontMetrics().lineSpacing());
}

}  // namespace repvolta
