// atomic_writer_test.cpp - complete files or none, whatever fails in between.
#include "runtime/atomic_writer.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "runtime/byte_reader.h"
#include "support/comma_locale.h"
#include "support/failing_file_driver.h"
#include "support/temp_folder.h"

namespace sondera {
namespace {

using test::CommaLocale;
using test::FailingFileDriver;
using test::ReadWhole;
using test::TempFolder;
using test::WriteWhole;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kOld = "the old content, which nobody can measure again";

TEST(AtomicWriter, WritesLittleEndianFieldsWithoutPadding) {
  const TempFolder folder;
  AtomicWriter writer(folder.File("a.da"));
  const int ints[2] = {1, -2};
  const double reals[1] = {-2.5};
  writer.Int32(42);
  writer.Real(1.0);
  writer.Text("ab", 4);
  writer.Int32s(ints, 2);
  writer.Reals(reals, 1);
  writer.Bytes("xyz", 3);
  EXPECT_EQ(writer.Written(), 4 + 8 + 4 + 8 + 8 + 3);
  ASSERT_TRUE(writer.Commit()) << writer.Reason();
  const std::string expected(
      "\x2a\0\0\0"
      "\0\0\0\0\0\0\xf0\x3f"
      "ab\0\0"
      "\x01\0\0\0\xfe\xff\xff\xff"
      "\0\0\0\0\0\0\x04\xc0"
      "xyz",
      35);
  EXPECT_EQ(ReadWhole(folder.File("a.da")), expected);
}

TEST(AtomicWriter, TextFieldIsCutBeforeItsTerminatorAndZeroFilled) {
  const TempFolder folder;
  AtomicWriter writer(folder.File("a"));
  writer.Text(std::string(300, 'q'));
  writer.Text("Oys\xe6nd");
  writer.Text("", 0);
  ASSERT_TRUE(writer.Commit());
  const std::string bytes = ReadWhole(folder.File("a"));
  ASSERT_EQ(bytes.size(), 512u);
  EXPECT_EQ(bytes.substr(0, 256), std::string(255, 'q').append(1, '\0'));
  EXPECT_EQ(bytes.substr(256), std::string("Oys\xe6nd").append(250, '\0'));
}

TEST(AtomicWriter, OldFileStandsUntilCommit) {
  const TempFolder folder;
  WriteWhole(folder.File("a.da"), kOld);
  AtomicWriter writer(folder.File("a.da"));
  writer.Put("new");
  EXPECT_EQ(ReadWhole(folder.File("a.da")), kOld);
  ASSERT_TRUE(writer.Commit());
  EXPECT_EQ(ReadWhole(folder.File("a.da")), "new");
  EXPECT_THAT(folder.Names(), ElementsAre("a.da"));
  EXPECT_TRUE(writer.Commit());  // nothing more to do
  writer.Put("late");
  EXPECT_EQ(ReadWhole(folder.File("a.da")), "new");
}

TEST(AtomicWriter, WithoutCommitNothingHappened) {
  const TempFolder folder;
  WriteWhole(folder.File("a.da"), kOld);
  {
    AtomicWriter writer(folder.File("a.da"));
    writer.Put("new");
    EXPECT_EQ(folder.Names().size(), 2u);
  }
  EXPECT_EQ(ReadWhole(folder.File("a.da")), kOld);
  EXPECT_THAT(folder.Names(), ElementsAre("a.da"));
}

TEST(AtomicWriter, TemporaryNameTellsItsFile) {
  const TempFolder folder;
  const AtomicWriter writer(folder.File("site.da"));
  ASSERT_EQ(folder.Names().size(), 1u);
  EXPECT_THAT(folder.Names()[0], HasSubstr("site.da.saving-"));
}

TEST(AtomicWriter, WriteOutShowsWhatWasWrittenInTheTemporaryFile) {
  const TempFolder folder;
  WriteWhole(folder.File("a"), kOld);
  AtomicWriter writer(folder.File("a"));
  writer.Put("first");
  writer.WriteOut();
  EXPECT_EQ(ReadWhole(folder.File(folder.Names().back())), "first");
  EXPECT_EQ(ReadWhole(folder.File("a")), kOld);
}

TEST(AtomicWriter, FinishWritesAllAndCommitOnlyPutsInPlace) {
  const TempFolder folder;
  WriteWhole(folder.File("a"), kOld);
  AtomicWriter writer(folder.File("a"));
  writer.Put("whole");
  EXPECT_TRUE(writer.Finish(false));
  writer.Put(" and more");
  writer.WriteOut();
  EXPECT_EQ(ReadWhole(folder.File("a")), kOld);
  const FailingFileDriver failing({.failWrite = 1, .failFlush = 1, .failClose = 1});
  EXPECT_TRUE(writer.Commit(false));
  EXPECT_EQ(ReadWhole(folder.File("a")), "whole");
}

TEST(AtomicWriter, FinishThatFailsLeavesTheOldFileAndNoOther) {
  const TempFolder folder;
  WriteWhole(folder.File("a"), kOld);
  AtomicWriter writer(folder.File("a"));
  writer.Put("whole");
  {
    const FailingFileDriver failing({.failClose = 1});
    EXPECT_FALSE(writer.Finish(false));
  }
  EXPECT_FALSE(writer.Commit(false));
  EXPECT_THAT(folder.Names(), ElementsAre("a"));
  EXPECT_EQ(ReadWhole(folder.File("a")), kOld);
}

TEST(AtomicWriter, RemainsOfKilledProcessesAreRemovedAndNothingElse) {
  const TempFolder folder;
  for (const char* name : {"a", "a.saving-1-0", "a.saving-4711-12", "a.saving-", "a.saving-1", "a.saving-x-0",
                           "a.saving-1-0x", "a.saving-1-", "b.saving-1-0", "a.saving-1-0.da"})
    WriteWhole(folder.File(name), kOld);
  RemoveRemains(folder.File("a"));
  EXPECT_THAT(folder.Names(), ElementsAre("a", "a.saving-", "a.saving-1", "a.saving-1-", "a.saving-1-0.da",
                                          "a.saving-1-0x", "a.saving-x-0", "b.saving-1-0"));
  RemoveRemains(folder.File("missing/a"));
}

TEST(AtomicWriter, TwoWritersOfOneFileDoNotMix) {
  const TempFolder folder;
  AtomicWriter first(folder.File("a")), second(folder.File("a"));
  first.Put("first");
  second.Put("second");
  ASSERT_TRUE(first.Commit());
  EXPECT_EQ(ReadWhole(folder.File("a")), "first");
  ASSERT_TRUE(second.Commit());
  EXPECT_EQ(ReadWhole(folder.File("a")), "second");
}

TEST(AtomicWriter, LongestFileNameWorks) {
  const TempFolder folder;
  const std::string name = folder.File(std::string(255, 'n'));
  AtomicWriter writer(name);
  writer.Put("x");
  EXPECT_TRUE(writer.Commit()) << writer.Reason();
  EXPECT_EQ(ReadWhole(name), "x");
}

TEST(AtomicWriter, RelativeNamesGoToTheCurrentFolder) {
  const TempFolder folder;
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  AtomicWriter writer("plain.txt");
  writer.Put("x");
  EXPECT_TRUE(writer.Commit()) << writer.Reason();
  std::filesystem::current_path(before);
  EXPECT_THAT(folder.Names(), ElementsAre("plain.txt"));
}

TEST(AtomicWriter, BlocksOfAnySizeComeOutInOrder) {
  const TempFolder folder;
  std::string expected;
  AtomicWriter writer(folder.File("a"));
  for (std::size_t size : {std::size_t{1}, std::size_t{262143}, std::size_t{262144}, std::size_t{7},
                           std::size_t{1000000}, std::size_t{300}, std::size_t{262144}, std::size_t{0}}) {
    const std::string block(size, static_cast<char>('a' + size % 26));
    writer.Put(block);
    expected += block;
  }
  EXPECT_EQ(writer.Written(), static_cast<std::int64_t>(expected.size()));
  ASSERT_TRUE(writer.Commit());
  EXPECT_EQ(ReadWhole(folder.File("a")), expected);
}

TEST(AtomicWriter, ReadsBackByTheReader) {
  const TempFolder folder;
  AtomicWriter writer(folder.File("a"));
  std::vector<double> reals(70000);
  for (std::size_t i = 0; i < reals.size(); ++i) reals[i] = 1.0 / (1.0 + static_cast<double>(i));
  writer.Text("measID");
  writer.Reals(reals.data(), reals.size());
  writer.Int32(-17);
  ASSERT_TRUE(writer.Commit());
  ByteReader reader;
  ASSERT_TRUE(reader.Open(folder.File("a")));
  EXPECT_EQ(reader.Text(), "measID");
  std::vector<double> back(reals.size());
  reader.Reals(back.data(), back.size());
  EXPECT_EQ(back, reals);
  EXPECT_EQ(reader.Int32(), -17);
  EXPECT_FALSE(reader.ComesShort());
}

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  EXPECT_EQ(::stat(path.c_str(), &info), 0);
  return info.st_mode & 07777;
}

TEST(AtomicWriter, ReplacedFileKeepsItsPermissions) {
  const TempFolder folder;
  for (mode_t mode : {0600, 0640, 0666, 0755}) {
    WriteWhole(folder.File("a"), kOld);
    ASSERT_EQ(::chmod(folder.File("a").c_str(), mode), 0);
    AtomicWriter writer(folder.File("a"));
    for (const std::string& name : folder.Names())
      EXPECT_EQ(ModeOf(folder.File(name)), mode) << name;  // the temporary file does not leak it either
    ASSERT_TRUE(writer.Commit());
    EXPECT_EQ(ModeOf(folder.File("a")), mode);
  }
}

TEST(AtomicWriter, NewFileFollowsTheMaskOfTheProcess) {
  const TempFolder folder;
  const mode_t before = ::umask(027);
  AtomicWriter writer(folder.File("a"));
  EXPECT_TRUE(writer.Commit());
  ::umask(before);
  EXPECT_EQ(ModeOf(folder.File("a")), 0640u);
}

TEST(AtomicWriter, SymbolicLinkKeepsPointingAndItsTargetIsReplaced) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.File("store"));
  WriteWhole(folder.File("store/real.da"), kOld);
  std::filesystem::create_symlink("store/real.da", folder.File("inner"));
  std::filesystem::create_symlink(folder.File("inner"), folder.File("outer"));
  AtomicWriter writer(folder.File("outer"));
  writer.Put("new");
  ASSERT_TRUE(writer.Commit()) << writer.Reason();
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("outer")));
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("inner")));
  EXPECT_EQ(ReadWhole(folder.File("store/real.da")), "new");
}

