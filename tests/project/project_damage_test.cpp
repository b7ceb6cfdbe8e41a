// Tests of the project file against damage: every cut, every wrong count, failing and killed saves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <thread>

#include "panels/mainmenu_project.h"
#include "project/analysis_section.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "support/failing_file_driver.h"
#include "support/limited_memory.h"
#include "support/project_bytes.h"
#include "support/sanitized.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;

/// Conditions for the rest of the program, after any load.
void ExpectSoundDatabase() {
  for (const IDInfo& id : MeasDB.idList) {
    EXPECT_NE(id.key, -1);
    const HWSetup* hw = MeasDB.hwSetupList.at(MeasDB.hwSetupList.findKey(id.key));
    ASSERT_NE(hw, nullptr);
    const std::size_t channels = static_cast<std::size_t>(hw->nChannels);
    EXPECT_GE(hw->nChannels, 1);
    EXPECT_GE(hw->nLines, 0);
    EXPECT_EQ(hw->coupling.size(), channels);
    EXPECT_EQ(hw->grounding.size(), channels);
    EXPECT_EQ(hw->inputRange.size(), channels);
    if (const MeasSetup* ms = MeasDB.measSetupList.at(MeasDB.measSetupList.findKey(id.key))) {
      EXPECT_EQ(ms->recLoc.size(), channels);
    }
    if (const RawData* raw = MeasDB.rawDataList.at(MeasDB.rawDataList.findKey(id.key)))
      for (auto block : kRawBlocks) {
        const std::size_t lines = hw->nLines > 0 ? static_cast<std::size_t>(FullTimeLines(hw->nLines)) : 0;
        EXPECT_EQ((raw->*block).size(), 2 * lines * channels);
      }
  }
  for (const PMeasInfo& p : MeasDB.pMeasList) {
    EXPECT_GT(p.capacity(), 0);
    EXPECT_LE(p.nDispPoints, p.capacity());
    EXPECT_GE(p.nDispPoints, 0);
    EXPECT_LT(p.timeDiv, 1000);
    EXPECT_LT(p.freqDiv, 1000);
  }
  for (const auto* list : {&MeasDB.gDispList, &MeasDB.aDispList})
    for (const DispInfo& d : *list)
      for (auto array : kDispArrays) EXPECT_EQ((d.*array).hi(), d.nPoints);
}

void ExpectSoundModel(const ModelRecord& m) {
  EXPECT_GT(m.capLayers, 0);
  for (auto column : kLayerColumns) EXPECT_GE((m.*column).size(), static_cast<std::size_t>(m.nLayers));
  for (auto column : kGlobalColumns) EXPECT_GE((m.*column).size(), static_cast<std::size_t>(m.nDispPointsG));
  EXPECT_GE(m.recLoc.size(), static_cast<std::size_t>(m.nReceivers));
  EXPECT_GE(m.freq.size(), static_cast<std::size_t>(m.nDispPoints));
  const std::size_t cells = static_cast<std::size_t>(m.nDispPoints) * static_cast<std::size_t>(m.nDispCurves);
  EXPECT_GE(m.vel.size(), cells);
  EXPECT_GE(m.wlen.size(), cells);
  EXPECT_GE(m.pairRec1.size(), static_cast<std::size_t>(m.nDispCurves));
  EXPECT_GE(m.pairMax.size(), static_cast<std::size_t>(m.nDispCurves));
}

void ExpectSoundRecords() {
  ExpectSoundModel(FModelParam);
  ExpectSoundModel(TheoDispInfo);
  for (const InvRecord* r : {&SMPParam, &InvParam}) {
    EXPECT_GT(r->maxLayers, 0);
    const InvTableSizes full = TableSizes(*r), used = UsedSizes(*r);
    const InvTableSizes& size =
        r->vel.colHi() == full.data ? full : used;  // used: no memory for the capacities
    EXPECT_EQ(r->depth.rowHi(), r->rms.hi());
    EXPECT_TRUE(r->rms.hi() == full.entries || r->rms.hi() == used.entries);
    EXPECT_EQ(r->Vs.colHi(), size.layers);
    EXPECT_EQ(r->freq.colHi(), size.points);
    EXPECT_EQ(r->vel.colHi(), size.data);
  }
}

class Damage : public SessionTest {
 protected:
  void SetUp() override {
    MakeSmallProject();
    whole = ProjectBytes();
    endOfSetup = SetupBytes().bytes.size();
    endOfRaw = endOfSetup + RawBytes().bytes.size();
    endOfAnalysis = endOfRaw + AnalysisBytes().bytes.size();
  }

