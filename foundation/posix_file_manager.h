#pragma once

#include "foundation/file_manager.h"

#include <memory>

namespace tarvolt {

/// The real disk, through POSIX calls and, where the promise needs them, Linux ones.
std::shared_ptr<FileManager> makePosixFileManager();

} // namespace tarvolt