TEST(AtomicWriter, LinkToNothingMakesItsTarget) {
  const TempFolder folder;
  std::filesystem::create_symlink("later.da", folder.File("link"));
  AtomicWriter writer(folder.File("link"));
  writer.Put("new");
  ASSERT_TRUE(writer.Commit()) << writer.Reason();
  EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link")));
  EXPECT_EQ(ReadWhole(folder.File("later.da")), "new");
}

TEST(AtomicWriter, CircleOfLinksIsRefused) {
  const TempFolder folder;
  std::filesystem::create_symlink("b", folder.File("a"));
  std::filesystem::create_symlink("a", folder.File("b"));
  AtomicWriter writer(folder.File("a"));
  EXPECT_FALSE(writer.Ok());
  EXPECT_FALSE(writer.Commit());
}

TEST(AtomicWriter, RefusesPlacesThatAreNoFiles) {
  const TempFolder folder;
  ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
  for (const std::string& path :
       {folder.Path(), folder.File(""), folder.File("missing/a.da"), folder.File("pipe"), std::string()}) {
    AtomicWriter writer(path);
    EXPECT_FALSE(writer.Ok()) << path;
    writer.Put("x");
    EXPECT_FALSE(writer.Commit()) << path;
    EXPECT_THAT(writer.Reason(), HasSubstr("Cannot write " + path));
  }
  EXPECT_THAT(folder.Names(), ElementsAre("pipe"));
}

