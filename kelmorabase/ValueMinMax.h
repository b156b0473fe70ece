// SPDX-License-Identifier: MIT
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
    // A range without element name, all three numbers unset.
    ValueMinMax();
    // A range of that element name, all three numbers unset (-111111.11).
    explicit ValueMinMax(const QString& elementName);
    // A range of that element name holding the given value, minimum and maximum.
    ValueMinMax(const QString& elementName, double value, double min, double max);
    // Copies the name and the three numbers.
    ValueMinMax(const ValueMinMax& other);
    // Assigns the name and the three numbers.
    ValueMinMax& operator=(const ValueMinMax& other);
    // Nothing to release.
    ~ValueMinMax() override;

    // IKMObject's Check(bool), which runs Check() and reports the result.
    using IKMObject::Check;
    // The value is set, whatever the bounds.
    bool HasData() const override;
    // Value, minimum and maximum back to unset; the name stays.
    void Reset() override;
    // Throws KMException "<name>: Please set Value!" while the value is unset.
    void Check() const override;
    // Writes the element named by name: the set bounds as attributes "Minimum" and "Maximum", the
    // value (if set) as its text.
    void GetXml(QXmlStreamWriter& writer) const override;

    // Any of value, minimum and maximum is set.
    bool AnyData() const;

    // The range as a pair; no order between minimum and maximum is enforced.
    MinMax GetMinMax() const { return MinMax(minimum, maximum); }
    // Stores the minimum in min and the maximum in max.
    void GetMinMax(double& min, double& max) const {
        min = minimum;
        max = maximum;
    }
    // Takes the minimum and the maximum of the pair.
    void SetMinMax(const MinMax& range) {
        maximum = range.GetMax();
        minimum = range.GetMin();
    }
    // Sets the minimum and the maximum, without comparing them.
    void SetMinMax(double min, double max) {
        minimum = min;
        maximum = max;
    }
    // Reads the element at the reader (this record's form, or a plain text
    // element); leaves the reader on its end element.
    void ReadValuesFromXml(QXmlStreamReader& reader);

    // The element name, given by the owner; Reset() keeps it.
    QString name;
    // The value, the element's text; -111111.11 (written as the empty text) while unset.
    double value;
    // The minimum, attribute "Minimum"; -111111.11 (attribute left out) while unset.
    double minimum;
    // The maximum, attribute "Maximum"; -111111.11 (attribute left out) while unset.
    double maximum;
};

} // namespace KELMORA

#endif
