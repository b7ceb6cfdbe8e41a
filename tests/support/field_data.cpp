#include "support/field_data.h"

#include <cstdlib>

namespace sondera::test {
namespace {

namespace fs = std::filesystem;

/// Any folder may be called ../shared/data; the records' folder contains this one.
constexpr const char* kOneOfTheSites = "oysand_src20m";

const std::optional<fs::path>& Folder() {
  static const std::optional<fs::path> folder = FieldFolder(std::getenv("SONDERA_FIELD_DATA"));
  return folder;
}

// Determined before main: tests change the working folder.
[[maybe_unused]] const bool kFoundAtStart = Folder().has_value();

}  // namespace

std::optional<fs::path> FieldFolder(const char* named) {
  if (named && !*named) return std::nullopt;
  const fs::path folder =
      fs::absolute(named ? named : SONDERA_SOURCE_DIR "/../shared/data").lexically_normal();
  std::error_code error;
  if (!fs::is_directory(folder / kOneOfTheSites, error)) return std::nullopt;
  return folder;
}

std::optional<fs::path> FieldData(std::string_view relativePath) {
  if (!Folder()) return std::nullopt;
  return *Folder() / relativePath;
}

std::string FieldFile(std::string_view relativePath) {
  const auto path = FieldData(relativePath);
  return path ? path->string() : std::string();
}

}  // namespace sondera::test
