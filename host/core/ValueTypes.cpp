// The small value types of the SDK: intervals, boxes, strings.

#include <algorithm>
#include <cctype>
#include <cfloat>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "box3.h"
#include "interval.h"
#include "matrix3.h"
#include "strclass.h"

Interval::Interval(TimeValue s, TimeValue e) : start(std::min(s, e)), end(std::max(s, e)) {}

Interval Interval::operator&(const Interval other) const
{
    if (IsNever() || other.IsNever())
        return NEVER;
    const TimeValue first = std::max(start, other.start);
    const TimeValue last = std::min(end, other.end);
    return first <= last ? Interval(first, last) : NEVER;
}

void Box3::Init()
{
    pmin = Point3(FLT_MAX, FLT_MAX, FLT_MAX);
    pmax = -pmin;
}

void Box3::MakeCube(const Point3& p, float side)
{
    const Point3 half = Point3(side, side, side) / 2.0f;
    pmin = p - half;
    pmax = p + half;
}

Box3& Box3::operator+=(const Point3& p)
{
    for (int i = 0; i < 3; ++i) {
        pmin[i] = std::min(pmin[i], p[i]);
        pmax[i] = std::max(pmax[i], p[i]);
    }
    return *this;
}

Box3& Box3::operator+=(const Box3& b)
{
    return b.IsEmpty() ? *this : (*this += b.pmin) += b.pmax;
}

Box3 Box3::operator*(const Matrix3& tm) const
{
    Box3 box;
    if (!IsEmpty())
        for (int corner = 0; corner < 8; ++corner)
            box += Point3(corner & 1 ? pmax.x : pmin.x, corner & 2 ? pmax.y : pmin.y,
                          corner & 4 ? pmax.z : pmin.z) *
                   tm;
    return box;
}

CStr::CStr(const char* text)
{
    if (text)
        m_Text = text;
}

CStr::CStr(const wchar_t* text)
{
    if (!text)
        return;
    m_Text.emplace();
    std::mbstate_t state{};
    char bytes[MB_LEN_MAX];
    for (; *text; ++text) {
        const std::size_t length = std::wcrtomb(bytes, *text, &state);
        m_Text->append(length == static_cast<std::size_t>(-1) ? "?" : std::string(bytes, length));
    }
}

int CStr::Length() const
{
    return static_cast<int>(std::strlen(Text()));
}

void CStr::Resize(int size)
{
    if (!m_Text)
        m_Text.emplace();
    m_Text->resize(static_cast<std::size_t>(std::max(size, 0)));
}

CStr CStr::operator+(const CStr& tail) const
{
    return CStr(*this).Append(tail);
}

CStr CStr::operator+(const char* tail) const
{
    return CStr(*this) += tail;
}

CStr& CStr::operator+=(const char* tail)
{
    return Append(CStr(tail));
}

CStr& CStr::Append(const CStr& tail)
{
    if (tail.m_Text)
        m_Text = std::string(Text()) + tail.Text();
    return *this;
}

CStr& CStr::remove(int position)
{
    return remove(position, Length());
}

CStr& CStr::remove(int position, int count)
{
    const int length = Length();
    if (position >= 0 && position < length && count > 0)
        m_Text->erase(static_cast<std::size_t>(position),
                      static_cast<std::size_t>(std::min(count, length - position)));
    return *this;
}

CStr CStr::Substr(int start, int count) const
{
    const int length = Length();
    if (start < 0 || start >= length || count <= 0)
        return CStr("");
    return CStr(
        std::string(Text() + start, static_cast<std::size_t>(std::min(count, length - start))).c_str());
}

int CStr::first(char c) const
{
    const char* found = c ? std::strchr(Text(), c) : nullptr;
    return found ? static_cast<int>(found - Text()) : -1;
}

int CStr::last(char c) const
{
    const char* found = c ? std::strrchr(Text(), c) : nullptr;
    return found ? static_cast<int>(found - Text()) : -1;
}

int CStr::operator==(const CStr& other) const
{
    return std::strcmp(Text(), other.Text()) == 0;
}

int CStr::operator<(const CStr& other) const
{
    return std::strcmp(Text(), other.Text()) < 0;
}

void CStr::toUpper()
{
    for (int i = Length() - 1; i >= 0; --i)
        data()[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(data()[i])));
}

void CStr::toLower()
{
    for (int i = Length() - 1; i >= 0; --i)
        data()[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(data()[i])));
}

int CStr::printf(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    if (length >= 0) {
        Resize(length);
        std::vsnprintf(data(), static_cast<std::size_t>(length) + 1, format, again);
    }
    va_end(again);
    return length;
}
