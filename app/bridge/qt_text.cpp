#include "app/bridge/qt_text.h"

#include "foundation/text.h"

#include <QByteArray>
#include <QStringDecoder>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>

namespace tarvolt {

namespace {

constexpr std::size_t surrogateLength = 3;

bool isTail(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The surrogate whose three bytes stand at `position`, if any do.
std::optional<char16_t> surrogateAt(std::string_view bytes, std::size_t position) {
    if (bytes.size() - position < surrogateLength) {
        return std::nullopt;
    }
    const auto second = static_cast<unsigned char>(bytes[position + 1]);
    if (bytes[position] != '\xED' || second < 0xA0U || !isTail(bytes[position + 1]) || !isTail(bytes[position + 2])) {
        return std::nullopt;
    }
    const auto third = static_cast<unsigned char>(bytes[position + 2]);
    return static_cast<char16_t>(0xD000U | (second & 0x3FU) << 6U | (third & 0x3FU));
}

void appendSurrogate(std::string& bytes, char16_t unit) {
    bytes += '\xED';
    bytes += static_cast<char>(0x80U | (unit >> 6U & 0x3FU));
    bytes += static_cast<char>(0x80U | (unit & 0x3FU));
}

/// As long as `text`, unit by unit.
QString onOneLine(QString text) {
    std::replace_if(
        text.begin(), text.end(),
        [](QChar unit) {
            return unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
                   unit == QChar::ParagraphSeparator;
        },
        QChar(u' '));
    return text;
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

std::string typedBytes(const QString& text) {
    std::string bytes;
    qsizetype copied = 0;
    for (qsizetype position = 0; position < text.size(); ++position) {
        if (!text.at(position).isSurrogate()) {
            continue;
        }
        const bool pair =
            text.at(position).isHighSurrogate() && position + 1 < text.size() && text.at(position + 1).isLowSurrogate();
        if (pair) {
            ++position;
            continue;
        }
        bytes += QStringView(text).mid(copied, position - copied).toUtf8().toStdString();
        appendSurrogate(bytes, text.at(position).unicode());
        copied = position + 1;
    }
    return bytes + QStringView(text).mid(copied).toUtf8().toStdString();
}

QString editableString(std::string_view bytes) {
    QString text;
    std::size_t copied = 0;
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        if (const auto surrogate = surrogateAt(bytes, position)) {
            text += displayString(bytes.substr(copied, position - copied));
            text += QChar(*surrogate);
            copied = position + surrogateLength;
            position = copied - 1;
        }
    }
    return text + displayString(bytes.substr(copied));
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
