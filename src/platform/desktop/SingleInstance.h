#pragma once

#include <QLocalServer>
#include <chrono>
#include <functional>
#include <string>

#include "base/Descriptor.h"

namespace repvolta {

/// Keeps two windows from writing the same program directory. The hold on the directory ends with
/// the process, however that ends, and leaves no file behind.
class SingleInstance {
 public:
  /// Takes hold of the directory, unless a running program has it.
  explicit SingleInstance(const std::string& programDirectory);
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  /// False: another program holds the directory.
  bool IsFirst() const { return isFirst_; }

  /// For the first: `raise` is called whenever a later start asks for the running window.
  void OnLaterStart(std::function<void()> raise);

  /// For a later start: asks the running program to come to the front. False when it cannot be
  /// asked within the limit, as when it belongs to another user.
  bool RaiseFirst(std::chrono::milliseconds limit = std::chrono::seconds(2)) const;

 private:
  Descriptor directory_;
  bool isFirst_ = true;
  QString serverName_;
  QLocalServer server_;
};

}  // namespace repvolta
