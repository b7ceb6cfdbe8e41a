// written_files.cpp - the session's list of written files. Owns it.
#include "runtime/written_files.h"

#include <algorithm>

namespace sondera {
namespace {

std::vector<std::string> files;

}  // namespace

void NoteWrittenFile(const std::string& path) {
  if (std::find(files.begin(), files.end(), path) == files.end()) files.push_back(path);
}
const std::vector<std::string>& WrittenFiles() {
  return files;
}
void ClearWrittenFiles() {
  files.clear();
}

}  // namespace sondera
