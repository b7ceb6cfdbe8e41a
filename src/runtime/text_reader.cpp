// text_reader.cpp - see text_reader.h.
#include "runtime/text_reader.h"

#include <algorithm>
#include <cstring>

namespace sondera {

bool TextReader::Open(const std::string& path, std::string* reason) {
  cut_ = ended_ = false;
  linesRead_ = 0;
  return source_.Open(path, reason);
}

void TextReader::OpenMemory(std::string_view text) {
  cut_ = ended_ = false;
  linesRead_ = 0;
  source_.OpenMemory(text.data(), text.size());
}

void TextReader::Close() {
  source_.Close();
  cut_ = ended_ = false;
  linesRead_ = 0;
}

void TextReader::Rewind() {
  cut_ = ended_ = false;
  linesRead_ = 0;
  source_.Rewind();
}

bool TextReader::ReadLine(std::string& line, std::size_t maxBytes) {
  line.clear();
  bool heldCR = false;  // a CR is only written once the next byte is known not to be LF
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
    const std::string_view piece = window.substr(0, maxBytes - line.size());
    const std::size_t stop = piece.find('\n');
    const bool ended = stop != std::string_view::npos;
    std::string_view body = piece.substr(0, stop);
    const bool endsInCR = !body.empty() && body.back() == '\r';
    if (endsInCR) body.remove_suffix(1);
    line += body;
    source_.Consume(ended ? stop + 1 : piece.size());
    if (ended) {
      line += '\n';
      return true;
    }
    heldCR = endsInCR;
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
  ended_ = ended;
  if (any) ++linesRead_;
  return any;
}

Tokenizer::Tokenizer(std::string_view text, std::string_view delimiters)
    : rest_(text.substr(0, text.find('\0'))), delimiters_(delimiters) {}

std::optional<std::string_view> Tokenizer::Next(const ByteSet& delimiters) {
  std::size_t begin = 0;
  while (begin < rest_.size() && delimiters.Has(rest_[begin])) ++begin;
  if (begin == rest_.size()) {
    rest_ = {};
    return std::nullopt;
  }
  std::size_t end = begin + 1;
  while (end < rest_.size() && !delimiters.Has(rest_[end])) ++end;
  const std::string_view token = rest_.substr(begin, end - begin);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  return token;
}

}  // namespace sondera
