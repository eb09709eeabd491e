#pragma once

#include <array>
#include <bit>
#include <cstring>
#include <string_view>

#include "VKT/base/Types.h"

// Numbers to text and back: the inner loops of the text streams. The texts are those of
// standard streams in the classic locale, whatever the process's locale, and nothing
// here allocates.
//
// Both directions have a short path that is exact and a general one for the rest. The
// short paths treat eight characters as one word, so that their time depends on the
// number of digits as little as possible.
namespace VKT::NumberText {

// ---- Characters and words of eight ----

inline bool IsSpace(char character)
{
    return character == ' ' || static_cast<unsigned char>(character - '\t') < 5;
}
// The value of a digit; above 9 for any other character.
inline u32 DigitOf(char character)
{
    return static_cast<unsigned char>(character - '0');
}
inline bool IsDigit(char character)
{
    return DigitOf(character) < 10;
}

// Only of the letters A to Z.
inline char ToLower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

// Eight characters as a word with the first in its lowest byte.
static_assert(std::endian::native == std::endian::little);
inline u64 LoadWord(const char* from)
{
    u64 word;
    std::memcpy(&word, from, sizeof word);
    return word;
}
inline void StoreWord(char* to, u64 word)
{
    std::memcpy(to, &word, sizeof word);
}

// Which of 64 characters are white space: bit i stands for character i.
inline u64 FindSpaces(const char* text)
{
    char isSpace[64];
    for (unsigned i = 0; i < 64; ++i)
        isSpace[i] = IsSpace(text[i]);
    u64 spaces = 0;
    for (unsigned i = 0; i < 64; i += 8)  // eight bytes of 0 or 1 to eight bits
        spaces |= (LoadWord(isSpace + i) * 0x0102040810204080 >> 56) << i;
    return spaces;
}

// ---- Text to numbers ----

inline constexpr u64 kZeroes = 0x3030303030303030;  // "00000000"

// Whether any byte is above 9.
inline bool HasForeign(u64 digits)
{
    return ((digits + 0x7676767676767676) | digits) & 0x8080808080808080;
}

// The number that eight digits stand for, bytes from 0 to 9, the first in the lowest.
inline u32 FromDigits(u64 digits)
{
    const u64 pairs = digits * 10 + (digits >> 8);  // in bytes 0, 2, 4 and 6
    const u64 first = (pairs & 0x000000FF000000FF) * (100 + (u64{1000000} << 32));
    const u64 second = ((pairs >> 16) & 0x000000FF000000FF) * (1 + (u64{10000} << 32));
    return static_cast<u32>((first + second) >> 32);
}

// The last 1 to 8 characters before `end`, less '0', with zeroes in front.
inline u64 LoadDigits(const char* end, std::size_t length)
{
    const unsigned unused = 64 - 8 * static_cast<unsigned>(length);
    return (LoadWord(end - 8) ^ kZeroes) >> unused << unused;
}

// What a float holds exactly: a number of 24 bits, and a power of ten up to 10^10. One
// division of such numbers gives the float that is nearest to the true quotient.
inline constexpr u32 kExactMantissa = 1 << 24;
inline constexpr int kMostDecimals = 10;
inline f32 WithDecimals(u32 mantissa, std::size_t decimals, u32 negative)
{
    static constexpr f32 kPowers[kMostDecimals + 1] = {1e0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f,
                                                       1e6f, 1e7f, 1e8f, 1e9f, 1e10f};
    const f32 magnitude = static_cast<f32>(static_cast<i32>(mantissa)) / kPowers[decimals];
    return std::bit_cast<f32>(std::bit_cast<u32>(magnitude) | negative << 31);
}

// The short paths of reading: whole tokens of at most eight digits. False means that the
// general path has to look. Eight characters before `end` must be readable.
inline bool ParseShort(const char* begin, const char* end, u32& value)
{
    const std::size_t length = static_cast<std::size_t>(end - begin);
    if (length - 1 > 7)
        return false;
    const u64 digits = LoadDigits(end, length);
    if (HasForeign(digits))
        return false;
    value = FromDigits(digits);
    return true;
}
inline bool ParseShort(const char* begin, const char* end, i32& value)
{
    const bool negative = *begin == '-';
    u32 magnitude = 0;
    if (!ParseShort(begin + negative, end, magnitude))
        return false;
    value = negative ? -static_cast<i32>(magnitude) : static_cast<i32>(magnitude);
    return true;
}
// A float without exponent.
inline bool ParseShort(const char* begin, const char* end, f32& value)
{
    const u32 negative = *begin == '-';
    begin += negative;
    const bool isFraction = begin[0] == '0' && begin[1] == '.';  // the usual thing below 1
    if (isFraction)
        begin += 2;
    const std::size_t length = static_cast<std::size_t>(end - begin);
    if (length - 1 > 7)
        return false;
    u64 digits = LoadDigits(end, length);
    std::size_t decimals = isFraction ? length : 0;
    if (!isFraction) {
        // No digit has this bit, and the point does.
        if (const u64 point = digits & 0x1010101010101010) {
            const unsigned at = static_cast<unsigned>(std::countr_zero(point)) & ~7u;
            if ((digits >> at & 0xFF) != ('.' ^ '0') || length == 1)
                return false;
            const u64 before = (u64{1} << at) - 1;
            digits = (digits & ~(before << 8 | 0xFF)) | (digits & before) << 8;
            decimals = 7 - at / 8;
        }
    }
    if (HasForeign(digits))
        return false;
    const u32 mantissa = FromDigits(digits);
    if (mantissa > kExactMantissa)
        return false;
    value = WithDecimals(mantissa, decimals, negative);
    return true;
}

// The same for a single number whose end is not known yet: answers it, or null when the
// general path has to look. Plain loops: while numbers resemble each other, the
// processor guesses their lengths and does not wait for one to find the next. A
// character that is no digit must follow somewhere.
inline const char* ScanShort(const char* begin, u32& value)
{
    u32 number = 0;
    const char* at = begin;
    for (; IsDigit(*at); ++at)
        number = number * 10 + DigitOf(*at);
    if (at == begin || at - begin > 9)
        return nullptr;
    value = number;
    return at;
}
inline const char* ScanShort(const char* begin, i32& value)
{
    const bool negative = *begin == '-';
    u32 magnitude = 0;
    const char* const end = ScanShort(begin + negative, magnitude);
    if (end)
        value = negative ? -static_cast<i32>(magnitude) : static_cast<i32>(magnitude);
    return end;
}
inline const char* ScanShort(const char* begin, f32& value)
{
    const u32 negative = *begin == '-';
    begin += negative;
    const char* at = begin;
    u64 mantissa = 0;
    for (; IsDigit(*at); ++at)
        mantissa = mantissa * 10 + DigitOf(*at);
    std::ptrdiff_t digits = at - begin;
    std::ptrdiff_t decimals = 0;
    if (*at == '.') {
        const char* const point = at++;
        for (; IsDigit(*at); ++at)
            mantissa = mantissa * 10 + DigitOf(*at);
        decimals = at - point - 1;
        digits += decimals;
    }
    // More than 19 digits may have run over.
    if (digits == 0 || digits > 19 || decimals > kMostDecimals || mantissa > kExactMantissa)
        return nullptr;
    value = WithDecimals(static_cast<u32>(mantissa), static_cast<std::size_t>(decimals), negative);
    return at;
}

// The longest decimal number, with sign and exponent if any, that `text` begins with.
// Answers its length, 0 when there is none. Out of range gives an infinity or a zero.
std::size_t ParseDecimal(std::string_view text, f32& value);

// The general path for whole tokens: false unless the token is one number in range from
// end to end. Knows no "+" for integers and no "-" for unsigned ones.
bool ParseLong(std::string_view token, u32& value);
bool ParseLong(std::string_view token, i32& value);
bool ParseLong(std::string_view token, u64& value);
bool ParseLong(std::string_view token, f32& value);

// ---- Numbers to text ----

// A number takes at most this many characters; the room a printer may scribble on.
inline constexpr std::size_t kPrintRoom = 32;

// The texts "0000" to "9999", each as a word with the first digit in its lowest byte.
extern const std::array<u32, 10000> kFourDigits;

inline char* PrintFour(char* out, u32 value)
{
    std::memcpy(out, &kFourDigits[value], 4);
    return out + 4;
}

// The printers write behind `out` and answer the end.
inline char* Print(char* out, u32 value)
{
    constexpr u32 kFour = 10000;
    if (value >= kFour * kFour)
        return PrintFour(PrintFour(Print(out, value / (kFour * kFour)), value / kFour % kFour),
                         value % kFour);
    if (value >= kFour)
        return PrintFour(Print(out, value / kFour), value % kFour);
    const int leading = (value < 10) + (value < 100) + (value < 1000);
    const u32 text = kFourDigits[value] >> (8 * leading);
    std::memcpy(out, &text, 4);
    return out + 4 - leading;
}
inline char* Print(char* out, i32 value)
{
    const u32 bits = static_cast<u32>(value);
    *out = '-';
    return Print(out + (value < 0), value < 0 ? 0 - bits : bits);
}
char* Print(char* out, u64 value);

// What a float takes whose first digit stands at a power of ten from -5 to 5.
struct XFloatLayout {
    char lead[8];     // what stands in front of all digits
    u64 beforePoint;  // mask of the digits in front of the point
    u64 point;        // the point in its place behind them
    u8 leadSize;
    u8 wholeDigits;  // printed even when zero
};
extern const std::array<XFloatLayout, 11> kFloatLayouts;

// What the power of two tells about the power of ten, from 2^-14 on.
struct XDecimalExponent {
    f32 nextPower;  // from here on the power of ten is one higher
    i32 exponent;
};
extern const std::array<XDecimalExponent, 34> kDecimalExponents;

// The general path, for all floats.
char* PrintGeneral(char* out, f32 value);
// The fewest digits that read back as this float, where `Print` rounds to six.
char* PrintExact(char* out, f32 value);

inline char* Print(char* out, f32 value)
{
    static constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};

