#include "ui/MessageBox.h"

#include <QAbstractButton>

namespace repvolta {

QString WithLineBreaks(QString text) {
  return text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace('\r', '\n');
}

MessageBox::MessageBox(const QString& text, const QString& title, StandardButtons buttons,
                       QWidget* parent)
    : QMessageBox(buttons.testFlag(Cancel) ? Question : Information, title, WithLineBreaks(text),
                  buttons, parent) {
  setObjectName("MessageBox");
  setTextFormat(Qt::PlainText);
  setDefaultButton(Ok);
  // Some desktops put icons on the buttons of message boxes only; our other dialogs have none.
  for (QAbstractButton* button : this->buttons()) button->setIcon({});
}

void MessageBox::Show(QWidget* parent, const QString& text, const QString& title) {
  MessageBox(text, title, Ok, parent).exec();
}

bool MessageBox::Confirm(QWidget* parent, const QString& text, const QString& title) {
  return MessageBox(text, title, Ok | Cancel, parent).exec() == Ok;
}

}  // namespace repvolta
