// SPDX-License-Identifier: MIT
#include "IKMObject.h"

#include "DurableFile.h"
#include "Inflate.h"
#include "ReadObserver.h"
#include "XmlReaderError.h"

#include <QBuffer>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

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
    throw XmlReaderError(reader);
}

void ThrowIfReaderFailed(const QXmlStreamReader& reader) {
    if (reader.hasError())
        ThrowReaderError(reader);
}

// Hands a QString to a QXmlStreamReader as UTF-8, a piece at a time. Given
// the QString itself, the reader first converts all of it to UTF-8 and then
// all of that back, which for large documents costs twice the time and
// three copies of the text; through this device it decodes as it reads, as
// from a file.
class Utf8StringDevice : public QIODevice {
public:
    explicit Utf8StringDevice(const QString& text) : m_text(text) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 maxSize) override {
        if (m_served == m_piece.size()) {
            // The next piece of text; a surrogate pair is not split.
            constexpr int kPieceCharacters = 4096;
            int count =
                static_cast<int>(qMin<qsizetype>(kPieceCharacters, m_text.size() - m_position));
            if (count > 1 && m_position + count < m_text.size() &&
                m_text.at(m_position + count - 1).isHighSurrogate())
                --count;
            if (count <= 0)
                return 0;
            m_piece = QStringView(m_text).mid(m_position, count).toUtf8();
            m_position += count;
            m_served = 0;
        }
        const int size = static_cast<int>(qMin<qint64>(maxSize, m_piece.size() - m_served));
        std::memcpy(data, m_piece.constData() + m_served, static_cast<size_t>(size));
        m_served += size;
        return size;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    const QString m_text;
    int m_position = 0; // in m_text, of the next piece
    QByteArray m_piece; // the current piece in UTF-8
    int m_served = 0;   // bytes of m_piece already read
};

// Whether reading the text through Utf8StringDevice gives what reading the
// QString gives. The reader then guesses the encoding from the first bytes
// and follows the encoding that a declaration names, where it ignores both
// for a QString: so the text must start with '<' (after a byte order mark),
// without NUL characters that look like UTF-16 or UTF-32, and declare no
// encoding other than UTF-8. Short texts are not worth it.
bool StreamsAsUtf8(const QString& text) {
    constexpr int kShortest = 4096;
    constexpr int kLongestDeclaration = 256;
    if (text.size() < kShortest)
        return false;
    const int start = text.at(0) == QChar(0xFEFF) ? 1 : 0;
    if (text.at(start) != QLatin1Char('<'))
        return false;
    for (int i = start; i < start + 4; ++i) {
        if (text.at(i).isNull())
            return false;
    }
    const QStringView head = QStringView(text).mid(start, kLongestDeclaration);
    if (!head.startsWith(QLatin1String("<?xml")) || !head.at(5).isSpace())
        return true; // no declaration
    const qsizetype end = head.indexOf(QLatin1String("?>"));
    if (end < 0)
        return false;
    const QStringView declaration = head.left(end);
    const qsizetype encoding = declaration.indexOf(QLatin1String("encoding"));
    if (encoding < 0)
        return true;
    if (declaration.lastIndexOf(QLatin1String("encoding")) != encoding)
        return false;
    const QString rest = declaration.mid(encoding + 8).toString().remove(QLatin1Char(' '));
    return rest.startsWith(QLatin1String("=\"UTF-8\""), Qt::CaseInsensitive) ||
           rest.startsWith(QLatin1String("='UTF-8'"), Qt::CaseInsensitive);
}

const QString kDocumentDeclaration = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");

// The record's document written straight into a QString. The writer has no
// encoding there, so the declaration is put in front by hand (without one of
// its own the writer still starts the first element on a new line). Text
// pieces go in unconverted, unpaired surrogates included: whoever encodes
// the text replaces them (see the callers).
QString WriteDocumentText(const IKMObject& record) {
    QString text = kDocumentDeclaration;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    record.GetXml(writer);
    writer.writeEndDocument();
    return text;
}

// The UTF-8 form of a document, made piece by piece so that it is never
// whole in memory beside the text: at 100,000 items that would be another
// 80 MB of fresh memory for every save. A piece never ends between the two
// halves of a surrogate pair, so the pieces are exactly the encoding of the
// whole text; QString::toUtf8 replaces unpaired surrogates. (The writer's
// own UTF-8 encoder is no choice: it keeps state from one write to the next,
// and an unpaired surrogate in a value made it drop every following name and
// value, so that the document could not be read again.)
class Utf8Pieces {
public:
    explicit Utf8Pieces(const QString& text) : m_text(text) {}
    bool AtEnd() const { return m_from == m_text.size(); }
    QByteArray Next() {
        int length =
            static_cast<int>(std::min<qsizetype>(kPieceCharacters, m_text.size() - m_from));
        if (m_from + length < m_text.size() && m_text.at(m_from + length - 1).isHighSurrogate())
            --length;
        const int from = m_from;
        m_from += length;
        return QStringView(m_text).mid(from, length).toUtf8();
    }

private:
    static constexpr int kPieceCharacters = 1 << 20;
    const QString& m_text;
    int m_from = 0;
};

