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
    // -1 is unset.
    enum SignalType : qint32 { CW = 0, FSK2 = 1, MSK = 2 };

    WDE_Exciter();
    WDE_Exciter(int index);
    WDE_Exciter(const WDE_Exciter& other);
    WDE_Exciter& operator=(const WDE_Exciter& other);
    ~WDE_Exciter() override;

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
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // True when any of signal type, frequency shift, symbol rate or level is set.
    bool AnyData() const;

    // "WDE_Exciter", the element and object name.
    static QString GetName();

    int GetIndex() { return m_index; }
    void SetIndex(int index) { m_index = index; }
    QString GetItemName() { return m_itemName; }
    void SetItemName(const QString& itemName) { m_itemName = itemName; }

    SignalType GetSignalType() const { return m_signalType; }
    void SetSignalType(SignalType signalType) { m_signalType = signalType; }
    double GetSymbolRate() const { return m_symbolRate; }
    void SetSymbolRate(double symbolRate) { m_symbolRate = symbolRate; }
    double GetFrequencyShift() const { return m_frequencyShift; }
    void SetFrequencyShift(double frequencyShift) { m_frequencyShift = frequencyShift; }
    double GetLevel() const { return m_level; }
    void SetLevel(double level) { m_level = level; }

    // Exact, case-sensitive; an unknown text gives -1, an unknown value the
    // empty text.
    SignalType GetSignalTypeForString(const QString& text) const;
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
