// SPDX-License-Identifier: MIT
#ifndef KELMORA_WDE_EXCITER_H
#define KELMORA_WDE_EXCITER_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>

#include <QString>
#include <QtGlobal>

namespace KELMORA {

// One exciter of the WDE exciter list: signal type, symbol rate, frequency
// shift and level, with an index and an optional item name carried as
// attributes of its element. The element is always written, unknown children
// are passed over on reading, and Check() fails with fixed texts that do not
// depend on the object name.
class EXCITERSETTINGS_EXPORT WDE_Exciter : public IKMObject {
public:
    // \var CW
    // Continuous wave, written "CW".

    // \var FSK2
    // Frequency shift keying with two tones, written "FSK2".

    // \var MSK
    // Minimum shift keying, written "MSK".

    // The signal type of the exciter, element "SignalType".
    // -1 is unset.
    enum SignalType : qint32 { CW = 0, FSK2 = 1, MSK = 2 };

    // An item with every value unset, no index and no name; version "0.1", object name
    // "WDE_Exciter".
    WDE_Exciter();
    // As the default constructor, with the given index (attribute "Index"). WDE gives each item it
    // reads its position in the list.
    WDE_Exciter(int index);
    // Copies every value, the index, the name and the version.
    WDE_Exciter(const WDE_Exciter& other);
    // Assigns what the copy constructor copies.
    WDE_Exciter& operator=(const WDE_Exciter& other);
    // Nothing to release beyond the values.
    ~WDE_Exciter() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // True when signal type, symbol rate and level are set.
    bool HasData() const override;
    // Clears every value, index and item name included; the version stays.
    void Reset() override;
    // Throws "WDE_Exciter: Please set SignalType!", "...SymbolRate!" or
    // "...Level!" for the first of them that is unset.
    void Check() const override;
    // Always writes the element; "FrequencyShift" only when set.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Reads the attributes ("Index" and "Name" only when present), then the
    // children. Nothing is reset first.
    // Unknown children are passed over, a signal type text outside the table reads as -1 and a
    // number that does not convert as 0. Only a document that is not well-formed throws
    // KMException ("XML error: ...").
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "0.1" unless read otherwise.
    const QString& GetVersion() const override;

    // True when any of signal type, frequency shift, symbol rate or level is set.
    bool AnyData() const;

    // "WDE_Exciter", the element and object name.
    static QString GetName();

    // The index, attribute "Index"; -2147483648 (no attribute) while unset.
    int GetIndex() { return m_index; }
    // Sets the index (attribute "Index"), unchecked; nothing renumbers the items of a list.
    void SetIndex(int index) { m_index = index; }
    // The name of the item, attribute "Name"; empty (no attribute) while unset.
    QString GetItemName() { return m_itemName; }
    // Sets the name of the item (attribute "Name").
    void SetItemName(const QString& itemName) { m_itemName = itemName; }

    // The signal type, element "SignalType"; -1 while unset (written as the empty text).
    SignalType GetSignalType() const { return m_signalType; }
    // Sets the signal type (element "SignalType"), unchecked: a value outside the table is written
    // as the empty text.
    void SetSignalType(SignalType signalType) { m_signalType = signalType; }
    // The symbol rate, element "SymbolRate" (six digits); -111111.11 while unset (written -111111).
    double GetSymbolRate() const { return m_symbolRate; }
    // Sets the symbol rate (element "SymbolRate").
    void SetSymbolRate(double symbolRate) { m_symbolRate = symbolRate; }
    // The frequency shift, element "FrequencyShift" (six digits, written when set); -111111.11
    // while unset.
    double GetFrequencyShift() const { return m_frequencyShift; }
    // Sets the frequency shift (element "FrequencyShift").
    void SetFrequencyShift(double frequencyShift) { m_frequencyShift = frequencyShift; }
    // The level, element "Level" (six digits); -111111.11 while unset (written -111111).
    double GetLevel() const { return m_level; }
    // Sets the level (element "Level").
    void SetLevel(double level) { m_level = level; }

    // Exact, case-sensitive; an unknown text gives -1, an unknown value the
    // empty text.
    // The signal type of "CW", "FSK2" or "MSK"; -1 for any other text.
    SignalType GetSignalTypeForString(const QString& text) const;
    // The text of a signal type; empty for -1 and any other value outside the table.
    QString GetStringForSignalType(SignalType signalType) const;

protected:
    // Reads "SignalType", "SymbolRate", "FrequencyShift" and "Level"; any other
    // child is left for the element loop to skip.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    QString m_version;
    int m_index;
    SignalType m_signalType;
    double m_symbolRate;
    double m_frequencyShift;
    double m_level;
    QString m_itemName;
};

} // namespace KELMORA

#endif
