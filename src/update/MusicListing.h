#pragma once

#include <functional>
#include <string>

namespace repvolta {

/// Rebuilds the music list, all or nothing: every file below `musicPath` whose name ends in ".mp3"
/// in any case. Links to folders are not followed, folders that cannot be read are skipped, and so
/// are paths with a line break. If the path is empty or not a folder, the list is empty.
/// `whileListing` is called now and then. The program directory must be current. Throws FileError
/// when the list cannot be written.
void CompileMusicList(const std::string& musicPath, const std::function<void()>& whileListing = {});

}  // namespace repvolta
