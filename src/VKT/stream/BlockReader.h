#pragma once

#include <type_traits>

#include "VKT/stream/TextSyntax.h"

namespace VKT {

// Reads the keys of a body by hand, in the order in which they stand, and counts them. A
// message about a wrong key names the source and the number of the key, as that of a table
// names its row.
//
// A value: what reads an entry of a list takes a copy, so that its keys have the same
// numbers in all entries. They go on from those in front of the list, and so do the keys
// behind it.
class XBlockReader {
public:
    // `rows` of the source have been read by other means, mostly by a table.
    XBlockReader(XTextReader& in, const char* source, std::size_t rows = 0)
        : m_In(&in), m_Source(source), m_Row(static_cast<int>(rows))
    {
    }

    XTextReader& In() const { return *m_In; }
    const char* GetSource() const { return m_Source; }
    // The number of the next key, for one that is checked elsewhere.
    int NextRow() { return ++m_Row; }

    // False after a wrong key, which is logged.
    bool Expect(std::string_view key) { return VKT::Expect(key, *m_In, m_Source, NextRow()); }
    // The same, and the number or word behind the key. One that fails to come is seen at the
    // next key.
    template <class T>
    bool Read(std::string_view key, T& value)
    {
        if (!Expect(key))
            return false;
        if constexpr (std::is_same_v<T, XString>)
            m_In->ReadToken(value);
        else
            m_In->Read(value);
        return true;
    }
    // Logs a word that came in place of the next key, and answers false.
    bool Refuse(std::string_view key, const XString& word)
    {
        return LogWrongKey(key, word, m_Source, NextRow());
    }

private:
    XTextReader* m_In;
    const char* m_Source;
    int m_Row;
};

}  // namespace VKT