bool HoldsSurrogate(const QString& text) {
    // A unit is a surrogate when its top five bits are 11011. The scan runs
    // over every document written, so it takes eight units at a time where
    // the processor offers it.
    const ushort* units = text.utf16();
    const int size = text.size();
    int i = 0;
#ifdef __SSE2__
    const __m128i topBits = _mm_set1_epi16(static_cast<short>(0xF800));
    const __m128i surrogate = _mm_set1_epi16(static_cast<short>(0xD800));
    for (; i + 32 <= size; i += 32) {
        __m128i hits = _mm_setzero_si128();
        for (int k = 0; k < 32; k += 8) {
            const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(units + i + k));
            hits = _mm_or_si128(hits, _mm_cmpeq_epi16(_mm_and_si128(eight, topBits), surrogate));
        }
        if (_mm_movemask_epi8(hits) != 0)
            return true;
    }
#endif
    for (; i < size; ++i) {
        if ((units[i] & 0xF800) == 0xD800)
            return true;
    }
    return false;
}

KMException LimitExceeded(const QString& what) {
    return KMException(QStringLiteral("Input limit exceeded: %1").arg(what));
}

// Runs a load so that nothing but a KelmoraException leaves it: running out
// of memory, or anything else a library call throws, becomes a KMException.
template <typename Load> void TranslatingFailures(const QString& objectName, Load&& load) {
    try {
        load();
    } catch (const KelmoraException&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw KMException(QStringLiteral("%1: out of memory while loading").arg(objectName));
    } catch (const std::exception& failure) {
        throw KMException(QStringLiteral("%1: loading failed: %2")
                              .arg(objectName, QString::fromLocal8Bit(failure.what())));
    }
}

// A QByteArray as QDataStream writes it (a 32-bit length, then the bytes),
// refused when it declares more than `limit` bytes, or more than the stream
// holds, before anything is allocated for it.
QByteArray ReadBoundedBytes(QDataStream& in, qint64 limit, const QString& objectName) {
    quint32 length = 0;
    in >> length;
    if (in.status() != QDataStream::Ok || length == 0xFFFFFFFFu)
        return QByteArray();
    if (length > limit)
        throw KMException(
            QStringLiteral(
                "%1: binary representation of %2 bytes, more than %3 (maxBinaryFrameSize)")
                .arg(objectName)
                .arg(length)
                .arg(limit));
    const QIODevice* device = in.device();
    if (device && !device->isSequential() && length > device->size() - device->pos()) {
        in.setStatus(QDataStream::ReadPastEnd);
        return QByteArray();
    }
    // From a frame in memory, a view of its bytes rather than a second copy.
    if (auto* buffer = qobject_cast<QBuffer*>(in.device());
        buffer && length <= buffer->size() - buffer->pos()) {
        QByteArray view =
            QByteArray::fromRawData(buffer->data().constData() + buffer->pos(), int(length));
        in.skipRawData(static_cast<int>(length));
        return view;
    }
    QByteArray bytes(static_cast<int>(length), Qt::Uninitialized);
    if (in.readRawData(bytes.data(), static_cast<int>(length)) != static_cast<int>(length))
        in.setStatus(QDataStream::ReadPastEnd);
    return bytes;
}

// The object name of a frame: a QString as QDataStream writes it, whose
// declared length is bounded before it is read. Names are short.
QString ReadBoundedName(QDataStream& in) {
    constexpr quint32 kLongestName = 1024;
    quint32 bytes = 0;
    in >> bytes;
    if (in.status() != QDataStream::Ok || bytes == 0xFFFFFFFFu)
        return QString();
    if (bytes > kLongestName || bytes % 2 != 0) {
        in.setStatus(QDataStream::ReadCorruptData);
        return QString();
    }
    QByteArray units(static_cast<int>(bytes), Qt::Uninitialized);
    if (in.readRawData(units.data(), static_cast<int>(bytes)) != static_cast<int>(bytes)) {
        in.setStatus(QDataStream::ReadPastEnd);
        return QString();
    }
    QString name(static_cast<int>(bytes / 2), Qt::Uninitialized);
    for (int i = 0; i < name.size(); ++i)
        name[i] = QChar(qFromBigEndian<quint16>(units.constData() + 2 * qsizetype(i)));
    return name;
}

