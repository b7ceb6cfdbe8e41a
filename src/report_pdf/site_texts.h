// site_texts.h - texts of a report beside the numbers: title, site, client and similar, free texts in a small
// file beside the project. No state.
#pragma once

#include <string>
#include <string_view>

#include "runtime/refusal.h"

namespace sondera {

/// Each may be empty; then the report leaves it out.
struct SiteTexts {
  std::string title, site, client, operatorName, date;
};

/// "<project without .da>.report.txt"; "" for a project without a file.
std::string SiteTextsFile(const std::string& projectFile);

/// Texts of the lines "name: text", the names as in SiteTextsLines, in any order and either case; of several lines of a
/// name the last one counts, and lines of other names do not. Each text becomes valid UTF-8, without spaces at its ends; one of
/// more than 200 bytes is cut.
SiteTexts SiteTextsIn(std::string_view bytes);

/// A line for each text, cleaned in the same way.
std::string SiteTextsLines(const SiteTexts& texts);

/// Texts of the file beside the project, from its first 100 000 bytes. Without a regular file all texts are empty.
SiteTexts ReadSiteTexts(const std::string& projectFile);

/// Writes the file; it replaces the old one only when complete. Line ends within a text become spaces.
Refusal WriteSiteTexts(const std::string& projectFile, const SiteTexts& texts);

}  // namespace sondera
