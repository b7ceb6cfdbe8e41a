// station_file.cpp - see station_file.h.
#include "project/station_file.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

#include "project/analysis_section.h"
#include "project/raw_section.h"
#include "project/setup_section.h"
#include "records/session.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr std::string_view kProject = "ProjID:", kMeasurement = ", MeasID:";

/// Lends the database to another file: what is open comes back at the end, with the records where they were.
class LentDatabase {
 public:
  LentDatabase()
      : records_(std::exchange(MeasDB, {})),
        keys_(std::exchange(session.fileKeyList, {})),
        projID_(session.curProjID),
        measID_(session.curMeasID),
        lengthUnit_(session.lengthUnit) {
    SetupGlobalArrays();
  }
  ~LentDatabase() {
    MeasDB = std::move(records_);
    session.fileKeyList = std::move(keys_);
    session.curProjID = std::move(projID_);
    session.curMeasID = std::move(measID_);
    session.lengthUnit = lengthUnit_;
  }
  LentDatabase(const LentDatabase&) = delete;
  LentDatabase& operator=(const LentDatabase&) = delete;

 private:
  MeasDatabase records_;
  std::vector<int> keys_;
  std::string projID_, measID_;
  double lengthUnit_;
};

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

std::string LabelOf(std::string_view heading) {
  const std::string_view behind = heading.substr(kProject.size());
  return std::string(behind.substr(0, behind.rfind(kMeasurement)));
}

/// The first four numbers of a row.
bool ReadRow(const std::string& line, DispInfo& curve, int i) {
  const std::pair<OffsetVector<double> DispInfo::*, bool> kColumns[] = {
      {&DispInfo::vel, true}, {&DispInfo::freq, true}, {&DispInfo::wlen, true}, {&DispInfo::stat2, false}};
  Tokenizer tokens(line, " ,\t\r\n");
  for (const auto& [column, needed] : kColumns) {
    const auto token = tokens.Next();
    if (!token) return !needed;
    std::size_t used = 0;
    const double value = ParseReal(*token, &used);
    if (used != token->size() || !std::isfinite(value)) return false;
    (curve.*column)[i] = value;
  }
  return true;
}

bool EndsWith(const std::string& path, std::string_view extension) {
  if (path.size() < extension.size()) return false;
  return std::equal(extension.begin(), extension.end(),
                    path.end() - static_cast<std::ptrdiff_t>(extension.size()),
                    [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

}  // namespace

std::string ReadStationText(TextReader& text, StationCurves& station) {
  std::string line;
  const auto fault = [&](const char* what) {
    return FormatText("Line %lld: %s.", static_cast<long long>(text.LinesRead()), what);
  };
  while (text.ReadPhysicalLine(line)) {
    if (IsBlank(line)) continue;
    if (!line.starts_with(kProject)) return fault("a curve begins with ProjID:");
    auto curve = std::make_unique<DispInfo>();
    curve->label = LabelOf(line);
    text.ReadPhysicalLine(line);
    Tokenizer tokens(line, " \t\r\n");
    const std::string_view count = tokens.Next().value_or("");
    std::size_t used = 0;
    const int points = ParseInt(count, &used);
    if (count.empty() || used != count.size() || points < 0 || points > kMostStationPoints)
      return fault("the number of points is wanted here");
    std::vector<std::string> rows;  // as many as there are, so that a count alone takes no memory
    while (static_cast<int>(rows.size()) < points && text.ReadPhysicalLine(line)) rows.push_back(line);
    if (static_cast<int>(rows.size()) < points) return fault("rows of the curve are missing");
    SetupDispArrays(*curve, points);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!ReadRow(rows[i], *curve, static_cast<int>(i) + 1))
        return FormatText(
            "Line %lld: velocity, frequency and wavelength are wanted.",
            static_cast<long long>(text.LinesRead()) - static_cast<long long>(rows.size() - i) + 1);
    }
    if (!rows.empty()) station.curves.push_back(std::move(curve));
  }
  return text.ReadFailed() ? "It could not be read to its end." : "";
}

std::string ReadStationProject(SectionReader& file, StationCurves& station) {
  const LentDatabase lent;
  file.BeginSection("setup");
  ReadMHWSetup(file, {});
  file.EndSection();
  file.BeginSection("raw data");
  ReadRawData(file);
  file.EndSection();
  file.BeginSection("analysis", true);
  ReadAnalysis(file);
  file.EndSection();
  if (!MeasDB.measSetupList.empty()) station.lengthUnit = MeasDB.measSetupList.at(1)->lengthUnit;
  while (auto curve = MeasDB.gDispList.remove(1))
    if (curve->nPoints > 0) station.curves.push_back(std::move(curve));
  return file.Trouble();
}

Refusal ReadStationFile(const std::string& path, StationCurves& station) {
  std::string reason;
  StationCurves read;
  if (EndsWith(path, ".gcd")) {
    TextReader text;
    if (!text.Open(path, &reason)) return reason + ".";
    reason = ReadStationText(text, read);
  } else {
    SectionReader file;
    if (!file.Open(path, &reason)) return reason + ".";
    reason = ReadStationProject(file, read);
  }
  if (!reason.empty()) return "The file " + path + " was not read whole. " + reason;
  if (read.curves.empty()) return "The file " + path + " has no global curve.";
  station = std::move(read);
  return {};
}

}  // namespace sondera
