// Beginnings of texts: no character is cut.
#include "runtime/utf8.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace sondera {
namespace {

TEST(BeginningOf, CutsNoCharacter) {
  const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z";  // 1, 2, 3, 4 and 1 bytes
  const std::size_t sizes[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 11, 11};
  for (std::size_t bytes = 0; bytes < std::size(sizes); ++bytes)
    EXPECT_EQ(BeginningOf(text, bytes), text.substr(0, sizes[bytes])) << bytes;
}

TEST(BeginningOf, BytesThatAreNoCharactersAreCutAnywhere) {
  const std::string latin = "M\xFCnchen \xC4\xD6\xDC";
  for (std::size_t bytes = 0; bytes <= latin.size(); ++bytes)
    EXPECT_EQ(BeginningOf(latin, bytes).size(), bytes) << bytes;
  std::mt19937 random(3);
  for (int i = 0; i < 2000; ++i) {
    std::string bytes(random() % 12, 'a');
    for (char& c : bytes) c = static_cast<char>(random());
    const std::size_t most = random() % 12;
    const std::string_view cut = BeginningOf(bytes, most);
    EXPECT_LE(cut.size(), most);
    EXPECT_GE(cut.size() + 3, std::min(most, bytes.size()));
  }
}

}  // namespace
}  // namespace sondera
