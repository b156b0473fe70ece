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

    QString GetItemName();
    void SetItemName(const QString& itemName);
    int GetIndex();
    void SetIndex(int index);
    double GetChannelStep() const;
    void SetChannelStep(double channelStep);
    double GetMinimumFixedFrequencyLength() const;
    void SetMinimumFixedFrequencyLength(double length);
    unsigned int GetExciterSet() const;
    void SetExicterSet(unsigned int exciterSet);
    bool GetActive() const;
    void SetActive(bool active);
    Amplifier GetAmplifier() const;
    void SetAmplifier(Amplifier amplifier);
    ThresholdMode GetThresholdMode() const;
    void SetThresholdMode(ThresholdMode thresholdMode);
    double GetAbsoluteThresholdValue() const;
    void SetAbsoluteThresholdValue(double value);
    double GetRelativeThresholdValue() const;
    void SetRelativeThresholdValue(double value);
    AvgTime GetRelativeThresholdAvgTime() const;
    void SetRelativeThresholdAvgTime(AvgTime avgTime);
    QVector<double>& GetFrequencyList();
    const QVector<double>& GetFrequencyList() const;
    void SetFrequencyList(const QVector<double>& frequencyList);
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
