// Tests of the analysis section and of the ".ia" file: masks, pair records, Gabor maps, representative
// curves.
#include "project/analysis_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "panels/mainmenu_analysis.h"
#include "project/project_file.h"
#include "records/session.h"
#include "runtime/text_format.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

ByteStream Mask(int key, double from) {
  ByteStream s;
  return s.I(key).I(0).I(1).D(from).D(from + 5).I(2).I(3).I(4);
}

/// A pair record of two lines, with all its reals counting up. The number of cells of its maps is given by
/// `cells`; a reader may assume another number.
ByteStream Pair(int key, int timeDiv, int freqDiv, int cells, int marker = 17) {
  ByteStream s;
  s.I(key).I(0).I(1);
  for (int i = 0; i < 21 * 4; ++i) s.D(0.5 + i);
  s.I(1).I(0);
  for (int i = 0; i < 6; ++i) s.D(200.5 + i);
  s.I(1).D(0.1).D(0.2);
  for (int i = 1; i <= 8; ++i) s.D(i);
  s.I(timeDiv).D(0.25).D(1.5).I(freqDiv).D(10).D(90).D(2.5).D(0.75).D(60);
  for (int i = 0; i < cells; ++i) s.D(1000 + i).D(2000 + i).D(3000 + i);
  return s.I(2).I(-5).I(1).I(1).I(marker).I(0xff00ff).D(0.375).I(4).I(5);
}

ByteStream NoCurves() {
  ByteStream s;
  return s.I(0).I(0);
}

class AnalysisSection : public SessionTest {
 protected:
  void SetUp() override {
    StartEmptyProject();
    AddLines(1, 2);
    AddLines(2, 2);
  }

  static void AddLines(int key, int lines) {
    InsertNewIDInfo("p", FormatText("m%d", key), key);
    SetupHWSetupArrays(key, 2)->nLines = lines;
    SetupMSetupArrays(key);
  }

  void Read(const ByteStream& s) {
    bytes = s.bytes;
    file.OpenMemory(bytes.data(), bytes.size());
    file.BeginSection("analysis", true);
    EXPECT_EQ(ReadAnalysis(file), 0);
    file.EndSection();
  }
  void LoadIa(const ByteStream& s) {
    bytes = s.bytes;
    file.OpenMemory(bytes.data(), bytes.size());
    LoadAnalysisFrom(file);
  }
  std::string Stored() {
    const std::string path = folder.File("x.ia");
    AtomicWriter writer(path);
    StoreAnalysis(writer);
    EXPECT_TRUE(writer.Commit(false));
    return test::ReadWhole(path);
  }

  SectionReader file;
  std::string bytes;
  test::TempFolder folder;
};

