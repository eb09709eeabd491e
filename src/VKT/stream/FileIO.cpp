#include "VKT/stream/FileIO.h"

#include <algorithm>
#include <limits>

#include "VKT/base/Logger.h"
#include "VKT/stream/Platform.h"

namespace VKT {
namespace {

constexpr std::size_t kWindowSize = 65536;
constexpr u64 kUnknownLength = std::numeric_limits<u64>::max();

std::size_t WriteTo(void* data, std::size_t size, std::size_t count, std::FILE* file)
{
    return std::fwrite(data, size, count, file);
}

}  // namespace

XFileIO::XFileIO(const char* path, bool reading)
    : m_Op(reading ? std::fread : WriteTo),
      m_File(std::fopen(path, reading ? "rb" : "wb")),
      m_Reading(reading),
      m_OwnsFile(true)
{
    if (m_File)
        std::setvbuf(m_File, nullptr, _IONBF, 0);  // the window is buffer enough
}

XFileIO::XFileIO(std::FILE* file, bool reading)
    : m_Op(reading ? std::fread : WriteTo), m_File(file), m_Reading(reading)
{
}

XFileIO::~XFileIO()
{
    Close();
}

bool XFileIO::Close()
{
    bool ok = true;
    if (m_File) {
        GetFile();
        ok = !m_Failed;
        if (m_OwnsFile)
            ok = std::fclose(m_File) == 0 && ok;
    }
    m_File = nullptr;
    m_Op = nullptr;
    return ok;
}

std::FILE* XFileIO::GetFile()
{
    if (!m_File || !m_Window)
        return m_File;
    if (!m_Reading)
        Drain();
    else if (m_Cursor != m_End)
        SeekFile(m_File, m_Cursor - m_End, SEEK_CUR);
    m_Window.reset();  // the caller may move the file: the next transfer starts afresh
    m_Cursor = m_End = nullptr;
    return m_File;
}

i64 XFileIO::Position() const
{
    if (!m_File)
        return 0;
    if (!m_Window)
        return TellFile(m_File);
    return m_Reading ? m_FilePosition - (m_End - m_Cursor) : m_FilePosition + (m_Cursor - m_Window.get());
}

void XFileIO::Skip(i64 bytes)
{
    if (!m_File)
        return;
    if (m_Reading && bytes >= m_Window.get() - m_Cursor && bytes <= m_End - m_Cursor) {
        m_Cursor += bytes;  // within the window, in either direction
    } else {
        GetFile();
        SeekFile(m_File, bytes, SEEK_CUR);
    }
    m_AtEnd = false;
}

u64 XFileIO::Remaining()
{
    if (!m_File)
        return 0;
    if (m_Length < 0) {
        const i64 here = TellFile(m_File);
        if (here < 0 || !SeekFile(m_File, 0, SEEK_END))
            return kUnknownLength;
        m_Length = TellFile(m_File);
        SeekFile(m_File, here, SEEK_SET);
    }
    return static_cast<u64>(std::max<i64>(0, m_Length - Position()));
}

void XFileIO::OpenWindow()
{
    m_Window = std::make_unique_for_overwrite<u8[]>(kWindowSize);
    m_Cursor = m_Window.get();
    m_End = m_Reading ? m_Cursor : m_Cursor + kWindowSize;
    m_FilePosition = TellFile(m_File);
}

// Moves what is left to the front of the window and reads on behind it. Answers how
// many bytes the window holds.
std::size_t XFileIO::Fill()
{
    if (!m_Window)
        OpenWindow();
    const std::size_t left = static_cast<std::size_t>(m_End - m_Cursor);
    std::memmove(m_Window.get(), m_Cursor, left);
    m_Cursor = m_Window.get();
    const std::size_t more = m_Op(m_Cursor + left, 1, kWindowSize - left, m_File);
    m_FilePosition += static_cast<i64>(more);
    m_End = m_Cursor + left + more;
    return static_cast<std::size_t>(m_End - m_Cursor);
}

bool XFileIO::Drain()
{
    const std::size_t pending = static_cast<std::size_t>(m_Cursor - m_Window.get());
    m_Cursor = m_Window.get();
    const std::size_t written = m_Op(m_Cursor, 1, pending, m_File);
    m_FilePosition += static_cast<i64>(written);
    if (written == pending)
        return true;
    m_Failed = true;
    ReportShort(pending, written);
    return false;
}

std::size_t XFileIO::Read(u8* to, std::size_t bytes)
{
    if (!m_Window)
        OpenWindow();
    std::size_t done = 0;
    while (done < bytes) {
        const std::size_t held = static_cast<std::size_t>(m_End - m_Cursor);
        if (held > 0) {
            const std::size_t part = std::min(held, bytes - done);
            std::memcpy(to + done, m_Cursor, part);
            m_Cursor += part;
            done += part;
        } else if (bytes - done >= kWindowSize) {
            m_Cursor = m_End = m_Window.get();
            const std::size_t part = m_Op(to + done, 1, bytes - done, m_File);  // straight to its place
            m_FilePosition += static_cast<i64>(part);
            done += part;
            if (part == 0)
                break;
        } else if (Fill() == 0) {
            break;
        }
    }
    m_AtEnd = m_AtEnd || done < bytes;
    return done;
}

std::size_t XFileIO::Write(const u8* from, std::size_t bytes)
{
    if (!m_Window)
        OpenWindow();
    if (bytes > static_cast<std::size_t>(m_End - m_Cursor) && !Drain())
        return 0;
    if (bytes >= kWindowSize) {
        const std::size_t written = m_Op(const_cast<u8*>(from), 1, bytes, m_File);
        m_FilePosition += static_cast<i64>(written);
        return written;
    }
    std::memcpy(m_Cursor, from, bytes);
    m_Cursor += bytes;
    return bytes;
}

std::size_t XFileIO::DoBytes(void* data, std::size_t elementSize, std::size_t count)
{
    const std::size_t bytes = elementSize * count;
    if (m_Measuring) {
        m_Measure += bytes;
        return count;
    }
    if (!m_File)
        return ReportShort(count, 0);
    if (bytes == 0)
        return count;
    u8* place = static_cast<u8*>(data);
    const std::size_t moved = (m_Reading ? Read(place, bytes) : Write(place, bytes)) / elementSize;
    return moved == count ? count : ReportShort(count, moved);
}

std::size_t XFileIO::ReportShort(u64 wanted, u64 got)
{
    GetLogger()->LogFormat(kError, "XFileIO::DoData : expected to read/write %d elements got %d",
                           static_cast<int>(wanted), static_cast<int>(got));
    return 0;
}

std::size_t XFileIO::DoData(bool& value)
{
    u8 byte = value;
    const std::size_t moved = DoValue(byte);
    value = moved ? byte != 0 : value;
    return moved;
}

std::size_t XFileIO::DoId(u32& id)
{
    NoteId(id);
    return DoData(id);
}

void XFileIO::NoteId(u32 id) const
{
    if (m_Ids)
        m_Ids->push_back(id);
}

std::size_t XFileIO::DoIds(XIndexList& ids)
{
    NoteIds(ids);
    return DoData(ids);
}

void XFileIO::NoteIds(const XIndexList& ids) const
{
    if (m_Ids)
        m_Ids->insert(m_Ids->end(), ids.begin(), ids.end());
}

std::size_t XFileIO::DoData(XVector3& value)
{
    f32 stored[3] = {value.x, value.y, value.z};
    const std::size_t moved = DoBytes(stored, sizeof(f32), 3);
    if (m_Reading && moved)
        value = {stored[0], stored[1], stored[2], 0.0f};
    return moved;
}

std::size_t XFileIO::DoData(XVector3* data, std::size_t count)
{
    constexpr std::size_t kStored = 3 * sizeof(f32);
    if (m_Measuring) {
        m_Measure += kStored * count;
        return count;
    }
    if (!m_File)
        return ReportShort(count, 0);
    if (!m_Window)
        OpenWindow();
    for (std::size_t done = 0; done < count;) {
        std::size_t room = static_cast<std::size_t>(m_End - m_Cursor) / kStored;
        if (room == 0) {
            if (m_Reading ? Fill() < kStored : !Drain()) {
                m_AtEnd = m_Reading;
                m_Cursor = m_Reading ? m_End : m_Cursor;
                return ReportShort(count, done);
            }
            continue;
        }
        room = std::min(room, count - done);
        if (m_Reading) {
            for (std::size_t i = 0; i < room; ++i, m_Cursor += kStored) {
                std::memcpy(&data[done + i], m_Cursor, kStored);
                data[done + i].w = 0.0f;
            }
        } else {
            for (std::size_t i = 0; i < room; ++i, m_Cursor += kStored)
                std::memcpy(m_Cursor, &data[done + i], kStored);
        }
        done += room;
    }
    return count;
}

std::size_t XFileIO::DoData(XString& value)
{
    u16 length = static_cast<u16>(std::min<std::size_t>(value.size(), 0xFFFF));
    if (!DoData(length))
        return 0;
    if (m_Reading)
        value.resize(length);
    if (m_Measuring) {
        m_Measure += length;
        return 1;
    }
    u8* characters = reinterpret_cast<u8*>(value.data());
    const std::size_t moved = length == 0 ? 0
                              : m_Reading ? Read(characters, length)
                                          : Write(characters, length);
    return moved == length ? 1 : ReportShort(1, 0);  // the characters count one by one
}

std::size_t XFileIO::DoData(XStringList& list)
{
    const bool came = DoEach(list, sizeof(u16), [this](XString& text) { return DoData(text) != 0; });
    return came ? 1 + list.size() : 0;
}

bool XFileIO::DoCount(u32& count, std::size_t size, u64 elementBytes)
{
    count = static_cast<u32>(size);
    if (!DoData(count))
        return false;
    if (!m_Reading)
        return true;
    const u64 held = static_cast<u64>(m_End - m_Cursor);
    if (count <= held / elementBytes)
        return true;
    const u64 left = Remaining();
    if (count <= left / elementBytes)
        return true;
    m_AtEnd = true;
    ReportShort(count, left / elementBytes);
    return false;
}

}  // namespace VKT
