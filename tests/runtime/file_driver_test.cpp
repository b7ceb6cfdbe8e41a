// file_driver_test.cpp - calls that a signal interrupts are repeated; other failures are returned.
#include "runtime/file_driver.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>

#include "support/failing_file_driver.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::FailingFileDriver;
using test::TempFolder;

/// Every call of a file's life; true when all of them went well.
bool LiveThrough(const std::string& path) {
  int fd = OpenFile(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (fd < 0) return false;
  bool well = WriteFile(fd, "some bytes", 10) && FlushFile(fd) == 0;
  well = CloseFile(fd) == 0 && well;
  fd = OpenFile(path, O_RDONLY);
  char bytes[16] = {};
  well = well && fd >= 0 && ReadFile(fd, bytes, sizeof bytes) == 10 && std::string(bytes) == "some bytes";
  if (fd >= 0) CloseFile(fd);
  return well && RenameFile(path, path + "2") == 0 && RemoveFile(path + "2") == 0;
}

const test::FilePlan kOneFailureOfAKind[] = {{.failWrite = 1}, {.failFlush = 1}, {.failRename = 1},
                                             {.failOpen = 1},  {.failOpen = 2},  {.failClose = 1},
                                             {.failRead = 1},  {.failRemove = 1}};

TEST(FileDriver, ASignalInAnyCallIsNoFailure) {
  const TempFolder folder;
  for (test::FilePlan plan : kOneFailureOfAKind) {
    plan.error = EINTR;
    const FailingFileDriver driver(plan);
    EXPECT_TRUE(LiveThrough(folder.File("a")));
    EXPECT_EQ(driver.Calls().close, 2) << "a descriptor is closed once";
  }
}

TEST(FileDriver, AnyOtherFailureIsPassedOn) {
  const TempFolder folder;
  for (const test::FilePlan& plan : kOneFailureOfAKind) {
    const FailingFileDriver driver(plan);
    EXPECT_FALSE(LiveThrough(folder.File("a")));
  }
}

TEST(FileDriver, AWriteThatTakesNothingIsAFailure) {
  static int calls;
  calls = 0;
  FileDriver full = posixFileDriver;
  full.write = [](int, const void*, std::size_t) -> ssize_t { return ++calls > 100 ? -1 : 0; };
  InstallFileDriver(&full);
  EXPECT_FALSE(WriteFile(1, "x", 1));
  EXPECT_EQ(errno, EIO);
  EXPECT_EQ(calls, 1);
  InstallFileDriver(nullptr);
}

}  // namespace
}  // namespace sondera
