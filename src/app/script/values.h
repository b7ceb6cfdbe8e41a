// values.h - numbers, lists and similar names in the words of a script. Owns no state.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sondera::script {

/// The whole text as a finite number in the C locale; no value when it is not one.
std::optional<double> NumberOf(std::string_view text);
/// The whole text as an integer of 32 bits.
std::optional<int> WholeOf(std::string_view text);
/// Items between commas, empty ones included; one empty item for an empty text.
std::vector<std::string> ItemsOf(std::string_view text);

/// Shortest text that gives the same number when read.
std::string TextOf(double number);
/// Text in quotation marks, with those and backslashes inside escaped.
std::string Quoted(std::string_view text);
/// Text as a cell of a Markdown table, whose bars are escaped.
std::string MarkdownCell(std::string_view text);

/// The candidate with the fewest changed letters, without regard to case; empty when none is similar.
std::string NearestOf(std::string_view name, const std::vector<std::string>& candidates);
/// `unknown WHAT "NAME"`, and `; did you mean "..."?` where a candidate is similar.
std::string UnknownText(std::string_view what, std::string_view name,
                        const std::vector<std::string>& candidates);

}  // namespace sondera::script