  /// Reads bytes as a project into an empty database; returns the problems.
  std::string Load(const std::string& bytes) {
    FreeMaskingInfoList();
    EmptyProjectLists();
    FreeIDList();
    FreeHWSetupList();
    FreePMeasInfoList();
    FreeRawDataList();
    session.fileKeyList.clear();
    SectionReader file;
    file.OpenMemory(bytes.data(), bytes.size());
    ReadProjectSections(file);
    return file.Trouble();
  }

  /// Capacity of TheoDispInfo for pairs, receivers or points by curves: a 0 there means that of the model.
  bool IsTwinCapacity(std::size_t position) const {
    const auto at = std::find(whole.counts.begin(), whole.counts.end(), position) - whole.counts.begin();
    const auto modelling = std::lower_bound(whole.counts.begin(), whole.counts.end(), endOfAnalysis);
    const auto counter = at - (modelling - whole.counts.begin()) - 10;
    return counter == 1 || counter == 2 || counter == 4;
  }

  /// Saves and reads again: the result of loading a damaged file is saved as a valid one.
  void ExpectSavesWhole() {
    std::string reason;
    const std::string path = folder.File("again.da");
    ASSERT_TRUE(WriteProjectFile(path, reason)) << reason;
    EXPECT_EQ(Load(test::ReadWhole(path)), "");
  }

  ByteStream whole;
  std::size_t endOfSetup = 0, endOfRaw = 0, endOfAnalysis = 0;
  test::TempFolder folder;
};

TEST_F(Damage, EveryCutEndsWithOneMessageAndASoundDatabase) {
  // Instrumented, a load takes ten times as long: there, all cuts near the ends of sections and each eighth elsewhere.
  const auto nearAnEnd = [&](std::size_t n) {
    for (const std::size_t end : {std::size_t{0}, endOfSetup, endOfRaw, endOfAnalysis, whole.bytes.size()})
      if (n + 32 > end && n < end + 32) return true;
    return false;
  };
  for (std::size_t n = 0; n < whole.bytes.size(); ++n) {
    if (kSanitized && n % 8 != 0 && !nearAnEnd(n)) continue;
    SCOPED_TRACE(n);
    const std::string trouble = Load(whole.bytes.substr(0, n));
    const bool older = n == endOfRaw || n == endOfAnalysis;
    EXPECT_THAT(trouble, older ? ::testing::Matcher<std::string>("") : HasSubstr("ends early"));
    ExpectSoundDatabase();
    ExpectSoundRecords();
    if (n % 61 == 0) ExpectSavesWhole();
    if (HasFailure()) return;
  }
  EXPECT_EQ(Load(whole.bytes), "");
}

TEST_F(Damage, TheMessageNamesTheSectionThatEndsEarly) {
  EXPECT_THAT(Load(""), HasSubstr("setup section"));
  EXPECT_THAT(Load(whole.bytes.substr(0, endOfSetup - 1)), HasSubstr("setup section"));
  EXPECT_THAT(Load(whole.bytes.substr(0, endOfSetup)), HasSubstr("raw data section"));
  EXPECT_THAT(Load(whole.bytes.substr(0, endOfRaw + 1)), HasSubstr("analysis section"));
  EXPECT_THAT(Load(whole.bytes.substr(0, endOfAnalysis + 1)), HasSubstr("modelling section"));
}

TEST_F(Damage, WhatStandsInFrontOfACutIsThere) {
  const double first = MeasDB.rawDataList.at(1)->timeHist[0];
  Load(whole.bytes.substr(0, endOfSetup + 4 + 4 + 8));  // count, key, one sample
  ASSERT_EQ(MeasDB.rawDataList.count(), 1);
  EXPECT_EQ(MeasDB.rawDataList.at(1)->timeHist[0], first);
  EXPECT_EQ(MeasDB.rawDataList.at(1)->timeHist[1], 0.0);
}

TEST_F(Damage, AProjectWithoutItsGeometryDoesNotMixWithTheNextOne) {
  const std::string cut = folder.File("cut.da"), sound = folder.File("sound.da");
  test::WriteWhole(cut, whole.bytes.substr(0, endOfSetup - 10));
  MeasDB.idList.at(1)->MeasID = "another";
  test::WriteWhole(sound, ProjectBytes().bytes);
  EXPECT_EQ(OpenFileProc(cut), -1);
  EXPECT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(MeasDB.measSetupList.count(), 1);
  EXPECT_EQ(OpenFileProc(sound), 0);
  ASSERT_EQ(MeasDB.idList.count(), 1);
  EXPECT_EQ(MeasDB.idList.at(1)->MeasID, "another");
}

