#pragma once

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <type_traits>

#include "VKT/base/Date.h"
#include "VKT/base/Lists.h"
#include "VKT/stream/FileVersion.h"

namespace VKT {

// The one binary stream of the library. A class says its binary layout once, field by
// field, and the same lines read, write or measure it, according to how the stream was
// opened.
//
// Everything is little-endian and packed. Each `DoData` transfers one value and answers
// how many elements it moved, 0 on failure. A failure is logged where it happens:
// "XFileIO::DoData : expected to read/write %d elements got %d".
//
// A count from a file is checked against the bytes that are left before it sizes
// anything, so that a claim that cannot be true fails as the short read it is.
class XFileIO : public XVersioned {
public:
    // Opens `path` in binary mode and owns the file. A failed open leaves no file and
    // logs nothing.
    XFileIO(const char* path, bool reading);
    // Uses an open file that stays the caller's. Its position is right again after
    // `Close` or `GetFile`.
    XFileIO(std::FILE* file, bool reading);
    // A stream that writes nowhere and adds up what a write would take: `GetMeasure`.
    static XFileIO Measuring() { return XFileIO(nullptr); }
    // One that takes all that a node holds, whatever a save would leave out, and appends the ids of
    // nodes among it to `ids`.
    static XFileIO Listing(XIndexList& ids) { return XFileIO(&ids); }
    ~XFileIO();
    XFileIO(const XFileIO&) = delete;
    XFileIO& operator=(const XFileIO&) = delete;

    // Writes what is pending and closes the file when it is owned. False when the last
    // bytes could not be written. The destructor does the same.
    bool Close();
    // The file, at the position that was reached, or null.
    std::FILE* GetFile();
    bool IsReading() const { return m_Reading; }
    bool IsWriting() const { return !m_Reading; }
    bool IsMeasuring() const { return m_Measuring; }
    bool IsListing() const { return m_Ids != nullptr; }
    // Whether there is a file and, when reading, no read has run into its end.
    bool IsValid() const { return m_File && !(m_Reading && m_AtEnd); }
    // Whether a read has run into the end of the file.
    bool IsAtEnd() const { return m_AtEnd; }
    // The position in bytes, 0 without a file. `Tell` is cut to 32 bits.
    i32 Tell() const { return static_cast<i32>(Position()); }
    i64 Position() const;
    // Moves the position by `bytes`, in either direction.
    void Skip(i64 bytes);
    // Bytes between the position and the end of the file: what a claimed count is held
    // against. The largest number when the file cannot tell its length.
    u64 Remaining();
    u64 GetMeasure() const { return m_Measure; }

    std::size_t DoData(u8& value) { return DoValue(value); }
    std::size_t DoData(u16& value) { return DoValue(value); }
    std::size_t DoData(u32& value) { return DoValue(value); }
    std::size_t DoData(i32& value) { return DoValue(value); }
    std::size_t DoData(f32& value) { return DoValue(value); }
    std::size_t DoData(bool& value);      // one byte; any byte but 0 reads as true
    std::size_t DoData(XVector3& value);  // x, y and z alone
    std::size_t DoData(XVector2& value) { return DoValue(value); }
    std::size_t DoData(XVector4& value) { return DoValue(value); }
    std::size_t DoData(XQuaternion& value) { return DoValue(value); }
    std::size_t DoData(XColour& value) { return DoValue(value); }
    std::size_t DoData(XMatrix& value) { return DoBytes(value.m, sizeof(f32), 16); }
    std::size_t DoData(XDate& value) { return DoBytes(&value, sizeof value, 1); }
    // u16 length and the characters; a longer string is cut to 65535 of them.
    std::size_t DoData(XString& value);

    // The id of another node, and a list of them: a number like any other to the file. What
    // a class moves this way is known as its references.
    std::size_t DoId(u32& id);
    std::size_t DoIds(XIndexList& ids);
    // References that this form of the file leaves out, or that memory alone holds.
    void NoteId(u32 id) const;
    void NoteIds(const XIndexList& ids) const;

    // Arrays whose count is known, moved in one transfer, of elements that stand in the
    // file as they do in memory.
    template <class T>
    std::size_t DoData(T* data, std::size_t count)
    {
        static_assert(std::is_trivially_copyable_v<T> && !std::is_same_v<T, bool>);
        if (count == 0 || count > static_cast<std::size_t>(m_End - m_Cursor) / sizeof(T))
            return DoBytes(data, sizeof(T), count);
        // Short lists are many: what the window holds takes no call.
        if (m_Reading)
            std::memcpy(data, m_Cursor, sizeof(T) * count);
        else
            std::memcpy(m_Cursor, data, sizeof(T) * count);
        m_Cursor += sizeof(T) * count;
        return count;
    }
    // 12 bytes each; the fourth float reads as 0.
    std::size_t DoData(XVector3* data, std::size_t count);

