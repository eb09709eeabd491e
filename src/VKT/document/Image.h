#pragma once

#include "VKT/stream/FileIO.h"

namespace VKT {

// An image of the table that a binary file carries ahead of its chunks.
struct XImage {
    u16 m_ID = 0;
    u32 m_Width = 0;  // pixels; powers of two from 2 to 32768 survive a file, others read back as 1
    u32 m_Height = 0;
    u32 m_Channels = 1;  // bytes per pixel, 1 to 4
    XString m_Name;
    XString m_Path;  // of the source image
    XVector<u8> m_Pixels;

    // One record, in both directions. A record without a name ends there; pixels stand in
    // it only when log2 of width, log2 of height and the number of channels less one are
    // all above 0, and all or none of them. False when a field did not come; the image
    // holds what came before it.
    bool DoData(XFileIO& file);
};

}  // namespace VKT
