#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <chrono>
#include <functional>
#include <string>

#include "base/Descriptor.h"
#include "base/Lock.h"

namespace repvolta {

/// Keeps two windows from writing the same program directory. The system releases the directory
/// when the process ends in any way; no file is left.
class SingleInstance {
 public:
  /// Locks the directory, unless a running program holds it.
  explicit SingleInstance(const std::string& programDirectory);
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  /// False when another program holds the directory.
  bool IsFirst() const { return isFirst_; }

  /// For the first instance: calls `raise` whenever a later start asks for the running window,
  /// with the desktop's leave to come to the front that the later start has brought, or "".
  void OnLaterStart(std::function<void(const QByteArray& leave)> raise);

  /// For a later start: asks the running program to come to the front. False when it does not
  /// answer within the limit, for example because it belongs to another user.
  bool RaiseFirst(const QByteArray& leave = {},
                  std::chrono::milliseconds limit = std::chrono::seconds(2)) const;

 private:
  Descriptor directory_;
  ComputerLock lock_;
  bool isFirst_ = true;
  QString serverName_;
  QLocalServer server_;
};

}  // namespace repvolta
