#include "platform/code_page.h"

#include <QList>

#include <array>

namespace quillon {

namespace {

// The characters of bytes 0x80 to 0x9F; 0 where the code page leaves a byte
// undefined, which then reads as the control character of its own value.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,       // 88-8F
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,  // 98-9F
};

constexpr unsigned char kFirstHigh = 0x80;
constexpr unsigned char kLastHigh = 0x9F;

char16_t CharacterOf(unsigned char byte) {
    if (byte >= kFirstHigh && byte <= kLastHigh && kHighControls[byte - kFirstHigh] != 0) {
        return kHighControls[byte - kFirstHigh];
    }
    return byte;
}

char ByteOf(char32_t character) {
    for (unsigned char byte = kFirstHigh; byte <= kLastHigh; ++byte) {
        if (CharacterOf(byte) == character) {
            return static_cast<char>(byte);
        }
    }
    const bool latin1 = character <= 0xFF && (character < kFirstHigh || character > kLastHigh);
    return latin1 ? static_cast<char>(character) : '?';
}

}  // namespace

QString FromCodePage(const QByteArray& bytes) {
    QString text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        text.append(QChar(CharacterOf(static_cast<unsigned char>(byte))));
    }
    return text;
}

QByteArray ToCodePage(const QString& text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    // By code point, so that a character beyond the 16-bit range is one "?".
    for (const char32_t character : text.toUcs4()) {
        bytes.append(ByteOf(character));
    }
    return bytes;
}

}  // namespace quillon
