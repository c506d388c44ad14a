#include "ui/ProblemLines.h"

#include <QApplication>
#include <QListWidgetItem>
#include <QStyle>

namespace repvolta {
namespace {

constexpr int kKindRole = Qt::UserRole;

}  // namespace

void MarkProblem(QListWidgetItem& item, LineKind kind) {
  if (kind == LineKind::kPlain) return;
  const bool isError = kind == LineKind::kError;
  item.setData(kKindRole, static_cast<int>(kind));
  item.setIcon(QApplication::style()->standardIcon(isError ? QStyle::SP_MessageBoxCritical
                                                           : QStyle::SP_MessageBoxWarning));
  item.setData(Qt::AccessibleTextRole, item.text());
  item.setData(Qt::AccessibleDescriptionRole, isError ? "Error" : "Warning");
}

LineKind KindOf(const QListWidgetItem& item) {
  return static_cast<LineKind>(item.data(kKindRole).toInt());
}

void ProblemLines::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const auto kind = static_cast<LineKind>(index.data(kKindRole).toInt());
  if (kind == LineKind::kPlain) return;
  option->backgroundBrush = option->palette.alternateBase();
  option->font.setBold(kind == LineKind::kError);
}

}  // namespace repvolta
