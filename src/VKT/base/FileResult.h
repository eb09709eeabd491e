#pragma once

namespace VKT {

// What a load or a save came to.
enum XFileResult {
    FileOk = 0,
    FileTooNew = 2,      // the file's version is newer than the library's
    FileOpenFailed = 3,  // it could not be opened, or is empty
    FileCorrupt = 4,     // a chunk failed; the document holds what was read before it
    FileNotVkt = 5,      // no scene file
};

}  // namespace VKT
