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
    ScanParameter();
    ScanParameter(const ScanParameter& other);
    ScanParameter& operator=(const ScanParameter& other);
    ~ScanParameter() override;

    using IKMObject::Check;
    bool HasData() const override;
    void Reset() override;
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    void ProcessXml(QXmlStreamReader& reader) override;

    bool AnyData() const;

    double GetStartFrequency() const { return m_startFrequency; }
    void SetStartFrequency(double frequency) { m_startFrequency = frequency; }
    double GetStopFrequency() const { return m_stopFrequency; }
    void SetStopFrequency(double frequency) { m_stopFrequency = frequency; }
    double GetStepWidth() const { return m_stepWidth; }
    void SetStepWidth(double stepWidth) { m_stepWidth = stepWidth; }
    double GetDwellTime() const { return m_dwellTime; }
    void SetDwellTime(double dwellTime) { m_dwellTime = dwellTime; }

protected:
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
