// Numbers as fields show and take them.
#include "gui/fields.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>
#include <random>

namespace sondera {
namespace {

TEST(NumberText, IsShortAndReadsBackToTheSameNumber) {
  EXPECT_EQ(NumberText(0.25), "0.25");
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(100000.0), "100000");
  EXPECT_EQ(NumberText(0.0001), "0.0001");
  EXPECT_EQ(NumberText(1e300), "1e+300");
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> exponent(-300, 300), mantissa(-1, 1);
  for (int i = 0; i < 2000; ++i) {
    const double value = mantissa(random) * std::pow(10.0, exponent(random));
    const std::string text = NumberText(value);
    EXPECT_EQ(std::strtod(text.c_str(), nullptr), value) << text;
    EXPECT_EQ(NumberFromText(text), value) << text;
  }
}

TEST(NumberFromText, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", "0,25", "abc", "1 2", "nan", "inf", "1e999", "+-1", "0x10", "1e"})
    EXPECT_FALSE(NumberFromText(text)) << text;
  EXPECT_EQ(NumberFromText(" +1e-6 "), 1e-6);
  EXPECT_EQ(NumberFromText("1e300"), 1e300);
  EXPECT_EQ(NumberFromText("-2.9", true), -2.0);
  EXPECT_FALSE(NumberFromText("3e9", true));
}

TEST(NumberField, ManyDigitsAreDrawnRoundedUntilItHasTheFocus) {
  QWidget window;
  NumberField field(&window), other(&window);
  field.resize(400, 24);
  window.show();
  field.SetNumber(23.063817908712345);
  EXPECT_EQ(field.Drawn(), "23.0638");
  EXPECT_EQ(field.text(), "23.063817908712345") << "a screen reader has all digits";
  const QImage rounded = field.grab().toImage();
  field.SetNumber(23.0638);
  EXPECT_EQ(field.grab().toImage(), rounded) << "it looks like the number that is typed so";

  field.SetNumber(51200.125);
  EXPECT_EQ(field.Drawn(), "51200.125") << "digits that a person types stay";
  field.resize(field.fontMetrics().horizontalAdvance("51200.1") + 14, 24);
  EXPECT_EQ(field.Drawn(), "51200.1") << "too narrow";

  field.SetNumber(0.1 + 0.2);
  other.setFocus();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(field.Drawn(), "0.3");
  field.setFocus();
  EXPECT_EQ(field.Drawn(), "0.30000000000000004");
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(field.Number(), 0.1 + 0.2) << "a look changes nothing";
}

TEST(NumberField, EnterCommitsAndACommaIsShownAsAFault) {
  NumberField field;
  field.SetNumber(2.0);
  QSignalSpy entered(&field, &NumberField::Entered);
  field.selectAll();
  QTest::keyClicks(&field, "0.25");
  QTest::keyClick(&field, Qt::Key_Return);
  ASSERT_EQ(entered.count(), 1);
  EXPECT_EQ(entered.at(0).at(0).toDouble(), 0.25);

  field.selectAll();
  QTest::keyClicks(&field, "0,5");
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(entered.count(), 1);
  EXPECT_EQ(field.Number(), 0.25);
  EXPECT_EQ(field.text(), "0,5");
  EXPECT_TRUE(field.toolTip().contains("comma")) << field.toolTip().toStdString();

  QTest::keyClick(&field, Qt::Key_Escape);
  EXPECT_EQ(field.text(), "0.25");
  EXPECT_FALSE(field.toolTip().contains("comma"));
}

TEST(NumberField, WhatTheProgramWritesIsNoEntry) {
  NumberField field;
  QSignalSpy entered(&field, &NumberField::Entered);
  field.SetNumber(17.5);
  EXPECT_EQ(entered.count(), 0);
}

TEST(LimitBytes, CutsWhatIsTypedAtACharacter) {
  QLineEdit field;
  LimitBytes(field, 5);
  QTest::keyClicks(&field, "ab");
  for (int i = 0; i < 2; ++i)  // 2 + 2 + 2 bytes; keyClicks has keys of ASCII alone
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_Adiaeresis, QString(QChar(0x00E4)), Qt::NoModifier);
  EXPECT_EQ(field.text(), QString::fromUtf8("ab\u00E4"));
  EXPECT_TRUE(field.isModified());
  QTest::keyClicks(&field, "cd");
  EXPECT_EQ(field.text(), QString::fromUtf8("ab\u00E4c"));
  field.setText("the program writes what it likes");
  EXPECT_EQ(field.text().size(), 32);
}

}  // namespace
}  // namespace sondera