    // u32 count, then the elements; a read replaces the list's content. Answers 0 when
    // the count or an element did not come.
    template <class T>
    std::size_t DoData(XVector<T>& list)
    {
        return DoList(list, std::is_same_v<T, XVector3> ? 12 : sizeof(T));
    }
    std::size_t DoData(XStringList& list);

    // Reads or writes the count of a list of `size` elements that the caller moves
    // itself, each at least `elementBytes` long in the file. A count that the rest of
    // the file cannot hold is logged and fails.
    bool DoCount(u32& count, std::size_t size, u64 elementBytes);

    // Lists whose elements have several fields. `move(element)` transfers one, or what it
    // points to, and answers whether it came; `make()` gives a read the next one to fill,
    // where a default one will not do. A list grows with what is there; an element that
    // does not come whole leaves it again.
    //
    // A count of 32 bits, then the elements, each at least `elementBytes` long in the file;
    // a read replaces the list's content.
    template <class T, class Make, class Move>
    bool DoEach(XVector<T>& list, u64 elementBytes, Make make, Move move)
    {
        u32 count = 0;
        if (!DoCount(count, list.size(), elementBytes))
            return false;
        if (m_Reading)
            list.clear();
        return DoElements(list, count, make, move);
    }
    template <class T, class Move>
    bool DoEach(XVector<T>& list, u64 elementBytes, Move move)
    {
        return DoEach(list, elementBytes, MakeDefault<T>, move);
    }
    // The elements alone. A read appends `count` of them, a write takes all there are.
    template <class T, class Make, class Move>
    bool DoElements(XVector<T>& list, u32 count, Make make, Move move)
    {
        if (!m_Reading)
            return std::all_of(list.begin(), list.end(), [&](T& element) { return move(Content(element)); });
        for (; count > 0; --count) {
            list.push_back(make());  // filled in its place: many elements are costly to move
            if (!move(Content(list.back()))) {
                list.pop_back();
                return false;
            }
        }
        return true;
    }
    template <class T, class Move>
    bool DoElements(XVector<T>& list, u32 count, Move move)
    {
        return DoElements(list, count, MakeDefault<T>, move);
    }

private:
    explicit XFileIO(XIndexList* ids) : m_Measuring(true), m_Ids(ids) {}

    using Transfer = std::size_t (*)(void*, std::size_t, std::size_t, std::FILE*);

    template <class T>
    std::size_t DoValue(T& value)
    {
        if (static_cast<std::size_t>(m_End - m_Cursor) < sizeof(T))
            return DoBytes(&value, sizeof(T), 1);
        if (m_Reading)
            std::memcpy(&value, m_Cursor, sizeof(T));
        else
            std::memcpy(m_Cursor, &value, sizeof(T));
        m_Cursor += sizeof(T);
        return 1;
    }
    template <class List>
    std::size_t DoList(List& list, u64 elementBytes)
    {
        u32 count = 0;
        if (!DoCount(count, list.size(), elementBytes))
            return 0;
        if (m_Reading)
            list.clear();
        // A file that cannot tell its length fills the list piece by piece.
        const std::size_t step = m_Reading && m_Length < 0 ? 4096 : count;
        for (std::size_t done = 0; done < count;) {
            const std::size_t part = std::min<std::size_t>(step, count - done);
            if (m_Reading)
                list.resize(done + part);
            if (!DoData(list.data() + done, part))
                return 0;
            done += part;
        }
        return 1 + std::size_t{count};
    }

    // The content of a list's element: what an owning pointer points to, or itself.
    template <class T>
    static T& Content(T& element)
    {
        return element;
    }
    template <class T>
    static T& Content(std::unique_ptr<T>& element)
    {
        return *element;
    }
    template <class T>
    static T MakeDefault()
    {
        if constexpr (requires(T element) { typename T::element_type; })
            return std::make_unique<typename T::element_type>();
        else
            return T{};
    }

    std::size_t DoBytes(void* data, std::size_t elementSize, std::size_t count);
    std::size_t Read(u8* to, std::size_t bytes);
    std::size_t Write(const u8* from, std::size_t bytes);
    std::size_t Fill();
    bool Drain();
    void OpenWindow();
    std::size_t ReportShort(u64 wanted, u64 got);  // answers 0

    Transfer m_Op = nullptr;  // fread or fwrite
    std::FILE* m_File = nullptr;
    bool m_Reading = false;
    bool m_OwnsFile = false;
    bool m_Measuring = false;
    bool m_AtEnd = false;
    bool m_Failed = false;  // a write that was taken could not be carried out
    u64 m_Measure = 0;
    XIndexList* m_Ids = nullptr;
    i64 m_Length = -1;       // of the file, once asked for
    i64 m_FilePosition = 0;  // of m_File, while a window is open
    // What is read ahead or written behind: bytes of m_Window from m_Cursor to m_End.
    // When writing, from its begin to m_Cursor.
    std::unique_ptr<u8[]> m_Window;
    u8* m_Cursor = nullptr;
    u8* m_End = nullptr;
};

}  // namespace VKT
