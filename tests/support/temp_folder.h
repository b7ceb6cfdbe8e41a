// temp_folder.h - a folder of a test's own, and whole files in one call.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sondera::test {

/// A new empty folder, removed with its contents at the end of its life.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  /// Without closing separator.
  const std::string& Path() const { return path_; }
  /// Full name of a file in it.
  std::string File(std::string_view name) const;
  /// Names of its contents, sorted.
  std::vector<std::string> Names() const;

 private:
  std::string path_;
};

/// All bytes of a file; fails the test when it cannot be read.
std::string ReadWhole(const std::string& path);

/// Makes or overwrites a file.
void WriteWhole(const std::string& path, std::string_view bytes);

}  // namespace sondera::test