    const u32 bits = std::bit_cast<u32>(value);
    const f32 magnitude = std::bit_cast<f32>(bits & 0x7FFFFFFF);
    if (!(magnitude >= 1e-4f && magnitude < 999999.5f)) {
        if (magnitude != 0.0f)
            return PrintGeneral(out, value);
        std::memcpy(out, "-0", 2);
        out += bits >> 31;
        *out = '0';
        return out + 1;
    }
    *out = '-';
    out += bits >> 31;

    const XDecimalExponent& guess = kDecimalExponents[(bits >> 23 & 0xFF) - 113];
    i32 exponent = guess.exponent + (magnitude >= guess.nextPower);
    // 24 bits times a power up to 10^10 are exact in a double, so that adding 2^52
    // rounds the true value to six digits, ties to even.
    const double scaled = double{magnitude} * kPowers[5 - exponent];
    u32 mantissa = static_cast<u32>(std::bit_cast<u64>(scaled + 4503599627370496.0));
    if (mantissa == 1000000) {
        mantissa = 100000;
        ++exponent;
    }
    // Six digits, and two zeroes.
    const u64 text = kFourDigits[mantissa / 100] | u64{kFourDigits[mantissa % 100 * 100]} << 32;
    const int significant = 8 - std::countl_zero(text ^ kZeroes) / 8;
    const XFloatLayout& layout = kFloatLayouts[static_cast<std::size_t>(exponent + 5)];
    std::memcpy(out, layout.lead, 8);
    out += layout.leadSize;
    StoreWord(out, (text & layout.beforePoint) | layout.point | (text & ~layout.beforePoint) << 8);
    const int whole = layout.wholeDigits;
    return out + (significant > whole ? significant + (whole > 0) : whole);
}

}  // namespace VKT::NumberText
