// SPDX-License-Identifier: MIT
#ifndef KELMORA_SCANPARAMETER_H
#define KELMORA_SCANPARAMETER_H

#include <IKMObject.h>
#include <KelmoraBaseExport.h>

#include <array>

namespace KELMORA {

// A frequency scan: start and stop frequency, step width and dwell time.
//
// XML form: element "ScanParameter" with the children "StartFrequency",
// "StopFrequency", "StepWidth" and "DwellTime", each written only when set,
// in the shortest text that reads back to the same double. Reading rejects an
// unknown child with "Unknown Tag '<child>' in 'ScanParameter'"; a text that
// is not a number reads as 0.
//
// HasData(): start, stop and step are set (the dwell time is optional).
// AnyData(): any of the four is set. Check() reports the first of start, stop,
// step that is unset as "ScanParameter: Please set <name>!".
class KELMORABASE_EXPORT ScanParameter : public IKMObject {
public:
    // A scan parameter with all four values unset (-111111.11).
    ScanParameter();
    // Copies the four values.
    ScanParameter(const ScanParameter& other);
    // Assigns the four values.
    ScanParameter& operator=(const ScanParameter& other);
    // Nothing to release.
    ~ScanParameter() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // Start frequency, stop frequency and step width are set.
    bool HasData() const override;
    // All four values back to unset.
    void Reset() override;
    // Throws KMException "ScanParameter: Please set StartFrequency!" (or StopFrequency, StepWidth)
    // for the first of them that is unset.
    void Check() const override;
    // Writes the "ScanParameter" element with each set value as a child; it does not test HasData()
    // (TGN writes it only when complete).
    void GetXml(QXmlStreamWriter& writer) const override;
    // Reads the children; an unknown one throws KMException "Unknown Tag '<child>' in
    // 'ScanParameter'". Nothing is reset first.
    void ProcessXml(QXmlStreamReader& reader) override;

    // Any of the four values is set.
    bool AnyData() const;

    // The start frequency, element "StartFrequency"; -111111.11 while unset.
    double GetStartFrequency() const { return m_startFrequency; }
    // Sets the start frequency (element "StartFrequency"); -111111.11 makes it unset.
    void SetStartFrequency(double frequency) { m_startFrequency = frequency; }
    // The stop frequency, element "StopFrequency"; -111111.11 while unset.
    double GetStopFrequency() const { return m_stopFrequency; }
    // Sets the stop frequency (element "StopFrequency").
    void SetStopFrequency(double frequency) { m_stopFrequency = frequency; }
    // The step width, element "StepWidth"; -111111.11 while unset.
    double GetStepWidth() const { return m_stepWidth; }
    // Sets the step width (element "StepWidth").
    void SetStepWidth(double stepWidth) { m_stepWidth = stepWidth; }
    // The dwell time per step, element "DwellTime", optional; -111111.11 while unset.
    double GetDwellTime() const { return m_dwellTime; }
    // Sets the dwell time (element "DwellTime").
    void SetDwellTime(double dwellTime) { m_dwellTime = dwellTime; }

protected:
    // Reads one of the four children; throws KMException for any other.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    // The fields in element order, with their element names; the one table
    // behind checking, writing and reading.
    struct Field {
        const QString& name;
        double* value;
    };
    std::array<Field, 4> Fields() const;

    double m_startFrequency;
    double m_stopFrequency;
    double m_stepWidth;
    double m_dwellTime;
};

} // namespace KELMORA

#endif
