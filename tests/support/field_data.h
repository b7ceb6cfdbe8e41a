// field_data.h - location of the published field records. They are not part of the tree:
// docs/published-records.md tells where they come from and how the folder is organised.
//
// The folder is SONDERA_FIELD_DATA, else ../shared/data beside the top folder of the tree. Tests on these
// records run where it exists; elsewhere they are reported as skipped, with one line.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sondera::test {

/// Full path of a file below the folder of field records; no value without the folder. A file missing in the
/// folder still has a path: then the test that reads it fails.
std::optional<std::filesystem::path> FieldData(std::string_view relativePath);

/// The same as text, "" without the folder. For constants and helpers of tests that skip in their first line.
std::string FieldFile(std::string_view relativePath);

/// The folder that would be taken with `named` as SONDERA_FIELD_DATA; null: not set, "": none.
std::optional<std::filesystem::path> FieldFolder(const char* named);

}  // namespace sondera::test

/// First line of a test or of its SetUp that needs a file or folder of the field data: skips it with one line
/// where they are not there.
#define SKIP_WITHOUT_FIELD_DATA(relative)    \
  if (!::sondera::test::FieldData(relative)) \
  GTEST_SKIP() << "no field data: " << (relative) << " (SONDERA_FIELD_DATA, ../shared/data)"
