// Import of universal files made by hand: rows, channels, messages. The reading of the files is in
// uff58_test.cpp, the published ones are in import_records_test.cpp.
#include "project/import_uff58.h"

#include <cmath>

#include "runtime/findings.h"
#include "runtime/text_format.h"
#include "support/import_fixture.h"

namespace sondera::testing {
namespace {

using Complex = std::complex<double>;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char kWrongType[] = "Error: The data type is not matched.";
constexpr char kNot58[] = "Error: The file is not in 58 format.";

Complex Value(int channel, int i) {
  return {0.5 + channel + 0.25 * i, 0.125 * ((i % 9 * 7 + channel) % 9)};
}

struct UffPlan {
  int type = 4;
  int channel = 1;
  int points = 16;
  double f0 = 0.0, df = 0.5;
};

std::string UffText(const UffPlan& p) {
  std::string text = "    -1\n    58\nNONE\nNONE\nNONE\nNONE\nNONE\n";
  text +=
      FormatText("%5d         0    0         0 NONE               2   3 NONE               1   3\n", p.type);
  text += FormatText("%10d%10d%10d%13.5E%13.5E%13.5E\n", 6, p.points, 1, p.f0, p.df, 0.0);
  for (int i = 0; i < 4; ++i) text += "        18    0    0    0 NONE                 NONE\n";
  const int first = static_cast<int>(std::lround(p.f0 / p.df));
  for (int i = 0; i < p.points; ++i) {
    const Complex v = Value(p.channel, first + i);
    text += FormatText("%20.12E%20.12E%s", v.real(), v.imag(), i % 2 == 1 || i == p.points - 1 ? "\n" : "");
  }
  return text + "    -1\n";
}

class UffImport : public ImportTest {
 protected:
  std::string File(const UffPlan& p) {
    return Write(FormatText("u%d_%d_%d_%g_%g", p.type, p.channel, p.points, p.f0, p.df), UffText(p));
  }
  int ImportH(int receivers, const std::vector<std::string>& files, bool source = false) {
    return Import(
        {.kind = ImportKind::TransferFunction58, .receivers = receivers, .source = source, .files = files});
  }
  int ImportG(int receivers, const std::vector<std::string>& files, bool source = false) {
    return Import(
        {.kind = ImportKind::CrossSpectrum58, .receivers = receivers, .source = source, .files = files});
  }
};

TEST_F(UffImport, TransferFunctionsHaveUnityInFront) {
  ASSERT_EQ(ImportH(3, {File({.channel = 1, .points = 17}), File({.channel = 2, .points = 17})}), 0);
  EXPECT_EQ(Hardware().nLines, 16);
  EXPECT_EQ(Hardware().freqSpan, -7.5);
  EXPECT_EQ(Hardware().stopFreq, 7.5);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(Cross(0, i), 1.0);
    EXPECT_EQ(Cross(1, i), Value(1, i));
    EXPECT_EQ(Cross(2, i), Value(2, i));
    if (i > 0) {
      EXPECT_EQ(Cross(2, 32 - i), std::conj(Value(2, i)));
    }
  }
  for (int c = 0; c < 3; ++c) EXPECT_EQ(Cross(c, 16), 0.0);
}

TEST_F(UffImport, TransferFunctionsToAnInstrumentedSourceAreDividedByTheFirst) {
  ASSERT_EQ(ImportH(2, {File({.channel = 1}), File({.channel = 2})}, true), 0);
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(std::abs(Cross(0, i) - 1.0), 0.0, 1e-15);
    EXPECT_NEAR(std::abs(Cross(1, i) - Value(2, i) / Value(1, i)), 0.0, 1e-14);
  }
}

TEST_F(UffImport, CrossSpectraHaveUnityInPlaceOfTheFirst) {
  ASSERT_EQ(ImportG(2, {File({.type = 3, .channel = 1}), File({.type = 3, .channel = 2})}), 0);
  for (int i = 0; i < 16; ++i) {
    EXPECT_EQ(Cross(0, i), 1.0);
    EXPECT_EQ(Cross(1, i), Value(2, i));
  }
}

TEST_F(UffImport, CrossSpectraMayLackTheFirst) {
  ASSERT_EQ(ImportG(2, {"", File({.type = 3, .channel = 2})}), 0);
  EXPECT_EQ(Cross(0, 3), 1.0);
  EXPECT_EQ(Cross(1, 3), Value(2, 3));
}

TEST_F(UffImport, CrossSpectraToAnInstrumentedSourceAreExpressedAgainstTheFirstReceiver) {
  ASSERT_EQ(ImportG(2, {"", "", File({.type = 3, .channel = 1}), File({.type = 3, .channel = 2})}, true), 0);
  for (int i = 0; i < 16; ++i) {
    EXPECT_NEAR(std::abs(Cross(0, i) - 1.0), 0.0, 1e-15);
    EXPECT_NEAR(std::abs(Cross(1, i) - Value(2, i) / Value(1, i)), 0.0, 1e-14);
  }
}

TEST_F(UffImport, ABandKeepsItsPlace) {
  ASSERT_EQ(ImportH(2, {File({.points = 21, .f0 = 5.0})}), 0);
  EXPECT_EQ(Hardware().spanKind, 1);
  EXPECT_EQ(Hardware().startFreq, 5.0);
  EXPECT_EQ(Hardware().stopFreq, 15.0);
  EXPECT_EQ(Hardware().nLines, 32);
  for (int i = 0; i < 32; ++i) EXPECT_EQ(Cross(1, i), i >= 10 && i <= 30 ? Value(1, i) : 0.0) << i;
}

