// text_reader.cpp - see text_reader.h.
#include "runtime/text_reader.h"

#include <algorithm>
#include <cstring>

namespace sondera {

bool TextReader::Open(const std::string& path, std::string* reason) {
  cut_ = false;
  return source_.Open(path, reason);
}

void TextReader::OpenMemory(std::string_view text) {
  cut_ = false;
  source_.OpenMemory(text.data(), text.size());
}

void TextReader::Close() {
  source_.Close();
  cut_ = false;
}

void TextReader::Rewind() {
  cut_ = false;
  source_.Rewind();
}

bool TextReader::ReadLine(std::string& line, std::size_t maxBytes) {
  line.clear();
  bool heldCR = false;  // a CR is only written once the byte behind it is known not to be LF
  while (line.size() < maxBytes) {
    const std::string_view window = source_.Window();
    if (window.empty()) {
      if (heldCR) line += '\r';
      break;
    }
    if (heldCR) {
      heldCR = false;
      if (window.front() != '\n') {
        line += '\r';
        continue;
      }
    }
    const std::size_t room = std::min(window.size(), maxBytes - line.size());
    const std::string_view piece = window.substr(0, room);
    const std::size_t stop = piece.find_first_of("\r\n");
    if (stop == std::string_view::npos) {
      line += piece;
      source_.Consume(piece.size());
      continue;
    }
    line += piece.substr(0, stop);
    heldCR = piece[stop] == '\r';
    source_.Consume(stop + 1);
    if (!heldCR) {
      line += '\n';
      return true;
    }
  }
  return !line.empty();
}

bool TextReader::ReadPhysicalLine(std::string& line, std::size_t maxBytes) {
  line.clear();
  cut_ = false;
  bool ended = false, any = false;
  while (!ended) {
    const std::string_view window = source_.Window();
    if (window.empty()) break;
    any = true;
    const std::size_t stop = window.find('\n');
    ended = stop != std::string_view::npos;
    const std::string_view piece = window.substr(0, stop);
    // One byte more than the bound is kept until the line's end is seen: it may be the CR of CR LF.
    const std::size_t room = maxBytes - std::min(maxBytes, line.size()) + (line.size() <= maxBytes ? 1 : 0);
    line += piece.substr(0, room);
    if (piece.size() > room) cut_ = true;
    source_.Consume(piece.size() + (ended ? 1 : 0));
  }
  if (ended && !cut_ && !line.empty() && line.back() == '\r') line.pop_back();
  if (line.size() > maxBytes) {
    cut_ = true;
    line.resize(maxBytes);
  }
  return any;
}

Tokenizer::Tokenizer(std::string_view text, std::string_view delimiters)
    : rest_(text.substr(0, text.find('\0'))), delimiters_(delimiters) {}

std::optional<std::string_view> Tokenizer::Next(std::string_view delimiters) {
  const std::size_t begin = rest_.find_first_not_of(delimiters);
  if (begin == std::string_view::npos) {
    rest_ = {};
    return std::nullopt;
  }
  const std::size_t end = std::min(rest_.find_first_of(delimiters, begin), rest_.size());
  const std::string_view token = rest_.substr(begin, end - begin);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  return token;
}

}  // namespace sondera
