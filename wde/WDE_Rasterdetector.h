#ifndef KELMORA_WDE_RASTERDETECTOR_H
#define KELMORA_WDE_RASTERDETECTOR_H

#include <ExciterSettingsExport.h>
#include <IKMObject.h>

#include <QString>
#include <QVector>
#include <QtGlobal>

namespace KELMORA {

// One raster detector of the WDE raster-detector list: a list of frequencies
// with channel step and minimum fixed-frequency length, an absolute or
// relative threshold, an amplifier band, the exciter set it belongs to and an
// on/off flag, with an index and an optional item name as attributes. The
// frequency list travels as one Base64 text of little-endian doubles. The
// element is always written, unknown children are passed over, and Check()
// fails with the object name followed by a fixed text.
class EXCITERSETTINGS_EXPORT WDE_Rasterdetector : public IKMObject {
public:
    // -1 is unset in each of the three.
    enum Amplifier : qint32 {
        AMPLIFIER_VUHF = 0,
        AMPLIFIER_UHF1 = 1,
        AMPLIFIER_UHF2 = 2,
        AMPLIFIER_SHF1 = 3,
        AMPLIFIER_SHF2 = 4
    };
    enum ThresholdMode : qint32 { THRESHOLDMODE_ABSOLUTE = 0, THRESHOLDMODE_RELATIVE = 1 };
    enum AvgTime : qint32 { AVGTIME_SHORT = 0, AVGTIME_MIDDLE = 1, AVGTIME_LONG = 2 };

    WDE_Rasterdetector();
    WDE_Rasterdetector(int index);
    WDE_Rasterdetector(const WDE_Rasterdetector& other);
    WDE_Rasterdetector& operator=(const WDE_Rasterdetector& other);
    ~WDE_Rasterdetector() override;

    using IKMObject::Check;
    // True when channel step, minimum fixed-frequency length, exciter set and
    // threshold mode are set, together with the absolute threshold in mode
    // ABSOLUTE or the relative threshold and its averaging time in mode
    // RELATIVE. Any other mode gives false.
    bool HasData() const override;
    // Clears every value, index and item name included; the version and the
    // Active flag stay.
    void Reset() override;
    // Throws "<object>:Please set <field>!" for the first missing value.
    void Check() const override;
    // Always writes the element; the threshold values, the averaging time and
    // the amplifier only when set.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Reads the attributes ("Index" and "Name" only when present), then the
    // children. Nothing is reset first.
    void ProcessXml(QXmlStreamReader& reader) override;
    const QString& GetVersion() const override;

    // True when any value but Active is set or the frequency list is not empty.
    bool AnyData() const;

    // "WDE_Rasterdetector", the element and object name.
    static QString GetName();

    QString GetItemName() { return m_itemName; }
    void SetItemName(const QString& itemName) { m_itemName = itemName; }
    int GetIndex() { return m_index; }
    void SetIndex(int index) { m_index = index; }
    double GetChannelStep() const { return m_channelStep; }
    void SetChannelStep(double channelStep) { m_channelStep = channelStep; }
    double GetMinimumFixedFrequencyLength() const { return m_minimumFixedFrequencyLength; }
    void SetMinimumFixedFrequencyLength(double length) { m_minimumFixedFrequencyLength = length; }
    unsigned int GetExciterSet() const;
    void SetExicterSet(unsigned int exciterSet) { m_exciterSet = exciterSet; }
    bool GetActive() const { return m_active; }
    void SetActive(bool active) { m_active = active; }
    Amplifier GetAmplifier() const { return m_amplifier; }
    void SetAmplifier(Amplifier amplifier) { m_amplifier = amplifier; }
    ThresholdMode GetThresholdMode() const { return m_thresholdMode; }
    void SetThresholdMode(ThresholdMode thresholdMode) { m_thresholdMode = thresholdMode; }
    double GetAbsoluteThresholdValue() const { return m_absoluteThresholdValue; }
    void SetAbsoluteThresholdValue(double value) { m_absoluteThresholdValue = value; }
    double GetRelativeThresholdValue() const { return m_relativeThresholdValue; }
    void SetRelativeThresholdValue(double value) { m_relativeThresholdValue = value; }
    AvgTime GetRelativeThresholdAvgTime() const { return m_relativeThresholdAvgTime; }
    void SetRelativeThresholdAvgTime(AvgTime avgTime) { m_relativeThresholdAvgTime = avgTime; }
    QVector<double>& GetFrequencyList() { return m_frequencyList; }
    const QVector<double>& GetFrequencyList() const { return m_frequencyList; }
    void SetFrequencyList(const QVector<double>& frequencyList) { m_frequencyList = frequencyList; }
    void AppendFrequency(const double& frequency);

    // Exact, case-sensitive; an unknown text gives -1, an unknown value the
    // empty text. The SKPI pair uses the instrument's words ("SHORt",
    // "MIDDLe", "LONG"); the XML uses the display texts.
    QString GetStringForAmplifier(Amplifier amplifier) const;
    Amplifier GetAmplifierForString(const QString& text) const;
    QString GetStringForThresholdMode(ThresholdMode thresholdMode) const;
    ThresholdMode GetThresholdModeForString(const QString& text) const;
    QString GetStringForAvgTime(AvgTime avgTime) const;
    AvgTime GetAvgTimeForString(const QString& text) const;
    QString GetSKPIStringForAvgTime(AvgTime avgTime) const;
    AvgTime GetAvgTimeForSKPIString(const QString& text) const;

protected:
    // Reads the known children; any other child is left for the element loop
    // to skip. A "Frequency" child replaces the whole list.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    QString m_itemName;
    QString m_version;
    int m_index;
    double m_channelStep;
    double m_minimumFixedFrequencyLength;
    unsigned int m_exciterSet;
    bool m_active;
    Amplifier m_amplifier;
    ThresholdMode m_thresholdMode;
    double m_absoluteThresholdValue;
    double m_relativeThresholdValue;
    AvgTime m_relativeThresholdAvgTime;
    QVector<double> m_frequencyList;
};

} // namespace KELMORA

#endif
