#pragma once

#include <QAbstractItemView>
#include <QString>

namespace repvolta {

/// Says in an empty list what to do about it. Belongs to the list.
class EmptyListHint : public QObject {
 public:
  EmptyListHint(QAbstractItemView* list, const QString& hint);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAbstractItemView* list_;
  QString hint_;
};

}  // namespace repvolta
