#include "editing/VoiceServices.h"

#include "base/FileError.h"

namespace repvolta {

bool Attempt(const VoiceServices& services, const std::string& failure,
             const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const FileError& error) {
    services.editor.dialogs.ShowMessage(error.what());
  } catch (const std::exception& error) {
    services.editor.dialogs.ShowMessage(failure + "\r" + error.what());
  }
  return false;
}

}  // namespace repvolta
