// graph_state.h - what the Set operations lay down for the next graph: size, divisions, range, texts.
//
// Lengths in cm; corners from the page's origin, which stands at (1, 2) cm on the sheet. One graph at a time.
#pragma once

#include <string>

namespace sondera {

struct GraphState {
  float axLenX = 15.0f, axLenY = 9.0f;                            // axes
  float axOrgX = 2.0f, axOrgY = 2.5f;                             // lower left corner
  int nDivX = 5, nDivY = 5;                                       // divisions
  int nMinorX = 2, nMinorY = 2;                                   // sub-divisions; nothing draws them
  double axMinX = 0.0, axMaxX = 0.0, axMinY = 0.0, axMaxY = 0.0;  // data range
  std::string labelX, labelY, title;                              // as the library writes them
};

extern GraphState graph;

/// As in a fresh process.
void ResetGraphState();

/// First size and divisions, range cleared unless keepRange, the texts, and Courier as the font.
void PG_Init(const std::string& labelX, const std::string& labelY, const std::string& title, bool keepRange);
void SetAxSize(float lenX, float lenY, float orgX, float orgY);
/// Divisions below 1 count as 1, more than 1000 as 1000.
void SetTics(int nDivX, int nDivY, int nMinorX, int nMinorY);
void SetAxRange(double minX, double maxX, double minY, double maxY);
void SetLabel(const std::string& x, const std::string& y, const std::string& title);

/// Divisions of an axis that ends at v: its leading digit, 1 at least. Kept: the decade comes from natural
/// logarithms, by which 1000 has 10 divisions.
int NdivVal(double v);

/// Decimals that show a value of this size.
int GetNoDigits(double v);

}  // namespace sondera
