// SPDX-License-Identifier: MIT
#include "RecordKinds.h"

#include <ATTANTPath.h>
#include <Exciter_Settings.h>
#include <SCU.h>
#include <TGN.h>
#include <WDE.h>
#include <WDE_Exciter.h>
#include <WDE_Rasterdetector.h>
#include <WDE_Simulation.h>
#include <WDE_Singlechanneldetector.h>

#include <DoubleListCodec.h>
#include <InputLimits.h>
#include <ReadObserver.h>
#include <ValueNotes.h>
#include <XmlReaderError.h>

#include <QFile>
#include <QHash>

#include <functional>
#include <vector>

namespace KELMORA {

namespace {

using Factory = std::function<std::unique_ptr<IKMObject>()>;

template <class Record> Factory Make() {
    return [] { return std::unique_ptr<IKMObject>(std::make_unique<Record>()); };
}

const std::vector<Factory>& Factories() {
    static const std::vector<Factory> factories = {
        Make<Exciter_Settings>(),
        Make<TGN>(),
        Make<SCU>(),
        Make<ATTANTPath>(),
        Make<WDE>(),
        Make<WDE_Exciter>(),
        Make<WDE_Rasterdetector>(),
        Make<WDE_Simulation>(),
        Make<WDE_Singlechanneldetector>(),
    };
    return factories;
}

QString FirstElementName(QXmlStreamReader& reader) {
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            return reader.name().toString();
    }
    return QString();
}

// Hides the reads below from the observer of the caller's read.
class Unobserved : public ReadObserver {
public:
    void RecordEntered(const IKMObject& /*record*/, const QXmlStreamReader& /*reader*/) override {}
    void ChildStarted(const IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                      qint64 /*line*/, qint64 /*column*/) override {}
    void ChildEnded(const IKMObject& /*record*/, const QXmlStreamReader& /*reader*/,
                    bool /*passedOver*/) override {}
    void ValueRead(const QString& /*text*/) override {}
};

// The lists of records that a record of the kind holds, by list element:
// the item element. A fresh record reads a fresh record of each other kind
// as a child; one that it writes back inside an element of its own is an
// item of that list. Kinds that it refuses or passes over hold no list.
QHash<QString, QString> LearnLists(const Factory& createRecord) {
    QHash<QString, QString> lists;
    const QString empty = createRecord()->GetXmlString();
    const int close = empty.lastIndexOf(QStringLiteral("</"));
    if (close < 0)
        return lists;
    for (const Factory& create : Factories()) {
        const std::unique_ptr<IKMObject> item = create();
        const QString xml = item->GetXmlString();
        const int start = xml.indexOf(QLatin1Char('<') + item->GetObjectName());
        const std::unique_ptr<IKMObject> reader = createRecord();
        if (item->GetObjectName() == reader->GetObjectName() || start < 0)
            continue;
        reader->SetValidate(false);
        try {
            reader->SetXmlString(QString(empty).insert(close, xml.mid(start)));
        } catch (const KelmoraException&) {
            continue;
        }
        QXmlStreamReader written(reader->GetXmlString());
        QStringList open;
        while (!written.atEnd()) {
            const QXmlStreamReader::TokenType token = written.readNext();
            if (token == QXmlStreamReader::EndElement)
                open.removeLast();
            if (token != QXmlStreamReader::StartElement)
                continue;
            open.append(written.name().toString());
            if (open.size() == 3 && open.last() == item->GetObjectName())
                lists.insert(open.at(1), open.last());
        }
    }
    return lists;
}

} // namespace

QString RecordKinds::ItemName(const QString& recordName, const QString& listName) {
    static const QHash<QString, QHash<QString, QString>> learned = [] {
        Unobserved unobserved;
        const ReadObserver::Scope hidden(unobserved);
        QHash<QString, QHash<QString, QString>> lists;
        for (const Factory& create : Factories())
            lists.insert(create()->GetObjectName(), LearnLists(create));
        return lists;
    }();
    return learned.value(recordName).value(listName);
}

QString RecordKinds::ValueItemName(const QString& recordName, const QString& listName) {
    const ValueNotes::Note* note = ValueNotes::Find(recordName, listName);
    return note && note->kind == ValueNotes::Kind::ValueList ? *note->item : QString();
}

std::optional<QVector<double>>
RecordKinds::NumberList(const QString& recordName, const QString& element, const QString& text) {
    const ValueNotes::Note* note = ValueNotes::Find(recordName, element);
    if (!note || note->kind != ValueNotes::Kind::DoubleList)
        return std::nullopt;
    return DoubleListCodec::Decode(text);
}

std::optional<QString> RecordKinds::NumberListText(const QString& recordName,
                                                   const QString& element,
                                                   const QVector<double>& numbers) {
    const ValueNotes::Note* note = ValueNotes::Find(recordName, element);
    if (!note || note->kind != ValueNotes::Kind::DoubleList)
        return std::nullopt;
    return DoubleListCodec::Encode(numbers);
}

std::unique_ptr<IKMObject> RecordKinds::Create(const QString& rootName) {
    for (const Factory& create : Factories()) {
        std::unique_ptr<IKMObject> record = create();
        if (record->GetObjectName() == rootName)
            return record;
    }
    return nullptr;
}

QStringList RecordKinds::RootNames() {
    QStringList names;
    for (const Factory& create : Factories())
        names.append(create()->GetObjectName());
    names.sort();
    return names;
}

QString RecordKinds::RootNameOfXmlString(const QString& xml) {
    // Fed in pieces: given the whole text, the reader would first convert
    // all of it.
    constexpr int kPiece = 1 << 16;
    QXmlStreamReader reader;
    for (int from = 0; from < xml.size() || from == 0; from += kPiece) {
        reader.addData(xml.mid(from, kPiece));
        QString name = FirstElementName(reader);
        if (!name.isEmpty() || reader.error() != QXmlStreamReader::PrematureEndOfDocumentError)
            return name;
    }
    return QString();
}

QString RecordKinds::RootNameOfXmlFile(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        throw KMException(
            QStringLiteral("Cannot open '%1' for reading: %2").arg(fileName, file.errorString()));
    // Measured as a load measures it: a start tag of a million attributes
    // would otherwise take the reader minutes.
    LimitedDevice limited(file, InputLimits());
    QXmlStreamReader reader(&limited);
    QString name = FirstElementName(reader);
    if (limited.Failed())
        throw KMException(
            QStringLiteral("Input limit exceeded: %1").arg(limited.Scanner().Failure()));
    if (name.isEmpty() && reader.hasError() &&
        reader.error() != QXmlStreamReader::PrematureEndOfDocumentError)
        throw XmlReaderError(reader);
    return name;
}

} // namespace KELMORA
