#pragma once

#include <optional>
#include <string>

#include "maxtypes.h"

// An 8-bit string that owns its buffer. Its length ends at the first null, so
// that a buffer filled through data() after Resize() counts as what it holds. One that
// was never given a text has none: data() and the conversions then answer null.
class CoreExport CStr {
public:
    CStr() = default;
    CStr(const char* text);
    CStr(const wchar_t* text);  // through the C locale's multibyte form
    CStr(const CStr&) = default;
    CStr& operator=(const CStr&) = default;
    CStr& operator=(const char* text) { return *this = CStr(text); }
    CStr& operator=(const wchar_t* text) { return *this = CStr(text); }

    char* data() { return m_Text ? m_Text->data() : nullptr; }
    const char* data() const { return m_Text ? m_Text->c_str() : nullptr; }
    operator char*() { return data(); }
    operator const char*() const { return data(); }

    int Length() const;
    int length() const { return Length(); }
    BOOL isNull() const { return Length() == 0; }
    // Makes room for `size` characters without the ending null; keeps what fits.
    void Resize(int size);

    CStr operator+(const CStr& tail) const;
    CStr operator+(const char* tail) const;
    CStr& operator+=(const CStr& tail) { return Append(tail); }
    CStr& operator+=(const char* tail);
    CStr& Append(const CStr& tail);
    CStr& remove(int position);
    CStr& remove(int position, int count);
    CStr Substr(int start, int count) const;
    char& operator[](int i) { return data()[i]; }
    char operator[](int i) const { return data()[i]; }

    // Position of a character, -1 when it isn't there.
    int first(char c) const;
    int last(char c) const;

    // Only with another one: against a literal, the conversions to characters compete.
    // One without text equals an empty one.
    int operator==(const CStr& other) const;
    int operator!=(const CStr& other) const { return !(*this == other); }
    int operator<(const CStr& other) const;

    void toUpper();
    void toLower();
    // Answers the number of characters, negative on a format error.
    int printf(const char* format, ...);

private:
    const char* Text() const { return m_Text ? m_Text->c_str() : ""; }

    std::optional<std::string> m_Text;
};

using MSTR = CStr;
#define TSTR CStr
