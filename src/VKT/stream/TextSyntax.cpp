#include "VKT/stream/TextSyntax.h"

#include <algorithm>

#include "VKT/base/Logger.h"
#include "VKT/stream/NumberText.h"

namespace VKT {

bool ExpectKey(std::string_view key, XTextReader& in, XString& token)
{
    if (in.TakeKey(key))
        return true;
    in.ReadToken(token);
    std::transform(token.begin(), token.end(), token.begin(), NumberText::ToLower);
    return std::equal(token.begin(), token.end(), key.begin(), key.end(),
                      [](char a, char b) { return a == NumberText::ToLower(b); });
}

bool Expect(std::string_view key, XTextReader& in, const char* source, int row)
{
    XString token;
    return ExpectKey(key, in, token) || LogWrongKey(key, token, source, row);
}

bool LogWrongKey(std::string_view key, const XString& token, const char* source, int row)
{
    GetLogger()->LogFormat(kError, "Expected %s got %s [%s:%d]", XString(key).c_str(), token.c_str(), source,
                           row);
    return false;
}

std::string_view WordOf(u32 number, XWordList words)
{
    return words[number < words.size() ? number : 0];
}

bool FindWord(std::string_view word, XWordList words, u32& number)
{
    const auto found = std::find(words.begin(), words.end(), word);
    if (found == words.end())
        return false;
    number = static_cast<u32>(found - words.begin());
    return true;
}

XString AsQuotable(std::string_view text, std::string_view key)
{
    XString quotable(text);
    for (char& c : quotable)
        if (c == '"' || c == '\n')
            c = '_';
    if (quotable != text)
        GetLogger()->LogFormat(kWarning, "%s is written as \"%s\": text files quote it in one line",
                               XString(key).c_str(), quotable.c_str());
    return quotable;
}

bool ReadQuoted(XTextReader& in, XString& text)
{
    int next = in.Get();
    while (next == ' ' || next == '\t' || next == '\n' || next == '\r')
        next = in.Get();
    if (next < 0)
        return false;
    if (next == '"') {
        next = in.Get();
        if (next == '"')
            return true;
        text.clear();
        for (; next >= 0 && next != '"'; next = in.Get())
            text += static_cast<char>(next);
        return next >= 0;
    }
    text = static_cast<char>(next);
    while (next != '\t' && next != '\n' && next != '\r') {
        text += static_cast<char>(next);
        next = in.Get();
        if (next < 0)
            return false;
        if (next == ' ')
            return true;
    }
    return true;
}

bool ReadQuotedUnchecked(XTextReader& in, XString& text)
{
    text.clear();
    int next = in.Get();
    while (next == ' ' || next == '\t')
        next = in.Get();
    if (next < 0)
        return false;
    for (next = in.Get(); next >= 0 && next != '"'; next = in.Get())
        text += static_cast<char>(next);
    return next >= 0;
}

}  // namespace VKT