TEST_F(AnalysisSection, ReadsEveryFieldOfAPairRecord) {
  ByteStream s;
  s.I(0).I(1).Add(Pair(2, 2, 1, 2)).Add(NoCurves());
  Read(s);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  const PMeasInfo& p = *MeasDB.pMeasList.at(1);
  EXPECT_EQ(p.key, 2);
  EXPECT_EQ(p.refChan, 0);
  EXPECT_EQ(p.dspChan, 1);
  EXPECT_THAT(p.hRe, ElementsAre(0.5, 1.5, 2.5, 3.5));
  EXPECT_THAT(p.hIm, ElementsAre(4.5, 5.5, 6.5, 7.5));
  EXPECT_EQ(p.hAmp[0], 8.5);
  EXPECT_EQ(p.hPhase[0], 12.5);
  EXPECT_EQ(p.phaseOrig[0], 16.5);
  EXPECT_EQ(p.irRe[0], 20.5);
  EXPECT_EQ(p.irIm[0], 24.5);
  EXPECT_EQ(p.bbRe[0], 28.5);
  EXPECT_EQ(p.bbIm[0], 32.5);
  EXPECT_EQ(p.bbAmp[0], 36.5);
  EXPECT_EQ(p.bbPhase[0], 40.5);
  EXPECT_EQ(p.phaseBB[0], 44.5);
  EXPECT_EQ(p.bbIrRe[0], 48.5);
  EXPECT_EQ(p.bbIrIm[0], 52.5);
  EXPECT_EQ(p.enRe[0], 56.5);
  EXPECT_EQ(p.enIm[0], 60.5);
  EXPECT_EQ(p.enAmp[0], 64.5);
  EXPECT_EQ(p.enPhase[0], 68.5);
  EXPECT_EQ(p.phaseEn[0], 72.5);
  EXPECT_EQ(p.enIrRe[0], 76.5);
  EXPECT_EQ(p.enIrIm[0], 80.5);
  EXPECT_THAT(p.maskFlag, ElementsAre(1, 0));
  EXPECT_THAT(p.dispVel, ElementsAre(200.5, 201.5));
  EXPECT_THAT(p.dispFreq, ElementsAre(202.5, 203.5));
  EXPECT_THAT(p.dispWlen, ElementsAre(204.5, 205.5));
  EXPECT_EQ(p.irfMode, 1);
  EXPECT_EQ(p.gaborTimeStep, 0.1);
  EXPECT_EQ(p.gaborFreqStep, 0.2);
  EXPECT_THAT(p.bbT, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(p.enT, ElementsAre(0, 5, 6, 7, 8));
  EXPECT_EQ(p.timeDiv, 2);
  EXPECT_EQ(p.initTime, 0.25);
  EXPECT_EQ(p.finalTime, 1.5);
  EXPECT_EQ(p.freqDiv, 1);
  EXPECT_EQ(p.initFreq, 10);
  EXPECT_EQ(p.finalFreq, 90);
  EXPECT_EQ(p.beta, 2.5);
  EXPECT_EQ(p.band, 0.75);
  EXPECT_EQ(p.cntThreshold, 60);
  ASSERT_TRUE(p.gabor);
  EXPECT_EQ((*p.gabor)[0][1], 1001);
  EXPECT_EQ((*p.gabor)[1][0], 2000);
  EXPECT_EQ((*p.gabor)[2][1], 3001);
  EXPECT_EQ(p.phaseOption, 2);
  EXPECT_EQ(p.reservedInt, -5);
  EXPECT_EQ(p.nDispPoints, 1);
  EXPECT_EQ(p.included, 1);
  EXPECT_EQ(p.marker, 17);
  EXPECT_EQ(p.color, 0xff00ff);
  EXPECT_EQ(p.wlenCrit, 0.375);
  EXPECT_EQ(p.polyOrderA, 4);
  EXPECT_EQ(p.polyOrderB, 5);
  EXPECT_EQ(p.nContLevel, 10) << "is not in the file";
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(Stored(), s.bytes);
}

TEST_F(AnalysisSection, WithoutPairRecordsThereIsOneZeroCount) {
  EXPECT_EQ(Stored(), std::string(16, '\0'));
}

TEST_F(AnalysisSection, MasksAreAppendedToThoseThatAreThere) {
  MeasDB.maskingList.append()->key = 9;
  ByteStream s;
  s.I(2).Add(Mask(1, 10)).Add(Mask(2, 20)).I(0).Add(NoCurves());
  Read(s);
  ASSERT_EQ(MeasDB.maskingList.count(), 3);
  EXPECT_EQ(MeasDB.maskingList.at(1)->key, 9);
  const MaskingInfo& m = *MeasDB.maskingList.at(3);
  EXPECT_EQ(m.key, 2);
  EXPECT_EQ(m.dspChan, 1);
  EXPECT_EQ(m.freqInit, 20);
  EXPECT_EQ(m.freqFinal, 25);
  EXPECT_EQ(m.jumpNo, 2);
  EXPECT_EQ(m.lineInit, 3);
  EXPECT_EQ(m.lineFinal, 4);
}

TEST_F(AnalysisSection, PairsAndCurvesThatWereThereAreGone) {
  MeasDB.pMeasList.append();
  MeasDB.gDispList.append();
  MeasDB.aDispList.append();
  Read(ByteStream().I(0).I(0).Add(NoCurves()));
  EXPECT_EQ(MeasDB.pMeasList.count(), 0);
  EXPECT_EQ(MeasDB.gDispList.count(), 0);
  EXPECT_EQ(MeasDB.aDispList.count(), 0);
}

TEST_F(AnalysisSection, FiftyByFiftyDivisionsTakeSixtyThousandBytes) {
  PMeasInfo& p = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(p, 2);
  p.key = 1;
  p.timeDiv = p.freqDiv = 0;
  const std::size_t without = Stored().size();
  p.timeDiv = p.freqDiv = 50;
  EXPECT_EQ(Stored().size() - without, 60000u);
}

TEST_F(AnalysisSection, DivisionsAboveFiftyKeepTheStreamInStep) {
  for (auto [timeDiv, freqDiv] : {std::pair{70, 2}, {2, 70}, {51, 51}, {999, 1}, {1, 999}}) {
    FreePMeasInfoList();
    ByteStream s;
    s.I(0).I(1).Add(Pair(1, timeDiv, freqDiv, timeDiv * freqDiv)).Add(NoCurves());
    Read(s);
    ASSERT_EQ(MeasDB.pMeasList.count(), 1);
    const PMeasInfo& p = *MeasDB.pMeasList.at(1);
    EXPECT_EQ(p.marker, 17) << timeDiv << " by " << freqDiv;
    EXPECT_EQ(p.timeDiv, timeDiv);
    EXPECT_EQ(p.freqDiv, freqDiv);
    EXPECT_EQ(file.Remaining(), 0);
    EXPECT_EQ(Stored().size(), s.bytes.size());
  }
}

TEST_F(AnalysisSection, CellsBeyondTheMapsArePassedOver) {
  ByteStream s;
  s.I(0).I(1).Add(Pair(1, 60, 2, 120)).Add(NoCurves());
  Read(s);
  const PMeasInfo& p = *MeasDB.pMeasList.at(1);
  EXPECT_EQ((*p.gabor)[0][49], 1049);
  EXPECT_EQ((*p.gabor)[0][50], 1060) << "second row";
  const std::string again = Stored();
  EXPECT_EQ(again.size(), s.bytes.size());
  EXPECT_NE(again, s.bytes) << "the cells beyond are zeros";
}

TEST_F(AnalysisSection, MapsOfAThousandDivisionsAreNotReadFromAProject) {
  for (auto [timeDiv, freqDiv] : {std::pair{1000, 1}, {1, 1000}, {1000, 1000}}) {
    FreePMeasInfoList();
    ByteStream s;
    s.I(0).I(1).Add(Pair(1, timeDiv, freqDiv, 0)).Add(NoCurves());
    Read(s);
    ASSERT_EQ(MeasDB.pMeasList.count(), 1);
    EXPECT_EQ(MeasDB.pMeasList.at(1)->marker, 17);
    EXPECT_FALSE(MeasDB.pMeasList.at(1)->gabor);
    EXPECT_EQ(file.Remaining(), 0);
    EXPECT_THAT(file.Trouble(), HasSubstr("Gabor"));
    file = SectionReader();
  }
}

TEST_F(AnalysisSection, MapsOfAThousandDivisionsLeaveAProjectOutOfStep) {
  ByteStream s;
  s.I(0).I(2).Add(Pair(1, 1000, 1, 1000)).Add(Pair(2, 1, 1, 1)).Add(NoCurves());
  Read(s);
  EXPECT_NE(file.Trouble(), "");
  EXPECT_LT(MeasDB.pMeasList.count(), 2);
}

TEST_F(AnalysisSection, DivisionsThatNoReaderTakesAreNotSavedAgain) {
  ByteStream s;
  s.I(0).I(1).Add(Pair(1, 2000000000, 2000000000, 0)).Add(NoCurves());
  Read(s);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->timeDiv, 50);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->freqDiv, 50);
}

