#ifndef KELMORA_IKMOBJECT_H
#define KELMORA_IKMOBJECT_H

#include <InputLimits.h>
#include <KMException.h>
#include <KelmoraBaseExport.h>
#include <Logger.h>
#include <ObjectTypes.h>

#include <QByteArray>
#include <QDataStream>
#include <QDateTime>
#include <QFile>
#include <QString>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace KELMORA {

// Base class of every record.
//
// A record reads itself from one XML element (ProcessXml, which dispatches
// each child to ProcessXmlStartElement) and writes itself as one element
// (GetXml). On top of those two, this class offers the host operations:
//
//  - XML text and files: SetXmlString/GetXmlString, LoadXml/SaveXml. A document
//    must have the record's GetObjectName() as its root element and no
//    document type declaration (so no entities of its own). SaveXml writes
//    indented UTF-8 with an XML declaration through DurableFile, so a failed
//    save leaves the previous file untouched, and refuses to write a document
//    without a root element (an incomplete guarded record writes nothing).
//    Characters that XML 1.0 cannot carry are left out of what is written
//    (control characters, U+FFFE, U+FFFF) or replaced by '?' (unpaired
//    surrogates), so the records' documents always read back.
//  - Every load ends in a correct load or a KMException, whatever the input:
//    documents are measured against the record's InputLimits before the XML
//    reader sees them, binary frames before they are read or inflated, and
//    anything else that escapes (such as std::bad_alloc) becomes a
//    KMException.
//  - Binary forms: a QDataStream frame of a magic number, a format version,
//    the object name and the record's XML as UTF-8 (GetBinary/SetBinary write
//    and read that last payload alone). The compressed form is a second magic
//    number followed by the qCompress'ed frame. Both are accepted by
//    SetBinaryRepresentation and LoadBinary; anything else is rejected.
//  - MergeKMObject: reads the other record's XML on top of this one, without a
//    reset, so values the other record holds overwrite and list items are
//    appended. Both must have the same object name.
//  - Validation flag: when set, loading runs Check() after reading and saving
//    runs it before writing.
//  - Logger: when set (not owned; it must outlive the record), load and save
//    failures are logged to it before the exception leaves.
//
// Unset markers: SetInvalid stores -111111.11 (double), -111111.11f (float),
// 4294967295 (unsigned int), INT_MIN (int), LLONG_MIN (long long) and the empty
// text (QString); IsValid answers false for exactly those values. IsValid(bool b)
// returns b; IsValid(QDateTime) is QDateTime::isValid().
//
// Re-entering ProcessXml from ProcessXmlStartElement (to read a wrapper
// element's children as the record's own) is supported up to
// MaxProcessXmlNesting levels per record; deeper nesting throws KMException,
// so hostile input cannot exhaust the stack.
class KELMORABASE_EXPORT IKMObject {
public:
    static constexpr double InvalidDouble = -111111.11;
    static constexpr float InvalidFloat = -111111.11f;
    static constexpr unsigned int InvalidUnsignedInt = 4294967295u;
    static constexpr int MaxProcessXmlNesting = 32;

    IKMObject();
    explicit IKMObject(ObjectTypes type);
    IKMObject(const IKMObject& other);
    IKMObject& operator=(const IKMObject& other);
    virtual ~IKMObject();

    virtual bool HasData() const;
    virtual void Reset();
    // Runs Check(); returns true when it passes. On failure throws the
    // KMException when throwOnFailure is true, else returns false.
    virtual bool Check(bool throwOnFailure) const;
    virtual void Check() const;

    virtual bool IsValid(float value) const;
    virtual bool IsValid(bool value) const;
    virtual bool IsValid(unsigned int value) const;
    virtual bool IsValid(long long value) const;
    virtual bool IsValid(const QDateTime& value) const;
    virtual bool IsValid(const QString& value) const;
    virtual bool IsValid(double value) const;
    virtual bool IsValid(int value) const;

    virtual void SetInvalid(float& value) const;
    virtual void SetInvalid(unsigned int& value) const;
    virtual void SetInvalid(long long& value) const;
    virtual void SetInvalid(QString& value) const;
    virtual void SetInvalid(double& value) const;
    virtual void SetInvalid(int& value) const;

    virtual void GetXml(QXmlStreamWriter& writer) const;
    // The binary payload: the record's XML element as UTF-8 in a QByteArray.
    virtual void GetBinary(QDataStream& out) const;
    virtual void SetBinary(QDataStream& in);
    virtual void SetXmlString(const QString& xml);
    virtual void SetBinaryRepresentation(const QByteArray& data);
    virtual void SetBinaryRepresentation(QDataStream& in);
    virtual void MergeKMObject(const IKMObject& other);
    virtual ObjectTypes GetObjectType() const;
    virtual QString GetObjectName() const;
    // Called with the reader on the record's start element; returns with the
    // reader on the record's end element.
    virtual void ProcessXml(QXmlStreamReader& reader);
    virtual QString GetXmlString() const;
    virtual void GetBinaryRepresentation(QDataStream& out) const;
    virtual QByteArray GetBinaryRepresentationAsQByteArray() const;
    virtual void GetCompressedBinaryRepresentation(QDataStream& out) const;
    virtual QByteArray GetCompressedBinaryRepresentationAsQByteArray() const;
    virtual void LoadXml(const QString& fileName);
    virtual void LoadXml(QFile& file);
    virtual void LoadBinary(const QString& fileName);
    virtual void SaveXml(const QString& fileName) const;
    virtual void SetValidate(bool validate);
    virtual bool GetValidate() const;
    virtual void SetLogger(Logger* logger);
    virtual void ResetLogger();
    virtual const QString& GetVersion() const;

    // The line of the document at which the last SetXmlString or LoadXml
    // failed, 0 when it succeeded. Record messages such as
    // "Unknown Tag 'X' in 'SCU'" carry no position; this tells where.
    qint64 GetFailureLine() const { return m_failureLine; }

    // Bounds on what a document loaded into this record may ask (see
    // InputLimits); passing one ends the load with a KMException that names
    // the limit and the line and column. Copied with the record.
    void SetInputLimits(const InputLimits& limits) { m_inputLimits = limits; }
    const InputLimits& GetInputLimits() const { return m_inputLimits; }

protected:
    virtual void SetObjectType(ObjectTypes type);
    virtual void SetObjectName(const QString& name);
    // Handles one child start element. Returning without reading the child
    // lets the element loop skip it whole.
    virtual void ProcessXmlStartElement(QXmlStreamReader& reader);

    // The text of the element at the reader; leaves the reader on its end
    // element. Child elements inside it are skipped. Throws KMException when
    // the document is not well-formed before the element's end.
    static QString GetTextValue(QXmlStreamReader& reader);

private:
    void ReadDocument(QXmlStreamReader& reader, bool runValidation);
    void ReadRootElement(QXmlStreamReader& reader);
    void ReadBinaryFrame(QDataStream& in);
    void ReadBinaryRepresentation(QDataStream& in);
    // Reads a document from the device through the input limits.
    void ReadGuarded(QIODevice& source);
    void LogFailure(const QString& operation, const KelmoraException& failure) const;

    ObjectTypes m_objectType;
    QString m_objectName;
    bool m_validate;
    Logger* m_logger;
    int m_processXmlNesting;
    qint64 m_failureLine;
    InputLimits m_inputLimits;
};

} // namespace KELMORA

#endif
