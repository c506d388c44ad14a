#pragma once

#include <QAbstractItemView>
#include <QString>

namespace repvolta {

/// Shows in an empty list how to fill it. The list owns this object.
class EmptyListHint : public QObject {
 public:
  EmptyListHint(QAbstractItemView* list, const QString& hint);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAbstractItemView* list_;
  QString hint_;
};

}  // namespace repvolta
