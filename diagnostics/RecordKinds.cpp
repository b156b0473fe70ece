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

#include <InputLimits.h>
#include <XmlReaderError.h>

#include <QFile>

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

} // namespace

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
