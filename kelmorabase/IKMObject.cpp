#include "IKMObject.h"

#include <QSaveFile>

#include <cmath>
#include <limits>

namespace KELMORA {

namespace {

const quint32 kFrameMagic = 0x4B4D4F42;           // "KMOB"
const quint32 kCompressedFrameMagic = 0x4B4D4F5A; // "KMOZ"
const quint16 kFrameFormatVersion = 1;
const QDataStream::Version kStreamVersion = QDataStream::Qt_5_15;

const int kInvalidInt = std::numeric_limits<int>::min();
const long long kInvalidLongLong = std::numeric_limits<long long>::min();

// Restores a counter when leaving a scope, also by an exception.
class NestingGuard {
public:
    explicit NestingGuard(int& counter) : m_counter(counter) { ++m_counter; }
    ~NestingGuard() { --m_counter; }
    NestingGuard(const NestingGuard&) = delete;
    NestingGuard& operator=(const NestingGuard&) = delete;

private:
    int& m_counter;
};

[[noreturn]] void ThrowReaderError(const QXmlStreamReader& reader) {
    throw KMException(QStringLiteral("XML error: %1 (line %2, column %3)")
                          .arg(reader.errorString(), QString::number(reader.lineNumber()),
                               QString::number(reader.columnNumber())));
}

void ThrowIfReaderFailed(const QXmlStreamReader& reader) {
    if (reader.hasError())
        ThrowReaderError(reader);
}

} // namespace

IKMObject::IKMObject()
    : m_objectType(OBJECT_TYPE_NONE), m_validate(false), m_logger(nullptr), m_processXmlNesting(0),
      m_failureLine(0) {}

IKMObject::IKMObject(ObjectTypes type)
    : m_objectType(type), m_validate(false), m_logger(nullptr), m_processXmlNesting(0),
      m_failureLine(0) {}

IKMObject::IKMObject(const IKMObject& other)
    : m_objectType(other.m_objectType), m_objectName(other.m_objectName),
      m_validate(other.m_validate), m_logger(other.m_logger), m_processXmlNesting(0),
      m_failureLine(0) {}

IKMObject& IKMObject::operator=(const IKMObject& other) {
    if (&other == this)
        return *this;
    m_objectType = other.m_objectType;
    m_objectName = other.m_objectName;
    m_validate = other.m_validate;
    m_logger = other.m_logger;
    return *this;
}

IKMObject::~IKMObject() = default;

bool IKMObject::HasData() const {
    return false;
}

void IKMObject::Reset() {}

bool IKMObject::Check(bool throwOnFailure) const {
    try {
        Check();
    } catch (const KMException&) {
        if (throwOnFailure)
            throw;
        return false;
    }
    return true;
}

void IKMObject::Check() const {}

bool IKMObject::IsValid(float value) const {
    return value != InvalidFloat;
}
bool IKMObject::IsValid(bool value) const {
    return value;
}
bool IKMObject::IsValid(unsigned int value) const {
    return value != InvalidUnsignedInt;
}
bool IKMObject::IsValid(long long value) const {
    return value != kInvalidLongLong;
}
bool IKMObject::IsValid(const QDateTime& value) const {
    return value.isValid();
}
bool IKMObject::IsValid(const QString& value) const {
    return !value.isEmpty();
}
bool IKMObject::IsValid(double value) const {
    return value != InvalidDouble;
}
bool IKMObject::IsValid(int value) const {
    return value != kInvalidInt;
}

void IKMObject::SetInvalid(float& value) const {
    value = InvalidFloat;
}
void IKMObject::SetInvalid(unsigned int& value) const {
    value = InvalidUnsignedInt;
}
void IKMObject::SetInvalid(long long& value) const {
    value = kInvalidLongLong;
}
void IKMObject::SetInvalid(QString& value) const {
    value.clear();
}
void IKMObject::SetInvalid(double& value) const {
    value = InvalidDouble;
}
void IKMObject::SetInvalid(int& value) const {
    value = kInvalidInt;
}

void IKMObject::GetXml(QXmlStreamWriter&) const {}

void IKMObject::GetBinary(QDataStream& out) const {
    out << GetXmlString().toUtf8();
}

void IKMObject::SetBinary(QDataStream& in) {
    QByteArray xml;
    in >> xml;
    if (in.status() != QDataStream::Ok)
        throw KMException(QStringLiteral("%1: binary payload is truncated").arg(GetObjectName()));
    SetXmlString(QString::fromUtf8(xml));
}

void IKMObject::SetXmlString(const QString& xml) {
    QXmlStreamReader reader(xml);
    ReadDocument(reader, m_validate);
}

void IKMObject::SetBinaryRepresentation(const QByteArray& data) {
    QDataStream in(data);
    SetBinaryRepresentation(in);
}

void IKMObject::SetBinaryRepresentation(QDataStream& in) {
    in.setVersion(kStreamVersion);
    quint32 magic = 0;
    in >> magic;
    if (magic == kFrameMagic) {
        ReadBinaryFrame(in);
        return;
    }
    if (magic == kCompressedFrameMagic) {
        QByteArray compressed;
        in >> compressed;
        const QByteArray frame = in.status() == QDataStream::Ok && !compressed.isEmpty()
                                     ? qUncompress(compressed)
                                     : QByteArray();
        QDataStream inner(frame);
        inner.setVersion(kStreamVersion);
        if (!frame.isEmpty())
            inner >> magic;
        if (frame.isEmpty() || magic != kFrameMagic)
            throw KMException(QStringLiteral("%1: compressed binary representation is corrupt")
                                  .arg(GetObjectName()));
        ReadBinaryFrame(inner);
        return;
    }
    throw KMException(
        QStringLiteral("%1: data is not a binary representation of a record").arg(GetObjectName()));
}

void IKMObject::ReadBinaryFrame(QDataStream& in) {
    quint16 formatVersion = 0;
    QString objectName;
    in >> formatVersion >> objectName;
    if (in.status() != QDataStream::Ok)
        throw KMException(
            QStringLiteral("%1: binary representation is truncated").arg(GetObjectName()));
    if (formatVersion != kFrameFormatVersion)
        throw KMException(QStringLiteral("%1: unsupported binary format version %2")
                              .arg(GetObjectName())
                              .arg(formatVersion));
    if (objectName != GetObjectName())
        throw KMException(QStringLiteral("%1: binary representation holds '%2'")
                              .arg(GetObjectName(), objectName));
    SetBinary(in);
}

void IKMObject::MergeKMObject(const IKMObject& other) {
    if (other.GetObjectName() != GetObjectName())
        throw KMException(
            QStringLiteral("%1: cannot merge '%2'").arg(GetObjectName(), other.GetObjectName()));
    if (&other == this)
        return;
    QXmlStreamReader reader(other.GetXmlString());
    if (!reader.readNextStartElement())
        return; // The other record writes nothing: there is nothing to merge.
    ProcessXml(reader);
    ThrowIfReaderFailed(reader);
}

ObjectTypes IKMObject::GetObjectType() const {
    return m_objectType;
}

QString IKMObject::GetObjectName() const {
    return m_objectName.isEmpty() ? GetObjectTypeName(m_objectType) : m_objectName;
}

void IKMObject::ProcessXml(QXmlStreamReader& reader) {
    if (m_processXmlNesting >= MaxProcessXmlNesting)
        throw KMException(QStringLiteral("%1: elements nested too deeply (line %2)")
                              .arg(GetObjectName())
                              .arg(reader.lineNumber()));
    NestingGuard guard(m_processXmlNesting);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        ThrowIfReaderFailed(reader);
        if (token == QXmlStreamReader::EndElement)
            return;
        if (token != QXmlStreamReader::StartElement)
            continue;
        const qint64 childStart = reader.characterOffset();
        ProcessXmlStartElement(reader);
        ThrowIfReaderFailed(reader);
        const bool childUntouched = reader.tokenType() == QXmlStreamReader::StartElement &&
                                    reader.characterOffset() == childStart;
        if (childUntouched) {
            reader.skipCurrentElement();
            ThrowIfReaderFailed(reader);
        }
    }
    ThrowIfReaderFailed(reader);
    throw KMException(QStringLiteral("XML error: %1 ended before its end element (line %2)")
                          .arg(GetObjectName())
                          .arg(reader.lineNumber()));
}