TEST_F(AnalysisSection, AnUnknownKeyEndsTheReadingAndLeavesTheCurvesEmpty) {
  MeasDB.aDispList.append();
  ByteStream s;
  s.I(0).I(2).Add(Pair(1, 1, 1, 1)).Add(Pair(5, 1, 1, 1)).I(1);
  Read(s);
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.gDispList.count(), 0);
  EXPECT_EQ(MeasDB.aDispList.count(), 0);
  EXPECT_THAT(file.Trouble(), HasSubstr("key 5"));
  EXPECT_TRUE(file.GivenUp());
}

TEST_F(AnalysisSection, APairOfAMeasurementWithoutLinesEndsTheReading) {
  AddLines(3, 0);
  ByteStream s;
  s.I(0).I(1).Add(Pair(3, 1, 1, 1)).Add(NoCurves());
  Read(s);
  EXPECT_EQ(MeasDB.pMeasList.count(), 0);
  EXPECT_NE(file.Trouble(), "");
}

TEST_F(AnalysisSection, PairsThatCouldNotBeReadAgainAreNotWritten) {
  AddLines(3, 0);
  for (int key : {0, -999, 7, 3}) MeasDB.pMeasList.append()->key = key;  // none, dead, unknown, without lines
  EXPECT_EQ(Stored(), std::string(16, '\0'));
}

