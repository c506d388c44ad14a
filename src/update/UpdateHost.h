#pragma once

namespace repvolta {

/// What an update asks of whoever runs it.
class UpdateHost {
 public:
  virtual ~UpdateHost() = default;

  /// The lines of a new update follow: a window shows itself, and clears away those of the last.
  virtual void UpdateBegins() {}

  /// Called between two looks for a copied file that is not there yet: lets a window live for a
  /// moment. False: give the file up.
  virtual bool KeepWaiting() = 0;

  /// True when the person wants the program to end: the update stops at its next step.
  virtual bool StopRequested() = 0;
};

}  // namespace repvolta
