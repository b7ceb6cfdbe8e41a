// shot_columns.cpp - see shot_columns.h. Owns no state.
#include "project/shot_columns.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

#include "project/number_table.h"
#include "runtime/text_format.h"

namespace sondera {
namespace {

constexpr double kEven = 0.05;  // of an interval: tolerance of a time, for its rounding in the text

bool NamesATime(const NumberTable& table) {
  if (table.header.empty()) return false;
  std::string name;
  for (char c : table.header.front()) {
    if (!std::isalpha(static_cast<unsigned char>(c))) break;
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name == "time" || name == "t";
}

/// "[ms]", "(ms)" after the name of the time.
double SecondsPerUnit(const std::string& name) {
  const std::size_t open = name.find_first_of("[(");
  const std::string unit = open == std::string::npos ? "s" : name.substr(open + 1, name.size() - open - 2);
  return unit == "ms" ? 1e-3 : unit == "us" ? 1e-6 : unit == "s" ? 1.0 : 0.0;
}

/// Interval of times that grow evenly; 0 for others.
double IntervalOf(const std::vector<double>& times) {
  if (times.size() < 2) return 0.0;
  const double step = (times.back() - times.front()) / static_cast<double>(times.size() - 1);
  if (!(step > 0.0) || !std::isfinite(step)) return 0.0;
  for (std::size_t i = 0; i < times.size(); ++i)
    if (!(std::fabs(times[i] - (times.front() + static_cast<double>(i) * step)) <= kEven * step)) return 0.0;
  return step;
}

}  // namespace

std::string ShotOfColumns(const std::string& path, std::string_view text, double interval, Shot& shot) {
  NumberTable table;
  if (std::string reason = ReadNumberTable(text, table); !reason.empty()) return reason;
  double firstTime = 0.0;
  std::size_t firstChannel = 0;
  const bool named = NamesATime(table);
  const double unit = named ? SecondsPerUnit(table.header.front()) : 1.0;
  if (unit == 0.0) return "the unit of the time, \"" + table.header.front() + "\", is not s, ms or us";
  if (named || interval == 0.0) {
    const double step = IntervalOf(table.columns.front()) * unit;
    if (!(step > 0.0) && interval == 0.0)
      return "the first column is not a time with even steps; give the sampling interval";
    if (interval == 0.0 && table.columns.size() < 2) return "there is no column beside the time";
    if (step > 0.0) firstTime = table.columns.front().front() * unit;
    if (interval == 0.0) interval = step;
    firstChannel = 1;
  }
  if (!(interval > 0.0) || !std::isfinite(interval)) return "the sampling interval is not a time above 0";
  shot = {};
  shot.path = path;
  shot.receiverKey = "the places of the receivers";
  shot.sourceKey = "the place of the source";
  shot.unitKey = "the unit of length";
  for (const std::string& name : table.header)
    if (!name.empty()) shot.texts.push_back("column " + name);
  for (std::size_t c = firstChannel; c < table.columns.size(); ++c) {
    ShotTrace trace;
    trace.channel = static_cast<int>(c - firstChannel) + 1;
    trace.samples = std::move(table.columns[c]);
    trace.interval = interval;
    trace.firstTime = firstTime;
    trace.setAside = SampleFault(trace.samples);
    shot.traces.push_back(std::move(trace));
  }
  return {};
}

ReadShot ColumnReader(double interval) {
  return [interval](const std::string& path, Shot& shot) {
    std::string text;
    const std::string reason = ReadShotBytes(path, text);
    return reason.empty() ? ShotOfColumns(path, text, interval, shot) : reason;
  };
}

}  // namespace sondera
