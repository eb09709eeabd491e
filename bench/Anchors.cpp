#include "Anchors.h"

namespace Bench {
namespace {

std::FILE* Open(const char* path, const char* mode)
{
    std::FILE* const file = std::fopen(path, mode);
    if (!file)
        Fail(std::string("cannot open ") + path);
    std::setvbuf(file, nullptr, _IONBF, 0);  // the window is buffer enough
    return file;
}

}  // namespace

FromCharsReader::FromCharsReader(const char* path)
    : m_File(Open(path, "rb")),
      m_Window(std::make_unique_for_overwrite<char[]>(kWindow + 1)),
      m_Cursor(m_Window.get()),
      m_End(m_Cursor)
{
}

// Moves what is left to the front and reads on behind it.
void FromCharsReader::Refill()
{
    const std::size_t left = static_cast<std::size_t>(m_End - m_Cursor);
    std::memmove(m_Window.get(), m_Cursor, left);
    m_Cursor = m_Window.get();
    m_End = m_Cursor + left + std::fread(m_Cursor + left, 1, kWindow - left, m_File);
    *m_End = 0;
}

std::string_view FromCharsReader::Token()
{
    SkipSpaces();
    const char* const begin = m_Cursor;
    while (m_Cursor != m_End && !IsSpace(*m_Cursor))
        ++m_Cursor;
    return {begin, static_cast<std::size_t>(m_Cursor - begin)};
}

ToCharsWriter::ToCharsWriter(const char* path)
    : m_File(Open(path, "wb")),
      m_Window(std::make_unique_for_overwrite<char[]>(kWindow)),
      m_Cursor(m_Window.get())
{
}

void ToCharsWriter::Flush()
{
    const std::size_t bytes = static_cast<std::size_t>(m_Cursor - m_Window.get());
    m_Cursor = m_Window.get();
    if (std::fwrite(m_Cursor, 1, bytes, m_File) != bytes)
        Fail("a write failed");
}

}  // namespace Bench