TEST(AtomicWriter, ReasonNamesFileAndCause) {
  const AtomicWriter writer("/no/such/folder/a.da");
  EXPECT_EQ(writer.Reason(), "Cannot write /no/such/folder/a.da: No such file or directory");
}

/// Runs `work` in a child without rights of the administrator; true when it returned true there.
template <class Work>
bool AsOrdinaryUser(Work work) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 && (::setegid(65534) != 0 || ::seteuid(65534) != 0)) ::_exit(2);
    ::_exit(work() ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(AtomicWriter, ReadOnlyFolderIsRefusedAndTheOldFileStays) {
  const TempFolder folder;
  WriteWhole(folder.File("a.da"), kOld);
  ASSERT_EQ(::chmod(folder.File("a.da").c_str(), 0666), 0);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
  EXPECT_TRUE(AsOrdinaryUser([&] {
    AtomicWriter writer(folder.File("a.da"));
    writer.Put("new");
    return !writer.Commit() && writer.Reason().find("Permission denied") != std::string::npos;
  }));
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
  EXPECT_EQ(ReadWhole(folder.File("a.da")), kOld);
  EXPECT_THAT(folder.Names(), ElementsAre("a.da"));
}

TEST(AtomicWriter, WriteProtectedFileIsRefusedThoughItsFolderIsNot) {
  const TempFolder folder;
  WriteWhole(folder.File("a.da"), kOld);
  ASSERT_EQ(::chmod(folder.File("a.da").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
  EXPECT_TRUE(AsOrdinaryUser([&] {
    AtomicWriter writer(folder.File("a.da"));
    return !writer.Commit() && writer.Reason().find("Permission denied") != std::string::npos;
  }));
  EXPECT_EQ(ReadWhole(folder.File("a.da")), kOld);
  EXPECT_THAT(folder.Names(), ElementsAre("a.da"));
}

/// A save of some 1.5 MB in pieces that fill the buffer several times.
std::string NewContent() {
  std::string text;
  for (int i = 0; i < 120000; ++i) text += "line " + std::to_string(i) + "\n";
  return text;
}

bool SaveInPieces(const std::string& path, const std::string& content, std::string* reason = nullptr) {
  AtomicWriter writer(path);
  for (std::size_t at = 0; at < content.size(); at += 1000) writer.Put(content.substr(at, 1000));
  const bool saved = writer.Commit();
  if (reason) *reason = writer.Reason();
  return saved;
}

/// Runs the save with call n of one kind failing, for every n until the save succeeds without a failure. Each
/// time the file must be the complete old one or the complete new one, and there must be no other files.
template <class PlanFor>
int FailEveryCall(PlanFor planFor) {
  const TempFolder folder;
  const std::string content = NewContent();
  for (int n = 1; n < 1000; ++n) {
    WriteWhole(folder.File("a.da"), kOld);
    bool saved = false;
    std::string reason;
    {
      const FailingFileDriver driver(planFor(n));
      saved = SaveInPieces(folder.File("a.da"), content, &reason);
    }
    const std::string found = ReadWhole(folder.File("a.da"));
    EXPECT_THAT(folder.Names(), ElementsAre("a.da")) << "call " << n;
    if (saved) {
      EXPECT_TRUE(found == content) << "call " << n;
      EXPECT_EQ(reason, "");
      return n - 1;
    }
    EXPECT_NE(reason, "") << "call " << n;
    EXPECT_TRUE(found == kOld || found == content) << "call " << n;
    if (reason.find("new file is in place") == std::string::npos) {
      EXPECT_TRUE(found == kOld) << "call " << n;
    }
  }
  return -1;
}

TEST(AtomicWriter, EveryFailingWriteLeavesTheOldFile) {
  EXPECT_GE(FailEveryCall([](int n) { return test::FilePlan{.failWrite = n, .error = ENOSPC}; }), 5);
}

TEST(AtomicWriter, EveryHalfWrittenBlockOnAFullDiskLeavesTheOldFile) {
  EXPECT_GE(FailEveryCall([](int n) {
              return test::FilePlan{.failWrite = n, .everAfter = true, .error = ENOSPC, .halfWrite = true};
            }),
            5);
}

TEST(AtomicWriter, EveryFailingFlushLeavesAWholeFile) {
  EXPECT_EQ(FailEveryCall([](int n) { return test::FilePlan{.failFlush = n}; }), 2);  // file, then folder
}

TEST(AtomicWriter, FailingRenameLeavesTheOldFile) {
  EXPECT_EQ(FailEveryCall([](int n) { return test::FilePlan{.failRename = n, .error = EACCES}; }), 1);
}

TEST(AtomicWriter, EveryFailingOpenLeavesAWholeFile) {
  EXPECT_EQ(FailEveryCall([](int n) { return test::FilePlan{.failOpen = n}; }), 2);  // file, then folder
}

TEST(AtomicWriter, FailingCloseLeavesTheOldFile) {
  const TempFolder folder;
  WriteWhole(folder.File("a.da"), kOld);
  const FailingFileDriver driver({.failClose = 1, .error = EDQUOT});
  EXPECT_FALSE(SaveInPieces(folder.File("a.da"), "new"));
  EXPECT_EQ(ReadWhole(folder.File("a.da")), kOld);
}

TEST(AtomicWriter, FullDiskIsNamedAsTheReason) {
  const TempFolder folder;
  const FailingFileDriver driver({.failWrite = 2, .error = ENOSPC});
  std::string reason;
  EXPECT_FALSE(SaveInPieces(folder.File("a.da"), NewContent(), &reason));
  EXPECT_EQ(reason, "Cannot write " + folder.File("a.da") + ": No space left on device");
}

TEST(AtomicWriter, FileSystemWithoutFolderFlushIsNoFailure) {
  const TempFolder folder;
  const FailingFileDriver driver({.failFlush = 2, .error = EINVAL});
  EXPECT_TRUE(SaveInPieces(folder.File("a.da"), "new"));
}

TEST(AtomicWriter, ShortAndInterruptedWritesGoOn) {
  const TempFolder folder;
  const std::string content = NewContent();
  {
    const FailingFileDriver driver({.longestWrite = 10007});
    EXPECT_TRUE(SaveInPieces(folder.File("short"), content));
    EXPECT_GT(driver.Calls().write, 100);
  }
  {
    const FailingFileDriver driver({.failWrite = 3, .error = EINTR});
    EXPECT_TRUE(SaveInPieces(folder.File("interrupted"), content));
  }
  EXPECT_TRUE(ReadWhole(folder.File("short")) == content);
  EXPECT_TRUE(ReadWhole(folder.File("interrupted")) == content);
}

TEST(AtomicWriter, InterruptedFlushBeginsAgain) {
  const TempFolder folder;
  for (int n : {1, 2}) {
    const FailingFileDriver driver({.failFlush = n, .error = EINTR});
    EXPECT_TRUE(SaveInPieces(folder.File("a"), "new"));
    EXPECT_EQ(driver.Calls().flush, 3);
  }
}

TEST(AtomicWriter, FlushesToDiskOnlyWhenAsked) {
  const TempFolder folder;
  for (bool flush : {true, false}) {
    const FailingFileDriver driver;
    AtomicWriter writer(folder.File("a"));
    writer.Put("x");
    EXPECT_TRUE(writer.Commit(flush));
    EXPECT_EQ(driver.Calls().flush, flush ? 2 : 0);
    EXPECT_EQ(driver.Calls().write, 1);
  }
}

TEST(AtomicWriter, KilledProcessLeavesAWholeFile) {
  const TempFolder folder;
  const std::string file = folder.File("a.da");
  const std::string contents[2] = {NewContent(), "short\n" + NewContent()};
  WriteWhole(file, contents[0]);
  int sawSecond = 0;
  for (int trial = 0; trial < 25; ++trial) {
    const pid_t child = ::fork();
    if (child == 0) {
      for (int k = 1;; ++k) SaveInPieces(file, contents[k % 2]);
    }
    ::usleep(static_cast<useconds_t>(700 + 1700 * trial));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const std::string found = ReadWhole(file);
    EXPECT_TRUE(found == contents[0] || found == contents[1]) << "trial " << trial;
    sawSecond += found == contents[1];
  }
  RecordProperty("second", sawSecond);
}

TEST(AtomicWriter, PrintfWritesNumbersWithAPointInAnyLocale) {
  const TempFolder folder;
  const CommaLocale locale;
  AtomicWriter writer(folder.File("a.txt"));
  writer.Printf("%12.7lf\t%s\n", 2.5, "Oys\xe6nd");
  writer.Printf("%s", std::string(5000, 'x').c_str());
  writer.Printf("%s", "");
  ASSERT_TRUE(writer.Commit());
  EXPECT_EQ(ReadWhole(folder.File("a.txt")), std::string("   2.5000000\tOys\xe6nd\n").append(5000, 'x'));
}

TEST(InstallFileDriver, GivesThePreviousBackAndNullIsTheSystem) {
  FileDriver mine = posixFileDriver;
  mine.name = "mine";
  const FileDriver* before = InstallFileDriver(&mine);
  EXPECT_STREQ(before->name, "posix");
  EXPECT_STREQ(CurrentFileDriver().name, "mine");
  EXPECT_EQ(InstallFileDriver(nullptr), &mine);
  EXPECT_STREQ(CurrentFileDriver().name, "posix");
}

TEST(TextWriter, WritesOnClose) {
  const TempFolder folder;
  const FailingFileDriver driver;
  TextWriter writer(folder.File("a.txt"));
  writer.Printf("%d layers\n", 5);
  writer.Put("end\n");
  EXPECT_TRUE(writer.Ok());
  EXPECT_TRUE(writer.Close());
  EXPECT_EQ(ReadWhole(folder.File("a.txt")), "5 layers\nend\n");
  EXPECT_EQ(driver.Calls().flush, 0);
}

TEST(TextWriter, ThatIsNotClosedLeavesTheOldFile) {
  const TempFolder folder;
  WriteWhole(folder.File("a.txt"), kOld);
  {
    TextWriter writer(folder.File("a.txt"));
    writer.Put("half of the");
  }
  EXPECT_EQ(ReadWhole(folder.File("a.txt")), kOld);
}

TEST(TextWriter, SaysWhenItCannotOpen) {
  TextWriter writer("/no/such/folder/a.txt");
  EXPECT_FALSE(writer.Ok());
  writer.Printf("%d\n", 1);
  EXPECT_FALSE(writer.Close());
  EXPECT_THAT(writer.Reason(), HasSubstr("/no/such/folder/a.txt"));
}

TEST(CopyFileAtomic, CopiesBytesAndMode) {
  const TempFolder folder;
  const std::string content = NewContent() + std::string("\0\xff", 2);
  WriteWhole(folder.File("site.da"), content);
  ASSERT_EQ(::chmod(folder.File("site.da").c_str(), 0640), 0);
  std::string reason;
  EXPECT_TRUE(CopyFileAtomic(folder.File("site.da"), folder.File("site.da.bkup"), reason)) << reason;
  EXPECT_TRUE(ReadWhole(folder.File("site.da.bkup")) == content);
  EXPECT_EQ(ModeOf(folder.File("site.da.bkup")), 0640u);
  EXPECT_THAT(folder.Names(), ElementsAre("site.da", "site.da.bkup"));
}

TEST(CopyFileAtomic, EmptyFileAndCopyOntoItselfAreFine) {
  const TempFolder folder;
  WriteWhole(folder.File("empty"), "");
  std::string reason;
  EXPECT_TRUE(CopyFileAtomic(folder.File("empty"), folder.File("copy"), reason));
  EXPECT_EQ(ReadWhole(folder.File("copy")), "");
  WriteWhole(folder.File("a"), kOld);
  EXPECT_TRUE(CopyFileAtomic(folder.File("a"), folder.File("a"), reason));
  EXPECT_EQ(ReadWhole(folder.File("a")), kOld);
}

TEST(CopyFileAtomic, MissingOriginalLeavesTheOldCopy) {
  const TempFolder folder;
  WriteWhole(folder.File("a.bkup"), kOld);
  std::string reason;
  EXPECT_FALSE(CopyFileAtomic(folder.File("a"), folder.File("a.bkup"), reason));
  EXPECT_THAT(reason, HasSubstr("Cannot read " + folder.File("a")));
  EXPECT_EQ(ReadWhole(folder.File("a.bkup")), kOld);
}

TEST(CopyFileAtomic, ReadErrorAndFullDiskLeaveTheOldCopy) {
  const TempFolder folder;
  WriteWhole(folder.File("a"), NewContent());
  WriteWhole(folder.File("a.bkup"), kOld);
  for (const test::FilePlan& plan :
       {test::FilePlan{.failRead = 3}, test::FilePlan{.failWrite = 3, .error = ENOSPC}}) {
    const FailingFileDriver driver(plan);
    std::string reason;
    EXPECT_FALSE(CopyFileAtomic(folder.File("a"), folder.File("a.bkup"), reason));
    EXPECT_NE(reason, "");
    EXPECT_EQ(ReadWhole(folder.File("a.bkup")), kOld);
  }
  EXPECT_THAT(folder.Names(), ElementsAre("a", "a.bkup"));
}

// ---- files left by killed saves

/// Number of a process that has ended.
pid_t EndedProcess() {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  return child;
}

TEST(AtomicWriter, LeftoversOfEndedProcessesGoWithTheNextSave) {
  const TempFolder folder;
  const std::string ended = std::to_string(EndedProcess());
  WriteWhole(folder.File("site.da"), kOld);
  for (const char* number : {"0", "17"})
    WriteWhole(folder.File("site.da.saving-" + ended + "-" + number), "half");
  {
    AtomicWriter abandoned(folder.File("site.da"));
    abandoned.Put("new");
  }
  EXPECT_EQ(folder.Names().size(), 3u) << "nothing was saved, nothing is cleared away";
  EXPECT_TRUE(SaveInPieces(folder.File("site.da"), "new"));
  EXPECT_THAT(folder.Names(), ElementsAre("site.da"));
}

TEST(AtomicWriter, WhatMayStillBeNeededIsNoLeftover) {
  const TempFolder folder;
  const std::string ended = std::to_string(EndedProcess()), alive = std::to_string(::getppid());
  const std::vector<std::string> kept = {
      "other.da.saving-" + ended + "-0",  "site.da.saving-" + alive + "-0",     "site.da.saving-" + ended,
      "site.da.saving-" + ended + "-0-0", "site.da.saving-" + ended + "-0.txt", "site.da.saving--0",
      "site.da.saving-" + ended + "-"};
  for (const std::string& name : kept) WriteWhole(folder.File(name), "half");
  std::filesystem::create_directory(folder.File("site.da.saving-" + ended + "-5"));
  WriteWhole(folder.File("site.da.saving-" + ended + "-1"), "begun after the save");
  const timespec later[2] = {{::time(nullptr) + 100, 0}, {::time(nullptr) + 100, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, folder.File("site.da.saving-" + ended + "-1").c_str(), later, 0), 0);
  EXPECT_TRUE(SaveInPieces(folder.File("site.da"), "new"));
  EXPECT_EQ(folder.Names().size(), kept.size() + 3);
}

// ---- copies and comparisons

TEST(CopyFileAtomic, KeepsModeTimeOwnerAndGroup) {
  const TempFolder folder;
  WriteWhole(folder.File("site.da"), "data");
  WriteWhole(folder.File("site.da.bkup"), "older");
  ASSERT_EQ(::chmod(folder.File("site.da").c_str(), 0640), 0);
  ASSERT_EQ(::chmod(folder.File("site.da.bkup").c_str(), 0666), 0);
  const bool mayGive = ::geteuid() == 0;
  if (mayGive) {
    ASSERT_EQ(::chown(folder.File("site.da").c_str(), 1234, 4321), 0);
  }
  const timespec measured[2] = {{1000000000, 5000}, {1000000001, 7000}};
  ASSERT_EQ(::utimensat(AT_FDCWD, folder.File("site.da").c_str(), measured, 0), 0);
  std::string reason;
  ASSERT_TRUE(CopyFileAtomic(folder.File("site.da"), folder.File("site.da.bkup"), reason)) << reason;
  struct stat info {};
  ASSERT_EQ(::stat(folder.File("site.da.bkup").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 07777, 0640u);
  EXPECT_EQ(info.st_mtim.tv_sec, 1000000001);
  EXPECT_EQ(info.st_mtim.tv_nsec, 7000);
  if (mayGive) {
    EXPECT_EQ(info.st_uid, 1234u);
    EXPECT_EQ(info.st_gid, 4321u);
  }
  EXPECT_EQ(ReadWhole(folder.File("site.da.bkup")), "data");
}

TEST(SameContent, ComparesBytesOfWholeFiles) {
  const TempFolder folder;
  std::string longText = NewContent();
  WriteWhole(folder.File("a"), longText);
  WriteWhole(folder.File("b"), longText);
  EXPECT_TRUE(SameContent(folder.File("a"), folder.File("b")));
  longText.back() = '!';
  WriteWhole(folder.File("b"), longText);
  EXPECT_FALSE(SameContent(folder.File("a"), folder.File("b")));
  longText.pop_back();
  WriteWhole(folder.File("b"), longText);
  EXPECT_FALSE(SameContent(folder.File("a"), folder.File("b"))) << "shorter";
  EXPECT_FALSE(SameContent(folder.File("b"), folder.File("a")));
  EXPECT_FALSE(SameContent(folder.File("a"), folder.File("none")));
  const FailingFileDriver driver({.failRead = 3});
  EXPECT_FALSE(SameContent(folder.File("a"), folder.File("a")))
      << "what cannot be read is not known to be the same";
}

TEST(AtomicWriter, KnowsWhetherItWouldChangeItsTarget) {
  const TempFolder folder;
  AtomicWriter fresh(folder.File("a"));
  fresh.Put("data");
  EXPECT_FALSE(fresh.SameAsTarget());
  WriteWhole(folder.File("a"), "data");
  AtomicWriter same(folder.File("a"));
  same.Put("da");
  EXPECT_FALSE(same.SameAsTarget());
  same.Put("ta");
  EXPECT_TRUE(same.SameAsTarget());
  same.Put("!");
  EXPECT_FALSE(same.SameAsTarget());
  EXPECT_TRUE(same.Commit());
  EXPECT_EQ(ReadWhole(folder.File("a")), "data!");
}

}  // namespace
}  // namespace sondera
