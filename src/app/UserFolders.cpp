#include "app/UserFolders.h"

#include <QByteArray>
#include <pwd.h>
#include <unistd.h>

namespace repvolta {
namespace {

constexpr const char* kHome = "HOME";

bool NamesAFolder(const char* variable) { return qgetenv(variable).startsWith('/'); }

}  // namespace

void CorrectUserFolders() {
  if (!NamesAFolder(kHome)) {
    // Without it, Qt takes the root folder for the home.
    qunsetenv(kHome);
    const passwd* user = getpwuid(getuid());
    if (user != nullptr && user->pw_dir[0] == '/') qputenv(kHome, user->pw_dir);
  }
  for (const char* variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"}) {
    if (!NamesAFolder(variable)) qunsetenv(variable);
  }
}

}  // namespace repvolta
