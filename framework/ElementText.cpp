// SPDX-License-Identifier: MIT
#include "ElementText.h"

#include "DoubleListCodec.h"
#include "NumberText.h"
#include "RecordFormat.h"

#include <ReadObserver.h>
#include <XmlReaderError.h>

#include <cstring>

namespace KELMORA {
namespace ElementText {

namespace {

// The element loop of IKMObject::GetTextValue, from the token the reader is
// on, adding what is left of the element's text to `text`.
QString CollectRest(QXmlStreamReader& reader, QString text, QXmlStreamReader::TokenType token) {
    for (;; token = reader.readNext()) {
        switch (token) {
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference:
            text += reader.text();
            break;
        case QXmlStreamReader::EndElement:
            return text;
        case QXmlStreamReader::StartElement:
            if (ReadObserver* observer = ReadObserver::Current())
                observer->ElementInValue(reader);
            reader.skipCurrentElement();
            break;
        default:
            // A text that breaks off is no value: nothing of it is stored.
            if (reader.hasError())
                throw XmlReaderError(reader);
            break;
        }
    }
}

// Texts up to this length are kept on the stack while the reader looks
// whether more follows; number texts are far shorter, a raster's list of
// 64 frequencies is 684 characters.
constexpr int kKeptCharacters = 1024;

// Tells an observer of the reading which text a record took.
void Report(const QString& text) {
    if (ReadObserver* observer = ReadObserver::Current())
        observer->ValueRead(text);
}

// Converts the element's text with `fromPiece` when it is one piece directly
// followed by the end element, and with `convertText` otherwise.

template <typename FromPiece, typename FromText>
auto Convert(QXmlStreamReader& reader, FromPiece fromPiece, FromText convertText) {
    const auto fromText = [&convertText](const QString& text) {
        Report(text);
        return convertText(text);
    };
    if (!reader.isStartElement())
        return fromText(QString());
    QXmlStreamReader::TokenType token = reader.readNext();
    if (token != QXmlStreamReader::Characters)
        return fromText(CollectRest(reader, QString(), token));
    const QStringView piece = reader.text();
    const int size = static_cast<int>(piece.size());
    if (size > kKeptCharacters) {
        const QString text = piece.toString();
        return fromText(CollectRest(reader, text, reader.readNext()));
    }
    // Converted now, while the reader still holds the piece, and kept in
    // case more text follows it.
    char16_t kept[kKeptCharacters];
    std::memcpy(kept, piece.data(), static_cast<size_t>(size) * sizeof(char16_t));
    const auto value = fromPiece(piece);
    token = reader.readNext();
    if (token == QXmlStreamReader::EndElement) {
        if (ReadObserver::Current())
            Report(QString(reinterpret_cast<const QChar*>(kept), size));
        return value;
    }
    return fromText(
        CollectRest(reader, QString(reinterpret_cast<const QChar*>(kept), size), token));
}

} // namespace

double ToDouble(QXmlStreamReader& reader) {
    return Convert(
        reader, [](QStringView text) { return NumberText::ToDouble(text); },
        [](const QString& text) { return RecordFormat::ToDouble(text); });
}

unsigned int ToUnsigned(QXmlStreamReader& reader) {
    return Convert(
        reader, [](QStringView text) { return NumberText::ToUnsigned(text); },
        [](const QString& text) { return RecordFormat::ToUnsigned(text); });
}

bool IsTrue(QXmlStreamReader& reader) {
    return Convert(
        reader, [](QStringView text) { return text == QLatin1String("true"); },
        [](const QString& text) { return RecordFormat::IsTrue(text); });
}

QVector<double> ToDoubleList(QXmlStreamReader& reader) {
    return Convert(
        reader,
        [](QStringView text) {
            return DoubleListCodec::Decode(text.data(), static_cast<int>(text.size()));
        },
        [](const QString& text) { return DoubleListCodec::Decode(text); });
}

} // namespace ElementText
} // namespace KELMORA