TEST_F(AnalysisSection, ACurveOfMorePointsThanThePairHoldsComesDownToThem) {
  ByteStream p = Pair(1, 1, 1, 1);
  PutInt(p.bytes, p.bytes.size() - 16 - 4 * 4, 999999);
  ByteStream s;
  Read(s.I(0).I(1).Add(p).Add(NoCurves()));
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->nDispPoints, 2);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->included, 1);
  EXPECT_NE(file.Trouble(), "");
}

TEST_F(AnalysisSection, MapsOfZerosTakeNoMemory) {
  PMeasInfo& p = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(p, 2);
  p.key = 1;
  ByteStream s;
  s.bytes = Stored();
  Read(s);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_FALSE(MeasDB.pMeasList.at(1)->gabor);
}

TEST_F(AnalysisSection, ReadsBothListsOfCurvesFromIndexOne) {
  ByteStream s;
  s.I(0).I(0);
  s.I(1).I(0).I(2).I(1).I(1).I(1).T("global").D(7.5);
  for (int i = 0; i < 12; ++i) s.D(i);
  s.I(2).I(1).I(1).I(0).I(1).I(1).T("m1[0:1]").D(1.5);
  for (int i = 0; i < 6; ++i) s.D(100 + i);
  s.I(2).I(0).I(0).I(2).I(0).T("").D(0);
  Read(s);
  ASSERT_EQ(MeasDB.gDispList.count(), 1);
  const DispInfo& g = *MeasDB.gDispList.at(1);
  EXPECT_EQ(g.key, 0);
  EXPECT_EQ(g.nPoints, 2);
  EXPECT_EQ(g.refChan, 1);
  EXPECT_EQ(g.dspChan, 1);
  EXPECT_EQ(g.valid, 1);
  EXPECT_EQ(g.label, "global");
  EXPECT_EQ(g.wlenMax, 7.5);
  EXPECT_EQ(g.freq[1], 0);
  EXPECT_EQ(g.freq[2], 1);
  EXPECT_EQ(g.vel[1], 2);
  EXPECT_EQ(g.wlen[2], 5);
  EXPECT_EQ(g.stat1[1], 6);
  EXPECT_EQ(g.stat2[1], 8);
  EXPECT_EQ(g.stat3[2], 11);
  ASSERT_EQ(MeasDB.aDispList.count(), 2);
  EXPECT_EQ(MeasDB.aDispList.at(1)->label, "m1[0:1]");
  EXPECT_EQ(MeasDB.aDispList.at(1)->stat3[1], 105);
  EXPECT_EQ(MeasDB.aDispList.at(2)->nPoints, 0);
  EXPECT_EQ(Stored(), s.bytes);
}

TEST_F(AnalysisSection, ItemsThatAreCutAreLeftOut) {
  ByteStream s;
  s.I(2).Add(Mask(1, 10)).Add(Mask(2, 20));
  s.bytes.pop_back();
  Read(s);
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
  EXPECT_THAT(file.Trouble(), HasSubstr("ends early"));
}

TEST_F(AnalysisSection, AFileThatEndsInFrontOfTheSectionIsAnOlderOne) {
  Read(ByteStream());
  EXPECT_EQ(file.Trouble(), "");
}

// --- the ".ia" file ---

TEST_F(AnalysisSection, AnInterpretationFileAddressesThePairOneKeyLower) {
  ByteStream s;
  s.I(0).I(1).Add(Pair(2, 1, 1, 1)).Add(NoCurves());
  LoadIa(s);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->key, 1);
}

TEST_F(AnalysisSection, AnInterpretationFileOfTheFirstMeasurementFindsNoKeyBelowIt) {
  ByteStream s;
  s.I(1).Add(Mask(1, 10)).I(1).Add(Pair(1, 1, 1, 1)).Add(NoCurves());
  LoadIa(s);
  EXPECT_EQ(MeasDB.maskingList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.count(), 0);
  EXPECT_THAT(file.Trouble(), HasSubstr("key 0"));
}

