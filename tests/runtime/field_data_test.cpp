// Tests of the helper that finds the field records.
#include "support/field_data.h"

#include "support/temp_folder.h"

namespace sondera::test {
namespace {

TEST(FieldFolder, IsTheNamedOneWhereItHoldsTheRecords) {
  const TempFolder folder;
  EXPECT_EQ(FieldFolder(folder.Path().c_str()), std::nullopt) << "any folder may have the name";
  std::filesystem::create_directory(folder.File("oysand_src20m"));
  EXPECT_EQ(FieldFolder(folder.Path().c_str()), std::filesystem::path(folder.Path()));
}

TEST(FieldFolder, ANameThatLeadsNowhereIsNoFolder) {
  EXPECT_EQ(FieldFolder(""), std::nullopt);
  EXPECT_EQ(FieldFolder("/nonexistent/field/records"), std::nullopt);
}

TEST(FieldData, RecordsLieBelowTheFolderThatWasFoundAtTheStart) {
  SKIP_WITHOUT_FIELD_DATA("oysand_src20m/rec1.tim");
  EXPECT_GT(std::filesystem::file_size(*FieldData("oysand_src20m/rec1.tim")), 10000u);
  EXPECT_EQ(FieldFile("oysand_src20m/rec1.tim"), FieldData("oysand_src20m/rec1.tim")->string());
}

}  // namespace
}  // namespace sondera::test
