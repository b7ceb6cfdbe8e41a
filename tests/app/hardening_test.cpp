// The built program has the protections of Debian's hardening flags; read from the program file itself.
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "support/sanitized.h"

namespace sondera {
namespace {

class Hardening : public ::testing::Test {
 protected:
  void SetUp() override {
    if (kSanitized) GTEST_SKIP() << "the sanitizer build is not hardened";
    std::ifstream in(SONDERA_PROGRAM, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(in), {});
    ASSERT_GT(bytes_.size(), sizeof(Elf64_Ehdr));
    ASSERT_EQ(std::memcmp(bytes_.data(), ELFMAG, SELFMAG), 0);
    if (bytes_[EI_CLASS] != ELFCLASS64) GTEST_SKIP() << "written for 64-bit programs";
  }
  template <class T>
  T At(std::size_t offset) const {
    T value{};
    if (offset + sizeof value <= bytes_.size()) std::memcpy(&value, bytes_.data() + offset, sizeof value);
    return value;
  }
  std::optional<Elf64_Phdr> Segment(Elf64_Word type) const {
    const auto header = At<Elf64_Ehdr>(0);
    for (int i = 0; i < header.e_phnum; ++i) {
      const auto segment = At<Elf64_Phdr>(header.e_phoff + static_cast<std::size_t>(i) * header.e_phentsize);
      if (segment.p_type == type) return segment;
    }
    return std::nullopt;
  }
  Elf64_Xword DynamicEntry(Elf64_Sxword tag) const {
    const auto dynamic = Segment(PT_DYNAMIC);
    for (std::size_t k = 0; dynamic && k < dynamic->p_filesz / sizeof(Elf64_Dyn); ++k) {
      const auto entry = At<Elf64_Dyn>(dynamic->p_offset + k * sizeof(Elf64_Dyn));
      if (entry.d_tag == tag) return entry.d_un.d_val;
    }
    return 0;
  }
  bool Names(const char* symbol) const {
    return std::string_view(bytes_.data(), bytes_.size()).find(symbol) != std::string_view::npos;
  }

 private:
  std::vector<char> bytes_;
};

TEST_F(Hardening, TheProgramIsPositionIndependent) {
  EXPECT_EQ(At<Elf64_Ehdr>(0).e_type, ET_DYN);
}

TEST_F(Hardening, RelocationsAreReadOnlyBeforeMainStarts) {
  EXPECT_TRUE(Segment(PT_GNU_RELRO));
  EXPECT_TRUE(DynamicEntry(DT_FLAGS) & DF_BIND_NOW || DynamicEntry(DT_FLAGS_1) & DF_1_NOW);
}

TEST_F(Hardening, NoSegmentIsWritableAndExecutable) {
  const auto stack = Segment(PT_GNU_STACK);
  ASSERT_TRUE(stack);
  EXPECT_FALSE(stack->p_flags & PF_X);
}

TEST_F(Hardening, StacksAndLibraryCallsAreChecked) {
  EXPECT_TRUE(Names("__stack_chk_fail"));
  EXPECT_TRUE(Names("printf_chk")) << "no fortified call in the program";
  EXPECT_TRUE(Names("__glibcxx_assert_fail") || Names("_glibcxx_assert")) << "no index check of the library";
}

}  // namespace
}  // namespace sondera
