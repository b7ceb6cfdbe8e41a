// small_disk.cpp - see small_disk.h.
#include "support/small_disk.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

namespace sondera::test {

SmallDisk::SmallDisk(std::size_t bytes) {
  const std::string size = "size=" + std::to_string(bytes);
  mounted_ = ::mount("tmpfs", folder_.Path().c_str(), "tmpfs", 0, size.c_str()) == 0;
  if (mounted_) return;
  formerHandler_ = std::signal(SIGXFSZ, SIG_IGN);  // a write then fails instead
  EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &former_), 0);
  rlimit small = former_;
  small.rlim_cur = bytes;
  EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
}

SmallDisk::~SmallDisk() {
  if (mounted_) {
    EXPECT_EQ(::umount(folder_.Path().c_str()), 0);
    return;
  }
  ::setrlimit(RLIMIT_FSIZE, &former_);
  std::signal(SIGXFSZ, formerHandler_);
}

}  // namespace sondera::test
