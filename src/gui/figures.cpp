// figures.cpp - see figures.h.
#include "gui/figures.h"

#include <QApplication>
#include <QBoxLayout>
#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>
#include <vector>

#include "gui/boxes.h"
#include "gui/graph_view.h"
#include "gui/qt_text.h"
#include "runtime/paths.h"
#include "runtime/project_hooks.h"
#include "runtime/version.h"

namespace sondera {
namespace {

constexpr double kScreenDpi = 96.0, kPngDpi = 300.0, kInch = 0.0254;
constexpr int kPdfDpi = 1200;
constexpr double kMillimetresOfPixel = 25.4 / kScreenDpi;
constexpr int kSmallest = 16;  // pixels; a widget that was never shown may be smaller

QSize SizeOf(const QWidget& what) {
  return what.size().expandedTo({kSmallest, kSmallest});
}

/// Paints a graph or a page; its graphs too are painted as lines and texts.
void Paint(QWidget& what, QPaintDevice& device, double scale, bool vectorial) {
  if (auto* graph = qobject_cast<GraphView*>(&what)) {
    graph->PaintFigure(device, scale, vectorial);
    return;
  }
  const QList<GraphView*> graphs = what.findChildren<GraphView*>();
  for (GraphView* graph : graphs) graph->SetPaintsAsFigure(true);
  QPainter painter(&device);
  painter.scale(scale, scale);
  what.render(&painter, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
  painter.end();
  for (GraphView* graph : graphs) graph->SetPaintsAsFigure(false);
}

QByteArray PngOf(QWidget& what) {
  const double scale = kPngDpi / kScreenDpi;
  QImage image((QSizeF(SizeOf(what)) * scale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  Paint(what, image, scale, false);
  // Last, because fonts would grow with it.
  const int dots = static_cast<int>(std::lround(kPngDpi / kInch));
  image.setDotsPerMeterX(dots);
  image.setDotsPerMeterY(dots);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return bytes;
}

QByteArray SvgOf(QWidget& what) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(static_cast<int>(kScreenDpi));
  svg.setSize(SizeOf(what));
  svg.setViewBox(QRect(QPoint(), SizeOf(what)));
  svg.setTitle(what.accessibleName());
  svg.setDescription(what.accessibleDescription());
  Paint(what, svg, 1.0, true);
  return bytes;
}

QByteArray PdfOf(QWidget& what) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter pdf(&buffer);
  pdf.setResolution(kPdfDpi);
  pdf.setPageSize(QPageSize(QSizeF(SizeOf(what)) * kMillimetresOfPixel, QPageSize::Millimeter, QString(),
                            QPageSize::ExactMatch));
  pdf.setPageMargins(QMarginsF());
  pdf.setTitle(what.accessibleName());
  pdf.setCreator(ToQt(kAppTitle));
  Paint(what, pdf, kPdfDpi / kScreenDpi, true);
  return bytes;
}

/// False after a message.
bool SaveOrTell(QWidget& what, const QString& path) {
  const QString reason = SaveFigure(what, path);
  if (!reason.isEmpty()) ShowNotice(FromQt(QStringLiteral("%1 could not be written: %2").arg(path, reason)));
  return reason.isEmpty();
}

}  // namespace

FigureKind FigureKindOf(const QString& path) {
  const QString ending = QFileInfo(path).suffix().toLower();
  if (ending == "svg") return FigureKind::Svg;
  return ending == "pdf" ? FigureKind::Pdf : FigureKind::Png;
}

QString SaveFigure(QWidget& what, const QString& path) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return file.errorString();
  const FigureKind kind = FigureKindOf(path);
  const QByteArray bytes = kind == FigureKind::Svg   ? SvgOf(what)
                           : kind == FigureKind::Pdf ? PdfOf(what)
                                                     : PngOf(what);
  if (bytes.isEmpty()) return QStringLiteral("The figure is too large.");
  file.write(bytes);
  return file.commit() ? QString() : file.errorString();
}

bool AskAndSaveFigure(QWidget& what, const QString& proposedName) {
  const FileChoice choice =
      AskFile({.directory = DirectoryOf(ProjectPath()),
               .filter = "*.pdf",
               .title = "Save as a picture",
               .forSaving = true,
               .kinds = {{"*.pdf", "Document"}, {"*.svg", "Drawing"}, {"*.png", "Picture"}},
               .name = FromQt(proposedName)});
  if (choice.answer == FileAnswer::Cancelled) return false;
  if (choice.answer == FileAnswer::Exists &&
      !AskYesNo(kAppTitle, "File already exists. Do you want to overwrite it ?"))
    return false;
  return SaveOrTell(what, ToQt(choice.path));
}

bool PrintFigure(QWidget& what, const QString& title) {
  const QString name = title.simplified();
  if (QPrinterInfo::availablePrinterNames().isEmpty()) return AskAndSaveFigure(what, name);
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(title);
  printer.setCreator(ToQt(kAppTitle));
  printer.setPageOrientation(what.width() > what.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
  printer.setOutputFormat(QPrinter::PdfFormat);
  const QDir folder(ToQt(DirectoryOf(ProjectPath())));
  printer.setOutputFileName(folder.absoluteFilePath(name + QStringLiteral(".pdf")));
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  if (dialog.exec() != QDialog::Accepted) return false;
  const QString file = printer.outputFileName(), ending = QFileInfo(file).suffix().toLower();
  if (ending == "svg" || ending == "png") return SaveOrTell(what, file);
  const QRectF sheet = printer.pageRect(QPrinter::DevicePixel);
  const QSize size = SizeOf(what);
  Paint(what, printer, std::min(sheet.width() / size.width(), sheet.height() / size.height()), true);
  return printer.printerState() != QPrinter::Error;
}

std::unique_ptr<QWidget> SheetOf(const PrintRequest& request) {
  std::vector<const GraphControl*> graphs;
  bool depth = false;
  for (const ControlId graph : request.graphs) {
    if (!graph || graph->kind != ControlKind::Graph) continue;
    graphs.push_back(static_cast<const GraphControl*>(graph));
    depth = depth || GraphOf(*graphs.back()).yAxis.reversed;
  }
  auto sheet = std::make_unique<QWidget>();
  QPalette paper(Qt::black, Qt::white);
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  sheet->setPalette(paper);
  sheet->setAccessibleName(ToQt(request.title));
  auto* layout = new QBoxLayout(depth ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom, sheet.get());
  for (const GraphControl* graph : graphs) {
    auto* view = new GraphView;
    layout->addWidget(view, GraphOf(*graph).yAxis.reversed ? 2 : 3);
    view->Bind(*graph);
  }
  const int count = std::max(1, static_cast<int>(graphs.size()));
  sheet->resize(depth ? QSize(40 + 440 * count, 560) : QSize(760, 20 + 400 * count));
  return sheet;
}

bool PrintSheet(const PrintRequest& request) {
  const std::unique_ptr<QWidget> sheet = SheetOf(request);
  return PrintFigure(*sheet, ToQt(request.title));
}

}  // namespace sondera
