// graph_state.h - settings for the next graph, from the Set functions: size, divisions, range, texts.
//
// Lengths in cm; corners from the page's origin, which is at (1, 2) cm on the sheet. One graph at a time.
#pragma once

#include <string>

namespace sondera {

struct GraphState {
  float axLenX = 15.0f, axLenY = 9.0f;                            // axes
  float axOrgX = 2.0f, axOrgY = 2.5f;                             // lower left corner
  int nDivX = 5, nDivY = 5;                                       // divisions
  int nMinorX = 2, nMinorY = 2;                                   // sub-divisions; nothing draws them
  double axMinX = 0.0, axMaxX = 0.0, axMinY = 0.0, axMaxY = 0.0;  // data range
  std::string labelX, labelY, title;                              // in the library's escaped form
};

extern GraphState graph;

/// As in a fresh process.
void ResetGraphState();

/// Initial size and divisions, range cleared unless keepRange, the texts, and Courier as the font.
void PG_Init(const std::string& labelX, const std::string& labelY, const std::string& title, bool keepRange);
void SetAxSize(float lenX, float lenY, float orgX, float orgY);
/// Divisions below 1 count as 1, more than 1000 as 1000.
void SetTics(int nDivX, int nDivY, int nMinorX, int nMinorY);
void SetAxRange(double minX, double maxX, double minY, double maxY);
void SetLabel(const std::string& x, const std::string& y, const std::string& title);

/// Divisions of an axis that ends at v: its leading digit, at least 1. Kept: the decade comes from natural
/// logarithms, which gives 1000 10 divisions.
int NdivVal(double v);

/// Decimals needed to show a value of this size.
int GetNoDigits(double v);

}  // namespace sondera