TEST_F(UffImport, AShorterLaterSetLeavesZeros) {
  ASSERT_EQ(ImportH(3, {File({.channel = 1}), File({.channel = 2, .points = 4})}), 0);
  EXPECT_EQ(Cross(2, 3), Value(2, 3));
  EXPECT_EQ(Cross(2, 4), 0.0);
}

TEST_F(UffImport, OfWhichTypeASetMustBe) {
  EXPECT_EQ(ImportH(2, {File({.type = 3})}), 0);
  EXPECT_EQ(ImportH(2, {File({.type = 2})}), -1);
  EXPECT_EQ(OnlyMessage(), kWrongType);
  frontEnd.messages.clear();
  EXPECT_EQ(ImportG(1, {File({.type = 4})}), -1);
  EXPECT_EQ(OnlyMessage(), kWrongType);
}

TEST_F(UffImport, AFirstFileThatFailsChangesNothing) {
  const std::string cut = UffText({}).substr(0, 900);
  const struct {
    std::string file;
    const char* message;
  } cases[] = {{folder.File("missing"), kCannotRead},
               {Write("text", "0 1 2\n1 2 3\n"), kNot58},
               {Write("empty", ""), kNot58},
               {Write("cut", cut), kCannotRead},
               {File({.points = 1}), kCannotRead},
               {File({.df = -0.5}), kCannotRead},
               {File({.points = 4, .f0 = 1e9}), kCannotRead}};
  for (const auto& c : cases) {
    frontEnd.messages.clear();
    EXPECT_EQ(ImportH(2, {c.file}), -1) << c.file;
    EXPECT_EQ(OnlyMessageHead(), c.message) << c.file;
    EXPECT_FALSE(Has("new")) << c.file;
    EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
  }
}

TEST_F(UffImport, ALaterFileThatFailsTakesTheMeasurementAway) {
  const struct {
    std::string file;
    const char* message;
  } cases[] = {{folder.File("missing"), "Error in opening the file."},
               {Write("text", "0 1 2\n1 2 3\n"), kNot58},
               {Write("no set", "    -1\n   151\n    -1\n"), kNot58},
               {Write("cut", UffText({}).substr(0, 900)), kCannotRead},
               {File({.type = 1}), kWrongType},
               {File({.df = 1.0}), kCannotRead},
               {File({.f0 = 1.0}), kCannotRead}};
  for (const auto& c : cases) {
    frontEnd.messages.clear();
    EXPECT_EQ(ImportH(3, {File({}), c.file}), -1) << c.file;
    EXPECT_EQ(OnlyMessageHead(), c.message) << c.file;
    EXPECT_FALSE(Has("new")) << c.file;
    EXPECT_EQ(MeasDB.hwSetupList.count(), 1);
    EXPECT_EQ(MeasDB.rawDataList.count(), 1);
  }
}

TEST_F(UffImport, ARefusalNamesFileLineAndCause) {
  const std::string cut = Write("cut", UffText({}).substr(0, 900));
  EXPECT_EQ(ImportH(2, {cut}), -1);
  EXPECT_THAT(OnlyMessageCause(),
              ::testing::MatchesRegex(cut + ", line [0-9]+: the data end before the number of points in "
                                            "the header is reached"));
  frontEnd.messages.clear();
  std::string text = UffText({});
  text.replace(text.rfind("E+0"), 4, "E+xx");
  const std::string bad = Write("bad", text);
  EXPECT_EQ(ImportH(3, {File({}), bad}), -1);
  EXPECT_THAT(OnlyMessageCause(), ::testing::HasSubstr(bad + ", line "));
  frontEnd.messages.clear();
  EXPECT_EQ(ImportH(3, {File({}), File({.df = 1.0})}), -1);
  EXPECT_EQ(OnlyMessageCause(), File({.df = 1.0}) + ": other frequencies than in the first file");
}

TEST_F(UffImport, ABandIsTold) {
  ASSERT_EQ(ImportH(2, {File({.points = 20, .f0 = 6.0})}), 0);
  ASSERT_EQ(Findings().size(), 1u);
  EXPECT_THAT(Findings()[0].text,
              ::testing::StartsWith("new begins at 6 Hz: cycles below 6 Hz cannot be counted"));
}

TEST_F(UffImport, AnEmptyLaterRowOfCrossSpectraCannotBeOpened) {
  EXPECT_EQ(ImportG(2, {File({.type = 3}), ""}), -1);
  EXPECT_EQ(OnlyMessage(), "Error in opening the file.");
  EXPECT_FALSE(Has("new"));
}

TEST_F(UffImport, AnIdThatExistsIsAskedAbout) {
  EXPECT_EQ(Import({.kind = ImportKind::TransferFunction58, .measID = "measID", .files = {File({})}}), -1);
  EXPECT_THAT(frontEnd.questions, ElementsAre("The same measurement ID is in the list. Overwrite it ?"));
  EXPECT_THAT(frontEnd.messages, IsEmpty());
  frontEnd.confirmAnswers = {true};
  EXPECT_EQ(Import({.kind = ImportKind::TransferFunction58, .measID = "measID", .files = {File({})}}), 0);
  EXPECT_EQ(Hardware("measID").nChannels, 2);
}

TEST_F(UffImport, TheLengthUnitOfTheDialogIsStored) {
  ASSERT_EQ(ImportH(2, {File({})}), 0);
  EXPECT_EQ(MeasurementSetup().lengthUnit, 1.0);
  EXPECT_THAT(MeasurementSetup().recLoc, ElementsAre(10, 20));
}

}  // namespace
}  // namespace sondera::testing