QString IKMObject::GetXmlString() const {
    return QString::fromUtf8(WriteDocument());
}

void IKMObject::GetBinaryRepresentation(QDataStream& out) const {
    out.setVersion(kStreamVersion);
    out << kFrameMagic << kFrameFormatVersion << GetObjectName();
    GetBinary(out);
}

QByteArray IKMObject::GetBinaryRepresentationAsQByteArray() const {
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    GetBinaryRepresentation(out);
    return data;
}

void IKMObject::GetCompressedBinaryRepresentation(QDataStream& out) const {
    out.setVersion(kStreamVersion);
    out << kCompressedFrameMagic << qCompress(GetBinaryRepresentationAsQByteArray());
}

QByteArray IKMObject::GetCompressedBinaryRepresentationAsQByteArray() const {
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    GetCompressedBinaryRepresentation(out);
    return data;
}

void IKMObject::LoadXml(const QString& fileName) {
    QFile file(fileName);
    LoadXml(file);
}

void IKMObject::LoadXml(QFile& file) {
    // A file opened here is closed again; one the caller opened stays open.
    const bool openedHere = !file.isOpen();
    try {
        if (openedHere && !file.open(QIODevice::ReadOnly))
            throw KMException(QStringLiteral("Cannot open '%1' for reading: %2")
                                  .arg(file.fileName(), file.errorString()));
        if (!file.isReadable())
            throw KMException(QStringLiteral("Cannot read '%1': it is not open for reading")
                                  .arg(file.fileName()));
        QXmlStreamReader reader(&file);
        ReadDocument(reader, m_validate);
    } catch (const KelmoraException& failure) {
        if (openedHere)
            file.close();
        LogFailure(QStringLiteral("LoadXml '%1'").arg(file.fileName()), failure);
        throw;
    }
    if (openedHere)
        file.close();
}

