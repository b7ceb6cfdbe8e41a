// The manual as a window: its texts exist, each link has a target, search and keys work.
#include "gui/help_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextTable>
#include <QTreeWidget>
#include <QUrl>
#include <map>
#include <set>

namespace sondera {
namespace {

QStringList PagesOf(const HelpWindow& window) {
  const auto* chapters = window.findChild<QTreeWidget*>();
  QStringList pages;
  for (int i = 0; i < chapters->topLevelItemCount(); ++i)
    pages += chapters->topLevelItem(i)->data(0, Qt::UserRole).toString();
  return pages;
}

std::set<QString> AnchorsOf(const QTextDocument& document) {
  std::set<QString> anchors;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    if (block.blockFormat().headingLevel() > 0) anchors.insert(HeadingAnchor(block.text()));
  return anchors;
}

std::set<QString> LinksOf(const QTextDocument& document) {
  std::set<QString> links;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    for (auto part = block.begin(); !part.atEnd(); ++part)
      if (const QString href = part.fragment().charFormat().anchorHref(); !href.isEmpty()) links.insert(href);
  return links;
}

QPushButton* ButtonOf(const HelpWindow& window, const QString& text) {
  for (QPushButton* button : window.findChildren<QPushButton*>())
    if (button->text().remove(u'&') == text) return button;
  return nullptr;
}

TEST(HeadingAnchor, IsThatOfTheLinksInTheTexts) {
  EXPECT_EQ(HeadingAnchor("What you need"), "what-you-need");
  EXPECT_EQ(HeadingAnchor("Shots of a seismograph (SEG-2), and column text"),
            "shots-of-a-seismograph-seg-2-and-column-text");
  EXPECT_EQ(HeadingAnchor("PANEL: Sondera 4.1"), "panel-sondera-41");
}

TEST(HelpWindow, HasAllPagesOfTheManual) {
  HelpWindow window(nullptr);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Dialog)
      << "a window for a reader too";
  const QStringList pages = PagesOf(window);
  EXPECT_EQ(pages.size(), 12);
  for (const QString& page : pages) {
    window.ShowPage(page);
    EXPECT_GT(window.text().document()->characterCount(), 500) << page.toStdString();
    EXPECT_EQ(window.text().source().fileName(), page);
  }
  EXPECT_EQ(window.windowTitle(), "Sondera manual");
}

TEST(HelpWindow, EachLinkBetweenThePagesLeadsToAPlace) {
  HelpWindow window(nullptr);
  std::map<QString, std::set<QString>> anchors, links;
  for (const QString& page : PagesOf(window)) {
    window.ShowPage(page);
    anchors[page] = AnchorsOf(*window.text().document());
    links[page] = LinksOf(*window.text().document());
  }
  int checked = 0;
  for (const auto& [page, targets] : links) {
    for (const QString& target : targets) {
      const QUrl url(target);
      if (!url.isRelative() || url.path().startsWith("../")) continue;
      const QString file = url.path().isEmpty() ? page : url.path();
      if (!file.endsWith(".md") || file == "developer.md") continue;
      ++checked;
      ASSERT_TRUE(anchors.count(file)) << page.toStdString() << ": " << target.toStdString();
      const bool there = !url.hasFragment() || anchors[file].count(url.fragment()) > 0;
      EXPECT_TRUE(there) << page.toStdString() << ": " << target.toStdString();
    }
  }
  EXPECT_GT(checked, 20);
}

TEST(HelpWindow, APressedLinkOpensItsPageAtItsHeadingAndBackReturns) {
  HelpWindow window(nullptr);
  window.show();
  Q_EMIT window.text().anchorClicked(QUrl("script.md#words"));
  EXPECT_EQ(window.text().source(), QUrl("qrc:/docs/script.md#words"));
  // The heading is at the top of the view.
  const QTextCursor top = window.text().cursorForPosition(QPoint(30, 30));
  EXPECT_NEAR(
      top.blockNumber(),
      [&] {
        for (QTextBlock b = window.text().document()->begin(); b.isValid(); b = b.next())
          if (b.blockFormat().headingLevel() > 0 && HeadingAnchor(b.text()) == "words")
            return b.blockNumber();
        return -100;
      }(),
      2);
  QTest::mouseClick(ButtonOf(window, "Back"), Qt::LeftButton);
  EXPECT_EQ(window.text().source(), QUrl("qrc:/docs/manual.md"));

  Q_EMIT window.text().anchorClicked(QUrl("../LICENSE"));
  EXPECT_EQ(window.text().source(), QUrl("qrc:/docs/manual.md"));  // no page of the manual: nothing is lost
}

TEST(HelpWindow, ChaptersLeadToTheirHeadings) {
  HelpWindow window(nullptr);
  window.show();
  auto* chapters = window.findChild<QTreeWidget*>();
  QTreeWidgetItem* limits = nullptr;
  for (int i = 0; i < chapters->topLevelItem(0)->childCount(); ++i)
    if (chapters->topLevelItem(0)->child(i)->text(0) == "Limits to know")
      limits = chapters->topLevelItem(0)->child(i);
  ASSERT_TRUE(limits);
  chapters->setCurrentItem(limits);
  EXPECT_EQ(window.text().source().fragment(), "limits-to-know");
}

TEST(HelpWindow, SearchGoesRoundThePage) {
  HelpWindow window(nullptr);
  window.show();
  auto* search = window.findChild<QLineEdit*>();
  QTest::keyClicks(search, "Poisson");
  QTest::keyClick(search, Qt::Key_Return);
  ASSERT_EQ(window.text().textCursor().selectedText().toLower(), "poisson");
  const int first = window.text().textCursor().position();
  int steps = 0;
  do {
    QTest::keyClick(search, Qt::Key_Return);
    ++steps;
  } while (window.text().textCursor().position() != first && steps < 100);
  EXPECT_GT(steps, 1);
  EXPECT_LT(steps, 100);
  EXPECT_FALSE(window.text().FindNext("no such word in it"));
  EXPECT_EQ(window.text().textCursor().position(), first);
}

TEST(HelpWindow, EscapeClosesItAndOneWindowServesAll) {
  QWidget owner;
  EXPECT_EQ(ShowHelpWindow(&owner), 0);
  ShowHelpWindow(&owner);
  const auto windows = owner.findChildren<HelpWindow*>();
  ASSERT_EQ(windows.size(), 1);
  EXPECT_TRUE(windows[0]->isVisible());
  EXPECT_TRUE(windows[0]->isWindow());
  EXPECT_TRUE(windows[0]->accessibleName().isEmpty());  // it would replace the title
  QTest::keyClick(&windows[0]->text(), Qt::Key_Escape);
  EXPECT_FALSE(windows[0]->isVisible());
}

}  // namespace
}  // namespace sondera
