// temp_folder.cpp - see temp_folder.h.
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace sondera::test {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
  std::string name = (fs::temp_directory_path() / "sondera_test_XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no temporary folder " << name;
  path_ = name;
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::permissions(path_, fs::perms::owner_all, ignored);
  fs::remove_all(path_, ignored);
}

std::string TempFolder::File(std::string_view name) const {
  return path_ + "/" + std::string(name);
}

std::vector<std::string> TempFolder::Names() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(path_))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) ADD_FAILURE() << "cannot read " << path;
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

void WriteWhole(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) ADD_FAILURE() << "cannot write " << path;
}

}  // namespace sondera::test
