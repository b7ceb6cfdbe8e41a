// Units beside the fields follow the unit of length of the project, or of a panel with its own unit.
#include "gui/unit_labels.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <memory>

#include "gui/binder.h"
#include "gui/refresh.h"
#include "runtime/catalogue/hwsetup.h"
#include "runtime/catalogue/inversion.h"
#include "runtime/catalogue/loadtxdata.h"
#include "runtime/catalogue/meassetup.h"

namespace sondera {
namespace {

std::string TextBehind(const QWidget& form, const char* control) {
  const auto* label = form.findChild<QLabel*>(QString::fromLatin1(control) + "_unit");
  return label ? label->text().toStdString() : "no label";
}

TEST(UnitText, IsThatOfTheControlOrOfTheProject) {
  ResetControls();
  EXPECT_EQ(UnitText(hwsetup::FREQSPAN), "Hz");
  EXPECT_EQ(UnitText(inversion::NITER), "");
  EXPECT_EQ(UnitText(inversion::UB_H), "m");
  EXPECT_EQ(UnitText(inversion::UB_VS), "m/s");
  SetCtrlVal(meassetup::LENGTHUNIT, 0.3048);
  EXPECT_EQ(UnitText(inversion::UB_H), "ft");
  EXPECT_EQ(UnitText(inversion::UB_VS), "ft/s");
  EXPECT_EQ(UnitText(loadtxdata::LOC_REC1), "m");  // the import has a unit of its own
  SetCtrlVal(loadtxdata::LENGTHUNIT, 0.01);
  EXPECT_EQ(UnitText(loadtxdata::LOC_REC1), "cm");
  EXPECT_EQ(UnitText(inversion::UB_H), "ft");
}

TEST(UnitLabels, FollowTheUnitWithoutTheSetupBeingOpen) {
  ResetControls();
  StartRefresh();
  {
    const std::unique_ptr<QWidget> form(MakeForm(Panel::INVERSION, nullptr));
    new Binder(Panel::INVERSION, form.get());  // goes with the form
    EXPECT_EQ(TextBehind(*form, "UB_VS"), "m/s");
    SetCtrlVal(meassetup::LENGTHUNIT, 0.0254);
    FlushViews();
    EXPECT_EQ(TextBehind(*form, "UB_VS"), "in/s");
    EXPECT_EQ(TextBehind(*form, "UB_H"), "in");
  }
  StopRefresh();
}

}  // namespace
}  // namespace sondera
