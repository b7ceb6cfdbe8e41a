// qt_text.cpp - see qt_text.h.
#include "gui/qt_text.h"

#include <QByteArray>
#include <QStringDecoder>

namespace sondera {

QString ToQt(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  QStringDecoder utf8(QStringDecoder::Utf8);
  const QString decoded = utf8(bytes);
  return utf8.hasError() ? QString::fromLatin1(bytes) : decoded;
}

std::string FromQt(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QString CutToBytes(const QString& text, int bytes) {
  QString cut = text;
  while (cut.toUtf8().size() > bytes) {
    const bool pair = cut.size() > 1 && cut.back().isLowSurrogate();
    cut.chop(pair ? 2 : 1);
  }
  return cut;
}

}  // namespace sondera
