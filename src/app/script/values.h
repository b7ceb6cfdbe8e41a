// values.h - numbers, lists and near names in the words of a script. Owns no state.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sondera::script {

/// The whole text as a finite number in the C locale; nothing when it is none.
std::optional<double> NumberOf(std::string_view text);
/// The whole text as a whole number of 32 bits.
std::optional<int> WholeOf(std::string_view text);
/// Items between commas, empty ones included; one empty item for an empty text.
std::vector<std::string> ItemsOf(std::string_view text);

/// Shortest text that reads back as the same number.
std::string TextOf(double number);
/// Text in quotation marks, with those and backslashes inside escaped.
std::string Quoted(std::string_view text);

/// Of the candidates the one with the fewest changed letters, without regard to case; empty when none is
/// near.
std::string NearestOf(std::string_view name, const std::vector<std::string>& candidates);
/// `unknown WHAT "NAME"`, and `; did you mean "..."?` where a candidate is near.
std::string UnknownText(std::string_view what, std::string_view name,
                        const std::vector<std::string>& candidates);

}  // namespace sondera::script
