#pragma once
// The single-byte code page the program's text files have always been written
// in (Windows-1252), on every platform: Latin-1 with printable characters in
// 0x80 to 0x9F, such as the euro sign and typographic quotes.

#include <QByteArray>
#include <QString>

namespace quillon {

QString FromCodePage(const QByteArray& bytes);
// Characters the code page has no byte for become "?".
QByteArray ToCodePage(const QString& text);

}  // namespace quillon
