// SPDX-License-Identifier: MIT
#include "NumberText.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <system_error>

namespace KELMORA {
namespace NumberText {

namespace {

constexpr int kSignificantDigits = 6;
// Longer texts are rare in settings files; they take QString::toDouble.
constexpr int kLongestShortCutText = 48;

// Writes the exponent as QString::number does: a sign and at least two digits.
char* WriteExponent(char* out, int exponent) {
    *out++ = 'e';
    *out++ = exponent < 0 ? '-' : '+';
    const int magnitude = exponent < 0 ? -exponent : exponent;
    if (magnitude >= 100)
        *out++ = static_cast<char>('0' + magnitude / 100);
    *out++ = static_cast<char>('0' + magnitude / 10 % 10);
    *out++ = static_cast<char>('0' + magnitude % 10);
    return out;
}

// Powers of ten up to 1e22 are exact doubles; magnitudes in this range
// need no other power for six digits.
constexpr double kSmallestShortCut = 1e-15;
constexpr double kLargestShortCut = 1e21;
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// magnitude * 10^(5 - exponent), for exponents from -16 to 22.
double ScaleToSixDigits(double magnitude, int exponent) {
    const int shift = 5 - exponent;
    return shift >= 0 ? magnitude * kPowersOfTen[shift] : magnitude / kPowersOfTen[-shift];
}

bool IsDigit(ushort c) {
    return c >= '0' && c <= '9';
}

// Copies a text of the form -?d+(.d+)?([eE][+-]?d+)? into `out`; false for
// anything else (blanks, a leading '+', ".5", "nan", non-ASCII digits...).
// `mantissaIsZero` tells whether every digit before the exponent is 0.
bool CopyPlainNumber(const QChar* text, int size, char* out, bool& mantissaIsZero) {
    const auto* c = reinterpret_cast<const ushort*>(text);
    int i = 0;
    mantissaIsZero = true;
    auto digits = [&] {
        const int start = i;
        for (; i < size && IsDigit(c[i]); ++i) {
            if (c[i] != '0')
                mantissaIsZero = false;
            out[i] = static_cast<char>(c[i]);
        }
        return i > start;
    };
    if (i < size && c[i] == '-') {
        out[i] = '-';
        ++i;
    }
    if (!digits())
        return false;
    if (i < size && c[i] == '.') {
        out[i] = '.';
        ++i;
        if (!digits())
            return false;
    }
    if (i < size && (c[i] == 'e' || c[i] == 'E')) {
        out[i] = static_cast<char>(c[i]);
        ++i;
        if (i < size && (c[i] == '+' || c[i] == '-')) {
            out[i] = static_cast<char>(c[i]);
            ++i;
        }
        const bool zero = mantissaIsZero; // exponent digits do not count
        if (!digits())
            return false;
        mantissaIsZero = zero;
    }
    return i == size;
}

// The usual short number, -?d+(.d+)?([eE][+-]?d+)?, with at most 15 digits:
// the digits as an integer are exact in a double, and when the power of ten
// that scales them is one of the exact ones, a single correctly rounded
// multiplication or division gives the correctly rounded value (Clinger's
// fast path). False for anything else, which takes the general way.
bool ShortNumber(const QChar* text, int size, double& value) {
    const auto* c = reinterpret_cast<const ushort*>(text);
    int i = c[0] == '-' ? 1 : 0;
    const bool negative = i == 1;
    quint64 digits = 0;
    int count = 0;
    int decimals = -1; // digits after the point, once there is one
    for (; i < size && c[i] != 'e' && c[i] != 'E'; ++i) {
        if (IsDigit(c[i])) {
            digits = digits * 10 + (c[i] - '0');
            ++count;
            if (decimals >= 0)
                ++decimals;
        } else if (c[i] == '.' && decimals < 0 && count > 0) {
            decimals = 0;
        } else {
            return false;
        }
    }
    if (count == 0 || count > 15 || decimals == 0)
        return false;
    int exponent = 0;
    if (i < size) { // the exponent: a sign and one to three digits
        ++i;
        const bool negativeExponent = i < size && c[i] == '-';
        if (i < size && (c[i] == '-' || c[i] == '+'))
            ++i;
        if (i == size || size - i > 3)
            return false;
        for (; i < size; ++i) {
            if (!IsDigit(c[i]))
                return false;
            exponent = exponent * 10 + (c[i] - '0');
        }
        if (negativeExponent)
            exponent = -exponent;
    }
    const int scale = exponent - (decimals > 0 ? decimals : 0);
    if (scale < -22 || scale > 22)
        return false;
    const double magnitude = static_cast<double>(digits);
    const double exact =
        scale >= 0 ? magnitude * kPowersOfTen[scale] : magnitude / kPowersOfTen[-scale];
    value = negative ? -exact : exact;
    return true;
}

double ToDouble(const QChar* text, qsizetype size, bool& converted) {
    double value = 0;
    converted = size > 0 && size <= 24 && ShortNumber(text, static_cast<int>(size), value);
    if (converted)
        return value;
    char plain[kLongestShortCutText];
    bool mantissaIsZero = true;
    if (size <= 0 || size > kLongestShortCutText ||
        !CopyPlainNumber(text, static_cast<int>(size), plain, mantissaIsZero))
        return 0;
    const std::from_chars_result result = std::from_chars(plain, plain + size, value);
    // Overflow and underflow keep QString::toDouble's own answers.
    if (result.ec != std::errc() || result.ptr != plain + size || std::isinf(value) ||
        (value == 0 && !mantissaIsZero))
        return 0;
    converted = true;
    return value;
}

// Plain decimal digits, at most ten of them, as an unsigned 64-bit value;
// false for anything else (signs, blanks, other digits, more digits).
bool PlainDigits(const QChar* text, qsizetype size, quint64& value) {
    if (size <= 0 || size > 10)
        return false;
    value = 0;
    for (int i = 0; i < size; ++i) {
        const ushort c = text[i].unicode();
        if (!IsDigit(c))
            return false;
        value = value * 10 + (c - '0');
    }
    return true;
}

// An optional '-' and plain digits within the range of int.
int ToInt(const QChar* text, qsizetype size, bool& converted) {
    const bool negative = size > 0 && text[0] == QLatin1Char('-');
    quint64 magnitude = 0;
    converted = PlainDigits(text + negative, size - negative, magnitude) &&
                magnitude <= (negative ? 2147483648u : 2147483647u);
    if (!converted)
        return 0;
    return static_cast<int>(negative ? -static_cast<qint64>(magnitude)
                                     : static_cast<qint64>(magnitude));
}

} // namespace

QString GeneralSix(double value) {
    // Zero (whose sign QString::number drops), NaN, infinities and magnitudes
    // outside the exact powers of ten below are rare: QString::number.
    const double magnitude = std::fabs(value);
    if (!(magnitude >= kSmallestShortCut && magnitude < kLargestShortCut))
        return QString::number(value, 'g', kSignificantDigits);

    // The decimal exponent from the binary one, corrected below when the
    // estimate is one off. floor(log10(2) * e) is (e * 1233) >> 12.
    quint64 bits = 0;
    std::memcpy(&bits, &magnitude, sizeof bits);
    int exponent = ((static_cast<int>(bits >> 52) - 1023) * 1233) >> 12;
    // magnitude scaled to six digits before the point: one rounding at most,
    // as the powers of ten used are exact.
    double scaled = ScaleToSixDigits(magnitude, exponent);
    if (scaled >= 1e6)
        scaled = ScaleToSixDigits(magnitude, ++exponent);
    else if (scaled < 1e5)
        scaled = ScaleToSixDigits(magnitude, --exponent);
    const double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    // Near a tie the one rounding above could decide the side, and an exact
    // tie QString::number rounds away from zero: leave those to it.
    if (std::fabs(fraction - 0.5) < 1e-6)
        return QString::number(value, 'g', kSignificantDigits);
    quint32 six = static_cast<quint32>(whole) + (fraction > 0.5 ? 1 : 0);
    if (six == 1000000) {
        six = 100000;
        ++exponent;
    }

    char digits[kSignificantDigits];
    for (int i = kSignificantDigits - 1; i >= 0; --i, six /= 10)
        digits[i] = static_cast<char>('0' + six % 10);
    int count = kSignificantDigits;
    while (count > 1 && digits[count - 1] == '0')
        --count;

    char text[40];
    char* out = text;
    if (value < 0)
        *out++ = '-';
    if (exponent < -4 || exponent >= kSignificantDigits) {
        *out++ = digits[0];
        if (count > 1) {
            *out++ = '.';
            for (int i = 1; i < count; ++i)
                *out++ = digits[i];
        }
        out = WriteExponent(out, exponent);
    } else if (exponent >= 0) {
        for (int i = 0; i <= exponent; ++i)
            *out++ = i < count ? digits[i] : '0';
        if (count > exponent + 1) {
            *out++ = '.';
            for (int i = exponent + 1; i < count; ++i)
                *out++ = digits[i];
        }
    } else {
        *out++ = '0';
        *out++ = '.';
        for (int i = -1; i > exponent; --i)
            *out++ = '0';
        for (int i = 0; i < count; ++i)
            *out++ = digits[i];
    }
    return QString::fromLatin1(text, static_cast<int>(out - text));
}

double ToDouble(const QString& text) {
    bool converted = false;
    const double value = ToDouble(text.constData(), text.size(), converted);
    return converted ? value : text.toDouble();
}

double ToDouble(QStringView text) {
    bool converted = false;
    const double value = ToDouble(text.data(), text.size(), converted);
    return converted ? value : text.toDouble();
}

int ToInt(const QString& text) {
    bool converted = false;
    const int value = ToInt(text.constData(), text.size(), converted);
    return converted ? value : text.toInt(nullptr, 10);
}

int ToInt(QStringView text) {
    bool converted = false;
    const int value = ToInt(text.data(), text.size(), converted);
    return converted ? value : text.toInt(nullptr, 10);
}

unsigned int ToUnsigned(const QString& text) {
    quint64 value = 0;
    if (PlainDigits(text.constData(), text.size(), value) && value <= 4294967295u)
        return static_cast<unsigned int>(value);
    return text.toUInt(nullptr, 10);
}

unsigned int ToUnsigned(QStringView text) {
    quint64 value = 0;
    if (PlainDigits(text.data(), text.size(), value) && value <= 4294967295u)
        return static_cast<unsigned int>(value);
    return text.toUInt(nullptr, 10);
}

} // namespace NumberText
} // namespace KELMORA
