#ifndef KELMORA_VALUEMINMAX_H
#define KELMORA_VALUEMINMAX_H

#include <IKMObject.h>
#include <KelmoraBaseExport.h>
#include <MinMax.h>

namespace KELMORA {

// A named value with a minimum and a maximum. The owner gives the name, which
// is the element name written and read; Reset() keeps it.
//
// XML form: <Name Minimum="..." Maximum="...">value</Name>. Each number is
// written in the shortest text that reads back to the same double; an unset
// number is left out (the value as empty text, a bound as a missing
// attribute) and reads back unset. ReadValuesFromXml therefore also accepts a
// plain text element holding only the value. A text that is not a number
// reads as 0.
//
// HasData() is true when the value is set, whatever the bounds; AnyData() when
// any of the three is set; Check() throws "<name>: Please set Value!" while the
// value is unset.
class KELMORABASE_EXPORT ValueMinMax : public IKMObject {
public:
    ValueMinMax();
    explicit ValueMinMax(const QString& elementName);
    ValueMinMax(const QString& elementName, double value, double min, double max);
    ValueMinMax(const ValueMinMax& other);
    ValueMinMax& operator=(const ValueMinMax& other);
    ~ValueMinMax() override;

    using IKMObject::Check;
    bool HasData() const override;
    void Reset() override;
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;

    bool AnyData() const;

    // The range as a pair; no order between minimum and maximum is enforced.
    MinMax GetMinMax() const { return MinMax(minimum, maximum); }
    void GetMinMax(double& min, double& max) const {
        min = minimum;
        max = maximum;
    }
    void SetMinMax(const MinMax& range) {
        maximum = range.GetMax();
        minimum = range.GetMin();
    }
    void SetMinMax(double min, double max) {
        minimum = min;
        maximum = max;
    }
    // Reads the element at the reader (this record's form, or a plain text
    // element); leaves the reader on its end element.
    void ReadValuesFromXml(QXmlStreamReader& reader);

    QString name;
    double value;
    double minimum;
    double maximum;
};

} // namespace KELMORA

#endif
