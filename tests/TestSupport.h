#ifndef EXCITERSETTINGS_TESTS_TESTSUPPORT_H
#define EXCITERSETTINGS_TESTS_TESTSUPPORT_H

#include <IKMObject.h>
#include <KMException.h>

#include <QBuffer>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <gtest/gtest.h>

#include <functional>

// GoogleTest prints QStrings readably.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& text, std::ostream* os) {
    *os << '"' << text.toStdString() << '"';
}
QT_END_NAMESPACE

namespace testsupport {

// The message of the KMException that the call throws; fails the test when
// nothing is thrown.
inline QString ThrownMessage(const std::function<void()>& call) {
    try {
        call();
    } catch (const KELMORA::KMException& failure) {
        return failure.GetMessage();
    }
    ADD_FAILURE() << "expected a KMException";
    return QString();
}

// What GetXml writes, without a document declaration and without indentation.
inline QString WrittenXml(const KELMORA::IKMObject& record) {
    QString text;
    QXmlStreamWriter writer(&text);
    record.GetXml(writer);
    return text;
}

// Reads a record from the given element text (the record's own element).
inline void ReadElement(KELMORA::IKMObject& record, const QString& xml) {
    record.SetXmlString(xml);
}

// The names of the direct children of a written element, in order.
inline QStringList ChildNames(const QString& xml) {
    QStringList names;
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    while (reader.readNextStartElement()) {
        names.append(reader.name().toString());
        reader.skipCurrentElement();
    }
    return names;
}

} // namespace testsupport

#endif
