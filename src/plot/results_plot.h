// results_plot.h - the curves of the results page: measured ones and those of the last run.
//
// panels/exdthd_graphs.h uses it for its page. Fills the graph model and draws nothing itself.
#pragma once

#include <vector>

#include "records/model_records.h"
#include "records/session.h"
#include "report/fit_curves.h"
#include "runtime/graphs.h"

namespace sondera {

/// EXDTYPE.
namespace experimental {
inline constexpr int kNotDisplayed = 0;
inline constexpr int kComposite = 1;
inline constexpr int kCompositeGlobal = 2;
inline constexpr int kCompositeArray = 3;
inline constexpr int kGlobal = 4;
inline constexpr int kArray = 5;
}  // namespace experimental

/// THDTYPE below 0; from 0 on the number of one curve. ARRAYDISPID also has kAll.
namespace theoretical {
inline constexpr int kNotDisplayed = -2;
inline constexpr int kAll = -1;
}  // namespace theoretical

/// Marker (0 to 18) and index of the colour of a theoretical curve.
struct CurveLook {
  int marker = 0, color = 0;
};

/// Contents of the page.
struct ResultsChoice {
  int experimental = experimental::kComposite;   ///< EXDTYPE
  int theoretical = theoretical::kNotDisplayed;  ///< THDTYPE
  int array = theoretical::kAll;                 ///< ARRAYDISPID: the only array curve, of both kinds, or all
};

/// Number of theoretical curves in a record: 1 of a global run, else one for each pair with elements in the
/// record.
int TheoreticalCount(const ModelRecord& record);

/// Markers and colours for that many curves: colours in the order of the table, markers from the counter on,
/// which returns to 0 after 18. Curves that have them keep them.
void GiveLooks(std::vector<CurveLook>& looks, int count, int& nextMarker);

/// Replaces the curves of a graph by the chosen ones, and sets its axes: an axis with automatic scale follows
/// the drawn curves. Measured curves of pairs are points, representative ones points on a line, theoretical
/// ones a line with markers. A velocity of 0, where a solver found nothing, is left out.
/// @param looks  of the theoretical curves; curves beyond it use the first one
void PlotResults(const GraphControl& graph, const ModelRecord& record, const ResultsChoice& choice,
                 const std::vector<CurveLook>& looks, AxisRecord& axes);

/// Residuals of the theoretical curves that are drawn, as points about a line at 0: computed less measured velocity, over
/// the abscissa of the curves with its limits, so that the graph can stand below them. Empty where no curve of the run was
/// measured, and over an abscissa of velocities.
/// @param curves    graph that PlotResults has filled, on the same record and choice
/// @param measured  what the run was to match, by the number of the curve
void PlotResiduals(const GraphControl& graph, const GraphControl& curves, const ModelRecord& record,
                   const ResultsChoice& choice, const std::vector<CurveLook>& looks,
                   const std::vector<ReportCurve>& measured, const AxisRecord& axes);

}  // namespace sondera
