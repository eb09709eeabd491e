// The extraction of numbers that the fast paths leave: long or unusual ones, what lies
// across the window's end, and what is no number. This is where the reader is a standard
// stream to the letter.

#include <cmath>

#include "VKT/stream/NumberText.h"
#include "VKT/stream/TextReader.h"

namespace VKT {

using namespace NumberText;

namespace {

// A token longer than this is extracted by single characters, so that tokens without end
// are not walked again for each number in them.
constexpr std::ptrdiff_t kLongestToken = 64;

}  // namespace

bool XTextReader::Read(bool& value)
{
    i32 number = 0;
    Read(number);
    value = number != 0;
    if (number != 0 && number != 1)
        SetFailed();
    return IsGood();
}

bool XTextReader::Read(u64& value)
{
    return Extract(value);
}

bool XTextReader::ReadLong(i32& value)
{
    return Extract(value);
}

bool XTextReader::ReadLong(u32& value)
{
    return Extract(value);
}

bool XTextReader::ReadLong(f32& value)
{
    return Extract(value);
}

template <class T>
bool XTextReader::Extract(T& value)
{
    value = T{};
    if (!StartToken())
        return false;
    char* const limit = m_Cursor + std::min(m_End - m_Cursor, kLongestToken);
    char* const end = std::find_if(m_Cursor, limit, IsSpace);
    if (end != limit && ParseLong({m_Cursor, static_cast<std::size_t>(end - m_Cursor)}, value)) {
        m_Cursor = end;
        return true;
    }
    if constexpr (std::is_same_v<T, f32>)
        return ExtractFloat(value);
    else
        return ExtractInteger(value);
}

// What num_get takes: a sign and all digits that follow, even past the largest number.
template <class T>
bool XTextReader::ExtractInteger(T& value)
{
    int next = Next();
    const bool negative = next == '-';
    const auto advance = [&] {
        ++m_Cursor;
        next = Next();
    };
    if (next == '-' || next == '+')
        advance();
    constexpr u64 kLargest = static_cast<u64>(std::numeric_limits<T>::max());
    const u64 bound = std::is_signed_v<T> && negative ? kLargest + 1 : kLargest;
    u64 magnitude = 0;
    bool hasDigits = false;
    bool isBeyond = false;
    for (; next >= 0 && IsDigit(static_cast<char>(next)); advance()) {
        const u64 digit = static_cast<u64>(next - '0');
        hasDigits = true;
        isBeyond = isBeyond || magnitude > (bound - digit) / 10;
        if (!isBeyond)
            magnitude = magnitude * 10 + digit;
    }
    value = static_cast<T>(negative ? 0 - magnitude : magnitude);
    if (isBeyond)
        value = bound == kLargest ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
    if (!hasDigits || isBeyond)
        SetFailed();
    return IsGood();
}

// What num_get takes: a sign, digits with one point, and behind a digit an exponent, with
// or without its digits. The whole of it must then be a number.
bool XTextReader::ExtractFloat(f32& value)
{
    XString text;
    int next = Next();
    const auto take = [&] {
        text += static_cast<char>(next);
        ++m_Cursor;
        next = Next();
    };
    const auto takeSign = [&] {
        if (next == '-' || next == '+')
            take();
    };
    takeSign();
    bool hasDigits = false;
    bool hasPoint = false;
    bool hasExponent = false;
    while (next >= 0) {
        if (IsDigit(static_cast<char>(next))) {
            hasDigits = true;
            take();
        } else if (next == '.' && !hasPoint && !hasExponent) {
            hasPoint = true;
            take();
        } else if ((next == 'e' || next == 'E') && hasDigits && !hasExponent) {
            hasExponent = true;
            take();
            takeSign();
        } else {
            break;
        }
    }
    if (ParseDecimal(text, value) != text.size() || text.empty()) {
        value = 0.0f;
        SetFailed();
    } else if (std::isinf(value)) {
        value = std::copysign(std::numeric_limits<f32>::max(), value);
        SetFailed();
    }
    return IsGood();
}

}  // namespace VKT