// The frame of a compressed representation (qCompress form: the inflated
// size as 4 bytes big-endian, then a zlib stream), inflated into exactly the
// size it declares, which is bounded first: a small frame cannot make the
// load take more memory or time than the limit allows. Empty when corrupt.
QByteArray BoundedInflate(const QByteArray& compressed, qint64 limit, const QString& objectName) {
    if (compressed.size() <= 4)
        return QByteArray();
    const quint32 declared = qFromBigEndian<quint32>(compressed.constData());
    if (declared > limit)
        throw KMException(QStringLiteral("%1: compressed binary representation declares %2 bytes, "
                                         "more than %3 (maxBinaryFrameSize)")
                              .arg(objectName)
                              .arg(declared)
                              .arg(limit));
    QByteArray frame(static_cast<int>(declared), Qt::Uninitialized);
    const bool whole =
        InflateExactly(reinterpret_cast<const uchar*>(compressed.constData()) + 4,
                       compressed.size() - 4, reinterpret_cast<uchar*>(frame.data()), frame.size());
    return whole ? frame : QByteArray();
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
      m_failureLine(0), m_inputLimits(other.m_inputLimits) {}

IKMObject& IKMObject::operator=(const IKMObject& other) {
    if (&other == this)
        return *this;
    m_objectType = other.m_objectType;
    m_objectName = other.m_objectName;
    m_validate = other.m_validate;
    m_logger = other.m_logger;
    m_inputLimits = other.m_inputLimits;
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
    const QByteArray xml = ReadBoundedBytes(in, m_inputLimits.maxBinaryFrameSize, GetObjectName());
    if (in.status() != QDataStream::Ok)
        throw KMException(QStringLiteral("%1: binary payload is truncated").arg(GetObjectName()));
    // Measured in its UTF-8 bytes first, so that a document past a limit
    // is refused before it is converted.
    MarkupScanner scanner(m_inputLimits);
    if (!scanner.Scan(xml.constData(), xml.size())) {
        m_failureLine = scanner.Line();
        throw LimitExceeded(scanner.Failure());
    }
    SetXmlString(QString::fromUtf8(xml));
}

void IKMObject::SetXmlString(const QString& xml) {
    TranslatingFailures(GetObjectName(), [&] {
        MarkupScanner scanner(m_inputLimits);
        if (!scanner.Scan(reinterpret_cast<const char16_t*>(xml.utf16()), xml.size())) {
            m_failureLine = scanner.Line();
            throw LimitExceeded(scanner.Failure());
        }
        if (StreamsAsUtf8(xml)) {
            Utf8StringDevice device(xml);
            QXmlStreamReader reader(&device);
            ReadDocument(reader, m_validate);
            return;
        }
        QXmlStreamReader reader(xml);
        ReadDocument(reader, m_validate);
    });
}

void IKMObject::SetBinaryRepresentation(const QByteArray& data) {
    QDataStream in(data);
    SetBinaryRepresentation(in);
}

void IKMObject::SetBinaryRepresentation(QDataStream& in) {
    TranslatingFailures(GetObjectName(), [&] { ReadBinaryRepresentation(in); });
}

void IKMObject::ReadBinaryRepresentation(QDataStream& in) {
    in.setVersion(kStreamVersion);
    quint32 magic = 0;
    in >> magic;
    if (magic == kFrameMagic) {
        ReadBinaryFrame(in);
        return;
    }
    if (magic == kCompressedFrameMagic) {
        const QByteArray compressed =
            ReadBoundedBytes(in, m_inputLimits.maxBinaryFrameSize, GetObjectName());
        const QByteArray frame =
            in.status() == QDataStream::Ok
                ? BoundedInflate(compressed, m_inputLimits.maxBinaryFrameSize, GetObjectName())
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
    in >> formatVersion;
    const QString objectName = ReadBoundedName(in);
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
    ReadObserver* const observer = ReadObserver::Current();
    if (observer)
        observer->RecordEntered(*this, reader);
    qint64 tokenLine = 0;
    qint64 tokenColumn = 0;
    while (!reader.atEnd()) {
        // Tokens follow each other without a gap, so where the last one
        // ended the next one begins; the reader has seen one character
        // beyond a text, the '<' that ended it.
        if (observer) {
            tokenLine = reader.lineNumber();
            tokenColumn = reader.columnNumber() +
                          (reader.tokenType() == QXmlStreamReader::Characters ? 0 : 1);
        }
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::Invalid) // the reader failed
            ThrowReaderError(reader);
        if (token == QXmlStreamReader::EndElement)
            return;
        if (token != QXmlStreamReader::StartElement)
            continue;
        const qint64 childStart = reader.characterOffset();
        if (observer)
            observer->ChildStarted(*this, reader, tokenLine, tokenColumn);
        ProcessXmlStartElement(reader);
        ThrowIfReaderFailed(reader);
        const bool childUntouched = reader.tokenType() == QXmlStreamReader::StartElement &&
                                    reader.characterOffset() == childStart;
        if (observer)
            observer->ChildEnded(*this, reader, childUntouched);
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
    const QString text = WriteDocumentText(*this);
    // The text as it reads back from the UTF-8 that SaveXml would write.
    return HoldsSurrogate(text) ? QString::fromUtf8(text.toUtf8()) : text;
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
        TranslatingFailures(GetObjectName(), [&] { ReadGuarded(file); });
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
        // A frame carries a few bytes around its document.
        constexpr qint64 kFrameOverhead = 4096;
        if (file.size() > m_inputLimits.maxBinaryFrameSize + kFrameOverhead)
            throw KMException(QStringLiteral("Cannot read '%1': %2 bytes, more than %3 "
                                             "(maxBinaryFrameSize)")
                                  .arg(fileName)
                                  .arg(file.size())
                                  .arg(m_inputLimits.maxBinaryFrameSize));
        // Read up to the limit only: a pipe or a device has no size to
        // check beforehand.
        QByteArray data;
        TranslatingFailures(GetObjectName(), [&] {
            data = file.read(m_inputLimits.maxBinaryFrameSize + kFrameOverhead + 1);
        });
        if (data.size() > m_inputLimits.maxBinaryFrameSize + kFrameOverhead)
            throw KMException(QStringLiteral("Cannot read '%1': more than %2 bytes "
                                             "(maxBinaryFrameSize)")
                                  .arg(fileName)
                                  .arg(m_inputLimits.maxBinaryFrameSize));
        SetBinaryRepresentation(data);
    } catch (const KelmoraException& failure) {
        LogFailure(QStringLiteral("LoadBinary '%1'").arg(fileName), failure);
        throw;
    }
}

void IKMObject::SaveXml(const QString& fileName) const {
    try {
        if (m_validate)
            Check();
        const QString text = WriteDocumentText(*this);
        Utf8Pieces pieces(text);
        QByteArray piece = pieces.Next();
        // The writer leaves out the characters that XML cannot carry and the
        // encoding replaces unpaired surrogates, so what the records write
        // always reads back; a record without its settings writes no root
        // element, and such a document never replaces a file. The root's
        // start tag is in the first piece. (Reading the whole document back
        // would guard against host records that write invalid element names,
        // at two thirds of the cost of the save.)
        if (!QXmlStreamReader(piece).readNextStartElement())
            throw KMException(QStringLiteral("Cannot save '%1': %2 holds no complete settings")
                                  .arg(fileName, GetObjectName()));
        // Written piece by piece; the file is replaced only once all of it
        // is on the disk (see DurableFile).
        bool first = true;
        DurableFile::Replace(fileName, [&](QByteArray& next) {
            if (first) {
                first = false;
                next = piece;
                return true;
            }
            if (pieces.AtEnd())
                return false;
            next = pieces.Next();
            return true;
        });
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
    // What readElementText(SkipChildElements) does, but the usual single
    // piece of text is copied at its size instead of being collected into a
    // growing string. (A copy, never a share of the reader's whole buffer,
    // which would make the reader make a new one and the record keep a
    // string far larger than its text.)
    if (!reader.isStartElement())
        return QString();
    ReadObserver* const observer = ReadObserver::Current();
    QString text;
    for (;;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::EntityReference: {
            const QStringView piece = reader.text();
            if (text.isEmpty())
                text = piece.toString();
            else
                text += piece;
            break;
        }
        case QXmlStreamReader::EndElement:
            if (observer)
                observer->ValueRead(text);
            return text;
        case QXmlStreamReader::StartElement:
            if (observer)
                observer->ElementInValue(reader);
            reader.skipCurrentElement();
            break;
        default: // comments and processing instructions are passed over
            // In a document that breaks off inside the element the text is
            // only its beginning: reported as the XML error it is, not as a
            // wrong value.
            ThrowIfReaderFailed(reader);
            break;
        }
    }
}

void IKMObject::ReadGuarded(QIODevice& source) {
    LimitedDevice guarded(source, m_inputLimits);
    QXmlStreamReader reader(&guarded);
    try {
        ReadDocument(reader, m_validate);
    } catch (const KelmoraException&) {
        if (!guarded.Failed())
            throw;
    }
    // A limit passed is the reason, also when the reader found the text cut
    // off where the scanner stopped it, or the passing came after the root.
    if (guarded.Failed()) {
        m_failureLine = guarded.Scanner().Line();
        throw LimitExceeded(guarded.Scanner().Failure());
    }
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