TEST_F(AnalysisSection, AnInterpretationFileReadsMapsOfAnySize) {
  ByteStream s;
  s.I(0).I(1).Add(Pair(2, 1000, 2, 2000)).Add(NoCurves());
  LoadIa(s);
  ASSERT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(MeasDB.pMeasList.at(1)->marker, 17);
  ASSERT_TRUE(MeasDB.pMeasList.at(1)->gabor);
  EXPECT_EQ((*MeasDB.pMeasList.at(1)->gabor)[0][50], 2000) << "first cell of the second row";
  EXPECT_EQ(file.Trouble(), "");
}

TEST_F(AnalysisSection, AnInterpretationFileKeepsTheMasksThatAreThere) {
  MeasDB.maskingList.append()->key = 1;
  ByteStream s;
  s.I(1).Add(Mask(1, 10)).I(0).Add(NoCurves());
  LoadIa(s);
  EXPECT_EQ(MeasDB.maskingList.count(), 2);
}

TEST_F(AnalysisSection, SaveAnalysisWritesTheSectionAloneWithoutABackupCopy) {
  MakeSmallProject();
  const std::string path = folder.File("a.ia");
  test::WriteWhole(path, "old");
  EXPECT_EQ(SaveAnalysis(path), 0);
  EXPECT_EQ(test::ReadWhole(path), AnalysisBytes().bytes);
  EXPECT_THAT(folder.Names(), ElementsAre("a.ia"));
}

TEST_F(AnalysisSection, AnInterpretationFileThatCannotBeWrittenOrReadSaysWhy) {
  EXPECT_EQ(SaveAnalysis(folder.File("none/a.ia")), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("none/a.ia"));
  frontEnd.messages.clear();
  frontEnd.messageTitles.clear();
  MeasDB.pMeasList.append();
  EXPECT_EQ(LoadAnalysis(folder.File("none.ia")), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("none.ia"));
  EXPECT_EQ(MeasDB.pMeasList.count(), 1) << "nothing is lost for a file that is not there";
}

TEST_F(AnalysisSection, ADamagedInterpretationFileEndsWithOneMessage) {
  ByteStream s;
  s.I(0).I(2).Add(Pair(2, 1, 1, 1)).Add(Pair(9, 1, 1, 1)).Add(NoCurves());
  test::WriteWhole(folder.File("a.ia"), s.bytes);
  EXPECT_EQ(LoadAnalysis(folder.File("a.ia")), -1);
  EXPECT_THAT(OnlyMessage(), HasSubstr("key 8"));
}

TEST_F(AnalysisSection, SaveDialogAsksBeforeItOverwrites) {
  const std::string path = folder.File("a.ia");
  test::WriteWhole(path, "old");
  frontEnd.fileAnswers = {
      {FileAnswer::Exists, path}, {FileAnswer::Exists, path}, {FileAnswer::Cancelled, ""}};
  frontEnd.confirmAnswers = {false, true};
  Save_Analysis(Panel::MAINMENU, nullptr, Event::Commit, 0);
  EXPECT_EQ(test::ReadWhole(path), "old");
  EXPECT_THAT(frontEnd.questions, ElementsAre("File already exists. Do you want to overwrite it ?"));
  EXPECT_EQ(frontEnd.files[0].filter, "*.ia");
  EXPECT_EQ(frontEnd.files[0].title, "Save Interpretation and Analysis");
  Save_Analysis(Panel::MAINMENU, nullptr, Event::Commit, 0);
  EXPECT_EQ(test::ReadWhole(path), AnalysisBytes().bytes);
  EXPECT_EQ(Save_Analysis(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_THAT(frontEnd.messages, IsEmpty());
}

TEST_F(AnalysisSection, LoadDialogReadsTheChosenFile) {
  ByteStream s;
  s.I(0).I(1).Add(Pair(2, 1, 1, 1)).Add(NoCurves());
  test::WriteWhole(folder.File("a.ia"), s.bytes);
  frontEnd.fileAnswers = {{FileAnswer::Exists, folder.File("a.ia")},
                          {FileAnswer::IsNew, folder.File("b.ia")}};
  EXPECT_EQ(Load_Analysis(Panel::MAINMENU, nullptr, Event::Commit, 0), 0);
  EXPECT_EQ(frontEnd.files[0].title, "Load Interpretation and Analysis");
  EXPECT_EQ(MeasDB.pMeasList.count(), 1);
  EXPECT_EQ(Load_Analysis(Panel::MAINMENU, nullptr, Event::Commit, 0), -1);
  EXPECT_THAT(frontEnd.messages, ElementsAre("File does not exist."));
}

}  // namespace
}  // namespace sondera::testing
