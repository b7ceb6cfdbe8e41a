// The worked dump of docs/file-formats.md: a small project, field by field with offset, bytes and meaning.
// The bytes are built here from the description and have to be those that a save writes and a load reads.
//
// With SONDERA_WRITE_DOCS set the block in the document is written again.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "panels/mainmenu_project.h"
#include "project/project_file.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/session.h"
#include "runtime/paths.h"
#include "runtime/text_format.h"
#include "support/project_bytes.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

/// Bytes with a line of text for each field.
class Dump {
 public:
  Dump& Title(const std::string& text) {
    lines += "\n       " + text + "\n";
    return *this;
  }
  Dump& I(const char* name, int v) { return Add(ByteStream().I(v).bytes, FormatText("%s = %d", name, v)); }
  Dump& D(const char* name, double v) {
    return Add(ByteStream().D(v).bytes, FormatText("%s = %lg", name, v));
  }
  Dump& T(const char* name, const std::string& text) {
    return Add(ByteStream().T(text).bytes, FormatText("%s = \"%s\"", name, text.c_str()));
  }
  Dump& Ds(const char* name, const std::vector<double>& v) {
    std::string values;
    for (double x : v) values += FormatText(values.empty() ? "%lg" : ", %lg", x);
    return Add(ByteStream().Ds(v, static_cast<int>(v.size())).bytes,
               FormatText("%s = %s", name, values.c_str()));
  }

  std::string bytes, lines;

 private:
  /// One line for the field, more for its bytes where they need them; zeros to the end of a text are left
  /// out.
  Dump& Add(const std::string& field, const std::string& meaning) {
    const std::size_t last = field.find_last_not_of('\0');
    const bool text = field.size() == 256;
    const std::size_t shown =
        text ? std::min<std::size_t>(last == std::string::npos ? 1 : last + 2, 256) : field.size();
    for (std::size_t i = 0; i < shown; i += 8) {
      std::string hex;
      for (std::size_t j = i; j < std::min(i + 8, shown); ++j)
        hex += FormatText(" %02x", static_cast<unsigned>(static_cast<unsigned char>(field[j])));
      const unsigned offset = static_cast<unsigned>(bytes.size() + i);
      if (i == 0) hex.resize(24, ' ');
      lines += FormatText("%05x%s", offset, hex.c_str());
      if (i == 0) lines += FormatText("  %s", meaning.c_str());
      lines += '\n';
    }
    if (shown < field.size()) lines += FormatText("      ... zeros up to 256 bytes\n");
    bytes += field;
    return *this;
  }
};

/// The project of the example, as a person might have left it.
void MakeExample() {
  StartEmptyProject();
  FinalizeFModel();
  InsertNewIDInfo("Oak St", "line 1", 1);
  HWSetup& h = *SetupHWSetupArrays(1, 2);
  h.nLines = 1;
  h.freqSpan = 100.0;
  h.timeLength = 0.01;
  h.deltaT = 0.005;
  h.deltaF = 100.0;
  h.decimation = 4;
  h.grounding = {1, 1};
  h.inputRange = {10.0, 10.0};
  MeasSetup& m = *SetupMSetupArrays(1);
  m.srcLoc = -5.0;
  m.recLoc = {0.0, 5.0};
  RawData& r = *SetupRawDataArrays(1);
  r.timeHist = {0.5, 0.25, 1.5, 1.25};
  r.powerSpec = {1.0, 0.0, 2.0, 0.0};
  MaskingInfo& k = *MeasDB.maskingList.append();
  k = {1, 0, 1, 10.0, 20.0, 2, 0, 0};
  PMeasInfo& p = *MeasDB.pMeasList.append();
  SetupPairMeasArrays(p, 1);
  p.key = 1;
  p.dspChan = 1;
  p.hRe = {1.0, 0.0};
  p.maskFlag = {1};
  p.timeDiv = p.freqDiv = 1;
  p.gaborMap(1)[0] = -3.5;
  p.phaseOption = 1;
  p.nDispPoints = 1;
  p.included = 1;
  p.dispVel = {150.0};
  p.dispFreq = {50.0};
  p.dispWlen = {3.0};
  DispInfo& g = *MeasDB.gDispList.append();
  SetupDispArrays(g, 1);
  g.refChan = g.dspChan = g.valid = 1;
  g.label = "Oak St";
  g.freq[1] = 50.0;
  g.vel[1] = 150.0;
  g.wlen[1] = 3.0;
}

Dump SetupAndRaw() {
  Dump d;
  d.Title("Section 1, part A: hardware").I("measurements", 1);
  d.I("key", 1).T("ProjID field", "Oak St||||   4").T("MeasID", "line 1");
  d.I("key", 1).I("nChannels", 2).I("nLines", 1).D("freqSpan, Hz", 100);
  d.D("timeLength, s", 0.01).D("deltaT, s", 0.005).D("deltaF, Hz", 100);
  d.I("coupling[0]", 0).I("coupling[1]", 0).I("grounding[0]", 1).I("grounding[1]", 1);
  d.Ds("inputRange, V", {10, 10}).D("reserved", 0).I("triggerChannel", -1).I("triggerSlope", 1);
  d.D("triggerDelay, %", 10).D("triggerLevel, mV", 10).I("averageOn", 1).I("reserved", 0).I("nAverage", 5);
  d.Title("Section 1, part B: geometry").I("records", 1).I("key", 1).D("srcLoc", -5).Ds("recLoc", {0, 5});
  d.I("wlenFilter", 0).D("lengthUnit, m", 1);
  d.Title("Section 2: raw data, 2 * nLines * nChannels = 4 values a block").I("records", 1).I("key", 1);
  d.Ds("timeHist", {0.5, 0.25, 1.5, 1.25}).Ds("linSpecRe", {0, 0, 0, 0}).Ds("linSpecIm", {0, 0, 0, 0});
  d.Ds("powerSpec", {1, 0, 2, 0}).Ds("crossSpecRe", {0, 0, 0, 0}).Ds("crossSpecIm", {0, 0, 0, 0});
  return d;
}

