// SPDX-License-Identifier: MIT
#ifndef EXCITERSETTINGS_TESTS_TESTSUPPORT_H
#define EXCITERSETTINGS_TESTS_TESTSUPPORT_H

#include <IKMObject.h>
#include <KMException.h>

#include <QFile>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

// GoogleTest prints QStrings readably.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace testsupport {

// The message of the KMException that the call throws, or a null string
// when it throws none.
inline QString Outcome(const std::function<void()>& call) {
    try {
        call();
    } catch (const KELMORA::KMException& failure) {
        return failure.GetMessage().isNull() ? QString("") : failure.GetMessage();
    }
    return QString();
}

// The same; fails the test when nothing is thrown.
inline QString ThrownMessage(const std::function<void()>& call) {
    QString message = Outcome(call);
    if (message.isNull())
        ADD_FAILURE() << "expected a KMException";
    return message;
}

inline QString CheckMessage(const KELMORA::IKMObject& record) {
    return ThrownMessage([&] { record.Check(); });
}

// What GetXml writes, without a document declaration and without indentation.
inline QString WrittenXml(const KELMORA::IKMObject& record) {
    QString text;
    QXmlStreamWriter writer(&text);
    record.GetXml(writer);
    return text;
}

// A fresh record read from the given element text.
template <class Record> Record ReadFrom(const QString& xml) {
    Record record;
    record.SetXmlString(xml);
    return record;
}

// The bytes of a file, or a marker when it cannot be read.
inline QByteArray FileContents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

// The values' little-endian IEEE 754 bytes, as a Base64 list carries them.
inline QByteArray LittleEndianBytes(const QVector<double>& values) {
    QByteArray bytes(values.size() * 8, Qt::Uninitialized);
    for (int i = 0; i < values.size(); ++i) {
        quint64 bits = 0;
        std::memcpy(&bits, &values[i], sizeof bits);
        qToLittleEndian<quint64>(bits, bytes.data() + 8 * static_cast<ptrdiff_t>(i));
    }
    return bytes;
}

// Writes the bytes to the file, replacing what it held.
inline void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

// "A B C" as a list, for expected element orders.
inline QStringList Words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

// An enumeration's texts in value order: each converts to its position and
// back, and anything else (its lower case, the empty text, values outside
// the table) misses.
template <class Record, class E>
void ExpectEnumTexts(const char* texts, QString (Record::*toText)(E) const,
                     E (Record::*toValue)(const QString&) const) {
    const Record record;
    const QStringList words = Words(texts);
    for (int value = 0; value < words.size(); ++value) {
        EXPECT_EQ((record.*toText)(static_cast<E>(value)), words[value]);
        EXPECT_EQ((record.*toValue)(words[value]), value);
        EXPECT_EQ((record.*toValue)(words[value].toLower()), -1) << words[value].toStdString();
    }
    EXPECT_TRUE((record.*toText)(static_cast<E>(words.size())).isEmpty()) << texts;
    EXPECT_TRUE((record.*toText)(static_cast<E>(-1)).isEmpty()) << texts;
    EXPECT_EQ((record.*toValue)(QString()), -1);
}

} // namespace testsupport

#endif
