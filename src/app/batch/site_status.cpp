// site_status.cpp - see site_status.h.
#include "app/batch/site_status.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "app/script/values.h"
#include "runtime/crc32.h"
#include "runtime/files.h"

namespace sondera::batch {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kFile = "status.json";
constexpr std::uintmax_t kLargestStatus = std::uintmax_t{1} << 24;  // bytes

std::string Cell(const std::string& text) {
  if (text.find_first_of(",\"\n\r") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text)
    quoted += c == '"' ? std::string("\"\"") : std::string(1, c == '\n' || c == '\r' ? ' ' : c);
  return quoted + "\"";
}

/// A value of the figures, empty where there is none.
std::string Figure(const Json& figures, const char* key) {
  if (!figures.is_object() || !figures.contains(key)) return "";
  const Json& value = figures[key];
  if (value.is_number()) return script::TextOf(value.get<double>());
  return value.is_string() ? Cell(value.get<std::string>()) : "";
}

}  // namespace

std::string WriteStatus(const std::string& folder, const SiteStatus& s) {
  Json json;
  json["status"] = s.status;
  json["reason"] = s.reason;
  json["seconds"] = s.seconds;
  json["version"] = s.version;
  json["script"] = s.scriptSum;
  json["row"] = s.rowSum;
  json["inputs"] = Json::array();
  for (const ReadFile& file : s.inputs) json["inputs"].push_back({{"name", file.name}, {"sum", file.sum}});
  json["figures"] = Json::parse(s.figures, nullptr, false);
  if (json["figures"].is_discarded()) json["figures"] = nullptr;
  TextWriter file(JoinPath(folder, kFile));
  file.Put(json.dump(1, ' ', false, Json::error_handler_t::replace) + "\n");
  return file.Close() ? "" : file.Reason();
}

bool ReadStatus(const std::string& folder, SiteStatus& s) {
  const std::string path = JoinPath(folder, kFile);
  const auto sum = SumOfFile(path);
  if (!sum || static_cast<std::uintmax_t>(sum->bytes) > kLargestStatus) return false;
  std::ifstream in(path, std::ios::binary);
  const Json json = Json::parse(in, nullptr, false);
  if (!json.is_object()) return false;
  try {
    s.status = json.at("status").get<int>();
    s.reason = json.at("reason").get<std::string>();
    s.seconds = json.at("seconds").get<double>();
    s.version = json.at("version").get<std::string>();
    s.scriptSum = json.at("script").get<std::string>();
    s.rowSum = json.at("row").get<std::string>();
    for (const Json& file : json.at("inputs"))
      s.inputs.push_back({file.at("name").get<std::string>(), file.at("sum").get<std::string>()});
    s.figures = json.at("figures").dump();
    return true;
  } catch (const Json::exception&) {
    return false;
  }
}

std::vector<ReadFile> InputsOfLog(const std::string& log) {
  constexpr std::string_view kComment = "# file ";
  std::vector<ReadFile> files;
  std::ifstream in(log, std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    const std::size_t bytes = line.rfind(" bytes ");
    if (!line.starts_with(kComment) || bytes == std::string::npos || bytes < kComment.size()) continue;
    std::string name = line.substr(kComment.size(), bytes - kComment.size());
    if (name.size() > 1 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
    files.push_back({std::move(name), line.substr(bytes + 1)});
  }
  return files;
}

bool InputsAreUnchanged(const std::string& folder, const std::vector<ReadFile>& inputs) {
  return std::all_of(inputs.begin(), inputs.end(), [&](const ReadFile& file) {
    const auto sum = SumOfFile(JoinUnlessAbsolute(folder, file.name));
    return sum && SumText(*sum) == file.sum;
  });
}

std::string SummaryHead() {
  return "site,status,reason,pairs,points,RMS [m/s],iterations,longest wavelength [m],seen to [m],Vs30 [m/s],"
         "Vs30 low [m/s],Vs30 high [m/s],classes,seconds";
}

std::string SummaryRow(const Site& site, const SiteStatus& s) {
  if (s.status < 0) return site.name + ",,not run,,,,,,,,,,,";
  const Json figures = Json::parse(s.figures, nullptr, false);
  std::string row = site.name + "," + std::to_string(s.status) + "," + Cell(s.reason);
  for (const char* key : {"pairs", "points", "rms", "iterations", "longest_wavelength", "seen_to", "vs30",
                          "vs30_low", "vs30_high", "classes"})
    row += "," + Figure(figures, key);
  return row + "," + script::TextOf(s.seconds);
}

}  // namespace sondera::batch
