#pragma once

#include <optional>
#include <string_view>

#include "VKT/base/Lists.h"
#include "VKT/stream/FileVersion.h"

namespace VKT {

enum class XFileForm : u8 { kText, kBinary };

// What a scene file says of itself first of all: a mark that it is one, its version in three
// digits, and the letter of its form, A for text. A file begins with a bar, that word, and a
// tail that nobody reads: "|VKT_004A#0000#00000000|". The word alone stands in the record of
// information too.
struct XFileHeader {
    static constexpr std::size_t kSize = 24;  // bytes; the line feed of a text file not counted

    u32 version = kCurrentVersion;
    XFileForm form = XFileForm::kBinary;  // what any letter but A means

    // From the start of a file, or of a line with the word. Nothing without the mark; digits that
    // are none end the version.
    static std::optional<XFileHeader> Of(std::string_view file);
    static std::optional<XFileHeader> OfWord(std::string_view word);

    XString Word() const;                       // "VKT_004A"
    XString Text(std::string_view tail) const;  // with bars, word and tail
};

}  // namespace VKT
