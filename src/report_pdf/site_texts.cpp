// site_texts.cpp - see site_texts.h.
#include "report_pdf/site_texts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "runtime/atomic_writer.h"
#include "runtime/utf8.h"

namespace sondera {
namespace {

struct Field {
  const char* name;
  std::string SiteTexts::*text;
};
constexpr Field kFields[] = {{"title", &SiteTexts::title},
                             {"site", &SiteTexts::site},
                             {"client", &SiteTexts::client},
                             {"operator", &SiteTexts::operatorName},
                             {"date", &SiteTexts::date}};
constexpr std::size_t kMostBytes = 200, kMostFileBytes = 100000;

std::string Trimmed(std::string_view text) {
  const auto space = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!text.empty() && space(text.front())) text.remove_prefix(1);
  while (!text.empty() && space(text.back())) text.remove_suffix(1);
  return std::string(text);
}

/// Valid UTF-8 without spaces at its ends, at most kMostBytes, without an incomplete character at the end.
std::string Kept(std::string_view raw) {
  std::string text = Trimmed(ValidText(raw));
  if (text.size() <= kMostBytes) return text;
  std::size_t end = kMostBytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0u) == 0x80u) --end;
  text.resize(end);
  return Trimmed(text);
}

void TakeLine(std::string_view line, SiteTexts& texts) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return;
  std::string name = Trimmed(line.substr(0, colon));
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  for (const Field& field : kFields)
    if (name == field.name) texts.*field.text = Kept(line.substr(colon + 1));
}

}  // namespace

std::string SiteTextsFile(const std::string& projectFile) {
  if (projectFile.empty()) return {};
  const bool isProject = projectFile.ends_with(".da");
  return projectFile.substr(0, projectFile.size() - (isProject ? 3 : 0)) + ".report.txt";
}

SiteTexts SiteTextsIn(std::string_view bytes) {
  SiteTexts texts;
  while (!bytes.empty()) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    TakeLine(bytes.substr(0, end), texts);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return texts;
}

std::string SiteTextsLines(const SiteTexts& texts) {
  std::string lines;
  for (const Field& field : kFields) lines += std::string(field.name) + ": " + Kept(texts.*field.text) + "\n";
  return lines;
}

SiteTexts ReadSiteTexts(const std::string& projectFile) {
  const std::string name = SiteTextsFile(projectFile);
  std::error_code error;
  if (name.empty() || !std::filesystem::is_regular_file(name, error))
    return {};  // a pipe would keep us waiting
  std::ifstream in(name, std::ios::binary);
  std::string begin(kMostFileBytes, '\0');
  in.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  begin.resize(static_cast<std::size_t>(std::max<std::streamsize>(in.gcount(), 0)));
  return SiteTextsIn(begin);
}

Refusal WriteSiteTexts(const std::string& projectFile, const SiteTexts& texts) {
  const std::string name = SiteTextsFile(projectFile);
  if (name.empty()) return "The texts of the report are stored beside the project; save the project first.";
  TextWriter file(name);
  file.Put(SiteTextsLines(texts));
  if (file.Close()) return {};
  return file.Reason() + ".";
}

}  // namespace sondera
