// site_texts.h - texts of a report beside the numbers: title, site, client and similar, free texts in a small
// file beside the project. No state.
#pragma once

#include <string>

#include "runtime/refusal.h"

namespace sondera {

/// Each may be empty; then the report leaves it out.
struct SiteTexts {
  std::string title, site, client, operatorName, date;
};

/// "<project without .da>.report.txt"; "" for a project without a file.
std::string SiteTextsFile(const std::string& projectFile);

/// Lines "name: text", the names as in the file of WriteSiteTexts, in any order and either case; other lines do not count.
/// A text of more than 200 bytes is cut. Without a file all texts are empty.
SiteTexts ReadSiteTexts(const std::string& projectFile);

/// Writes the file; it replaces the old one only when complete. Line ends within a text become spaces.
Refusal WriteSiteTexts(const std::string& projectFile, const SiteTexts& texts);

}  // namespace sondera
