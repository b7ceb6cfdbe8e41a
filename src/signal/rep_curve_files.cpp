// rep_curve_files.cpp - text files of the representative curves. Owns no state.
#include "signal/rep_curve_files.h"

#include <string>
#include <vector>

#include "records/measdb.h"
#include "records/measurement_rules.h"
#include "signal/rep_curves.h"

namespace sondera {
namespace {

constexpr const char* kGlobalFailure = "Error in saving the global rep. disp. curve into file %s.";
constexpr const char* kArrayFailure = "Error in saving the array rep. disp. curve into file %s.";

/// Section of the array file and the quantity that it shows for the second and later curves.
struct Section {
  const char* heading;
  OffsetVector<double> DispInfo::*quantity;
};
constexpr Section kSections[] = {
    {"[Velocity]\n", &DispInfo::vel},
    {"[StdDev of Velocity]\n", &DispInfo::stat2},
    {"[Amplitude]\n", &DispInfo::stat1},
    {"[StdDev of Amplitude]\n", &DispInfo::stat3},
};

/// Row i of a quantity; 0 beyond the curve.
double Element(const DispInfo& curve, OffsetVector<double> DispInfo::*quantity, int i) {
  const OffsetVector<double>& values = curve.*quantity;
  return i <= curve.nPoints && i <= values.hi() ? values[i] : 0.0;
}

std::vector<const DispInfo*> IncludedArrayCurves() {
  std::vector<const DispInfo*> curves;
  for (const PMeasInfo& pair : MeasDB.pMeasList) {
    PMeasInfo* included = nullptr;
    DispInfo* ad = nullptr;
    if (CheckifIncluded(pair.key, pair.refChan, pair.dspChan, included) == 1 &&
        GetADispFromKey(pair.key, pair.refChan, pair.dspChan, ad) > 0)
      curves.push_back(ad);
  }
  return curves;
}

}  // namespace

void SaveGCD(TextWriter& file) {
  for (const DispInfo& gd : MeasDB.gDispList) {
    std::string projID = gd.label, measID;
    if (gd.key != 0) GetIDfromKey(gd.key, projID, measID);
    file.Printf("ProjID:%s, MeasID: %s\n%d\n", projID.c_str(), measID.c_str(), gd.nPoints);
    for (int i = 1; i <= gd.nPoints; ++i)
      file.Printf("%12.7lf %12.7lf %12.7lf %12.7lf 1 3 \n", Element(gd, &DispInfo::vel, i),
                  Element(gd, &DispInfo::freq, i), Element(gd, &DispInfo::wlen, i),
                  Element(gd, &DispInfo::stat2, i));
  }
}

void SaveICD(TextWriter& file) {
  if (MeasDB.aDispList.empty()) return;
  std::string line1, line2;
  GetReceiverArrays(line1, line2);
  const std::vector<const DispInfo*> curves = IncludedArrayCurves();
  const int rows = curves.empty() ? 0 : curves.front()->nPoints;

  file.Printf("1\n%s\n%s\n%d\n\n", line1.c_str(), line2.c_str(), rows);
  for (const Section& section : kSections) {
    file.Put(section.heading);
    for (int i = rows; i >= 1; --i) {
      file.Printf("%12.7lf %12.7lf ", Element(*curves.front(), &DispInfo::freq, i),
                  Element(*curves.front(), &DispInfo::vel, i));
      for (std::size_t c = 1; c < curves.size(); ++c)
        file.Printf("%12.7lf ", Element(*curves[c], section.quantity, i));
      file.Put("\n");
    }
    file.Put("\n");
  }
}

Refusal CheckArrayCurves() {
  const std::string fault = MeasDB.aDispList.empty() ? "" : ReceiverLinesFault();
  return fault.empty() ? Refusal() : Refusal(fault);
}

Refusal WriteRepCurveFile(const std::string& path, RepCurveFile content) {
  TextWriter file(path);
  if (file.Ok()) {
    if (content == RepCurveFile::Both) file.Put("*GCD\n");
    if (content != RepCurveFile::Array) SaveGCD(file);
    if (content == RepCurveFile::Both) file.Put("\n\n*ICD\n");
    if (content != RepCurveFile::Global) SaveICD(file);
  }
  if (file.Ok() && file.Close()) return {};
  std::string text = content == RepCurveFile::Array ? kArrayFailure : kGlobalFailure;
  return text.replace(text.find("%s"), 2, path);
}

}  // namespace sondera