TEST_F(Damage, EveryWrongCountIsToldOrGivesAFileThatIsSoundInItself) {
  const int kWrong[] = {
      INT_MIN, -2000000000, -100,          -1,         0,      1, 2, 3, 5, 49, 51, 100, 1000, 1 << 16,
      1 << 20, 1 << 24,     (1 << 24) + 1, 2000000000, INT_MAX};
  for (std::size_t position : whole.counts)
    for (int wrong : kWrong) {
      SCOPED_TRACE(::testing::Message()
                   << "byte " << position << " (was " << IntAt(whole.bytes, position) << ") says " << wrong);
      std::string bytes = whole.bytes;
      PutInt(bytes, position, wrong);
      const std::string trouble = Load(bytes);
      ExpectSoundDatabase();
      ExpectSoundRecords();
      const bool takenFromTheModel = wrong == 0 && IsTwinCapacity(position);
      EXPECT_TRUE(!trouble.empty() || takenFromTheModel || ProjectBytes().bytes == bytes)
          << "not told, and not what the file says";
      if (HasFailure()) return;
    }
}

TEST_F(Damage, AnyFlippedByteLeavesASoundDatabase) {
  for (std::size_t position = 0; position < whole.bytes.size(); ++position) {
    SCOPED_TRACE(position);
    std::string bytes = whole.bytes;
    bytes[position] = static_cast<char>(~bytes[position]);
    Load(bytes);
    ExpectSoundDatabase();
    ExpectSoundRecords();
    if (position % 97 == 0) ExpectSavesWhole();
    if (HasFailure()) return;
  }
}

TEST_F(Damage, EveryCutOfAnInterpretationFileEndsWithOneMessage) {
  MeasDB.pMeasList.at(1)->key = 1;
  std::string ia = AnalysisBytes().bytes;
  PutInt(ia, static_cast<std::size_t>(4 + 40 + 4),
         2);  // the pair's key, as a file of the measurement above says it
  for (std::size_t n = 0; n <= ia.size(); ++n) {
    SCOPED_TRACE(n);
    SectionReader file;
    FreeMaskingInfoList();
    file.OpenMemory(ia.data(), n);
    LoadAnalysisFrom(file);
    EXPECT_EQ(file.Trouble().empty(), n == ia.size()) << file.Trouble();
    ExpectSoundDatabase();
    if (HasFailure()) return;
  }
}

// --- memory ---

#ifndef SONDERA_CHECK_BOUNDS  // the sanitizers reserve memory of their own

/// Loads bytes in a child that may take 96 MiB more than it has. True when that was enough.
bool FitsInMemory(const std::string& bytes) {
  const int status = test::InLittleMemory(std::int64_t{96} << 20, [&bytes] {
    SectionReader file;
    file.OpenMemory(bytes.data(), bytes.size());
    ReadProjectSections(file);
    return 0;
  });
  EXPECT_EQ(status, 0);
  return status == 0;
}

TEST_F(Damage, AFewBytesThatClaimTwoBillionPairsTakeNoMemory) {
  StartEmptyProject();
  EXPECT_TRUE(FitsInMemory(ByteStream().I(0).I(0).I(0).I(0).I(2000000000).I(1).bytes));
  EXPECT_TRUE(FitsInMemory(ByteStream().I(0).I(0).I(0).I(2000000000).I(1).I(1).bytes));  // masks
  EXPECT_TRUE(FitsInMemory(ByteStream().I(0).I(0).I(0).I(0).I(0).I(2000000000).bytes));  // curves
  EXPECT_TRUE(FitsInMemory(ByteStream().I(2000000000).I(1).I(1).I(1).I(1).I(1).bytes));  // measurements
}

TEST_F(Damage, EverySizeThatIsTooLargeStaysWithinBoundedMemory) {
  for (std::size_t position : whole.counts) {
    SCOPED_TRACE(position);
    for (int large : {1 << 20, 1 << 24, 300000000}) {
      std::string bytes = whole.bytes;
      PutInt(bytes, position, large);
      StartEmptyProject();
      if (!FitsInMemory(bytes)) return;
    }
  }
}

#endif

// --- failing saves ---

/// A project on disk, changed in memory since.
class FailingSave : public Damage {
 protected:
  void SetUp() override {
    Damage::SetUp();
    path = folder.File("site.da");
    Restore();
    MakeSmallProject();
    MeasDB.measSetupList.at(1)->srcLoc = 4711.5;
    session.projectFileName = path;
    changed = ProjectBytes().bytes;
  }
  void Restore() {
    test::WriteWhole(path, whole.bytes);
    test::WriteWhole(path + ".bkup", "the copy before");
    frontEnd.messages.clear();
  }

  std::string path, changed;
};

