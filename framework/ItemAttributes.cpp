#include "ItemAttributes.h"

#include "ElementNames.h"
#include "NumberText.h"

namespace KELMORA {
namespace ItemAttributes {

QString ReadVersion(const QXmlStreamReader& reader) {
    return reader.attributes().value(ElementNames::Version).toString();
}

void WriteVersion(QXmlStreamWriter& writer, const QString& version) {
    writer.writeAttribute(ElementNames::Version, version);
}

void ReadItem(const QXmlStreamReader& reader, QString& version, int& index, QString& itemName) {
    const QXmlStreamAttributes attributes = reader.attributes();
    // Items mostly carry the version they were made with: keeping the text
    // they hold saves a string per item.
    const QStringRef readVersion = attributes.value(ElementNames::Version);
    if (version.isEmpty() || readVersion != version)
        version = readVersion.toString();
    if (attributes.hasAttribute(ElementNames::Index))
        index = NumberText::ToInt(attributes.value(ElementNames::Index));
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
