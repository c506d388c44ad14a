#pragma once

namespace repvolta {

/// The services that an update needs from the program that runs it.
class UpdateHost {
 public:
  virtual ~UpdateHost() = default;

  /// A new update begins: a window shows itself and clears the lines of the previous update.
  virtual void UpdateBegins() {}

  /// Called repeatedly while a copied file is not there yet; a window handles its events meanwhile.
  /// False: stop waiting for the file.
  virtual bool KeepWaiting() = 0;

  /// True when the person has ended the program: the update stops before its next step.
  virtual bool StopRequested() = 0;
};

}  // namespace repvolta
