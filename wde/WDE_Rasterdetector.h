// SPDX-License-Identifier: MIT
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
    // The amplifier band, element "Amplifier" (written when set).
    // -1 is unset in each of the three.
    enum Amplifier : qint32 {
        // "VUHF".
        AMPLIFIER_VUHF = 0,
        // "UHF1".
        AMPLIFIER_UHF1 = 1,
        // "UHF2".
        AMPLIFIER_UHF2 = 2,
        // "SHF1".
        AMPLIFIER_SHF1 = 3,
        // "SHF2".
        AMPLIFIER_SHF2 = 4
    };
    // \var THRESHOLDMODE_ABSOLUTE
    // "ABSOLUTE": the absolute threshold applies.

    // \var THRESHOLDMODE_RELATIVE
    // "RELATIVE": the relative threshold and its averaging time apply.

    // \var AVGTIME_SHORT
    // "SHORT" (instrument word "SHORt").

    // \var AVGTIME_MIDDLE
    // "MIDDLE" (instrument word "MIDDLe").

    // \var AVGTIME_LONG
    // "LONG" (instrument word "LONG").

    // Which threshold applies, element "ThresholdMode" (written always, empty while unset).
    enum ThresholdMode : qint32 { THRESHOLDMODE_ABSOLUTE = 0, THRESHOLDMODE_RELATIVE = 1 };
    // The averaging time of the relative threshold, element "RelativeThresholdAvgTime" (written
    // when set); -1 is unset.
    enum AvgTime : qint32 { AVGTIME_SHORT = 0, AVGTIME_MIDDLE = 1, AVGTIME_LONG = 2 };

    // An item with every value unset, no index and no name; version "0.1", object name
    // "WDE_Rasterdetector".
    WDE_Rasterdetector();
    // As the default constructor, with the given index (attribute "Index"). WDE gives each item it
    // reads its position in the list.
    WDE_Rasterdetector(int index);
    // Copies every value, the index, the name and the version.
    WDE_Rasterdetector(const WDE_Rasterdetector& other);
    // Assigns what the copy constructor copies.
    WDE_Rasterdetector& operator=(const WDE_Rasterdetector& other);
    // Nothing to release beyond the values.
    ~WDE_Rasterdetector() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // True when channel step, minimum fixed-frequency length, exciter set and
    // threshold mode are set, together with the absolute threshold in mode
    // ABSOLUTE or the relative threshold and its averaging time in mode
    // RELATIVE. Any other mode gives false.
    bool HasData() const override;
    // Clears every value, index and item name included; the version and the
    // Active flag stay.
    void Reset() override;
    // Tests ChannelStep, MinimumFixedFrequencyLength, ExciterSet and ThresholdMode, then
    // AbsoluteThresholdValue in mode ABSOLUTE, or RelativeThresholdValue and
    // RelativeThresholdAvgTime in mode RELATIVE, in this order; the first unset one throws
    // KMException, e.g. "WDE_Rasterdetector:Please set ChannelStep!" (no blank after the colon).
    // Throws "<object>:Please set <field>!" for the first missing value.
    void Check() const override;
    // Always writes the element; the threshold values, the averaging time and
    // the amplifier only when set.
    void GetXml(QXmlStreamWriter& writer) const override;
    // Reads the attributes ("Index" and "Name" only when present), then the
    // children. Nothing is reset first.
    // Unknown children are passed over, texts outside a table read as -1, numbers that do not
    // convert as 0. Only a document that is not well-formed throws KMException ("XML error: ...").
    void ProcessXml(QXmlStreamReader& reader) override;
    // The version text, attribute "Version": "0.1" unless read otherwise.
    const QString& GetVersion() const override;

    // True when any value but Active is set or the frequency list is not empty.
    bool AnyData() const;

    // "WDE_Rasterdetector", the element and object name.
    static QString GetName();

    // The name of the item, attribute "Name"; empty (no attribute) while unset.
    QString GetItemName() { return m_itemName; }
    // Sets the name of the item (attribute "Name").
    void SetItemName(const QString& itemName) { m_itemName = itemName; }
    // The index, attribute "Index"; -2147483648 (no attribute) while unset.
    int GetIndex() { return m_index; }
    // Sets the index (attribute "Index"), unchecked; nothing renumbers the items of a list.
    void SetIndex(int index) { m_index = index; }
    // The channel step of the raster, element "ChannelStep" (six digits); -111111.11 while unset
    // (written -111111).
    double GetChannelStep() const { return m_channelStep; }
    // Sets the channel step (element "ChannelStep").
    void SetChannelStep(double channelStep) { m_channelStep = channelStep; }
    // The minimum fixed-frequency length, element "MinimumFixedFrequencyLength" (six digits);
    // -111111.11 while unset (written -111111).
    double GetMinimumFixedFrequencyLength() const { return m_minimumFixedFrequencyLength; }
    // Sets the minimum fixed-frequency length (element "MinimumFixedFrequencyLength").
    void SetMinimumFixedFrequencyLength(double length) { m_minimumFixedFrequencyLength = length; }
    // The number of the exciter set, element "ExciterSet"; 4294967295 while unset.
    unsigned int GetExciterSet() const;
    // Sets the number of the exciter set (element "ExciterSet"); the name is spelt so.
    void SetExicterSet(unsigned int exciterSet) { m_exciterSet = exciterSet; }
    // Whether the detector is in use, element "Active"; false for a new item, and Reset() leaves it
    // alone.
    bool GetActive() const { return m_active; }
    // Switches the detector on or off (element "Active").
    void SetActive(bool active) { m_active = active; }
    // The amplifier band, element "Amplifier"; -1 while unset.
    Amplifier GetAmplifier() const { return m_amplifier; }
    // Sets the amplifier band (element "Amplifier"), unchecked.
    void SetAmplifier(Amplifier amplifier) { m_amplifier = amplifier; }
    // Which threshold applies, element "ThresholdMode"; -1 while unset.
    ThresholdMode GetThresholdMode() const { return m_thresholdMode; }
    // Sets the threshold mode (element "ThresholdMode"), unchecked.
    void SetThresholdMode(ThresholdMode thresholdMode) { m_thresholdMode = thresholdMode; }
    // The absolute threshold, element "AbsoluteThresholdValue" (six digits, written when set);
    // -111111.11 while unset.
    double GetAbsoluteThresholdValue() const { return m_absoluteThresholdValue; }
    // Sets the absolute threshold (element "AbsoluteThresholdValue").
    void SetAbsoluteThresholdValue(double value) { m_absoluteThresholdValue = value; }
    // The relative threshold, element "RelativeThresholdValue" (six digits, written when set);
    // -111111.11 while unset.
    double GetRelativeThresholdValue() const { return m_relativeThresholdValue; }
    // Sets the relative threshold (element "RelativeThresholdValue").
    void SetRelativeThresholdValue(double value) { m_relativeThresholdValue = value; }
    // The averaging time of the relative threshold, element "RelativeThresholdAvgTime"; -1 while
    // unset.
    AvgTime GetRelativeThresholdAvgTime() const { return m_relativeThresholdAvgTime; }
    // Sets the averaging time (element "RelativeThresholdAvgTime"), unchecked.
    void SetRelativeThresholdAvgTime(AvgTime avgTime) { m_relativeThresholdAvgTime = avgTime; }
    // The raster's frequencies, element "Frequency" (one Base64 text of little-endian doubles), to
    // change in place; empty while unset.
    QVector<double>& GetFrequencyList() { return m_frequencyList; }
    // The raster's frequencies, element "Frequency".
    const QVector<double>& GetFrequencyList() const { return m_frequencyList; }
    // Replaces the frequencies.
    void SetFrequencyList(const QVector<double>& frequencyList) { m_frequencyList = frequencyList; }
    // Adds a frequency at the end of the list.
    void AppendFrequency(const double& frequency);

    // Exact, case-sensitive; an unknown text gives -1, an unknown value the
    // empty text. The SKPI pair uses the instrument's words ("SHORt",
    // "MIDDLe", "LONG"); the XML uses the display texts.
    // The text of an amplifier band ("VUHF" to "SHF2"); empty outside the table.
    QString GetStringForAmplifier(Amplifier amplifier) const;
    // The amplifier band of a text; -1 for any other text.
    Amplifier GetAmplifierForString(const QString& text) const;
    // The text of a threshold mode ("ABSOLUTE", "RELATIVE"); empty outside the table.
    QString GetStringForThresholdMode(ThresholdMode thresholdMode) const;
    // The threshold mode of a text; -1 for any other text.
    ThresholdMode GetThresholdModeForString(const QString& text) const;
    // The text of an averaging time ("SHORT", "MIDDLE", "LONG"); empty outside the table.
    QString GetStringForAvgTime(AvgTime avgTime) const;
    // The averaging time of a text; -1 for any other text, the instrument words included.
    AvgTime GetAvgTimeForString(const QString& text) const;
    // The instrument word of an averaging time ("SHORt", "MIDDLe", "LONG"); empty outside the
    // table.
    QString GetSKPIStringForAvgTime(AvgTime avgTime) const;
    // The averaging time of an instrument word; -1 for any other text.
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
