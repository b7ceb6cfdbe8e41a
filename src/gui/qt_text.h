// qt_text.h - texts of the store as texts of Qt and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace sondera {

/// Bytes as UTF-8; invalid bytes appear as Latin-1 (ids of old files).
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);
/// The longest beginning of at most `bytes` bytes of UTF-8 that ends at a character.
QString CutToBytes(const QString& text, int bytes);

}  // namespace sondera
