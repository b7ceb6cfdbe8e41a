// field_data.cpp - see field_data.h.
#include "support/field_data.h"

#include <cstdlib>

namespace sondera::test {
namespace {

/// Taken when the program starts: tests change the current folder.
const std::filesystem::path kBesideTree = std::filesystem::absolute(SONDERA_SOURCE_DIR) / "../shared/data";

}  // namespace

std::optional<std::filesystem::path> FieldData(std::string_view relative) {
  const char* named = std::getenv("SONDERA_FIELD_DATA");
  const std::filesystem::path folder = named != nullptr && *named != '\0' ? named : kBesideTree;
  std::error_code error;
  const auto path = std::filesystem::weakly_canonical(folder / relative, error);
  if (error || !std::filesystem::exists(path, error)) return std::nullopt;
  return path;
}

}  // namespace sondera::test
