// help_window.cpp - see help_window.h. Owns no state: an open window belongs to its owner.
#include "gui/help_window.h"

#include <QDesktopServices>
#include <QFile>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <vector>

// In a library, the built-in files must be requested, outside any namespace.
static void TakeManualFiles() {
  Q_INIT_RESOURCE(manual);
}

namespace sondera {
namespace {

constexpr const char* kFolder = "qrc:/docs/";

struct Chapter {
  const char* page;
  const char* title;
};
/// In the order that suits a new user.
constexpr Chapter kChapters[] = {{"manual.md", "User manual"},
                                 {"method.md", "Method"},
                                 {"inversion.md", "Inversion"},
                                 {"auto-masking.md", "Automatic masking"},
                                 {"glossary.md", "Glossary"},
                                 {"controls.md", "Controls"},
                                 {"script.md", "Scripts"},
                                 {"batch.md", "Lists of sites"},
                                 {"file-formats.md", "File formats"},
                                 {"boards.md", "Boards"},
                                 {"board-protocol.md", "Board protocol"},
                                 {"published-records.md", "Published records"}};

/// Path of a page's resource for QFile.
QString FileOf(const QUrl& url) {
  return QLatin1Char(':') + url.path();
}

struct Heading {
  int level = 0;
  QTextBlock block;
};

std::vector<Heading> HeadingsOf(const QTextDocument& document) {
  std::vector<Heading> headings;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    if (const int level = block.blockFormat().headingLevel(); level > 0) headings.push_back({level, block});
  return headings;
}

void SetAnchors(const QTextDocument& document) {
  for (const Heading& heading : HeadingsOf(document)) {
    QTextCursor cursor(heading.block);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorNames({HeadingAnchor(heading.block.text())});
    cursor.mergeCharFormat(format);
  }
}

void SetTables(QTextDocument& document, const QPalette& palette) {
  const QList<QTextFrame*> frames = document.rootFrame()->childFrames();
  for (QTextFrame* frame : frames) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (!table) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(palette.color(QPalette::Mid));
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(4);
    format.setTopMargin(6);
    format.setBottomMargin(10);
    // The last column explains; it gets the space.
    if (table->columns() > 2) {
      format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
      QList<QTextLength> widths(table->columns());
      widths.back() = QTextLength(QTextLength::PercentageLength, 45);
      format.setColumnWidthConstraints(widths);
    }
    table->setFormat(format);
  }
}

}  // namespace

QString HeadingAnchor(const QString& heading) {
  QString anchor;
  for (const QChar letter : heading.toLower()) {
    if (letter.isSpace())
      anchor += QLatin1Char('-');
    else if (letter.isLetterOrNumber() || letter == QLatin1Char('-') || letter == QLatin1Char('_'))
      anchor += letter;
  }
  return anchor;
}

// ---- text -----------------------------------------------------------------------------------------------------------

ManualText::ManualText(QWidget* parent) : QTextBrowser(parent) {
  setAccessibleName(QStringLiteral("Manual"));
  setOpenLinks(false);
  setTabChangesFocus(false);
  document()->setDocumentMargin(16);
}

void ManualText::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  const bool samePage = url.path() == source().path();
  QTextBrowser::doSetSource(url, type);
  if (!samePage) Dress();
  if (url.hasFragment()) scrollToAnchor(url.fragment());
}

void ManualText::Dress() {
  QTextCursor all(document());
  all.beginEditBlock();
  SetAnchors(*document());
  SetTables(*document(), palette());
  all.endEditBlock();
  document()->setModified(false);
}

bool ManualText::FindNext(const QString& text) {
  if (text.isEmpty()) return false;
  if (find(text)) return true;
  const QTextCursor before = textCursor();
  moveCursor(QTextCursor::Start);
  if (find(text)) return true;
  setTextCursor(before);
  return false;
}

void ManualText::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    event->ignore();  // closes the window
  else
    QTextBrowser::keyPressEvent(event);
}

// ---- window ---------------------------------------------------------------------------------------------------------