TEST_F(FailingSave, AWriteThatFailsAtAnyPointLeavesTheOldFileOrTheNewOneWhole) {
  for (const char* call : {"write", "flush", "rename", "open", "close"})
    for (bool everAfter : {false, true})
      for (int n = 1; n < 50; ++n) {
        SCOPED_TRACE(::testing::Message() << call << " number " << n << (everAfter ? " and all later" : ""));
        Restore();
        test::FilePlan plan;
        plan.longestWrite = 1000;  // several writes for each file
        plan.everAfter = everAfter;
        plan.halfWrite = n % 2 == 0;
        plan.error = ENOSPC;
        (std::string(call) == "write"    ? plan.failWrite
         : std::string(call) == "flush"  ? plan.failFlush
         : std::string(call) == "rename" ? plan.failRename
         : std::string(call) == "open"   ? plan.failOpen
                                         : plan.failClose) = n;
        int made = 0;
        {
          test::FailingFileDriver driver(plan);
          SaveRawData();
          const test::FileCalls& calls = driver.Calls();
          made = std::string(call) == "write"    ? calls.write
                 : std::string(call) == "flush"  ? calls.flush
                 : std::string(call) == "rename" ? calls.rename
                 : std::string(call) == "open"   ? calls.open
                                                 : calls.close;
        }
        const bool failed = made >= n;
        const bool mayPass = std::string(call) == "close";  // of a file that was read
        EXPECT_LE(frontEnd.messages.size(), 1u);
        EXPECT_TRUE(!frontEnd.messages.empty() || !failed || mayPass);
        EXPECT_TRUE(frontEnd.messages.empty() || failed);
        const std::string now = test::ReadWhole(path), copy = test::ReadWhole(path + ".bkup");
        EXPECT_TRUE(now == whole.bytes || now == changed);
        EXPECT_TRUE(copy == whole.bytes || copy == "the copy before");
        session.projectLock.Release();
        EXPECT_THAT(folder.Names(), ::testing::ElementsAre("site.da", "site.da.bkup")) << "no leavings";
        if (HasFailure()) return;
        if (!failed) break;
      }
}

TEST_F(FailingSave, AFullDiskIsNamed) {
  test::FilePlan plan;
  plan.failWrite = 2;
  plan.everAfter = true;
  plan.error = ENOSPC;
  test::FailingFileDriver driver(plan);
  EXPECT_EQ(SaveRawData(), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("No space left on device"));
  EXPECT_THAT(OnlyMessage(), HasSubstr(path));
}

TEST_F(FailingSave, AReadErrorWhileLoadingIsTold) {
  test::FilePlan plan;
  plan.failRead = 1;
  test::FailingFileDriver driver(plan);
  EXPECT_EQ(OpenFileProc(path), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("could not be read to its end"));
}

TEST_F(FailingSave, ADamagedFileIsNotTouchedByItsLoad) {
  const std::string cut = whole.bytes.substr(0, whole.bytes.size() / 2);
  test::WriteWhole(path, cut);
  OpenFileProc(path);
  EXPECT_EQ(test::ReadWhole(path), cut);
  EXPECT_THAT(OnlyMessage(), HasSubstr("another name"));
}

// --- killed saves ---

/// Saves one of two states after the other until it is killed. The states differ in every raw sample.
[[noreturn]] void SaveForEver(const std::string& path) {
  session.projectFileName = path;
  for (int i = 0;; ++i) {
    for (auto block : kRawBlocks) (MeasDB.rawDataList.at(1)->*block).assign(4096, i % 2 ? 1.0 : 2.0);
    SaveRawData();
  }
}

TEST(KilledSave, LeavesTheOldFileOrTheNewOneWholeAndSoTheCopy) {
  test::TempFolder folder;
  MakeSmallProject();
  MeasDB.hwSetupList.at(1)->nLines = 1024;
  FreePMeasInfoList();
  SetupRawDataArrays(1);
  std::string states[2];
  for (int i = 0; i < 2; ++i) {
    for (auto block : kRawBlocks) (MeasDB.rawDataList.at(1)->*block).assign(4096, i ? 1.0 : 2.0);
    states[i] = ProjectBytes().bytes;
  }
  const std::string path = folder.File("site.da");
  test::WriteWhole(path, states[1]);
  test::WriteWhole(path + ".bkup", states[0]);
  int changes = 0;
  std::string before = states[1];
  for (int round = 0; round < 150; ++round) {
    const pid_t child = fork();
    if (child == 0) SaveForEver(path);
    std::this_thread::sleep_for(std::chrono::microseconds(200 + (round * 7919) % 30000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string now = test::ReadWhole(path), copy = test::ReadWhole(path + ".bkup");
    ASSERT_TRUE(now == states[0] || now == states[1]) << "round " << round << ", " << now.size() << " bytes";
    ASSERT_TRUE(copy == states[0] || copy == states[1])
        << "round " << round << ", " << copy.size() << " bytes";
    changes += now != before ? 1 : 0;
    before = now;
  }
  EXPECT_GT(changes, 0) << "no child came as far as a save";
}

}  // namespace
}  // namespace sondera::testing
