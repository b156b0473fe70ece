#include "ItemAttributes.h"

#include "ElementNames.h"
#include "RecordFormat.h"

namespace KELMORA {
namespace ItemAttributes {

QString ReadVersion(const QXmlStreamReader& reader) {
    return reader.attributes().value(ElementNames::Version).toString();
}

void WriteVersion(QXmlStreamWriter& writer, const QString& version) {
    writer.writeAttribute(ElementNames::Version, version);
}

void ReadItem(const IKMObject& record, const QXmlStreamReader& reader, QString& version, int& index,
              QString& itemName) {
    const QXmlStreamAttributes attributes = reader.attributes();
    version = attributes.value(ElementNames::Version).toString();
    if (attributes.hasAttribute(ElementNames::Index)) {
        const int read = RecordFormat::ToInt(attributes.value(ElementNames::Index).toString());
        if (record.IsValid(read))
            index = read;
    }
    if (attributes.hasAttribute(ElementNames::Name))
        itemName = attributes.value(ElementNames::Name).toString();
}

void WriteItem(const IKMObject& record, QXmlStreamWriter& writer, const QString& version, int index,
               const QString& itemName) {
    WriteVersion(writer, version);
    if (record.IsValid(index))
        writer.writeAttribute(ElementNames::Index, QString::number(index, 10));
    if (!itemName.isEmpty())
        writer.writeAttribute(ElementNames::Name, itemName);
}

} // namespace ItemAttributes
} // namespace KELMORA