void AddPair(Dump& d) {
  d.I("key", 1).I("refChan", 0).I("dspChan", 1).Ds("hRe", {1, 0});
  for (const char* name : {"hIm",  "hAmp",  "hPhase",  "phaseOrig", "irRe",   "irIm",   "bbRe",
                           "bbIm", "bbAmp", "bbPhase", "phaseBB",   "bbIrRe", "bbIrIm", "enRe",
                           "enIm", "enAmp", "enPhase", "phaseEn",   "enIrRe", "enIrIm"})
    d.Ds(name, {0, 0});
  d.I("maskFlag", 1).D("dispVel", 150).D("dispFreq", 50).D("dispWlen", 3);
  d.I("irfMode", 0).D("gaborTimeStep", 0.015625).D("gaborFreqStep", 0.0625);
  d.Ds("bbT1 to bbT4", {0, 0, 0, 0}).Ds("enT1 to enT4", {0, 0, 0, 0});
  d.I("timeDiv", 1).D("initTime", 0).D("finalTime", 0).I("freqDiv", 1).D("initFreq", 0).D("finalFreq", 0);
  d.D("beta", 0.5).D("band", 3).D("cntThreshold", 75);
  d.Ds("gabor0, gabor1, gabor2 of cell 0, 0", {0, -3.5, 0});
  d.I("phaseOption", 1).I("reserved", 0).I("nDispPoints", 1).I("included", 1).I("marker", 12).I("color", -1);
  d.D("wlenCrit", 0.25).I("polyOrderA", 0).I("polyOrderB", 0);
}

Dump Example() {
  Dump d = SetupAndRaw();
  d.Title("Section 3, A: masks").I("masks", 1).I("key", 1).I("refChan", 0).I("dspChan", 1);
  d.D("freqInit, Hz", 10).D("freqFinal, Hz", 20).I("jumpNo", 2).I("lineInit", 0).I("lineFinal", 0);
  d.Title("Section 3, B: pair records").I("records", 1);
  AddPair(d);
  d.Title("Section 3, C: global curves").I("curves", 1);
  d.I("key", 0)
      .I("nPoints", 1)
      .I("refChan", 1)
      .I("dspChan", 1)
      .I("valid", 1)
      .T("label", "Oak St")
      .D("wlenMax", 0);
  d.D("freq", 50).D("vel", 150).D("wlen", 3).D("stat1", 0).D("stat2", 0).D("stat3", 0);
  d.Title("Section 3, D: array curves").I("curves", 0);
  d.Title("Section 4: no model").I("capLayers", 0);
  return d;
}

constexpr char kBegin[] = "```text\n       Section 1, part A";

TEST(WorkedDump, IsWhatASaveWrites) {
  MakeExample();
  test::TempFolder folder;
  std::string reason;
  ASSERT_TRUE(WriteProjectFile(folder.File("x.da"), reason)) << reason;
  const Dump d = Example();
  const std::string written = test::ReadWhole(folder.File("x.da"));
  const std::size_t n = std::min(written.size(), d.bytes.size());
  const auto differs =
      std::mismatch(written.begin(), written.begin() + static_cast<std::ptrdiff_t>(n), d.bytes.begin());
  EXPECT_EQ(differs.first - written.begin(), static_cast<std::ptrdiff_t>(d.bytes.size()));
  EXPECT_EQ(written.size(), d.bytes.size());
}

TEST(WorkedDump, IsReadAsItSays) {
  MakeExample();
  const Dump d = Example();
  StartEmptyProject();
  SectionReader file;
  file.OpenMemory(d.bytes.data(), d.bytes.size());
  ReadProjectSections(file);
  EXPECT_EQ(file.Trouble(), "");
  EXPECT_EQ(MeasDB.hwSetupList.at(1)->decimation, 4);
  EXPECT_EQ((*MeasDB.pMeasList.at(1)->gabor)[1][0], -3.5);
  EXPECT_EQ(FModelParam.capLayers, 50) << "made afresh";
}

TEST(WorkedDump, StandsInTheDocumentAsItIs) {
  const std::string path = JoinPath(SONDERA_SOURCE_DIR, "docs/file-formats.md");
  std::string document = test::ReadWhole(path);
  const std::size_t begin = document.find(kBegin);
  ASSERT_NE(begin, std::string::npos);
  const std::size_t from = begin + std::strlen("```text\n"), end = document.find("```", from);
  ASSERT_NE(end, std::string::npos);
  const std::string block = Example().lines.substr(1);  // without the blank line in front
  if (std::getenv("SONDERA_WRITE_DOCS")) {
    document.replace(from, end - from, block);
    test::WriteWhole(path, document);
    FAIL() << "the dump was written into the document; look at it and run again without SONDERA_WRITE_DOCS";
  }
  EXPECT_EQ(document.substr(from, end - from), block);
}

}  // namespace
}  // namespace sondera::testing
