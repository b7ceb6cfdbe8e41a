// lock_file_test.cpp - one process at a time; the lock of a dead process blocks nobody.
#include "runtime/lock_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "runtime/events.h"
#include "support/failing_file_driver.h"
#include "support/lock_holder.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::FailingFileDriver;
using test::LockHolder;
using test::ReadWhole;
using test::TempFolder;
using test::WriteWhole;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(LockFile, IsAFileBesideItsTargetAndGoesAway) {
  const TempFolder folder;
  {
    LockFile lock;
    EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Taken);
    EXPECT_TRUE(lock.Held());
    EXPECT_EQ(lock.Target(), folder.File("site.da"));
    EXPECT_THAT(folder.Names(), ElementsAre("site.da.lock"));
    EXPECT_THAT(ReadWhole(folder.File("site.da.lock")), HasSubstr("sondera " + std::to_string(::getpid())));
  }
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(LockFile, AnotherProcessIsRefusedWithTheHoldersNumber) {
  const TempFolder folder;
  const LockHolder other(folder.File("site.da"));
  ASSERT_TRUE(other.holds);
  LockFile lock;
  const LockResult result = lock.Acquire(folder.File("site.da"));
  EXPECT_EQ(result, LockResult::Busy);
  EXPECT_FALSE(LockFile::MayGoOn(result));
  EXPECT_FALSE(lock.Held());
  EXPECT_EQ(lock.Reason(), folder.File("site.da") + " is in use by process " + std::to_string(other.pid));
  EXPECT_EQ(lock.Acquire(folder.File("other.da")), LockResult::Taken);
}

TEST(LockFile, AKilledProcessBlocksNobody) {
  const TempFolder folder;
  LockHolder other(folder.File("site.da"));
  other.Kill();
  ASSERT_THAT(folder.Names(), ElementsAre("site.da.lock")) << "it had no time to clean up";
  LockFile lock;
  EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Taken) << lock.Reason();
  const LockHolder third(folder.File("site.da"));
  EXPECT_FALSE(third.holds);
  EXPECT_THAT(ReadWhole(folder.File("site.da.lock")),
              HasSubstr("sondera " + std::to_string(::getpid()) + " "));
  lock.Release();
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(LockFile, OneProcessMayTakeItTwiceAndKeepsItToTheLast) {
  const TempFolder folder;
  LockFile second;
  {
    LockFile first;
    ASSERT_EQ(first.Acquire(folder.File("site.da")), LockResult::Taken);
    std::filesystem::create_symlink(folder.Path(), folder.File("again"));
    EXPECT_EQ(second.Acquire(folder.File("again/site.da")), LockResult::Taken);
  }
  EXPECT_FALSE(LockHolder(folder.File("site.da")).holds);
  second.Release();
  EXPECT_TRUE(LockHolder(folder.File("site.da")).holds);
}

TEST(LockFile, ALinkAndItsTargetHaveOneLock) {
  const TempFolder folder;
  std::filesystem::create_symlink("site.da", folder.File("link.da"));
  const LockHolder other(folder.File("link.da"));
  LockFile lock;
  EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Busy);
}

TEST(LockFile, WaitingEndsWhenTheLockHolderDoes) {
  const TempFolder folder;
  LockHolder other(folder.File("site.da"));
  ASSERT_TRUE(other.holds);
  std::string told;
  int times = 0;
  WaitForLocks([&](const std::string& sentence) {
    told = sentence;
    ++times;
    other.Kill();
  });
  LockFile lock;
  EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Taken);
  EXPECT_EQ(times, 1);
  EXPECT_THAT(told, HasSubstr("is in use by process"));
  WaitForLocks(nullptr);
}

TEST(LockFile, AnInterruptEndsTheWaiting) {
  const TempFolder folder;
  const LockHolder other(folder.File("site.da"));
  WaitForLocks([](const std::string&) { RequestInterrupt(); });
  LockFile lock;
  EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Busy);
  WaitForLocks(nullptr);
  ResetEvents();
}

TEST(LockFile, APlaceThatTakesNoLockLetsWorkGoOn) {
  const TempFolder folder;
  LockFile lock;
  const LockResult missing = lock.Acquire(folder.File("none/site.da"));
  EXPECT_EQ(missing, LockResult::NotPossible);
  EXPECT_TRUE(LockFile::MayGoOn(missing));
  EXPECT_NE(lock.Reason(), "");
  for (int error : {EROFS, EACCES}) {
    const FailingFileDriver driver({.failOpen = 1, .everAfter = true, .error = error});
    EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::NotPossible);
  }
  const FailingFileDriver driver({.failLock = 1, .error = ENOLCK});
  EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::NotPossible);
}

TEST(LockFile, OtherFailuresAreNotTakenForAPlaceWithoutLocks) {
  const TempFolder folder;
  LockFile lock;
  for (const test::FilePlan& plan : {test::FilePlan{.failOpen = 1}, test::FilePlan{.failRead = 1},
                                     test::FilePlan{.failWrite = 1}, test::FilePlan{.failLock = 1}}) {
    WriteWhole(folder.File("site.da.lock"), "sondera 1           \n");  // of a killed process
    const FailingFileDriver driver(plan);
    EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Failed);
    EXPECT_THAT(lock.Reason(), HasSubstr("Input/output error"));
  }
  EXPECT_EQ(lock.Acquire(folder.File("site.da")), LockResult::Taken);
}

TEST(LockFile, WhatIsNoLockFileIsLeftAlone) {
  const TempFolder folder;
  WriteWhole(folder.File("a.lock"), "a person's own notes");
  std::filesystem::create_directory(folder.File("b.lock"));
  ASSERT_EQ(::mkfifo(folder.File("c.lock").c_str(), 0600), 0);
  WriteWhole(folder.File("mine"), "precious");
  std::filesystem::create_symlink("mine", folder.File("d.lock"));
  for (const char* name : {"a", "b", "c", "d"}) {
    LockFile lock;
    EXPECT_EQ(lock.Acquire(folder.File(name)), LockResult::Failed) << name;
  }
  EXPECT_EQ(ReadWhole(folder.File("a.lock")), "a person's own notes");
  EXPECT_EQ(ReadWhole(folder.File("mine")), "precious");
}

TEST(LockFile, TheLongestNameHasALockToo) {
  const TempFolder folder;
  LockFile lock;
  EXPECT_EQ(lock.Acquire(folder.File(std::string(255, 'n'))), LockResult::Taken) << lock.Reason();
}

TEST(LockFile, ManyProcessesNeverHoldItTogether) {
  const TempFolder folder;
  const std::string target = folder.File("site.da");
  WriteWhole(folder.File("count"), "");
  constexpr int kProcesses = 6, kRounds = 40;
  for (int p = 0; p < kProcesses; ++p) {
    if (::fork() != 0) continue;
    WaitForLocks([](const std::string&) {});
    for (int round = 0; round < kRounds; ++round) {
      LockFile lock;
      if (lock.Acquire(target) != LockResult::Taken) ::_exit(1);
      if (::mkdir(folder.File("inside").c_str(), 0700) != 0) ::_exit(2);  // another process has it
      ::usleep(200);
      if (::rmdir(folder.File("inside").c_str()) != 0) ::_exit(3);
    }
    ::_exit(0);
  }
  for (int p = 0; p < kProcesses; ++p) {
    int status = -1;
    ::wait(&status);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << WEXITSTATUS(status);
  }
}

}  // namespace
}  // namespace sondera
