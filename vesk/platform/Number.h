/// \file
/// Number parsing of the platform layer: 16-bit text to integers and floating
/// point with syntax and range checks. The text is taken as it is (callers
/// trim it first): an optional sign, then digits (and for floating point a
/// fraction, an exponent, "inf" or "nan"), and nothing after them. Empty
/// text, any other character and values beyond the target type's range are
/// refused. Parsing never depends on the C locale.
#ifndef VESK_PLATFORM_NUMBER_H
#define VESK_PLATFORM_NUMBER_H

namespace vesk {
namespace platform {

/// Signed decimal integer within [minimum, maximum]; false when the text is
/// not one or the value is outside.
bool ParseSigned(const unsigned short* text, long long minimum, long long maximum, long long* value);
/// Unsigned decimal integer up to maximum ("+" allowed, "-" refused).
bool ParseUnsigned(const unsigned short* text, unsigned long long maximum, unsigned long long* value);
/// Floating point number that fits a float (overflow refused).
bool ParseFloat(const unsigned short* text, float* value);
/// Floating point number that fits a double (overflow refused).
bool ParseDouble(const unsigned short* text, double* value);
/// The lenient scan of "%llu": leading white space skipped, an optional sign
/// (a minus negates modulo 2^64), then at least one digit; whatever follows
/// the digits is ignored and a value beyond the range saturates. False only
/// when no digit is found.
bool ScanUnsigned64(const unsigned short* text, unsigned long long* value);

}  // namespace platform
}  // namespace vesk

#endif