void IKMObject::LoadBinary(const QString& fileName) {
    try {
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly))
            throw KMException(QStringLiteral("Cannot open '%1' for reading: %2")
                                  .arg(fileName, file.errorString()));
        SetBinaryRepresentation(file.readAll());
    } catch (const KelmoraException& failure) {
        LogFailure(QStringLiteral("LoadBinary '%1'").arg(fileName), failure);
        throw;
    }
}

void IKMObject::SaveXml(const QString& fileName) const {
    try {
        if (m_validate)
            Check();
        const QByteArray document = WriteDocument();
        // The document is read back before it replaces anything: a file that
        // this library could not load again is never written.
        QXmlStreamReader probe(document);
        if (!probe.readNextStartElement())
            throw KMException(QStringLiteral("Cannot save '%1': %2 holds no complete settings")
                                  .arg(fileName, GetObjectName()));
        while (!probe.atEnd())
            probe.readNext();
        if (probe.hasError())
            throw KMException(QStringLiteral("Cannot save '%1': %2 writes XML that cannot be read "
                                             "back: %3")
                                  .arg(fileName, GetObjectName(), probe.errorString()));
        QSaveFile file(fileName);
        if (!file.open(QIODevice::WriteOnly))
            throw KMException(QStringLiteral("Cannot open '%1' for writing: %2")
                                  .arg(fileName, file.errorString()));
        // flush() before commit(): commit() flushes the last buffered bytes
        // itself but does not notice when that fails (the disk is full, the
        // file size limit is reached), and would put the cut-off file in
        // place of the previous one. Leaving without commit() discards the
        // temporary file.
        if (file.write(document) != document.size() || !file.flush() || !file.commit())
            throw KMException(
                QStringLiteral("Cannot write '%1': %2").arg(fileName, file.errorString()));
    } catch (const KelmoraException& failure) {
        LogFailure(QStringLiteral("SaveXml '%1'").arg(fileName), failure);
        throw;
    }
}

