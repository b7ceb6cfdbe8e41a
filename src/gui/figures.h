// figures.h - graphs and pages as files and on paper. Lines stay lines and texts stay texts in SVG and PDF; PNG has 300
// dots for an inch, so that a graph is as wide on paper as on a screen of 96.
#pragma once

#include <QString>
#include <memory>

#include "runtime/dialogs.h"

class QWidget;

namespace sondera {

enum class FigureKind : int { Png, Svg, Pdf };

/// Kind by the name's ending, in small letters or capitals; PNG for another one.
FigureKind FigureKindOf(const QString& path);

/// Writes a graph (GraphView), or a page with all that is on it, as it is shown. A graph is drawn on white. The file is
/// complete or not there: one that was there before stays when writing fails.
/// @return  why it could not be written; empty when it is
QString SaveFigure(QWidget& what, const QString& path);

/// Asks for a name and writes; a failure gets one message. False when nothing was written.
bool AskAndSaveFigure(QWidget& what, const QString& proposedName);

/// The print dialog, with a PDF file as its first target; where there is no printer at all, a name is asked for instead.
/// False when nothing was printed.
bool PrintFigure(QWidget& what, const QString& title);

/// The graphs of a request on one sheet, in light colours: above each other, or beside each other where one shows depth.
std::unique_ptr<QWidget> SheetOf(const PrintRequest& request);
/// Prints them: FrontEnd::print of the windows.
bool PrintSheet(const PrintRequest& request);

}  // namespace sondera
