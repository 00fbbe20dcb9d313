#include "app/bridge/qt_text.h"

#include "foundation/text.h"

#include <QByteArray>
#include <QStringDecoder>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace tarvolt {

namespace {

/// `text` with each line break or other control replaced by one blank.
QString onOneLine(QString text) {
    const auto breaksTheLine = [](QChar unit) {
        return unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
               unit == QChar::ParagraphSeparator;
    };
    std::ranges::replace_if(text, breaksTheLine, QChar(u' '));
    return text;
}

// A surrogate without its partner is kept as three bytes that are not UTF-8, so that nothing takes it for another
// character later.

constexpr std::size_t surrogateLength = 3;

bool beginsWithSurrogate(std::string_view bytes) {
    return bytes.size() >= surrogateLength && bytes[0] == '\xED' && (bytes[1] & 0xE0) == 0xA0 &&
           (bytes[2] & 0xC0) == 0x80;
}

std::string surrogateBytes(char16_t unit) {
    return {'\xED', static_cast<char>(0x80U | (unit >> 6U & 0x3FU)), static_cast<char>(0x80U | (unit & 0x3FU))};
}

std::string typedBytes(const QString& text) {
    std::string bytes;
    for (qsizetype at = 0, length = 0; at < text.size(); at += length) {
        const QChar unit = text.at(at);
        const bool pair = unit.isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
        length = pair ? 2 : 1;
        bytes += unit.isSurrogate() && !pair ? surrogateBytes(unit.unicode())
                                             : QStringView(text).sliced(at, length).toUtf8().toStdString();
    }
    return bytes;
}

/// The reverse of `typedBytes`, with U+FFFD for anything else that is not UTF-8.
QString editableString(std::string_view bytes) {
    QString text;
    std::size_t copied = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (beginsWithSurrogate(bytes.substr(at))) {
            const auto lowBits = [&](std::size_t index) { return static_cast<unsigned char>(bytes[index]) & 0x3FU; };
            const auto unit = 0xD000U | lowBits(at + 1) << 6U | lowBits(at + 2);
            text += displayString(bytes.substr(copied, at - copied));
            text += QChar(static_cast<char16_t>(unit));
            copied = at + surrogateLength;
            at = copied - 1;
        }
    }
    return text + displayString(bytes.substr(copied));
}

} // namespace

QString displayString(std::string_view bytes) {
    // The toolkit's plain conversion would drop a byte-order mark at the start, which a name may well have.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArray::fromStdString(displayText(bytes)));
}

QString singleLineString(std::string_view bytes) {
    return onOneLine(displayString(bytes));
}

QString fieldString(std::string_view bytes) {
    return onOneLine(editableString(bytes));
}

std::string editedBytes(std::string_view bytes, const QString& typed) {
    const QString before = editableString(bytes);
    const QString shown = onOneLine(before);
    const auto differing = std::mismatch(shown.begin(), shown.end(), typed.begin(), typed.end());
    const auto head = differing.first - shown.begin();
    const auto last = std::mismatch(shown.rbegin(), std::make_reverse_iterator(differing.first), typed.rbegin(),
                                    std::make_reverse_iterator(differing.second));
    const auto tail = last.first - shown.rbegin();
    return typedBytes(before.first(head) + typed.sliced(head, typed.size() - head - tail) + before.last(tail));
}

} // namespace tarvolt
