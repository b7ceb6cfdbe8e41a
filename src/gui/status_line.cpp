// status_line.cpp - see status_line.h.
#include "gui/status_line.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QStyle>
#include <charconv>

#include "gui/qt_text.h"
#include "runtime/catalogue/dispcurv.h"
#include "runtime/catalogue/exdthd.h"
#include "runtime/catalogue/sasw.h"
#include "runtime/control_lock.h"
#include "runtime/project_hooks.h"

namespace sondera {
namespace {

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \n\t");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \n\t") - first + 1));
}

QString Counted(int n, const char* one, const char* many) {
  return QStringLiteral("%1 %2").arg(n).arg(QLatin1String(n == 1 ? one : many));
}

QString SavedText() {
  const std::string path = ProjectPath();
  const QFileInfo file(ToQt(path));
  if (path.empty() || !file.exists()) return QObject::tr("not saved yet");
  const QDateTime saved = file.lastModified();
  const bool today = saved.date() == QDate::currentDate();
  return QObject::tr("saved %1")
      .arg(saved.toString(today ? QStringLiteral("HH:mm") : QStringLiteral("yyyy-MM-dd HH:mm")));
}

QString ContentText() {
  const int included = items::Count(dispcurv::LIST_INCLUDED),
            excluded = items::Count(dispcurv::LIST_EXCLUDED);
  QString text = Counted(items::Count(sasw::DISPAID), "measurement", "measurements");
  if (included + excluded > 0)
    text +=
        QObject::tr(", %1, %2 included").arg(Counted(included + excluded, "curve", "curves")).arg(included);
  return text;
}

/// Draws a text that is too long with dots at its end. The text itself stays whole, for a screen reader too.
class ElidedLabel final : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QRect place = contentsRect().adjusted(margin(), 0, -margin(), 0);
    style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Qt::ElideRight, place.width()), foregroundRole());
  }
};

}  // namespace

StatusParts PartsOfStatus(std::string_view status) {
  constexpr std::string_view kDone = " % done";
  StatusParts parts;
  const std::size_t done = status.find(kDone);
  if (done == std::string_view::npos) {
    parts.text = Trimmed(status);
    return parts;
  }
  std::size_t number = done;
  while (number > 0 && status[number - 1] >= '0' && status[number - 1] <= '9') --number;
  int percent = 0;
  const auto end = std::from_chars(status.data() + number, status.data() + done, percent);
  if (end.ec == std::errc() && number < done) parts.percent = std::min(percent, 100);
  parts.text = Trimmed(status.substr(0, number));
  std::string_view rest = status.substr(done + kDone.size());
  if (rest.starts_with(',')) parts.timeLeft = Trimmed(rest.substr(1));
  return parts;
}

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      saved_(new QLabel(this)),
      content_(new QLabel(this)),
      work_(new ElidedLabel(this)),
      left_(new QLabel(this)),
      progress_(new QProgressBar(this)) {
  setSizeGripEnabled(false);
  for (QLabel* label : {saved_, content_, work_, left_}) {
    label->setTextFormat(Qt::PlainText);
    label->setMargin(3);
  }
  progress_->setRange(0, 100);
  progress_->setMaximumWidth(220);
  progress_->setMinimumWidth(120);
  progress_->setAccessibleName(QStringLiteral("Share of the run that is done"));
  work_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  addWidget(saved_);
  addWidget(content_);
  addWidget(work_, 1);
  addPermanentWidget(progress_);
  addPermanentWidget(left_);
}

void StatusLine::TakeHalt(QWidget* button) {
  button->setMaximumHeight(fontMetrics().height() + 10);
  addPermanentWidget(button);
  button->show();
}

void StatusLine::Follow() {
  const StatusParts parts = PartsOfStatus(GetCtrlVal(exdthd::STATUSMSG));
  const std::string step = Trimmed(GetCtrlVal(exdthd::PROCESSMSG));
  const bool running = IsLocked();
  QString work = ToQt(parts.text);
  if (running && !step.empty()) work += (work.isEmpty() ? QString() : QStringLiteral("   ")) + ToQt(step);
  work_->setText(work.section(QLatin1Char('\n'), 0, 0));
  work_->setToolTip(work_->text());
  left_->setText(ToQt(parts.timeLeft));
  left_->setVisible(running && !parts.timeLeft.empty());
  progress_->setVisible(running);
  progress_->setRange(
      0, running && parts.percent < 0 ? 0 : 100);  // without a share it only shows that work is in progress
  if (parts.percent >= 0) progress_->setValue(parts.percent);
  if (running) return;
  saved_->setText(SavedText());
  content_->setText(ContentText());
}

}  // namespace sondera
