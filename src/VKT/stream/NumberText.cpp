#include "VKT/stream/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace VKT::NumberText {

namespace {

// The power of ten of a decimal number's first digit that is not 0. `text` is digits
// with or without a point and an exponent. Far beyond any float it is only that.
i64 FindMagnitude(std::string_view text)
{
    constexpr i64 kFar = std::numeric_limits<i32>::max();
    const std::size_t mark = text.find_first_of("eE");
    const std::string_view mantissa = text.substr(0, mark);
    i64 exponent = 0;
    if (mark != text.npos) {
        std::string_view digits = text.substr(mark + 1);
        const bool negative = digits.front() == '-';
        if (!IsDigit(digits.front()))
            digits.remove_prefix(1);
        for (const char digit : digits)
            exponent = exponent < kFar ? exponent * 10 + (digit - '0') : exponent;
        exponent = negative ? -exponent : exponent;
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = std::min(mantissa.find_first_not_of("0."), mantissa.size());
    return exponent + static_cast<i64>(point) - static_cast<i64>(first);
}

template <class T>
bool ParseWhole(std::string_view token, T& value)
{
    const char* const end = token.data() + token.size();
    const std::from_chars_result result = std::from_chars(token.data(), end, value);
    return result.ec == std::errc() && result.ptr == end;
}

constexpr u64 BytesBelow(unsigned count)
{
    return (u64{1} << (8 * count)) - 1;
}

constexpr XFloatLayout Below1(const char (&lead)[9], u8 leadSize)
{
    XFloatLayout layout = {{}, ~u64{0}, 0, leadSize, 0};
    for (unsigned i = 0; i < 8; ++i)
        layout.lead[i] = lead[i];
    return layout;
}

constexpr XFloatLayout From1(u8 wholeDigits)
{
    return {{}, BytesBelow(wholeDigits), u64{'.'} << (8 * wholeDigits), 0, wholeDigits};
}

constexpr std::array<u32, 10000> MakeFourDigits()
{
    std::array<u32, 10000> texts{};
    for (u32 i = 0; i < texts.size(); ++i)
        texts[i] =
            ('0' + i / 1000) | ('0' + i / 100 % 10) << 8 | ('0' + i / 10 % 10) << 16 | ('0' + i % 10) << 24;
    return texts;
}

constexpr std::array<XDecimalExponent, 34> MakeDecimalExponents()
{
    constexpr double kPowers[] = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};
    std::array<XDecimalExponent, 34> exponents{};
    double powerOfTwo = 1.0 / (1 << 14);
    std::size_t next = 0;  // the first power of ten above
    for (XDecimalExponent& exponent : exponents) {
        while (kPowers[next] <= powerOfTwo)
            ++next;
        exponent = {static_cast<f32>(kPowers[next]), static_cast<i32>(next) - 5};
        powerOfTwo *= 2;
    }
    return exponents;
}

}  // namespace

std::size_t ParseDecimal(std::string_view text, f32& value)
{
    const bool hasSign = !text.empty() && (text.front() == '-' || text.front() == '+');
    const char* const begin = text.data() + hasSign;
    const char* const end = text.data() + text.size();
    // Neither a second sign nor the words for infinities and NaN, which from_chars knows.
    if (begin == end || !(IsDigit(*begin) || *begin == '.'))
        return 0;
    f32 magnitude = 0.0f;
    const std::from_chars_result result = std::from_chars(begin, end, magnitude);
    if (result.ec == std::errc::invalid_argument)
        return 0;
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view number(begin, static_cast<std::size_t>(result.ptr - begin));
        magnitude = FindMagnitude(number) > 0 ? std::numeric_limits<f32>::infinity() : 0.0f;
    }
    value = text.front() == '-' ? -magnitude : magnitude;
    return static_cast<std::size_t>(result.ptr - text.data());
}

bool ParseLong(std::string_view token, u32& value)
{
    return ParseWhole(token, value);
}

bool ParseLong(std::string_view token, i32& value)
{
    return ParseWhole(token, value);
}

bool ParseLong(std::string_view token, u64& value)
{
    return ParseWhole(token, value);
}

bool ParseLong(std::string_view token, f32& value)
{
    return ParseDecimal(token, value) == token.size() && std::isfinite(value);
}

char* Print(char* out, u64 value)
{
    if (value <= std::numeric_limits<u32>::max())
        return Print(out, static_cast<u32>(value));
    return PrintFour(Print(out, value / 10000), static_cast<u32>(value % 10000));
}

char* PrintGeneral(char* out, f32 value)
{
    return std::to_chars(out, out + kPrintRoom, value, std::chars_format::general, 6).ptr;
}

char* PrintExact(char* out, f32 value)
{
    return std::to_chars(out, out + kPrintRoom, value).ptr;
}

constexpr std::array<u32, 10000> kFourDigits = MakeFourDigits();

// clang-format off
constexpr std::array<XFloatLayout, 11> kFloatLayouts = {{
    Below1("0.0000\0\0", 6),
    Below1("0.000\0\0\0", 5), Below1("0.00\0\0\0\0", 4), Below1("0.0\0\0\0\0\0", 3), Below1("0.\0\0\0\0\0\0", 2),
    From1(1), From1(2), From1(3), From1(4), From1(5), From1(6),
}};
// clang-format on

constexpr std::array<XDecimalExponent, 34> kDecimalExponents = MakeDecimalExponents();

}  // namespace VKT::NumberText