void IKMObject::SetValidate(bool validate) {
    m_validate = validate;
}

bool IKMObject::GetValidate() const {
    return m_validate;
}

void IKMObject::SetLogger(Logger* logger) {
    m_logger = logger;
}

void IKMObject::ResetLogger() {
    m_logger = nullptr;
}

const QString& IKMObject::GetVersion() const {
    static const QString noVersion;
    return noVersion;
}

void IKMObject::SetObjectType(ObjectTypes type) {
    m_objectType = type;
}

void IKMObject::SetObjectName(const QString& name) {
    m_objectName = name;
}

void IKMObject::ProcessXmlStartElement(QXmlStreamReader&) {}

QString IKMObject::GetTextValue(QXmlStreamReader& reader) {
    QString text = reader.readElementText(QXmlStreamReader::SkipChildElements);
    // In a document that breaks off inside the element the text is only its
    // beginning: reported as the XML error it is, not as a wrong value.
    ThrowIfReaderFailed(reader);
    return text;
}

void IKMObject::ReadDocument(QXmlStreamReader& reader, bool runValidation) {
    m_failureLine = 0;
    try {
        ReadRootElement(reader);
    } catch (const KelmoraException&) {
        m_failureLine = reader.lineNumber();
        throw;
    }
    if (runValidation)
        Check();
}

void IKMObject::ReadRootElement(QXmlStreamReader& reader) {
    // A settings document has no document type declaration, and one is
    // refused: its entity declarations could make a few kilobytes expand to
    // gigabytes, or name a file outside the document whose content would
    // end up in the record.
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::StartElement) {
        if (reader.tokenType() == QXmlStreamReader::DTD)
            throw KMException(
                QStringLiteral("XML error: document type declarations are not accepted (line %1)")
                    .arg(reader.lineNumber()));
    }
    if (reader.tokenType() != QXmlStreamReader::StartElement) {
        // A document that simply ends is reported as lacking its root.
        if (reader.error() != QXmlStreamReader::PrematureEndOfDocumentError)
            ThrowIfReaderFailed(reader);
        throw KMException(QStringLiteral("XML error: document has no root element, expected '%1'")
                              .arg(GetObjectName()));
    }
    const QString rootName = reader.name().toString();
    if (rootName != GetObjectName())
        throw KMException(QStringLiteral("Wrong root element: expected '%1', found '%2'")
                              .arg(GetObjectName(), rootName));
    ProcessXml(reader);
    while (!reader.atEnd())
        reader.readNext();
    ThrowIfReaderFailed(reader);
}

QByteArray IKMObject::WriteDocument() const {
    // Written as text and encoded once at the end. The writer's own UTF-8
    // encoder keeps state from one write to the next: an unpaired surrogate
    // in a value (an item name, say) made it drop every following name and
    // value, and the document could not be read again. QString::toUtf8
    // replaces such a surrogate on its own.
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    GetXml(writer);
    writer.writeEndDocument();
    // Without a declaration of its own the writer still starts the first
    // element on a new line, so this gives the usual layout.
    return QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>") + text.toUtf8();
}

void IKMObject::LogFailure(const QString& operation, const KelmoraException& failure) const {
    if (m_logger)
        m_logger->Log(Logger::LEVEL_ERROR,
                      QStringLiteral("%1: %2").arg(operation, failure.GetMessage()));
}

QString GetObjectTypeName(ObjectTypes type) {
    switch (type) {
    case OBJECT_TYPE_EXCITER_SETTINGS:
        return QStringLiteral("Exciter_Settings");
    case OBJECT_TYPE_NONE:
        break;
    }
    return QString();
}

} // namespace KELMORA
