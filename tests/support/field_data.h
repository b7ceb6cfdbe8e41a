// field_data.h - published field records, which lie beside the tree and are no part of it.
//
// They are looked for in the folder that the environment variable SONDERA_FIELD_DATA names, without it in
// ../shared/data beside the tree's top folder. A test on them is reported as skipped where they are not.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string_view>

namespace sondera::test {

/// Full path of a file or folder of the field data; nothing where it is not there.
std::optional<std::filesystem::path> FieldData(std::string_view relative);

}  // namespace sondera::test

/// First line of a test, or of SetUp, that needs a file or folder of the field data: skips it with one line
/// where that is not there.
#define SKIP_WITHOUT_FIELD_DATA(relative)    \
  if (!::sondera::test::FieldData(relative)) \
  GTEST_SKIP() << "no field data: " << (relative) << " (SONDERA_FIELD_DATA, ../shared/data)"
