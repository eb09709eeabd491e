#pragma once

#include <span>

#include "VKT/stream/TextReader.h"

namespace VKT {

// The conventions that the text forms of all classes share: keys and quoted strings.

// Reads one token and tells whether it is `key`, letters compared without regard to
// case. On a false answer `token` holds what came instead, in lower case; it is empty
// after a failure. Logs nothing.
bool ExpectKey(std::string_view key, XTextReader& in, XString& token);

// The same, and a token that is not the key is logged as an error with the name of the
// source and the number of the row that wanted it:
// "Expected near got distance [.\src\VKT\Camera:2]".
bool Expect(std::string_view key, XTextReader& in, const char* source, int row);
// Logs that message, and answers false.
bool LogWrongKey(std::string_view key, const XString& token, const char* source, int row);

// The words of an enumeration, each at the place of its number.
using XWordList = std::span<const char* const>;

// The word of a number. One outside of the list, which only damaged binary files hold,
// has that of number 0.
std::string_view WordOf(u32 number, XWordList words);

// Sets `number` to that of a word, letters compared exactly. False, and `number`
// untouched, when it is none of them.
bool FindWord(std::string_view word, XWordList words, u32& number);

// A text as the readers of quoted strings give it back: `_` stands for each double quote
// and line feed. A change is logged as a warning that names the key.
XString AsQuotable(std::string_view text, std::string_view key);

// Reads a string in double quotes behind any white space; it may hold line ends, and no
// escapes. Two quotes in a row leave `text` as it was. False when the input ends first.
//
// Kept on purpose: a word without quotes reads with its first letter doubled, up to the
// next white space.
bool ReadQuoted(XTextReader& in, XString& text);

// Reads a string in double quotes behind blanks and tabs. False when the input ends
// first; `text` then holds what came.
//
// Kept on purpose: the opening quote is taken without a look, so a word without quotes
// loses its first letter and swallows everything up to the next quote.
bool ReadQuotedUnchecked(XTextReader& in, XString& text);

}  // namespace VKT
