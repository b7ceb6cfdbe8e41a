// figures.h - graphs and pages as files and on paper. Lines stay lines and texts stay texts in SVG and PDF; PNG has 300
// dots for an inch, so that a graph is as wide on paper as on a screen of 96.
#pragma once

#include <QString>
#include <memory>

#include "runtime/dialogs.h"

class QWidget;

namespace sondera {

enum class FigureKind : int { Png, Svg, Pdf };

/// Kind by the ending of the name, in lower or upper case; PNG for any other.
FigureKind FigureKindOf(const QString& path);

/// Writes a graph (GraphView), or a page with all its contents, as it is shown. A graph is drawn on white. A
/// new file replaces the old one only when it is complete.
/// @return  why it could not be written; empty for success
QString SaveFigure(QWidget& what, const QString& path);

/// Asks for a name and writes; a failure gives one message. False when nothing was written.
bool AskAndSaveFigure(QWidget& what, const QString& proposedName);

/// The print dialog, with a PDF file as its first target; a name that ends with .svg or .png gives such a file.
/// Without a printer it asks for a name instead. False when nothing was printed.
bool PrintFigure(QWidget& what, const QString& title);

/// The graphs of a request on one sheet, in light colours: one above the other, or side by side if one shows
/// depth.
std::unique_ptr<QWidget> SheetOf(const PrintRequest& request);
/// Prints them: FrontEnd::print of the windows.
bool PrintSheet(const PrintRequest& request);

}  // namespace sondera
