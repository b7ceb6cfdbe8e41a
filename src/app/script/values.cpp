// values.cpp - see values.h.
#include "app/script/values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>

namespace sondera::script {
namespace {

template <class T>
std::optional<T> WholeTextOf(std::string_view text) {
  if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
  T value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// How often each letter stands in a name; upper and lower case count as one letter, and so do a few others.
constexpr std::size_t kLetters = 32;
using Letters = std::array<int, kLetters>;
Letters LettersOf(std::string_view name) {
  Letters letters{};
  for (const char c : name) ++letters[static_cast<unsigned char>(c) % kLetters];
  return letters;
}

/// A distance that two names have at least.
std::size_t LeastDistance(const Letters& a, const Letters& b) {
  int more = 0, fewer = 0;
  for (std::size_t i = 0; i < kLetters; ++i) {
    more += std::max(a[i] - b[i], 0);
    fewer += std::max(b[i] - a[i], 0);
  }
  return static_cast<std::size_t>(std::max(more, fewer));
}

/// Number of letters to insert, remove or change to get from one name to the other.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({above + 1, row[j - 1] + 1, diagonal + (Lower(a[i - 1]) == Lower(b[j - 1]) ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

constexpr std::size_t kLongestName = 100;  // longer than any name; keeps the comparison short

}  // namespace

std::optional<double> NumberOf(std::string_view text) {
  const auto value = WholeTextOf<double>(text);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> WholeOf(std::string_view text) {
  return WholeTextOf<int>(text);
}

std::vector<std::string> ItemsOf(std::string_view text) {
  std::vector<std::string> items;
  for (std::size_t from = 0;;) {
    const std::size_t comma = text.find(',', from);
    items.emplace_back(text.substr(from, comma == std::string_view::npos ? comma : comma - from));
    if (comma == std::string_view::npos) return items;
    from = comma + 1;
  }
}

std::string TextOf(double number) {
  char text[64];
  const auto [end, error] = std::to_chars(text, text + sizeof text, number);
  return error == std::errc{} ? std::string(text, end) : std::string();
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

std::string MarkdownCell(std::string_view text) {
  std::string cell;
  for (const char c : text) {
    if (c == '|') cell += '\\';
    cell += c;
  }
  return cell;
}

std::string NearestOf(std::string_view name, const std::vector<std::string>& candidates) {
  if (name.empty() || name.size() > kLongestName) return {};
  std::size_t least = std::max<std::size_t>(2, name.size() / 3) + 1;
  std::string nearest;
  const Letters letters = LettersOf(name);
  for (const std::string& candidate : candidates) {
    const std::size_t longer = std::max(name.size(), candidate.size());
    if (longer - std::min(name.size(), candidate.size()) >= least) continue;
    if (LeastDistance(letters, LettersOf(candidate)) >= least) continue;
    const std::size_t distance = Distance(name, candidate);
    if (distance >= least || distance >= candidate.size()) continue;
    least = distance;
    nearest = candidate;
  }
  return nearest;
}

std::string UnknownText(std::string_view what, std::string_view name,
                        const std::vector<std::string>& candidates) {
  std::string text = "unknown " + std::string(what) + " " + Quoted(name);
  const std::string nearest = NearestOf(name, candidates);
  if (!nearest.empty()) text += "; did you mean " + Quoted(nearest) + "?";
  return text;
}

}  // namespace sondera::script