HelpWindow::HelpWindow(QWidget* owner) : QDialog(owner, Qt::Window) {
  TakeManualFiles();
  setObjectName(QStringLiteral("HelpWindow"));
  setWindowTitle(QStringLiteral("Sondera manual"));

  auto* back = new QPushButton(QStringLiteral("&Back"), this);
  auto* forward = new QPushButton(QStringLiteral("&Forward"), this);
  auto* label = new QLabel(QStringLiteral("&Search"), this);
  search_ = new QLineEdit(this);
  search_->setAccessibleName(QStringLiteral("Search"));
  search_->setClearButtonEnabled(true);
  label->setBuddy(search_);
  auto* next = new QPushButton(QStringLiteral("&Next"), this);
  for (QPushButton* button : {back, forward, next})
    button->setAutoDefault(false);  // Enter in the field searches, once
  note_ = new QLabel(this);

  chapters_ = new QTreeWidget(this);
  chapters_->setAccessibleName(QStringLiteral("Chapters"));
  chapters_->setHeaderHidden(true);
  chapters_->header()->setStretchLastSection(true);
  text_ = new ManualText(this);

  auto* top = new QHBoxLayout;
  for (QWidget* widget : {static_cast<QWidget*>(back), static_cast<QWidget*>(forward)})
    top->addWidget(widget);
  top->addStretch(1);
  top->addWidget(note_);
  top->addWidget(label);
  top->addWidget(search_);
  top->addWidget(next);
  auto* split = new QSplitter(this);
  split->addWidget(chapters_);
  split->addWidget(text_);
  split->setStretchFactor(0, 0);
  split->setStretchFactor(1, 1);
  split->setSizes({260, 700});
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(split, 1);
  resize(QSize(960, 560).boundedTo(screen()->availableSize() - QSize(16, 40)));  // with a frame around it

  back->setEnabled(false);
  forward->setEnabled(false);
  connect(text_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(text_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  connect(back, &QPushButton::clicked, text_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, text_, &QTextBrowser::forward);
  connect(text_, &QTextBrowser::anchorClicked, this, &HelpWindow::Follow);
  connect(search_, &QLineEdit::returnPressed, this, &HelpWindow::Find);
  connect(next, &QPushButton::clicked, this, &HelpWindow::Find);
  connect(chapters_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item) ShowPage(item->data(0, Qt::UserRole).toString());
  });
  const auto key = [this](const QKeySequence& keys, auto work) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
  };
  key(QKeySequence::Find, [this] {
    search_->setFocus();
    search_->selectAll();
  });
  key(QKeySequence::FindNext, [this] { Find(); });

  FillChapters();
  ShowPage(QString::fromLatin1(kChapters[0].page));
  text_->setFocus();
}

void HelpWindow::FillChapters() {
  for (const Chapter& chapter : kChapters) {
    const QString page = QString::fromLatin1(chapter.page);
    QFile file(FileOf(QUrl(QLatin1String(kFolder) + page)));
    if (!file.open(QIODevice::ReadOnly)) continue;
    QTextDocument document;
    document.setMarkdown(QString::fromUtf8(file.readAll()));
    auto* top = new QTreeWidgetItem(chapters_, {QString::fromLatin1(chapter.title)});
    top->setData(0, Qt::UserRole, page);
    for (const Heading& heading : HeadingsOf(document)) {
      if (heading.level != 2) continue;
      const QString text = heading.block.text();
      auto* item = new QTreeWidgetItem(top, {text});
      item->setData(0, Qt::UserRole, QString(page + QLatin1Char('#') + HeadingAnchor(text)));
    }
  }
  if (QTreeWidgetItem* manual = chapters_->topLevelItem(0)) manual->setExpanded(true);
}

void HelpWindow::ShowPage(const QString& page) {
  note_->clear();
  text_->setSource(QUrl(QLatin1String(kFolder) + page), QTextDocument::MarkdownResource);
}

void HelpWindow::Follow(const QUrl& link) {
  note_->clear();
  const QUrl url = text_->source().resolved(link);
  if (url.scheme() == QLatin1String("qrc") && QFile::exists(FileOf(url)) &&
      url.path().endsWith(QLatin1String(".md")))
    text_->setSource(url, QTextDocument::MarkdownResource);
  else if (url.scheme().startsWith(QLatin1String("http")))
    QDesktopServices::openUrl(url);
  else
    note_->setText(QStringLiteral("%1 is a file beside the manual.").arg(link.path()));
}

void HelpWindow::Find() {
  const bool found = text_->FindNext(search_->text());
  note_->setText(found || search_->text().isEmpty() ? QString() : QStringLiteral("Not on this page."));
}

int ShowHelpWindow(QWidget* owner) {
  auto* window = owner ? owner->findChild<HelpWindow*>() : nullptr;
  if (!window) {
    window = new HelpWindow(owner);
    if (!owner) window->setAttribute(Qt::WA_DeleteOnClose);
  }
  window->show();
  window->raise();
  window->activateWindow();
  return 0;
}

}  // namespace sondera
