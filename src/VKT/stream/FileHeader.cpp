#include "VKT/stream/FileHeader.h"

#include <charconv>

namespace VKT {
namespace {

constexpr std::string_view kMark = "VKT_";
constexpr std::size_t kNumDigits = 3;

char LetterOf(XFileForm form)
{
    return form == XFileForm::kText ? 'A' : 'B';
}

}  // namespace

std::optional<XFileHeader> XFileHeader::Of(std::string_view file)
{
    return file.starts_with('|') ? OfWord(file.substr(1)) : std::nullopt;
}

std::optional<XFileHeader> XFileHeader::OfWord(std::string_view word)
{
    if (!word.starts_with(kMark))
        return std::nullopt;
    word.remove_prefix(kMark.size());
    XFileHeader header;
    header.version = 0;
    const std::string_view digits = word.substr(0, kNumDigits);
    std::from_chars(digits.data(), digits.data() + digits.size(), header.version);
    if (word.substr(digits.size()).starts_with(LetterOf(XFileForm::kText)))
        header.form = XFileForm::kText;
    return header;
}

XString XFileHeader::Word() const
{
    XString digits(kNumDigits, '0');
    u32 rest = version;
    for (std::size_t i = kNumDigits; i-- > 0; rest /= 10)
        digits[i] = static_cast<char>('0' + rest % 10);
    return XString(kMark) + digits + LetterOf(form);
}

XString XFileHeader::Text(std::string_view tail) const
{
    return '|' + Word() + '#' + XString(tail);
}

}  // namespace VKT
