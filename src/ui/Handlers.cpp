#include "ui/Handlers.h"

#include <QScopedValueRollback>

#include "base/FileError.h"
#include "update/Steps.h"

namespace repvolta {

void Handlers::Run(const std::string& failure, const std::function<void()>& handler) {
  RunApart(failure, [&] {
    beforehand_();
    handler();
  });
}

void Handlers::RunApart(const std::string& failure, const std::function<void()>& handler) {
  if (running_) return;
  const Outcome outcome = [&] {
    const QScopedValueRollback<bool> running(running_, true);
    return RunGuarded(failure, handler);
  }();
  afterwards_(outcome);
}

Handlers::Outcome Handlers::RunGuarded(const std::string& failure,
                                       const std::function<void()>& handler) {
  try {
    handler();
    return Outcome::kDone;
  } catch (const UpdateStopped&) {
    return Outcome::kDone;
  } catch (const FileError& error) {
    dialogs_.ShowMessage(error.what());
  } catch (const std::exception& error) {
    dialogs_.ShowMessage(failure + "\r" + error.what());
  }
  return Outcome::kFailed;
}

void Handlers::OnClick(QAbstractButton* button, const std::string& failure,
                       const std::function<void()>& handler) {
  QObject::connect(button, &QAbstractButton::clicked, button,
                   [this, failure, handler] { Run(failure, handler); });
}

void Handlers::OnClickApart(QAbstractButton* button, const std::string& failure,
                            const std::function<void()>& handler) {
  QObject::connect(button, &QAbstractButton::clicked, button,
                   [this, failure, handler] { RunApart(failure, handler); });
}

}  // namespace repvolta
