// SPDX-License-Identifier: MIT
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
    // The unset marker of a double: SetInvalid(double&) stores it, IsValid(double) is false only
    // for it.
    static constexpr double InvalidDouble = -111111.11;
    // The unset marker of a float.
    static constexpr float InvalidFloat = -111111.11f;
    // The unset marker of an unsigned int (all 32 bits set); written as 4294967295, it reads back
    // unset.
    static constexpr unsigned int InvalidUnsignedInt = 4294967295u;
    // How deeply ProcessXml may be re-entered for wrapper elements within one record; one level
    // more throws KMException "<object>: elements nested too deeply (line L)".
    static constexpr int MaxProcessXmlNesting = 32;

    // A record without object type or name, not validating, without logger.
    IKMObject();
    // A record of the given type, whose element name is GetObjectTypeName(type) unless
    // SetObjectName gives another.
    explicit IKMObject(ObjectTypes type);
    // Copies the type, the name, the validation flag and the logger pointer (not the logger).
    IKMObject(const IKMObject& other);
    // Assigns what the copy constructor copies.
    IKMObject& operator=(const IKMObject& other);
    // Releases nothing beyond the record; the logger is not owned.
    virtual ~IKMObject();

    // Whether the record is complete: the records that write only when complete write nothing while
    // it is false. The base record: false.
    virtual bool HasData() const;
    // Every value back to unset; the version text and the object name stay. The base record:
    // nothing to do.
    virtual void Reset();
    // Runs Check(); returns true when it passes. On failure throws the
    // KMException when throwOnFailure is true, else returns false.
    virtual bool Check(bool throwOnFailure) const;
    // Returns when the record is valid; throws KMException with the first missing setting otherwise
    // (each record names its messages). The base record: always valid.
    virtual void Check() const;

    // False only for InvalidFloat.
    virtual bool IsValid(float value) const;
    // Returns the value itself.
    virtual bool IsValid(bool value) const;
    // False only for InvalidUnsignedInt (4294967295).
    virtual bool IsValid(unsigned int value) const;
    // False only for the smallest long long.
    virtual bool IsValid(long long value) const;
    // QDateTime::isValid().
    virtual bool IsValid(const QDateTime& value) const;
    // False only for the empty text.
    virtual bool IsValid(const QString& value) const;
    // False only for InvalidDouble (-111111.11); a NaN is valid.
    virtual bool IsValid(double value) const;
    // False only for the smallest int (-2147483648), the unset index of list items.
    virtual bool IsValid(int value) const;

    // Stores InvalidFloat.
    virtual void SetInvalid(float& value) const;
    // Stores InvalidUnsignedInt.
    virtual void SetInvalid(unsigned int& value) const;
    // Stores the smallest long long.
    virtual void SetInvalid(long long& value) const;
    // Empties the text.
    virtual void SetInvalid(QString& value) const;
    // Stores InvalidDouble.
    virtual void SetInvalid(double& value) const;
    // Stores the smallest int.
    virtual void SetInvalid(int& value) const;

    // Writes the record's element (see docs/format.md); a record that writes only when complete
    // writes nothing while HasData() is false. The base record writes nothing.
    virtual void GetXml(QXmlStreamWriter& writer) const;
    // The binary payload: the record's XML element as UTF-8 in a QByteArray.
    virtual void GetBinary(QDataStream& out) const;
    // Reads the payload that GetBinary wrote, as SetXmlString. Throws KMException "<object>: binary
    // payload is truncated", or what SetXmlString throws.
    virtual void SetBinary(QDataStream& in);
    // Reads a document whose root element is GetObjectName(), on top of the values held (nothing is
    // reset first); runs Check() afterwards when validating. Throws KMException: "XML error:
    // <reason> (line L, column C)" for XML that is not well-formed, "XML error: document type
    // declarations are not accepted (line L)", "XML error: document has no root element, expected
    // '<object>'", "Wrong root element: expected '<object>', found '<root>'", or the record's own
    // message. Values read before a failure stay; GetFailureLine() tells where it stopped.
    virtual void SetXmlString(const QString& xml);
    // Reads the plain or compressed binary form made by GetBinaryRepresentationAsQByteArray or
    // GetCompressedBinaryRepresentationAsQByteArray. Throws KMException "<object>: data is not a
    // binary representation of a record", "<object>: binary representation is truncated",
    // "<object>: compressed binary representation is corrupt", "<object>: unsupported binary format
    // version N", "<object>: binary representation holds '<other>'", or what SetXmlString throws.
    virtual void SetBinaryRepresentation(const QByteArray& data);
    // As above, reading the form from the stream.
    virtual void SetBinaryRepresentation(QDataStream& in);
    // Reads the other record's XML on top of this one; throws KMException "<object>: cannot merge
    // '<other>'" for a record of another name.
    virtual void MergeKMObject(const IKMObject& other);
    // The object type given at construction or by SetObjectType; OBJECT_TYPE_NONE for most records.
    virtual ObjectTypes GetObjectType() const;
    // The record's element name: the one given by SetObjectName, else the name of its object type.
    virtual QString GetObjectName() const;
    // Called with the reader on the record's start element; returns with the
    // reader on the record's end element.
    virtual void ProcessXml(QXmlStreamReader& reader);
    // The document: an XML declaration and the record's element, indented by four blanks, ending
    // with a line feed. Without a root element when the record writes nothing.
    virtual QString GetXmlString() const;
    // Writes the binary form: a magic number, the format version, the object name and the GetBinary
    // payload.
    virtual void GetBinaryRepresentation(QDataStream& out) const;
    // The binary form as bytes.
    virtual QByteArray GetBinaryRepresentationAsQByteArray() const;
    // Writes a second magic number and the qCompress'ed binary form.
    virtual void GetCompressedBinaryRepresentation(QDataStream& out) const;
    // The compressed binary form as bytes.
    virtual QByteArray GetCompressedBinaryRepresentationAsQByteArray() const;
    // Reads the document in the file, as SetXmlString. Throws KMException "Cannot open '<file>' for
    // reading: <reason>" or what SetXmlString throws; logs the failure to the logger.
    virtual void LoadXml(const QString& fileName);
    // As above from a QFile; one the caller opened stays open, one opened here is closed. Throws
    // KMException "Cannot read '<file>': it is not open for reading" for a file open for writing
    // only.
    virtual void LoadXml(QFile& file);
    // Reads a file holding a binary form, as SetBinaryRepresentation; throws KMException "Cannot
    // open '<file>' for reading: <reason>" or what that throws.
    virtual void LoadBinary(const QString& fileName);
    // Writes GetXmlString() to the file in UTF-8 through a temporary file that replaces the target
    // only when complete; runs Check() first when validating. Throws KMException "Cannot save
    // '<file>': <object> holds no complete settings" when the record writes no element, "Cannot
    // open '<file>' for writing: <reason>" or "Cannot write '<file>': <reason>"; the previous file
    // then stays as it was.
    virtual void SaveXml(const QString& fileName) const;
    // When true, loading runs Check() after reading and saving runs it before writing. Off by
    // default.
    virtual void SetValidate(bool validate);
    // The flag of SetValidate.
    virtual bool GetValidate() const;
    // Load and save failures are logged to the logger (not owned; it must outlive the record),
    // before the exception leaves.
    virtual void SetLogger(Logger* logger);
    // No logger any more.
    virtual void ResetLogger();
    // The record's version text (attribute "Version"); the base record: the empty text.
    virtual const QString& GetVersion() const;

    // The line of the document at which the last SetXmlString or LoadXml
    // failed, 0 when it succeeded. Record messages such as
    // "Unknown Tag 'X' in 'SCU'" carry no position; this tells where.
    qint64 GetFailureLine() const { return m_failureLine; }

    // Bounds on what a document loaded into this record may ask (see
    // InputLimits); passing one ends the load with a KMException that names
    // the limit and the line and column. Copied with the record.
    void SetInputLimits(const InputLimits& limits) { m_inputLimits = limits; }
    // The bounds of SetInputLimits (InputLimits' defaults until set).
    const InputLimits& GetInputLimits() const { return m_inputLimits; }

protected:
    // Sets the object type.
    virtual void SetObjectType(ObjectTypes type);
    // Sets the element name; the records call it in their constructors.
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
