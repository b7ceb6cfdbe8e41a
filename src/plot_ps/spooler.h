// spooler.h - sends a file to the print spooler of the host. For the files of this folder only.
#pragma once

#include <string>

namespace sondera {

/// Runs `lp -d queue file` with an argument list, without a shell, and waits for it. False with a line on the
/// error stream when there is no spooler or it refuses.
bool PrintFile(const std::string& queue, const std::string& file);

}  // namespace sondera
