// Data of the session for the PDF report: the chosen iteration, and the texts that are asked for once.
#include <cmath>

#include "panels/entry_lists.h"
#include "panels/mainmenu_pdf.h"
#include "records/inv_records.h"
#include "records/model_records.h"
#include "records/result_capacity.h"
#include "records/session.h"
#include "report_pdf/pdf_pages.h"
#include "support/session_fixture.h"
#include "support/temp_folder.h"

namespace sondera::testing {
namespace {

class PdfCollect : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    InitializeFModel();
    InitializeTheoDispInfo();
    InitializeInvAnal();
    session.projectFileName = folder.File("site.da");
  }
  /// Three layers, 10 and 20 thick, whose velocities grow with the entry; entries 0 to last.
  void AddEntries(int last) {
    EntryNumbers numbers;
    for (int k = 0; k <= last; ++k) {
      ASSERT_FALSE(ReserveEntry(InvParam, k, 3, 1, 1));
      InvParam.nLayers = 3;
      InvParam.nEntries = last;
      for (int i = 0; i < 3; ++i) {
        InvParam.H(k, i) = 10.0 * (i + 1);
        InvParam.Vs(k, i) = 100.0 + 50.0 * i + 7.0 * k;
        InvParam.Vp(k, i) = 400.0;
        InvParam.density(k, i) = 2.0;
        InvParam.nu(k, i) = 0.25;
        InvParam.resolution(k, i) = 0.5;
      }
      InvParam.rms[k] = 9.0 - k;
      numbers.iterations.push_back(k);
    }
    ShowEntryLists(numbers);
  }
  test::TempFolder folder;
};

TEST_F(PdfCollect, TheChosenIterationIsTheLastProfile) {
  AddEntries(3);
  for (const std::optional<int> wish : {std::optional<int>(), std::optional<int>(1)}) {
    PdfReport report;
    ASSERT_FALSE(CollectPdfReport({Paper::A4, wish}, report));
    const int entry = wish.value_or(3);
    const ProfileTable* profile = ReportedProfile(report);
    ASSERT_TRUE(profile);
    EXPECT_EQ(profile->iteration, entry);
    ASSERT_EQ(profile->layers.size(), 3u);
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(profile->layers[static_cast<std::size_t>(i)].vs, InvParam.Vs(entry, i));
    EXPECT_EQ(profile->rms, InvParam.rms[entry]);
    EXPECT_EQ(report.tables.profiles.size(), static_cast<std::size_t>(entry) + 1)
        << "the RMS by iteration ends there";
  }
  PdfReport report;
  EXPECT_EQ(CollectPdfReport({Paper::A4, 7}, report).reason(), "The project has no iteration 7.");
}

TEST_F(PdfCollect, TextsAreAskedForOnce) {
  frontEnd.promptAnswers = {"A title", "A site", "", "An office", "May"};
  AskForSiteTexts();
  EXPECT_EQ(frontEnd.prompts.size(), 5u);
  AskForSiteTexts();
  EXPECT_EQ(frontEnd.prompts.size(), 5u);
  PdfReport report;
  ASSERT_FALSE(CollectPdfReport({}, report));
  EXPECT_EQ(report.texts.title, "A title");
  EXPECT_EQ(report.texts.client, "");
  EXPECT_EQ(report.texts.date, "May");
}

TEST_F(PdfCollect, ACancelOrAProjectWithoutAFileLeavesNoFile) {
  AskForSiteTexts();  // cancelled at the first question
  EXPECT_EQ(frontEnd.prompts.size(), 1u);
  EXPECT_TRUE(folder.Names().empty());
  session.projectFileName.clear();
  AskForSiteTexts();
  EXPECT_EQ(frontEnd.prompts.size(), 1u);
}

}  // namespace
}  // namespace sondera::testing
